#include "actions/extract_entries.h"

#include <algorithm>

#include "archive/decompress.h"
#include "archive/destination.h"
#include "archive/unpack.h"
#include "base/file_error.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file_numbers.h"

namespace oravin {

namespace {

constexpr std::size_t extractBlock = std::size_t{1} << 20;

/// Thrown to leave the file that is being written when the user asks for a stop.
struct Stopped {};

struct Extraction {
  Host& host;
  File& hog;
  ExtractionMode mode;
  const ExtractionStep& step;
  Destination destination;
  std::size_t done = 0;  ///< entries so far, for the progress
  std::size_t total = 0;
  Bytes block = {};        ///< stored bytes being copied or unpacked
  Unpacked unpacked = {};  ///< reused by every compressed entry
  ExtractionResult result = {};
  std::vector<std::string> notWritten = {};
};

void StopIfAsked(Host& host) {
  if (StopAsked(host)) throw Stopped();
}

/// Reads the stored bytes of a compressed entry, up to the longest possible stream.
void ReadCompressed(Extraction& extraction, const HogEntry& entry) {
  constexpr std::uint64_t header = 5;
  if (entry.Size < header) throw FileError("could not unpack", Presentable(entry.Name), "it is too short");
  const std::uint64_t size = Read24BE(extraction.hog, std::uint64_t{entry.Offset} + 2);
  extraction.block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(entry.Size, LongestStream(size))));
  Get(extraction.hog, entry.Offset, extraction.block);
}

void PutStored(Extraction& extraction, const HogEntry& entry, File& extracted) {
  for (std::uint64_t at = 0; at < entry.Size; at += extractBlock) {
    if (at > 0) StopIfAsked(extraction.host);
    extraction.block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(extractBlock, entry.Size - at)));
    Get(extraction.hog, entry.Offset + at, extraction.block);
    Put(extracted, at, extraction.block);
  }
}

void WriteStored(Extraction& extraction, const HogEntry& entry, const EntryPath& path) {
  WriteExtracted(extraction.host.files, extraction.destination, path,
                 [&](File& extracted) { PutStored(extraction, entry, extracted); });
  ++extraction.result.files;
}

void WriteUnpacked(Extraction& extraction, const HogEntry& entry, const EntryPath& path) {
  ReadCompressed(extraction, entry);
  Decompress(extraction.block, extraction.unpacked, Presentable(entry.Name));
  WriteExtracted(extraction.host.files, extraction.destination, path, [&](File& extracted) {
    if (extraction.unpacked.size > 0) Put(extracted, 0, extraction.unpacked.Span());
  });
  ++extraction.result.files;
}

void ReportStep(Extraction& extraction, const HogEntry& entry, bool unpacking) {
  extraction.step(entry, unpacking);
  ShowProgress(extraction.host, ExtractionText(entry.Name, unpacking), static_cast<int>(extraction.done),
               static_cast<int>(extraction.total));
}

Answer AskAboutStored(Extraction& extraction, const HogEntry& entry) {
  const Message box{"Error unpacking " + Presentable(entry.Name) + " file not compressed. Do you want to extract?",
                    programTitle, Icon::question, Buttons::yesNoCancel};
  return extraction.host.desk.showBox(box);
}

/// @return false when the extraction is to end here
bool ExtractEntry(Extraction& extraction, const HogEntry& entry) {
  const EntryPath path = PathOfEntry(entry.Name);
  const std::string whyNot = WhyNotExtracted(extraction.host.files, extraction.destination, path);
  if (!whyNot.empty()) {
    extraction.notWritten.push_back(Presentable(entry.Name) + ": " + whyNot);
    return true;
  }
  if (!LiesInside(extraction.hog, entry)) {
    throw FileError("could not extract", Presentable(entry.Name), "its place in the archive lies past that file's end",
                    ErrorKind::outside);
  }
  const bool unpack = extraction.mode == ExtractionMode::unpacked;
  if (unpack && IsCompressed(extraction.hog, entry)) {
    ReportStep(extraction, entry, true);
    WriteUnpacked(extraction, entry, path);
    return true;
  }
  if (unpack) {
    const Answer answer = AskAboutStored(extraction, entry);
    if (answer == Answer::none) return false;  // as Cancel, but nobody has declined, so an older file stays
    if (answer != Answer::yes) {
      // Intentional: an older file is deleted too. A user who declines the stored bytes must not take it for this
      // entry.
      EraseExtracted(extraction.host.files, extraction.destination, path);
      return answer == Answer::no;
    }
  }
  ReportStep(extraction, entry, false);
  WriteStored(extraction, entry, path);
  return true;
}

ExtractionEnd ExtractAll(Extraction& extraction, const OpenArchive& archive, const std::vector<std::size_t>& entries) {
  try {
    for (const std::size_t index : entries) {
      StopIfAsked(extraction.host);
      if (!ExtractEntry(extraction, archive.entries.at(index))) return ExtractionEnd::cancelled;
      ++extraction.done;
    }
  } catch (const Stopped&) {
    return ExtractionEnd::stopped;
  }
  return ExtractionEnd::complete;
}

}  // namespace

std::string ExtractionText(const std::string& entry, bool unpacking) {
  return (unpacking ? "Unpacking and Extracting " : "Extracting ") + Presentable(entry);
}

ExtractionResult ExtractEntries(Host& host, OpenArchive& archive, const std::vector<std::size_t>& entries,
                                const std::string& destination, ExtractionMode mode, const ExtractionStep& step) {
  Extraction extraction{host, archive.file, mode, step, DestinationAt(host.files, destination, archive.path)};
  extraction.total = entries.size();
  extraction.result.end = ExtractionEnd::failed;
  const char* handler = mode == ExtractionMode::stored ? "cmdExtract_Click()" : "cmdUnpackExtract_Click()";
  Trap(host, handler, [&] { extraction.result.end = ExtractAll(extraction, archive, entries); });
  EndProgress(host);
  if (!extraction.notWritten.empty()) {
    Show(host, "These files were not extracted:" + Listed(extraction.notWritten), Icon::exclamation);
  }
  return extraction.result;
}

}  // namespace oravin

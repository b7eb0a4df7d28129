#include "tabs/archive_extract.h"

#include <algorithm>

#include "archive/decompress.h"
#include "archive/destination.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

constexpr std::size_t extractBlock = std::size_t{1} << 20;

/// Thrown to leave the file that is being written when the person asks for a stop.
struct Stopped {};

enum class Way { stored, unpacked };
enum class End { complete, stopped, cancelled };

/// One extraction.
struct Extraction {
  Host& host;
  HogTab& tab;
  Way way;
  Destination destination;
  Bytes block;         ///< stored bytes on their way
  Unpacked unpacked;   ///< memory for unpacked ones
  unsigned files = 0;  ///< written so far
  std::vector<std::string> notWritten;
};

void StopIfAsked(Host& host) {
  if (StopAsked(host)) throw Stopped();
}

/// Reads the stored bytes of a compressed entry, as far as they can count.
void ReadCompressed(Extraction& extraction, const HogEntry& entry) {
  File& hog = extraction.tab.archive.file;
  constexpr std::uint64_t header = 5;
  if (entry.Size < header) throw FileError("could not unpack", Presentable(entry.Name), "it is too short");
  const std::uint64_t size = Read24BE(hog, std::uint64_t{entry.Offset} + 2);
  extraction.block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(entry.Size, LongestStream(size))));
  Get(hog, entry.Offset, extraction.block);
}

void PutStored(Extraction& extraction, const HogEntry& entry, File& extracted) {
  for (std::uint64_t at = 0; at < entry.Size; at += extractBlock) {
    if (at > 0) StopIfAsked(extraction.host);
    extraction.block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(extractBlock, entry.Size - at)));
    Get(extraction.tab.archive.file, entry.Offset + at, extraction.block);
    Put(extracted, at, extraction.block);
  }
}

void WriteStored(Extraction& extraction, const HogEntry& entry, const EntryPath& path) {
  WriteExtracted(extraction.host.files, extraction.destination, path,
                 [&](File& extracted) { PutStored(extraction, entry, extracted); });
  ++extraction.files;
}

void WriteUnpacked(Extraction& extraction, const HogEntry& entry, const EntryPath& path) {
  ReadCompressed(extraction, entry);
  Decompress(extraction.block, extraction.unpacked, Presentable(entry.Name));
  WriteExtracted(extraction.host.files, extraction.destination, path, [&](File& extracted) {
    if (extraction.unpacked.size > 0) Put(extracted, 0, extraction.unpacked.Span());
  });
  ++extraction.files;
}

void Say(Extraction& extraction, const std::string& text, std::size_t done, std::size_t total) {
  extraction.tab.lblFilePath.caption = text;
  ShowProgress(extraction.host, text, static_cast<int>(done), static_cast<int>(total));
}

/// What is answered about an entry that is not compressed.
Answer AskAboutStored(Extraction& extraction, const HogEntry& entry) {
  const Message box{"Error unpacking " + Presentable(entry.Name) + " file not compressed. Do you want to extract?",
                    programTitle, Icon::question, Buttons::yesNoCancel};
  return extraction.host.desk.showBox(box);
}

/// @return false when the person wants no more
bool ExtractEntry(Extraction& extraction, const HogEntry& entry, std::size_t done, std::size_t total) {
  File& hog = extraction.tab.archive.file;
  const EntryPath path = PathOfEntry(entry.Name);
  const std::string whyNot = WhyNotExtracted(extraction.host.files, extraction.destination, path);
  if (!whyNot.empty()) {
    extraction.notWritten.push_back(Presentable(entry.Name) + ": " + whyNot);
    return true;
  }
  const std::string outside = WhyNotInside(hog, entry);
  if (!outside.empty()) throw FileError("could not extract", Presentable(entry.Name), outside);
  if (extraction.way == Way::unpacked && IsCompressed(hog, entry)) {
    Say(extraction, "Unpacking and Extracting " + Presentable(entry.Name), done, total);
    WriteUnpacked(extraction, entry, path);
    return true;
  }
  if (extraction.way == Way::unpacked) {
    const Answer answer = AskAboutStored(extraction, entry);
    if (answer == Answer::none) return false;  // as Cancel, but nobody has declined, so an older file stays
    if (answer != Answer::yes) {
      // Intentional: also a file that lay there before is deleted. Whoever declines the stored bytes must not take an
      // older file of that name for this entry.
      EraseExtracted(extraction.host.files, extraction.destination, path);
      return answer == Answer::no;
    }
  }
  Say(extraction, "Extracting " + Presentable(entry.Name), done, total);
  WriteStored(extraction, entry, path);
  return true;
}

End ExtractSelected(Extraction& extraction) {
  std::vector<const ListRow*> rows;
  for (const ListRow& row : extraction.tab.hogList.rows) {
    if (row.selected) rows.push_back(&row);
  }
  try {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      StopIfAsked(extraction.host);
      if (!ExtractEntry(extraction, EntryOf(extraction.tab, *rows[i]), i, rows.size())) return End::cancelled;
    }
  } catch (const Stopped&) {
    return End::stopped;
  }
  return End::complete;
}

void TellNotWritten(Extraction& extraction) {
  if (extraction.notWritten.empty()) return;
  Show(extraction.host, "These files were not extracted:" + Listed(extraction.notWritten), Icon::exclamation);
}

/// @param procedure the handler's name, for its error trap
/// @param complete what the closing box says
void Extract(Host& host, HogTab& tab, Way way, const char* procedure, const char* complete) {
  if (!IsArchiveOpen(tab)) return;
  TrimInPlace(tab.txtHogDest.text);
  if (!FolderExists(host.files, tab.txtHogDest.text)) {
    Show(host, "Destination path doesn't exist", Icon::none);
    return;
  }
  tab.txtHogDest.text = AddBackslash(tab.txtHogDest.text);
  Extraction extraction{host, tab, way, DestinationAt(host.files, tab.txtHogDest.text, tab.archive.path),
                        {},   {},  0,   {}};
  End end = End::complete;
  const bool whole = Trap(host, procedure, [&] { end = ExtractSelected(extraction); });
  EndProgress(host);
  TellNotWritten(extraction);
  tab.filesExtracted = extraction.files;
  const std::string files = Grouped(extraction.files) + " file(s)";
  tab.lblFilePath.caption = files + " extracted to " + tab.txtHogDest.text;
  if (!whole) return;
  switch (end) {
    case End::cancelled:
      return Show(host, "Exiting unpack / extract function", Icon::none);
    case End::stopped:
      return Show(host, "You stopped the extraction. " + files + " were extracted before.", Icon::information);
    case End::complete:
      tab.lblHogFiles.caption = std::to_string(extraction.files) + " file(s)";
      ShowSuccess(host, complete, Icon::information);
  }
}

}  // namespace

bool IsCompressed(File& hog, const HogEntry& entry) {
  return entry.Size >= 2 && ReadWordBE(hog, entry.Offset) == compressedSignature;
}

std::string WhyNotInside(const File& hog, const HogEntry& entry) {
  const bool inside = std::uint64_t{entry.Offset} + entry.Size <= hog.length;
  return inside ? std::string() : "its place in the archive lies past that file's end";
}

void cmdExtract_Click(Host& host, HogTab& tab) {
  Extract(host, tab, Way::stored, "cmdExtract_Click()", "Extraction Complete");
}

void cmdUnpackExtract_Click(Host& host, HogTab& tab) {
  Extract(host, tab, Way::unpacked, "cmdUnpackExtract_Click()", "Unpacking and extraction Complete");
}

}  // namespace oravin

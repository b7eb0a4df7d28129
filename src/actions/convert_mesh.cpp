#include "actions/convert_mesh.h"

#include <array>
#include <vector>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "platform/converter.h"
#include "platform/current_folder.h"
#include "platform/native_path.h"

namespace oravin {

namespace {

constexpr const char* resultTitle = ".3ds to SL Converter";

/// What each result code of the library is shown as; every other code as an empty message.
constexpr std::array<const char*, 4> resultTexts = {
    "Conversion Successful!",
    "Error: Can't find texture coordinates!",
    "Error: Problem reading texture coordinates! Break!",
    "Error: Can't open file!",
};

/// The text's characters in an array of one element more; the last one stays 0.
std::vector<char> ZeroEnded(const std::string& text) {
  std::vector<char> characters(text.size() + 1);
  text.copy(characters.data(), text.size());
  return characters;
}

void Refuse(Host& host, const std::string& text) { Show(host, text, Icon::exclamation, meshConverterTitle); }

void ShowResult(Host& host, std::int32_t code) {
  if (code == 0) {
    ShowSuccess(host, resultTexts[0], Icon::exclamation, resultTitle);
    return;
  }
  const bool known = code > 0 && code < static_cast<std::int32_t>(resultTexts.size());
  Show(host, known ? resultTexts.at(static_cast<std::size_t>(code)) : "", Icon::exclamation, resultTitle);
}

}  // namespace

std::optional<std::int32_t> ConvertMesh(Host& host, const Installation& installation, const std::string& source,
                                        const std::string& options, const std::string& destination) {
  // Absolute paths: the current folder changes below.
  std::string from = platform::FromTheRoot(Trim(source));
  std::string to = platform::FromTheRoot(Trim(destination));
  if (!FileExists(host.files, from)) {
    Refuse(host, "File not Found");
    return std::nullopt;
  }
  if (IsSameFile(host.files, from, to)) {
    Refuse(host, "The destination is the source file itself. Nothing was converted.");
    return std::nullopt;
  }
  platform::SetCurrentFolder(installation.ProgramPath);
  // Loaded before an existing destination is deleted: without the library that file would be lost for nothing.
  const platform::Converter converter(installation.programFile(platform::converterLibrary));
  if (!converter.whyNot.empty()) {
    Refuse(host, "The converter library " + std::string(platform::converterLibrary) + " cannot be used: " +
                     converter.whyNot + ".\nIt is no part of Oravin and belongs into Oravin's own folder, " +
                     installation.ProgramPath + "\nNothing was converted.");
    return std::nullopt;
  }
  const bool free = Trap(host, "m3DtoSL", [&] {
    if (FileExists(host.files, to)) EraseFile(host.files, to);
  });
  if (!free) return std::nullopt;
  const std::vector<char> sourceText = ZeroEnded(platform::ToNativePath(from));
  const std::vector<char> optionText = ZeroEnded(LowerCase(Trim(options)));
  const std::vector<char> destinationText = ZeroEnded(platform::ToNativePath(to));
  const std::int32_t code = platform::Convert(converter, sourceText.data(), optionText.data(), destinationText.data());
  ShowResult(host, code);
  return code;
}

}  // namespace oravin

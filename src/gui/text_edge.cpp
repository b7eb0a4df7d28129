#include "gui/text_edge.h"

#include "base/text.h"
#include "platform/native_path.h"

namespace oravin::gui {

wxString ToScreen(std::string_view text) { return wxString::FromUTF8(ToUtf8(text)); }

std::string FromScreen(const wxString& text) { return FromUtf8(text.utf8_string()); }

wxString ToDialogPath(const std::string& windowsPath) {
  if (platform::nativePathsAreUtf8) return wxString::FromUTF8(platform::ToNativePath(windowsPath));
  return {platform::ToNativePath(windowsPath).c_str(), *wxConvFileName};
}

std::string FromDialogPath(const wxString& path) {
  if (platform::nativePathsAreUtf8) return platform::ToWindowsPath(path.utf8_string());
  return platform::ToWindowsPath(path.ToStdString(*wxConvFileName));
}

}  // namespace oravin::gui

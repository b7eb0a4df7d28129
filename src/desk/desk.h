#pragma once

#include <functional>
#include <string>

#include "desk/message_box.h"

namespace oravin {

/// Settings of an open-file dialog.
struct FileQuestion {
  std::string title;
  std::string folder;  ///< the initial folder, ending in a backslash
  std::string name;    ///< the proposed file name
  std::string filter;  ///< "Text *.ext|*.ext|All Files *.*|*.*": alternating texts and patterns
};

/// Progress of a long action.
struct Progress {
  std::string text;  ///< the current step; empty if no action runs
  int done = 0;
  int total = 0;  ///< 0 if no action runs
};

/// Access to the user. Each front end sets these; those that it does not support stay empty.
struct Desk {
  std::function<Answer(const Message&)> showBox;
  std::function<std::string(const std::string& prompt)> browseForFolder;  ///< a folder; empty for Cancel
  std::function<std::string(const FileQuestion&)> openDialog;             ///< a file; empty for Cancel
  std::function<void(const Progress&)> showProgress;
  std::function<bool()> stopAsked;                              ///< the user asked to stop the long action
  std::function<void(const std::string& form)> showForm;        ///< shows a form by its name until it is closed
  std::function<void(const std::string& text)> putOnClipboard;  ///< copies a text to the clipboard
};

}  // namespace oravin

#pragma once

#include <functional>
#include <string>

#include "desk/message_box.h"

namespace oravin {

/// What an open dialog is asked for.
struct FileQuestion {
  std::string title;
  std::string folder;  ///< where it begins, ending in a backslash
  std::string name;    ///< the proposed file name
  std::string filter;  ///< "Text *.ext|*.ext|All Files *.*|*.*": texts and patterns in turn
};

/// How far a long action has come.
struct Progress {
  std::string text;  ///< what is being done; empty when nothing is
  int done = 0;
  int total = 0;  ///< 0 when nothing is being done
};

/// What is asked of the person: each front end fills in its own ways, and leaves empty what it has no way of doing.
struct Desk {
  std::function<Answer(const Message&)> showBox;
  std::function<std::string(const std::string& prompt)> browseForFolder;  ///< a folder; empty for Cancel
  std::function<std::string(const FileQuestion&)> openDialog;             ///< a file; empty for Cancel
  std::function<void(const Progress&)> showProgress;
  std::function<bool()> stopAsked;                              ///< the person asked for the long action to stop
  std::function<void(const std::string& form)> showForm;        ///< shows a form by its name until it is closed
  std::function<void(const std::string& text)> putOnClipboard;  ///< a text for other programs
};

}  // namespace oravin

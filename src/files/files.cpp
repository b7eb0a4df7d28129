#include "files/files.h"

#include "base/file_error.h"

namespace oravin {

bool IsQuestion(FileOperation::Kind kind) { return kind >= FileOperation::Kind::look; }

const std::string& ChangedPath(const FileOperation& operation) {
  return operation.second.empty() ? operation.path : operation.second;
}

void Perform(Files& files, const FileOperation& operation, const char* what,
             const std::function<std::string()>& action) {
  if (files.before) files.before(operation);
  const std::string reason = action();
  if (!reason.empty()) throw FileError(what, ChangedPath(operation), reason);
}

}  // namespace oravin

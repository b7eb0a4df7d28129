#pragma once

#include <filesystem>

namespace oravin::test {

inline constexpr unsigned hiddenMark = 2;
inline constexpr unsigned systemMark = 4;

/// Sets the DOS attributes of a file (a native path) where Wine keeps them.
/// @return false when the file system cannot keep them
bool SetDosAttributes(const std::filesystem::path& path, unsigned attributes);

/// Sets the read-only mark of a file or folder, or takes it away.
void SetReadOnly(const std::filesystem::path& path, bool readOnly);

/// Whether files can still be put into a folder that has the read-only mark: on Windows it says nothing there.
extern const bool readOnlyFoldersTakeFiles;

}  // namespace oravin::test

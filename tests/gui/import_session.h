#pragma once

#include <string>
#include <vector>

#include "session.h"

/// What the tests of the import page and of the import form have in common.
namespace oravin::test {

inline constexpr const char* importForm = "Fighter_PACK";
inline constexpr const char* packList = "Fighter_PACK.lstPack";
inline constexpr const char* textureList = "Fighter_PACK.lstTextures";
inline constexpr const char* importedList = "imports.lstImported";

/// The page for importing ships, after "Enable".
struct ImportSession : Session {
  ImportSession();

  /// A file of the sample's ship packs, as a Windows path: Pack("raiders/locust.shp").
  [[nodiscard]] std::string Pack(const std::string& name) const;

  /// How many textures the cache on disk says it holds.
  [[nodiscard]] unsigned Textures() const;
};

/// Types a path into the page's box and presses Enter; waits for the form.
testing::AssertionResult ImportOpened(const Session& session, const std::string& path);

/// Presses the form's import button and answers the boxes that come, each a part of its text and a key, in their order;
/// the form is closed after the last one.
testing::AssertionResult ShipsImported(const Session& session,
                                       const std::vector<std::pair<std::string, std::string>>& boxes);

/// Opens a row's first text with F2 and writes another one.
testing::AssertionResult RowRenamed(const Session& session, const std::string& list, const std::string& from,
                                    const std::string& to);

/// Waits until a list's first column holds these.
testing::AssertionResult RowsBecome(const Session& session, const std::string& list,
                                    const std::vector<std::string>& names);

/// The place of a row's check box.
Point BoxOf(const Session& session, const std::string& list, const std::string& text);

/// Waits until a row has a value in one of its fields.
testing::AssertionResult RowBecomes(const Session& session, const std::string& list, const std::string& text,
                                    const std::string& field, const Json& value);

/// Writes a path into the file dialog that is open, and takes it.
void ChooseInDialog(const Session& session, const std::string& path);

}  // namespace oravin::test

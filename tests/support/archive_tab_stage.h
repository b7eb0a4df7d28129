#pragma once

#include "demo/compressor.h"
#include "support/archive_stage.h"
#include "tabs/archive_tab.h"
#include "tabs/first_bytes.h"
#include "tabs/table_editor.h"

namespace oravin::test {

/// The archive's tab over a stage with an archive and an empty destination folder.
struct HogTabStage : testing::Test {
  HogTabStage();

  /// Writes the archive and opens it; that must not show a box.
  void Open(const std::vector<demo::ArchiveFile>& files);
  void Open(const Bytes& archive);

  /// Selects the rows of these entries alone, by their place in the table.
  void Select(const std::vector<std::size_t>& entries);

  /// The list as it is shown, row by row.
  [[nodiscard]] std::vector<std::vector<std::string>> Rows() const;
  /// The names alone.
  [[nodiscard]] std::vector<std::string> ShownNames() const;

  /// Everything that lies in the destination.
  [[nodiscard]] FolderImage Extracted() const { return ImageOf(stage.folder.Native("out")); }

  ArchiveStage stage;
  HogTab tab = NewHogTab();
  FatEditor form = NewFatEditor();
  std::string destination = stage.folder.Windows("out\\");
};

/// A file of an archive, as it is stored or compressed.
demo::ArchiveFile Stored(const std::string& name, const std::string& text);
demo::ArchiveFile Packed(const std::string& name, const std::string& text);

}  // namespace oravin::test

#include "support/archive_tab_stage.h"

namespace oravin::test {

HogTabStage::HogTabStage() {
  MakeFolderAt(stage.folder.Native("out"));
  tab.txtHogPath.text = stage.hogPath;
  tab.txtHogDest.text = destination;
}

void HogTabStage::Open(const std::vector<demo::ArchiveFile>& files) { Open(demo::BuildArchive(files)); }

void HogTabStage::Open(const Bytes& archive) {
  stage.Write(archive);
  cmdOpen_Click(stage.host, tab);
  EXPECT_TRUE(IsArchiveOpen(tab));
}

void HogTabStage::Select(const std::vector<std::size_t>& entries) {
  SelectAll(tab.hogList, false);
  for (ListRow& row : tab.hogList.rows) {
    for (const std::size_t entry : entries) {
      if (row.item == static_cast<int>(entry)) row.selected = true;
    }
  }
  TellSelection(tab);
}

std::vector<std::vector<std::string>> HogTabStage::Rows() const {
  std::vector<std::vector<std::string>> rows;
  for (const ListRow& row : tab.hogList.rows) {
    std::vector<std::string> texts;
    for (std::size_t column = 0; column < tab.hogList.columns.size(); ++column) {
      texts.push_back(TextAt(tab.hogList, row, column));
    }
    rows.push_back(texts);
  }
  return rows;
}

std::vector<std::string> HogTabStage::ShownNames() const {
  std::vector<std::string> names;
  for (const auto& row : Rows()) names.push_back(row.front());
  return names;
}

demo::ArchiveFile Stored(const std::string& name, const std::string& text) { return {name, BytesOf(text)}; }

demo::ArchiveFile Packed(const std::string& name, const std::string& text) {
  return {name, demo::Compress(BytesOf(text))};
}

}  // namespace oravin::test

// The preview of a texture beside the list, and the thumbnails.

#include "support/cache_stage.h"
#include "tabs/texture_import_panel.h"
#include "tabs/texture_tab.h"

namespace oravin {
namespace {

using test::CacheWith;

struct ThePreview : test::CacheStage {
  ThePreview() {
    test::MakeFolderAt(folder.Native("program/3D"));
    installation.GamePath = folder.windows;
    installation.ProgramPath = folder.Windows("program\\");
    Write("program/3D/cube.bmp", test::Bitmap(16, 16, 8, test::Pattern(256)));
    Make(CacheWith({{"small", 2, 8, 8, 3}, {"odd", 3, 4, 4, 1}}));
    tab.txtTcacheSource.text = Path();
    cmdOpenTcache_Click(at.host, tab);
  }
  void Look(std::size_t row) {
    SelectOnly(tab.lstTcache, row);
    lstTcache_ItemClick(at.host, tab, installation);
  }
  Installation installation;
  TcacheTab tab = NewTcacheTab();
  static constexpr std::size_t small = 426;
  static constexpr std::size_t odd = 427;
};

TEST_F(ThePreview, ShowsTheLargestImageOfTheSelectedTexture) {
  const unsigned before = tab.preview.revision;
  Look(small);
  ASSERT_TRUE(tab.preview.picture.has_value());
  EXPECT_EQ(tab.preview.picture->width, 8);
  EXPECT_EQ(tab.preview.picture->rgb.size(), 8U * 8 * 3);
  EXPECT_EQ(tab.preview.lblPreview.caption, "small, image 1 of 3: 8 x 8");
  EXPECT_NE(tab.preview.revision, before);
}

TEST_F(ThePreview, EachImageOfTheChainCanBeChosen) {
  Look(small);
  EXPECT_FALSE(tab.preview.cmdLargerImage.enabled);
  cmdSmallerImage_Click(at.host, tab, installation);
  cmdSmallerImage_Click(at.host, tab, installation);
  EXPECT_EQ(tab.preview.lblPreview.caption, "small, image 3 of 3: 2 x 2");
  EXPECT_FALSE(tab.preview.cmdSmallerImage.enabled);
  cmdSmallerImage_Click(at.host, tab, installation);
  EXPECT_EQ(tab.preview.image, 2);
  cmdLargerImage_Click(at.host, tab, installation);
  EXPECT_EQ(tab.preview.lblPreview.caption, "small, image 2 of 3: 4 x 4");
  Look(0);
  EXPECT_EQ(tab.preview.image, 0) << "another texture begins with its largest image";
}

TEST_F(ThePreview, SaysWhyThereIsNoPicture) {
  Look(odd);
  EXPECT_FALSE(tab.preview.picture.has_value());
  EXPECT_EQ(tab.preview.lblPreview.caption, "odd: it cannot be shown");
  Bytes cut = Now();
  cut.resize(240012);
  Make(cut);
  Look(small);
  EXPECT_FALSE(tab.preview.picture.has_value());
}

TEST_F(ThePreview, IsEmptyWithoutASelectionAndAfterClosing) {
  Look(small);
  SelectAll(tab.lstTcache, false);
  lstTcache_ItemClick(at.host, tab, installation);
  EXPECT_FALSE(tab.preview.picture.has_value());
  EXPECT_EQ(tab.preview.lblPreview.caption, "");
  Look(small);
  cmdCloseTcache_Click(tab);
  EXPECT_FALSE(tab.preview.picture.has_value());
}

TEST_F(ThePreview, AThumbnailIsNoLargerThanItsSide) {
  const auto thumbnail = ThumbnailOf(at.host, tab, installation, tab.lstTcache.rows[small], 4);
  ASSERT_TRUE(thumbnail.has_value());
  EXPECT_LE(thumbnail->width, 4);
  EXPECT_LE(thumbnail->height, 4);
  EXPECT_FALSE(ThumbnailOf(at.host, tab, installation, tab.lstTcache.rows[odd], 4).has_value());
  EXPECT_FALSE(ThumbnailOf(at.host, tab, installation, {9999, {}, 0, false}, 4).has_value());
}

TEST_F(ThePreview, OfAChosenBitmapIsShownInTheImportPanel) {
  ImportTexturePanel panel = NewImportTexturePanel();
  Write("a.bmp", test::Bitmap(8, 4, 24, test::Pattern(8 * 4 * 3)));
  at.desk.AnswerFile(folder.Windows("a.bmp"));
  cmdImportTextureBrowse_Click(at.host, panel);
  ASSERT_TRUE(panel.preview.picture.has_value());
  EXPECT_EQ(panel.preview.picture->width, 8);
  EXPECT_EQ(panel.preview.picture->height, 4);
}

TEST_F(ThePreview, OfABitmapWhosePathIsTypedIsShownToo) {
  ImportTexturePanel panel = NewImportTexturePanel();
  Write("a.bmp", test::Bitmap(8, 4, 24, test::Pattern(8 * 4 * 3)));
  panel.txtImportTexturePath.text = folder.Windows("a.bmp");
  txtImportTexturePath_LostFocus(panel);
  EXPECT_TRUE(panel.preview.picture.has_value());
  EXPECT_EQ(panel.lblBMPinfo[0].caption, "x Dim: 8");
  for (const char* other : {"tcachehw.dat", "none.bmp", ""}) {
    panel.txtImportTexturePath.text = folder.Windows(other);
    txtImportTexturePath_LostFocus(panel);
    EXPECT_FALSE(panel.preview.picture.has_value()) << other;
  }
  EXPECT_EQ(panel.lblBMPinfo[0].caption, "x Dim:") << "of a bitmap that is not there nothing is told";
}

}  // namespace
}  // namespace oravin

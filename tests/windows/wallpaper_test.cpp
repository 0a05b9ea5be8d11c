// `MudaPapel` where no desktop is at hand: what it leaves on the disk, and that it refuses.
#include <gtest/gtest.h>

#include "support/console_window.h"
#include "support/temporary_folder.h"
#include "windows/picture_file.h"

namespace tessera::test {

namespace {

// Two pixels beside each other, in a format that is no bitmap: opaque red, and nothing.
PictureRef RedAndNothing() {
  Raster raster(Size{2, 1});
  raster.Set(0, 0, 0xFFFF0000);
  return std::make_shared<const Picture>(Picture{.raster = std::move(raster)});
}

class WallpaperTest : public ConsoleWindowTest {
 protected:
  WallpaperTest() {
    program.run.paths = PathMapping(program.run.host.files, folder.path(), folder / "dados");
    program.run.ProgramFolderText = program.run.RuntimeFolderText = folder.path().string() + "\\";
  }
  long FailureOf(std::string_view arguments) {
    const auto failure = Guard([&] { program.commands.CommandCall("MudaPapel", arguments); });
    return failure ? failure->number() : 0;
  }

  TemporaryFolder folder;
};

}  // namespace

TEST_F(WallpaperTest, APictureIsSavedAsABitmapOf24BitsBesideTheRuntime) {
  ASSERT_EQ(SavePicture(TestCodec().EncodeBitmap(RedAndNothing()->raster), program.run.host.files,
                        folder / "foto.ico"),
            0);
  EXPECT_EQ(FailureOf("\"foto.ico\""), 0);
  const std::string bitmap = folder.Read("Temp.bmp");
  ASSERT_GT(bitmap.size(), 54U);
  EXPECT_EQ(bitmap.substr(0, 2), "BM");
  EXPECT_EQ(bitmap[28], 24) << "bits of a pixel";
  const PictureRef saved = LoadPicture(TestCodec(), program.run.host.files, folder / "Temp.bmp");
  ASSERT_NE(saved, nullptr);
  EXPECT_EQ(saved->size(), (Size{2, 1}));
  EXPECT_EQ(saved->raster.At(0, 0), 0xFFFF0000U);
  EXPECT_EQ(saved->raster.At(1, 0), 0xFFFFFFFFU) << "what was transparent";
  EXPECT_EQ(program.wallpaper.Outcome(), "ERRO") << "there is no desktop";
}

TEST_F(WallpaperTest, ABitmapIsHandedOnAsItIsWhateverItHolds) {
  EXPECT_EQ(program.wallpaper.Outcome(), "");
  EXPECT_EQ(FailureOf("\"falta.bMP\""), 0);
  EXPECT_EQ(program.wallpaper.Outcome(), "ERRO");
  EXPECT_FALSE(folder.Has("Temp.bmp"));
}

TEST_F(WallpaperTest, AFileThatCannotBeLoadedIsAFailure) {
  folder.Write("texto.png", "oi");
  EXPECT_EQ(FailureOf("\"falta.png\""), 53);
  EXPECT_EQ(FailureOf("\"texto.png\""), 481);
  EXPECT_FALSE(folder.Has("Temp.bmp"));
  EXPECT_EQ(program.wallpaper.Outcome(), "");
}

TEST_F(WallpaperTest, ADiskThatRefusesTheBitmapLeavesTheDesktopAlone) {
  ASSERT_EQ(SavePicture(TestCodec().EncodeBitmap(RedAndNothing()->raster), program.run.host.files,
                        folder / "foto.ico"),
            0);
  folder.Write("Temp.bmp/fica", "uma pasta com esse nome");
  EXPECT_EQ(FailureOf("\"foto.ico\""), 0);
  EXPECT_EQ(program.wallpaper.Outcome(), "");
}

}  // namespace tessera::test

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/console_window.h"
#include "support/temp_folder.h"
#include "text/code_page.h"
#include "windows/picture_commands.h"
#include "windows/picture_file.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

using namespace std::string_literals;

constexpr Colour kGround = 15790320;

// Two by two pixels, 24 bits, rows from the bottom up: below blue and white, above red and green.
const std::string kBmp =
    "BM\x46\0\0\0\0\0\0\0\x36\0\0\0"s
    "\x28\0\0\0\x02\0\0\0\x02\0\0\0\x01\0\x18\0\0\0\0\0\x10\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s
    "\xFF\0\0\xFF\xFF\xFF\0\0"s
    "\0\0\xFF\0\xFF\0\0\0"s;

// One pixel wide, two high, two colours of which the second is transparent: a black one above it.
const std::string kGif =
    "GIF89a\x01\0\x02\0\x80\0\0"s
    "\0\0\0\xFF\xFF\xFF"s
    "!\xF9\x04\x01\0\0\x01\0"s
    ",\0\0\0\0\x01\0\x02\0\0\x02\x02\x44\x0A\0;"s;

}  // namespace

TEST(PictureFile, ABitmapsPixelsStandFromTheTopDown) {
  const PictureRef picture = DecodePicture(kBmp);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->size(), (Size{2, 2}));
  EXPECT_EQ(picture->raster.At(0, 0), 0xFFFF0000U);
  EXPECT_EQ(picture->raster.At(1, 0), 0xFF00FF00U);
  EXPECT_EQ(picture->raster.At(0, 1), 0xFF0000FFU);
  EXPECT_EQ(picture->raster.At(1, 1), 0xFFFFFFFFU);
}

TEST(PictureFile, ATransparentColourLetsTheGroundThrough) {
  const PictureRef picture = DecodePicture(kGif);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->size(), (Size{1, 2}));
  EXPECT_EQ(picture->raster.At(0, 0), 0xFF000000U);
  EXPECT_EQ(picture->raster.At(0, 1), 0U);
}

TEST(PictureFile, OtherContentsAreNoPictureWhateverTheyAreCalled) {
  TempFolder folder;
  folder.Write("tiff.png", "II*\0\x08\0\0\0\0\0\0\0\0\0"s);
  folder.Write("texto.bmp", "Isto é um texto");
  folder.Write("vazio.png", "");
  folder.Write("gif.txt", kGif);
  for (const char* name : {"tiff.png", "texto.bmp", "vazio.png", "falta.png", ""}) {
    EXPECT_EQ(LoadPicture(folder / name), nullptr) << name;
  }
  EXPECT_NE(LoadPicture(folder / "gif.txt"), nullptr);
}

TEST(PictureFile, DamagedBytesGiveAPictureOrNone) {
  std::mt19937 engine(3);
  for (const std::string& whole : {kBmp, kGif}) {
    for (std::size_t length = 0; length < whole.size(); ++length) DecodePicture(whole.substr(0, length));
    for (int round = 0; round < 1000; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 3; ++i) damaged[engine() % damaged.size()] = static_cast<char>(engine());
      const PictureRef picture = DecodePicture(damaged);
      EXPECT_TRUE(picture == nullptr || !picture->raster.IsEmpty());
    }
  }
  EXPECT_EQ(DecodePicture(kBmp.substr(0, 20)), nullptr);
  std::string endless = kBmp;
  endless.replace(18, 8, "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F"s);
  EXPECT_EQ(DecodePicture(endless), nullptr);
}

TEST(StockPictures, ANameIsFoundWhereverItStandsBeforeItsNumber) {
  EXPECT_EQ(StockNumber(StockKind::Figure, "FigOK"), 0);
  EXPECT_EQ(StockNumber(StockKind::Figure, "FigOk2"), 12);
  EXPECT_EQ(StockNumber(StockKind::Figure, "FigMonitor"), 32);
  EXPECT_EQ(StockNumber(StockKind::Background, "ImgSobre"), 1);
  EXPECT_EQ(StockNumber(StockKind::Animation, "GifSapa2"), 3);
  EXPECT_EQ(StockNumber(StockKind::Background, "Sobre"), 1);
  EXPECT_EQ(StockNumber(StockKind::Background, ""), 0);
  EXPECT_EQ(StockNumber(StockKind::Background, "imgsobre"), kNoStockNumber);
  EXPECT_EQ(StockNumber(StockKind::Background, "FigOK"), kNoStockNumber);
}

TEST(StockPictures, HaveTheirPixelsWithoutADisplay) {
  const PictureRef figure = StockPicture(StockKind::Figure, StockNumber(StockKind::Figure, "FigOK"));
  EXPECT_EQ(figure->raster.At(16, 5), 0xFF43A047U);
  EXPECT_EQ(figure->raster.At(0, 0), 0U);
  const PictureRef swamp = StockPicture(StockKind::Background, 0);
  EXPECT_EQ(swamp->raster.At(500, 92), 0xFFFFF8E1U) << "the sun";
}

class BackgroundTest : public ConsoleWindowTest {
 protected:
  BackgroundTest() {
    folder.Write("foto.png", kBmp);
    folder.Write("quebrada.bmp", kBmp.substr(0, 30));
    program.run.paths = PathMapping(folder.path(), folder / "dados");
    program.run.ProgramFolderText = folder.path() + "\\";
  }

  void Fundo(std::string_view value, std::string_view line = "", std::string_view column = "",
             StockNames stock = StockNames::Known) {
    SetFundo(program.run, program.janela.windows(), Window(), {value, line, column}, stock);
  }

  TempFolder folder;
};

TEST_F(BackgroundTest, IsAStockNameAColourAVariableAFileOrNothing) {
  Draw("Var Cores Inteiro, Texto String\nCores = Azul\nTexto = \"foto.png\"\n");
  Fundo("Vermelho");
  EXPECT_EQ(Window().BackColor(), 255);
  Fundo("\"Cores\"");
  EXPECT_EQ(Window().BackColor(), 16711680);
  Fundo("ImgSobre");
  EXPECT_EQ(Window().Background()->size(), (Size{640, 420}));
  Fundo("Vazio");
  EXPECT_EQ(Window().Background(), nullptr);
  Fundo("Texto");
  EXPECT_EQ(At(0, 0), 255);
  EXPECT_EQ(At(1, 1), 16777215);
  EXPECT_EQ(At(2, 2), 16711680);
  EXPECT_EQ(err.str(), "");
}

TEST_F(BackgroundTest, AFileWithALineAndAColumnIsDrawnThereAndErasedWithTheDrawings) {
  Draw("Cls\n");
  Fundo("\"foto.png\"", "2", "3");
  EXPECT_EQ(Window().Background(), nullptr);
  EXPECT_EQ(At(24, 28), 255);
  EXPECT_EQ(At(25, 29), 16777215);
  EXPECT_EQ(At(26, 28), kGround);
  Window().Cls();
  EXPECT_EQ(At(24, 28), kGround);
  Fundo("\"foto.png\"", "2", "0");
  EXPECT_NE(Window().Background(), nullptr);
}

TEST_F(BackgroundTest, AMissingOrDamagedFileIsToldAndTheRunGoesOn) {
  Draw("Cls\n");
  Fundo("\"falta.bmp\"");
  EXPECT_EQ(err.str(),
            "[critico] Fundo - Arquivo de imagem não encontrado:\n  falta.bmp\n"
            "[critico] Erro no comando Fundo!\n  Editor: 0 Linha: 3\n");
  err.str("");
  Fundo("\"quebrada.bmp\"");
  EXPECT_EQ(err.str(), "[critico] Erro no comando Fundo!\n  Editor: 0 Linha: 3\n");
  err.str("");
  Fundo("ImgSobre", "", "", StockNames::Unknown);
  EXPECT_EQ(err.str().substr(0, 20), "[critico] Fundo - Ar");
}

TEST_F(BackgroundTest, IconAndPointerComeFromFilesAndAMissingOneTakesThemAway) {
  Draw("Icone \"foto.png\"\n");
  ASSERT_NE(Window().Icon(), nullptr);
  EXPECT_EQ(Window().Icon()->size(), (Size{2, 2}));
  program.commands.CommandCall("Icone", "\"falta.ico\"");
  EXPECT_EQ(Window().Icon(), nullptr);
  SetMouseIcone(program.run, program.janela.windows(), "\"foto.png\"");
  EXPECT_NE(Window().MouseIcon(), nullptr);
  const auto failure = Guard([&] { program.commands.CommandCall("Icone", "\"quebrada.bmp\""); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 481);
}

}  // namespace tessera::test

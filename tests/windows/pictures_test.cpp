#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/console_window.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"
#include "windows/icon_picture.h"
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

// Two by two pixels with opacity, uncompressed: red and green above, blue and nothing below.
const std::string kPng =
    "\211\120\116\107\015\012\032\012\000\000\000\015\111\110\104\122\000\000\000\002\000\000\000\002"s
    "\010\006\000\000\000\162\266\015\044\000\000\000\035\111\104\101\124\170\001\001\022\000\355\377"s
    "\000\377\000\000\377\000\377\000\377\000\000\000\377\377\000\000\000\000\077\322\005\373\315\220"s
    "\254\114\000\000\000\000\111\105\116\104\256\102\140\202"s;

// The same four pixels as an icon of 32 bits.
const std::string kIco =
    "\000\000\001\000\001\000\002\002\000\000\001\000\040\000\100\000\000\000\026\000\000\000\050\000"s
    "\000\000\002\000\000\000\004\000\000\000\001\000\040\000\000\000\000\000\020\000\000\000\000\000"s
    "\000\000\000\000\000\000\000\000\000\000\000\000\000\000\377\000\000\377\000\000\000\000\000\000"s
    "\377\377\000\377\000\377\000\000\000\000\000\000\000\000"s;

// Eight by eight pixels of one grey, 140, by one code for each of the two tables.
const std::string kJpeg =
    "\377\330\377\333\000\103\000\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001"s
    "\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001"s
    "\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\001\377"s
    "\300\000\013\010\000\010\000\010\001\001\021\000\377\304\000\024\000\001\000\000\000\000\000\000"s
    "\000\000\000\000\000\000\000\000\000\007\377\304\000\024\020\001\000\000\000\000\000\000\000\000"s
    "\000\000\000\000\000\000\000\000\377\332\000\010\001\001\000\000\077\000\140\177\377\331"s;

// The pixels in rows from the top down, in hexadecimal; "none" for what is no picture.
std::string PixelsOf(const std::string& bytes) {
  const PictureRef picture = DecodePicture(TestCodec(), bytes);
  if (picture == nullptr) return "none";
  std::ostringstream pixels;
  for (int y = 0; y < picture->size().height; ++y) {
    if (y > 0) pixels << "| ";
    for (int x = 0; x < picture->size().width; ++x) pixels << std::hex << picture->raster.At(x, y) << " ";
  }
  return pixels.str();
}

}  // namespace

TEST(PictureFile, EachFormatHasItsPixelsAndItsTransparency) {
  const std::string corners = "ffff0000 ff00ff00 | ff0000ff ";
  // Two colours and a mask, as old icons have them: one row of white, black, nothing.
  const std::string oldIcon =
      "\0\0\x02\0\x01\0\x03\x01\x02\0\0\0\0\0\x38\0\0\0\x16\0\0\0"s
      "\x28\0\0\0\x03\0\0\0\x02\0\0\0\x01\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s
      "\0\0\0\0\xFF\xFF\xFF\0"s
      "\x80\0\0\0"s
      "\x20\0\0\0"s;
  // Room for an opacity that none of its pixels has: the mask says it, whatever stands behind a row of it.
  const std::string maskAlone =
      kIco.substr(0, 62) + "\1\2\3\0\4\5\6\0\7\10\11\0\12\13\14\0\0\0\0\xFF\x40\0\0\0"s;
  std::string pngInside = kIco.substr(0, 22) + kPng;
  pngInside[14] = static_cast<char>(kPng.size());
  for (const auto& [bytes, pixels] : {std::pair{kBmp, corners + "ffffffff "},
                                      {kGif, "ff000000 | 0 "},
                                      {kPng, corners + "0 "},
                                      {kIco, corners + "0 "},
                                      {oldIcon, "ffffffff ff000000 0 "},
                                      {maskAlone, "ff090807 0 | ff030201 ff060504 "},
                                      {pngInside, corners + "0 "},
                                      {pngInside.substr(0, pngInside.size() - 30), "none"}}) {
    EXPECT_EQ(PixelsOf(bytes), pixels);
  }
  const PictureRef grey = DecodePicture(TestCodec(), kJpeg);
  ASSERT_NE(grey, nullptr);
  EXPECT_EQ(grey->size(), (Size{8, 8}));
  EXPECT_EQ(grey->raster.At(3, 5), 0xFF8C8C8CU);
}

TEST(PictureFile, OtherContentsAreNoPictureWhateverTheyAreCalled) {
  SystemFiles files;
  TemporaryFolder folder;
  folder.Write("tiff.png", "II*\0\x08\0\0\0\0\0\0\0\0\0"s);
  folder.Write("texto.bmp", "Isto é um texto");
  folder.Write("vazio.png", "");
  folder.Write("gif.txt", kGif);
  for (const char* name : {"tiff.png", "texto.bmp", "vazio.png", "falta.png", ""}) {
    EXPECT_EQ(LoadPicture(TestCodec(), files, folder / name), nullptr) << name;
  }
  EXPECT_NE(LoadPicture(TestCodec(), files, folder / "gif.txt"), nullptr);
}

TEST(PictureFile, AnIconHasSidesOfAtMost4096Pixels) {
  for (const auto& [width, height, isPicture] :
       {std::tuple{4096, 1, true}, {1, 4096, true}, {4097, 1, false}, {1, 4097, false}}) {
    const auto number = [](int value) {
      return std::string{char(value), char(value >> 8), char(value >> 16), 0};
    };
    const std::string pixels(std::size_t(2 * height * ((width + 31) / 32 * 4)), '\0');
    const std::string icon = "\0\0\1\0\1\0\0\0\2\0\0\0\0\0"s + number(48 + int(pixels.size())) +
                             "\x16\0\0\0\x28\0\0\0"s + number(width) + number(2 * height) + "\1\0\1"s +
                             std::string(25, '\0') + "\0\0\0\0\xFF\xFF\xFF\0"s + pixels;
    EXPECT_EQ(DecodePicture(TestCodec(), icon) != nullptr, isPicture) << width << " x " << height;
  }
}

// Two images of one width, a wider one, and what looks like the widest behind the last that is counted.
TEST(PictureFile, TheLargestImageOfAnIconIsTheFirstOfThoseThatItCounts) {
  std::string icon = "\0\0\1\0"s;
  for (const char* rest : {"\2\0", "\1\0", "\3\0"}) {
    icon.replace(4, 2, rest, 2);
    std::string entries;
    const std::string widths = "\x20\x20\0\x30"s;
    for (std::size_t i = 0; i < widths.size(); ++i)
      entries += widths[i] + "\0\0\0\0\0\0\0\1\0\0\0"s + char(70 + i) + "\0\0\0"s;
    EXPECT_EQ(LargestIconImage(icon.substr(0, 6) + entries + "abcd"), rest[0] == 3 ? "c" : "a");
  }
}

TEST(PictureFile, APngKeepsEachColourAndItsOpacity) {
  Raster raster({3, 1});
  raster.Set(0, 0, 0xFF102030);
  raster.Set(1, 0, PixelOf(0x405060, 0x80));
  EXPECT_EQ(PixelsOf(TestCodec().EncodePng(raster)), "ff102030 80202830 0 ");
}

TEST(PictureFile, APageHasAPaletteWhereItHoldsAllColours) {
  for (const int colours : {1, 256, 257}) {
    Raster page({colours, 3});
    for (int y = 0; y < 3; ++y) {
      for (int x = 0; x < colours; ++x) page.Set(x, y, 0xFF000000U + static_cast<Pixel>(x * 65793 / 2));
    }
    const std::string file = TestCodec().EncodePage(page);
    EXPECT_EQ(file.at(25) == 2, colours > 256) << "whether each pixel has its own colour";
    const PictureRef read = DecodePicture(TestCodec(), file);
    ASSERT_NE(read, nullptr);
    for (int x = 0; x < colours; ++x) ASSERT_EQ(read->raster.At(x, 2), page.At(x, 2)) << x;
  }
}

// Every cut, every single bit, and many threes of bytes.
TEST(PictureFile, DamagedBytesGiveAPictureOrNone) {
  const auto expectSound = [](const std::string& damaged) {
    const PictureRef picture = DecodePicture(TestCodec(), damaged);
    EXPECT_TRUE(picture == nullptr || (picture->size().width > 0 && picture->size().height > 0));
  };
  std::mt19937 engine(3);
  for (const std::string& whole : {kBmp, kGif, kPng, kIco, kJpeg}) {
    for (std::size_t length = 0; length < whole.size(); ++length) expectSound(whole.substr(0, length));
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
      std::string flipped = whole;
      flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
      expectSound(flipped);
    }
    for (int round = 0; round < 1000; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 3; ++i) damaged[engine() % damaged.size()] = static_cast<char>(engine());
      expectSound(damaged);
    }
  }
}

TEST(PictureFile, APictureThatPromisesMoreThanItHoldsIsNone) {
  EXPECT_EQ(DecodePicture(TestCodec(), kBmp.substr(0, 20)), nullptr);
  EXPECT_EQ(DecodePicture(TestCodec(), kPng.substr(0, 40)), nullptr);
  EXPECT_EQ(DecodePicture(TestCodec(), kIco.substr(0, 30)), nullptr);
  EXPECT_EQ(DecodePicture(TestCodec(), kJpeg.substr(0, 80)), nullptr);
  std::string endless = kBmp;
  endless.replace(18, 8, "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F"s);
  EXPECT_EQ(DecodePicture(TestCodec(), endless), nullptr);
  std::string tall = kJpeg;
  tall.replace(tall.find("\xFF\xC0"s) + 5, 4, "\xFF\xFF\xFF\xFF"s);
  EXPECT_EQ(DecodePicture(TestCodec(), tall), nullptr);
  // Of a short file so many pixels are taken, and not one row more.
  tall.replace(tall.find("\xFF\xC0"s) + 5, 4, "\x0F\xA0\x0F\xA0"s);
  EXPECT_NE(DecodePicture(TestCodec(), tall), nullptr);
  tall.replace(tall.find("\xFF\xC0"s) + 5, 4, "\x0F\xA1\x0F\xA0"s);
  EXPECT_EQ(DecodePicture(TestCodec(), tall), nullptr);
}

TEST(PictureFile, ADamagedFileOnTheDiskIsNone) {
  SystemFiles files;
  TemporaryFolder folder;
  for (const auto& [name, bytes] : {std::pair{"a.png", kPng}, {"a.ico", kIco}, {"a.jpg", kJpeg}}) {
    folder.Write(name, bytes);
    EXPECT_NE(LoadPicture(TestCodec(), files, folder / name), nullptr) << name;
    folder.Write(name, bytes.substr(0, bytes.size() / 3));
    EXPECT_EQ(LoadPicture(TestCodec(), files, folder / name), nullptr) << name;
  }
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

// Its own pictures stay, a file's is a failure behind one box, and the program goes on.
TEST(PictureCodec, ThatIsMissingIsToldOnceWithItsPackage) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host{{in, out, err}, {.programTitle = "TESTE"}};
  TemporaryFolder folder;
  folder.Write("foto.bmp", kBmp);
  HostedProgram program(host.host(), host,
                        [&](Services& services) { services.findCodec = CodecOfPart({folder.path()}); });
  program.run.paths = PathMapping(program.run.host.files, folder.path(), folder / "dados");
  program.run.ProgramFolderText = folder.path().string() + "\\";
  EXPECT_EQ(
      program.Start("Imagem P, \"\", 0, 0, 4, 4\nJanela Fundo = \"foto.bmp\"\nJanela Fundo = \"foto.bmp\"\n"
                    "Janela Fundo = \"ImgSobre\"\nImagem P.Img, \"FigOK\"\nEscreva \"segue\""),
      RunOutcome::Ended);
  EXPECT_EQ(out.str(), "segue\n");
  EXPECT_EQ(err.str(),
            "[critico] Instale o pacote tessera-picture\n"
            "[critico] Erro no comando Fundo!\n  Editor: 0 Linha: 2\n"
            "[critico] Erro no comando Fundo!\n  Editor: 0 Linha: 3\n");
  EXPECT_NE(program.janela.windows().MainWindow().Background(), nullptr);
}

class BackgroundTest : public ConsoleWindowTest {
 protected:
  BackgroundTest() {
    folder.Write("foto.png", kBmp);
    folder.Write("quebrada.bmp", kBmp.substr(0, 30));
    program.run.paths = PathMapping(program.run.host.files, folder.path(), folder / "dados");
    program.run.ProgramFolderText = folder.path().string() + "\\";
  }

  void Fundo(std::string_view value, std::string_view line = "", std::string_view column = "",
             StockNames stock = StockNames::Known) {
    program.Fundo(Window(), value, stock, line, column);
  }

  TemporaryFolder folder;
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
  SetMouseIcone(program.janela.windows(), "foto.png");
  EXPECT_NE(Window().MouseIcon(), nullptr);
  const auto failure = Guard([&] { program.commands.CommandCall("Icone", "\"quebrada.bmp\""); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 481);
}

}  // namespace tessera::test

// Which pixels of printed texts a window in memory shows beneath what was drawn on it later.
#include "console/printed_texts.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/console_window.h"
#include "windows/picture_file.h"
#include "windows/portrait.h"
#include "windows/text_painter.h"

namespace tessera::test {
namespace {

constexpr Size kWindow{6, 2};

// Each text is a block of four by two pixels.
class Blocks final : public TextPainter {
 public:
  TextMask Mask(std::string_view, const FontFace&, double left, double top, Size) override {
    return {{static_cast<int>(left), static_cast<int>(top)}, {4, 2}, std::vector<std::uint8_t>(8, 255)};
  }
};

// A letter is a text of that colour.
PrintedText Letter(char letter, double left) {
  return {.text = "x", .font = {}, .pixel = 0xFF000000U | static_cast<Pixel>(letter), .left = left, .top = 0};
}

std::string Seen(const PrintedTexts& texts) {
  Raster window(kWindow);
  Blocks painter;
  texts.PaintOn(window, painter);
  std::string seen;
  for (int y = 0; y < kWindow.height; ++y) {
    for (int x = 0; x < kWindow.width; ++x) {
      const Pixel pixel = window.At(x, y);
      seen += pixel == 0 ? '.' : static_cast<char>(pixel);
    }
    seen += y == 0 ? "|" : "";
  }
  return seen;
}

TEST(PrintedTexts, ADrawingCoversThoseBeforeItAlone) {
  PrintedTexts texts;
  texts.Cover(Spans{{0, 0, 5}});
  texts.Add(Letter('a', 0));
  EXPECT_EQ(Seen(texts), "aaaa..|aaaa..");
  texts.Cover(Spans{{0, -3, 1}, {-1, 0, 5}, {1, -5, -1}});
  EXPECT_EQ(Seen(texts), "..aa..|aaaa..");
  texts.Add(Letter('b', 2));
  EXPECT_EQ(Seen(texts), "..bbbb|aabbbb");
  texts.Cover(Spans{{1, 5, 5}, {0, 3, 2}, {0, 0, 0}});
  EXPECT_EQ(Seen(texts), "..bbbb|aabbb.");
  texts.Clear();
  texts.Add(Letter('c', 0));
  EXPECT_EQ(Seen(texts), "cccc..|cccc..") << "what covered them has gone with them";
}

TEST(PrintedTexts, APictureCoversWhereItIsNotTransparent) {
  Picture picture{.raster = Raster(Size{4, 2})};
  for (const auto& [x, y] : {std::pair{0, 0}, {2, 0}, {3, 0}, {1, 1}}) picture.raster.Set(x, y, 0xFFFFFFFFU);
  const PictureRef shown = std::make_shared<const Picture>(picture);
  struct Row {
    PixelPoint at;
    Size part;
    const char* seen;
  };
  for (const Row& row : {Row{{0, 0}, {4, 2}, ".a....|a.aa.."}, Row{{1, 0}, {3, 1}, "a.a...|aaaa.."},
                         Row{{0, 1}, {4, 2}, "aaaa..|.a...."}, Row{{-2, 0}, {4, 2}, "..aa..|aaaa.."},
                         Row{{3, 0}, {9, 9}, "aaa...|aaaa.."}, Row{{0, -1}, {4, 2}, "a.aa..|aaaa.."}}) {
    PrintedTexts texts;
    texts.Add(Letter('a', 0));
    texts.Cover({shown, row.at, row.part}, kWindow);
    EXPECT_EQ(Seen(texts), row.seen) << row.at.x << "," << row.at.y;
  }
}

TEST(PrintedTexts, TheLastTwoThousandStay) {
  PrintedTexts texts;
  texts.Add(Letter('a', 2));
  for (int i = 1; i < 2000; ++i) texts.Add(Letter('b', 0));
  EXPECT_EQ(Seen(texts), "bbbbaa|bbbbaa");
  texts.Add(Letter('b', 0));
  EXPECT_EQ(Seen(texts), "bbbb..|bbbb..");
  texts.Cover(Spans{{0, 0, 5}});
  EXPECT_EQ(Seen(texts), "......|bbbb..");
  texts.Add(Letter('c', 0));
  EXPECT_EQ(Seen(texts), "cccc..|cccc..");
}

TEST(Portrait, TextsOfObjectsStandInTheirFrames) {
  ConsoleProgram fresh;
  ASSERT_EQ(fresh.program.Start("Botao B, 1, 1\nBotao B.CorLetra = Azul\nTexto T, 4, 1, 9\n"),
            RunOutcome::Ended);
  Raster window(Size{200, 100});
  Blocks painter;
  PaintObjects(fresh.program.janela.form(), &painter, window);
  std::size_t blue = 0;
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 200; ++x) blue += window.At(x, y) == 0xFF0000FFU;
  }
  EXPECT_EQ(blue, 8U);
  EXPECT_EQ(window.At(12, 17), 0xFF0000FFU);
  EXPECT_EQ(window.At(15, 18), 0xFF0000FFU);
}

}  // namespace
}  // namespace tessera::test

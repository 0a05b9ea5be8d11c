#include "controls/rtf.h"

#include <gtest/gtest.h>

#include <random>

#include "text/literal.h"

namespace tessera {
namespace {

const CharFormat kBase{"Tahoma", 8, false, false, false, 5};

// The runs as "[font size biu colour:text]", what is the document's default being left out.
std::string Shown(const StyledText& text) {
  std::string shown;
  std::size_t place = 0;
  for (const FormatRun& run : text.Runs()) {
    const CharFormat& f = run.format;
    shown += "[";
    if (f.font != kBase.font) shown += f.font + " ";
    if (f.size != 12) shown += std::to_string(static_cast<int>(f.size * 2)) + "/2 ";
    if (f.bold) shown += "b";
    if (f.italic) shown += "i";
    if (f.underline) shown += "u";
    if (f.color != kBase.color) shown += "c" + std::to_string(f.color);
    shown += ":" + text.Text().substr(place, run.length) + "]";
    place += run.length;
  }
  return shown;
}

std::string Read(std::string_view rtf) {
  return Shown(ReadRtf(rtf, kBase));
}

TEST(Rtf, ReadsWhatWordProcessorsWrite) {
  struct {
    std::string_view rtf;
    std::string_view shown;
  } constexpr kCases[] = {
      {"{\\rtf1 a}", "[:a]"},
      {"{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fswiss\\fcharset0 Courier New;}}a{\\f0 "
       "b}\\f7 c}",
       "[Courier New :a][Arial :b][:c]"},
      {"{\\rtf1{\\fonttbl\\f0\\fnil Arial;\\f1 B{\\*\\falt C}D;}\\f1 x\\f0 y}", "[BD :x][Arial :y]"},
      {"{\\rtf1{\\colortbl;\\red255\\green1\\blue2;\\red0\\green0\\blue1;}a\\cf1 b\\cf2 c\\cf0 d\\cf9 e}",
       "[:a][c131583:b][c65536:c][:de]"},
      {"{\\rtf1 a\\b b\\i c\\b0 d\\i0\\ul e\\ulnone f\\ul g\\ul0 h}",
       "[:a][b:b][bi:c][i:d][u:e][:f][u:g][:h]"},
      {"{\\rtf1\\b a{\\i b}c\\plain d\\fs17 e\\fs0 f\\fs-2 g}", "[b:a][bi:b][b:c][:d][17/2 :efg]"},
      {"{\\rtf1 a\\par b\\line c\\tab d\\\\\\{\\}\\~e\\_f\\-g\\par}",
       "[:a\nb\nc\td\\{}\xA0"
       "e-fg]"},
      {"{\\rtf1 a\r\nb\\\nc}", "[:ab\nc]"},
      {"{\\rtf1 p\\'e3o\\'zz\\'4}", "[:p\xE3ozz4]"},
      {"{\\rtf1 \\u225?\\u8364 ?\\u-10179?\\u-8704?x}", "[:\xE1\x80??x]"},
      {"{\\rtf1\\uc3\\u233abcd{\\uc0\\u233 x\\u12354}\\u233 \\'61\\b bc\\u233\\\\}e}",
       "[:\xE9"
       "d\xE9x?\xE9"
       "c\xE9]"},
      {"{\\rtf1\\uc2\\u233{a}b}",
       "[:\xE9"
       "ab]"},
      {"{\\rtf1\\ldblquote a\\rdblquote\\emdash\\bullet}",
       "[:\x93"
       "a\x94\x97\x95]"},
      {"{\\rtf1{\\info{\\title x}}{\\stylesheet{\\s0 N;}}{\\*\\other{\\b y}}{\\pict\\bin3 "
       "}}}}{\\field{\\*\\fldinst q}"
       "{\\fldrslt r}}\\unknown5 s}",
       "[:rs]"},
      {"{\\rtf1\\bin2 }}a}b", "[:a]"},
      {"{\\rtf1 a\\b}", "[:a]"},
      {"{\\rtf1{\\u233}ab}",
       "[:\xE9"
       "ab]"},
      {"{\\rtf1\\*\\stylesheet a}", "[:a]"},
      {"{\\rtf1\\horzdoc\\f0 a{\\fonttbl\\f0 Arial;}b}", "[:a][Arial :b]"},
      {"{\\rtf1{\\colortbl\\red9\\green1\\blue2;\\red3;;}\\cf1 a\\cf2 b}", "[c3:a][:b]"},
      {"{\\rtf1\\b1 a\\b00 b}", "[b:a][:b]"},
      {"{\\rtf1\\A a\\Z b\\a c\\z d}", "[:abcd]"},
      {"{\\rtf1\\cf1 a{\\colortbl;\\red9\\green1\\blue2;}b}", "[:a][c131337:b]"},
  };
  for (const auto& c : kCases) EXPECT_EQ(Read(c.rtf), c.shown) << c.rtf;
}

TEST(Rtf, TheFirstParagraphTellsTheAlignment) {
  struct {
    std::string_view rtf;
    TextAlign alignment;
  } constexpr kCases[] = {{"{\\rtf1\\pard\\qc a\\par\\pard\\qr b}", TextAlign::kCentre},
                          {"{\\rtf1\\qr\\pard a}", TextAlign::kLeft},
                          {"{\\rtf1{\\header\\qc x}a}", TextAlign::kLeft},
                          {"{\\rtf1{\\header\\qc x}\\qr}", TextAlign::kRight}};
  for (const auto& c : kCases) EXPECT_EQ(ReadRtf(c.rtf, kBase).Alignment(), c.alignment) << c.rtf;
}

TEST(Rtf, WritesADocument) {
  StyledText text;
  text.Insert(0, "p\xE3o\n{\\}\t", {"Ar;ial", 8.5, true, true, true, 0x030201});
  text.SetAlignment(TextAlign::kCentre);
  EXPECT_EQ(WriteRtf(text),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Ar\\'3bial;}}\r\n"
            "{\\colortbl ;\\red1\\green2\\blue3;}\r\n"
            "\\uc1\\pard\\qc\\plain\\f0\\fs17\\cf1\\b\\i\\ul p\\'e3o\\par\r\n\\{\\\\\\}\\tab \\par\r\n}\r\n");
}

// A text of any characters in any formats.
StyledText AnyText(std::mt19937& random) {
  const std::string_view fonts[] = {"Tahoma", "Arial", "A;b{c}\\", "Não"_w};
  StyledText text;
  for (auto runs = random() % 12; runs > 0; --runs) {
    CharFormat format{std::string(fonts[random() % 4]), 0.5 * static_cast<double>(1 + random() % 200)};
    format.bold = random() % 2 == 0;
    format.italic = random() % 2 == 0;
    format.underline = random() % 2 == 0;
    format.color = static_cast<std::int32_t>(random() & 0xFFFFFF);
    for (auto n = random() % 9; n > 0; --n) {
      const auto character = static_cast<char>(random() % 256);
      text.Append(character == '\r' ? '\n' : character, format);
    }
  }
  text.SetAlignment(static_cast<TextAlign>(random() % 3));
  return text;
}

TEST(Rtf, ReadsBackWhatItWrote) {
  std::mt19937 random(1);
  for (int round = 0; round < 400; ++round) {
    const StyledText text = AnyText(random);
    const std::string rtf = WriteRtf(text);
    ASSERT_EQ(ReadRtf(rtf, kBase), text) << rtf;
    EXPECT_EQ(WriteRtf(ReadRtf(rtf, kBase)), rtf);
  }
}

TEST(Rtf, ASystemColourIsLeftToTheReader) {
  StyledText text;
  text.Insert(0, "a", {"Arial", 8, false, false, false, static_cast<std::int32_t>(0x80000008)});
  EXPECT_EQ(ReadRtf(WriteRtf(text), kBase).FormatAt(0).color, kBase.color);
}

TEST(Rtf, ATruncatedDocumentGivesWhatCanBeRead) {
  const std::string rtf =
      "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1\\green2\\blue3;}\\uc1 ab\\u8364?\\'e3{\\b c\\bin4 "
      "1234}d}";
  const std::string whole = ReadRtf(rtf, kBase).Text();
  ASSERT_EQ(whole,
            "ab\x80\xE3"
            "cd");
  for (std::size_t length = 0; length <= rtf.size(); ++length) {
    std::string text = ReadRtf(rtf.substr(0, length), kBase).Text();
    EXPECT_LE(text.size(), whole.size()) << length;
    if (!text.empty()) text.pop_back();  // perhaps a character whose number was cut
    EXPECT_TRUE(whole.starts_with(text)) << length;
  }
  EXPECT_EQ(ReadRtf(rtf.substr(0, rtf.size() - 1), kBase).Text(), whole);
}

TEST(Rtf, SurvivesFlippedBits) {
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    std::string rtf = WriteRtf(AnyText(random));
    for (int flips = 1 + static_cast<int>(random() % 8); flips > 0; --flips) {
      char& byte = rtf[random() % rtf.size()];
      byte = static_cast<char>(byte ^ 1 << random() % 8);
    }
    const StyledText text = ReadRtf(rtf, kBase);
    std::size_t length = 0;
    for (const FormatRun& run : text.Runs()) {
      EXPECT_GT(run.length, 0U);
      EXPECT_GT(run.format.size, 0);
      length += run.length;
    }
    EXPECT_EQ(length, text.Text().size());
    EXPECT_LE(text.Text().size(), rtf.size());
  }
}

TEST(Rtf, NestsWithoutBound) {
  for (const std::size_t depth : {kMaxRtfNesting - 1, kMaxRtfNesting, std::size_t{2'000'000}}) {
    const std::string open(depth, '{');
    const std::string close(depth, '}');
    EXPECT_EQ(ReadRtf("{\\rtf1 a" + open + "\\b b" + close + "c}d", kBase).Text(), "abc");
  }
  const std::string words = [] {
    std::string all = "{\\rtf1 ";
    for (int i = 0; i < 200000; ++i) all += "\\u99999999999999999999?\\fs999999999999 \\b-\\uc-5 ";
    return all;
  }();
  EXPECT_LE(ReadRtf(words, kBase).Text().size(), 400000U);
}

}  // namespace
}  // namespace tessera

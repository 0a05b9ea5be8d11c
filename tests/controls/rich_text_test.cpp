#include "controls/rich_text.h"

#include <gtest/gtest.h>

#include <random>

#include "controls/key_code.h"

namespace tessera {
namespace {

struct RichTextTest : testing::Test {
  RichTextTest() { text.SetMultiLine(true); }
  void Type(std::string_view keys) {
    for (const char key : keys) text.KeyPress(key == '\n' ? char{key::kEnter} : key);
  }
  // The inner text, "|" at the caret, "[" or "]" at the other end of a selection.
  std::string Shown() const {
    std::string shown = text.Content().Text();
    const std::size_t caret = text.Caret();
    const std::size_t anchor = text.Anchor();
    shown.insert(std::max(caret, anchor), caret >= anchor ? "|" : "]");
    if (caret != anchor) shown.insert(std::min(caret, anchor), caret < anchor ? "|" : "[");
    return shown;
  }
  // "b" under each bold character, "." under the others.
  std::string Bold() const {
    std::string bold;
    for (const FormatRun& run : text.Content().Runs()) bold.append(run.length, run.format.bold ? 'b' : '.');
    return bold;
  }
  RichText text{CharFormat{"Tahoma", 8}};
};

TEST_F(RichTextTest, TheProgramSeesCrLfAndCountsTwo) {
  text.SetText("ab\r\ncd\ne\rf");
  EXPECT_EQ(text.Content().Text(), "ab\ncd\ne\nf");
  EXPECT_EQ(text.Text(), "ab\r\ncd\r\ne\r\nf");
  struct {
    std::size_t start, length;
    std::string_view shown;
    std::size_t startRead, lengthRead;
  } constexpr kCases[] = {{2, 2, "ab[\n|cd\ne\nf", 2, 2},  {3, 1, "ab|\ncd\ne\nf", 2, 0},
                          {4, 5, "ab\n[cd\ne|\nf", 4, 5},  {1, 99, "a[b\ncd\ne\nf|", 1, 11},
                          {99, 9, "ab\ncd\ne\nf|", 12, 0}, {0, 0, "|ab\ncd\ne\nf", 0, 0}};
  for (const auto& c : kCases) {
    text.SetSelStart(c.start);
    text.SetSelLength(c.length);
    EXPECT_EQ(Shown(), c.shown);
    EXPECT_EQ(text.SelStart(), c.startRead);
    EXPECT_EQ(text.SelLength(), c.lengthRead);
    EXPECT_EQ(text.SelText(), text.Text().substr(c.startRead, c.lengthRead));
  }
}

TEST_F(RichTextTest, ATextThatIsSetHasItsCaretInFront) {
  text.SetText("ab");
  text.Select(2, 1);
  text.SetText("xyz");
  EXPECT_EQ(Shown(), "|xyz");
}

TEST_F(RichTextTest, KeysMoveTheCaret) {
  text.SetText("um\n\ntres\nd");
  struct Step {
    int code;
    bool shift, ctrl;
    std::string_view shown;
  };
  using namespace key;
  const Step steps[] = {
      {kEnd, false, false, "um|\n\ntres\nd"},      {kDown, false, false, "um\n|\ntres\nd"},
      {kDown, false, false, "um\n\ntr|es\nd"},     {kDown, false, false, "um\n\ntres\nd|"},
      {kUp, true, false, "um\n\ntr|es\nd]"},       {kRight, false, false, "um\n\ntres\nd|"},
      {kUp, false, false, "um\n\nt|res\nd"},       {kHome, true, false, "um\n\n|t]res\nd"},
      {kLeft, true, false, "um\n|\nt]res\nd"},     {kLeft, false, false, "um\n|\ntres\nd"},
      {kHome, false, true, "|um\n\ntres\nd"},      {kLeft, false, false, "|um\n\ntres\nd"},
      {kPageDown, false, false, "um\n|\ntres\nd"}, {kPageUp, true, false, "|um\n]\ntres\nd"},
      {kEnd, true, true, "um\n[\ntres\nd|"},       {kRight, false, false, "um\n\ntres\nd|"},
      {kDown, false, false, "um\n\ntres\nd|"},     {65, false, false, "um\n\ntres\nd|"}};
  for (const Step& step : steps) {
    EXPECT_FALSE(text.KeyDown(step.code, step.shift, step.ctrl));
    EXPECT_EQ(Shown(), step.shown) << step.code;
  }
}

TEST_F(RichTextTest, AHostThatFoldsLinesMovesByThem) {
  text.SetText("abcdefghij");
  struct ThreeToALine final : TextLayout {
    std::size_t MovedByLines(std::size_t caret, int lines) const override {
      return caret + static_cast<std::size_t>(lines * 3);
    }
    int PageLines() const override { return 2; }
  } layout;
  text.KeyDown(key::kDown, false, false, &layout);
  text.KeyDown(key::kPageDown, true, false, &layout);
  EXPECT_EQ(Shown(), "abc[defghi|j");
  text.KeyDown(key::kPageDown, false, false, &layout);
  EXPECT_EQ(Shown(), "abcdefghij|") << "a place behind the text";
}

TEST_F(RichTextTest, TypingEditsAtTheSelection) {
  Type("ab\nc");
  EXPECT_EQ(Shown(), "ab\nc|");
  text.Select(3, 1);
  Type("X");
  EXPECT_EQ(Shown(), "aX|c");
  EXPECT_TRUE(text.KeyDown(key::kBackspace, false));
  EXPECT_TRUE(text.KeyDown(key::kDelete, false));
  EXPECT_FALSE(text.KeyDown(key::kDelete, false));
  EXPECT_EQ(Shown(), "a|");
  text.SelectAll();
  EXPECT_TRUE(text.KeyDown(key::kDelete, false));
  EXPECT_FALSE(text.KeyDown(key::kBackspace, false));
  EXPECT_FALSE(text.KeyPress('\t'));
  EXPECT_EQ(text.Text(), "");
}

TEST_F(RichTextTest, OneLineTakesNoBreak) {
  text.SetMultiLine(false);
  Type("ab\n");
  EXPECT_TRUE(text.Paste("cd\r\nef"));
  EXPECT_EQ(text.Text(), "abcd");
  EXPECT_FALSE(text.Paste("\r\nef"));
}

TEST_F(RichTextTest, AFullTextTakesWhatItHasRoomFor) {
  text.SetMaxLength(4);
  EXPECT_TRUE(text.Paste("a\r\nbcd"));
  EXPECT_EQ(text.Text(), "a\r\nbc");
  EXPECT_FALSE(text.KeyPress('x'));
  text.Select(0, 1);
  EXPECT_TRUE(text.Paste("xyz"));
  EXPECT_EQ(text.Text(), "x\r\nbc");
  text.SetText("more than four");
  EXPECT_FALSE(text.KeyPress('x'));
  EXPECT_TRUE(text.KeyDown(key::kDelete, false));
}

TEST_F(RichTextTest, InsertedCharactersTakeTheFormatBeforeThem) {
  text.SetText("abcd");
  text.Select(1, 3);
  text.SetSelFormat({.bold = true});
  EXPECT_EQ(Bold(), ".bb.");
  EXPECT_TRUE(text.SelFormat().bold);
  text.Select(3, 3);
  Type("x");
  EXPECT_EQ(Bold(), ".bbb.");
  text.Select(1, 1);
  Type("y");
  EXPECT_EQ(Bold(), "..bbb.");
  text.SetSelFormat({.bold = true});
  Type("zz");
  EXPECT_EQ(Bold(), "..bbbbb.");
  text.SetSelFormat({.bold = false});
  text.KeyDown(key::kRight, false);
  Type("w");
  EXPECT_EQ(Bold(), "..bbbbbb.") << "a moved caret forgets what was told for it";
  text.Select(0, 5);
  Type("v");
  EXPECT_EQ(Bold(), ".bbb.") << "what replaces a selection looks as its beginning did";
}

TEST_F(RichTextTest, ChangesWhatIsToldAndLeavesTheRest) {
  text.SetText("abc");
  text.Select(0, 2);
  text.SetSelFormat({.font = "Arial", .size = 12.0, .color = 255});
  text.Select(1, 3);
  text.SetSelFormat({.size = -3.0, .italic = true});
  const std::vector<FormatRun> runs = {{1, {"Arial", 12, false, false, false, 255}},
                                       {1, {"Arial", 12, false, true, false, 255}},
                                       {1, {"Tahoma", 8, false, true, false, 0}}};
  EXPECT_EQ(text.Content().Runs(), runs);
  text.SetFormat({.font = "Courier New", .underline = true});
  EXPECT_EQ(text.Content().FormatAt(1), (CharFormat{"Courier New", 12, false, true, true, 255}));
  text.Select(3, 3);
  text.SetSelFormat({.bold = true});
  text.SetFormat({.color = 9});
  Type("x");
  EXPECT_EQ(text.Content().FormatAt(3), (CharFormat{"Courier New", 8, true, true, true, 9}));
  text.SetText("n");
  EXPECT_EQ(text.Content().FormatAt(0), (CharFormat{"Courier New", 8, false, false, true, 9}));
}

TEST_F(RichTextTest, TextRtfIsADocumentOrPlain) {
  text.SetTextRTF("{\\rtf1{\\colortbl;\\red0\\green0\\blue255;}\\qr\\fs20 a{\\b\\cf1 b}\\par c\\par}");
  EXPECT_EQ(text.Text(), "ab\r\nc");
  EXPECT_EQ(Bold(), ".b..");
  EXPECT_EQ(text.Alignment(), TextAlign::kRight);
  RichText other;
  other.SetTextRTF(text.TextRTF());
  EXPECT_EQ(other.Content(), text.Content());
  text.SetTextRTF("{rtf\n");
  EXPECT_EQ(text.Text(), "{rtf\r\n");
  EXPECT_EQ(text.Content().FormatAt(0).size, 8);
}

TEST_F(RichTextTest, ADisabledTextTakesNothing) {
  text.SetText("a");
  text.SetEnabled(false);
  EXPECT_FALSE(text.KeyPress('x') || text.Paste("x") || text.KeyDown(key::kDelete, false));
  EXPECT_EQ(text.Text(), "a");
}

// Formats follow their characters through any edits: a second text keeps the format of each character by
// itself.
TEST_F(RichTextTest, RunsAgreeWithAFormatForEachCharacter) {
  std::mt19937 random(9);
  StyledText styled;
  std::string plain;
  std::vector<CharFormat> formats;
  const auto at = [&](std::size_t place) { return formats.begin() + static_cast<std::ptrdiff_t>(place); };
  for (int round = 0; round < 3000; ++round) {
    const std::size_t place = random() % (plain.size() + 1);
    const std::size_t count = random() % (std::min<std::size_t>(plain.size() - place, 5) + 1);
    switch (random() % 3) {
      case 0: {
        CharFormat format;
        format.bold = random() % 2 == 0;
        const std::string typed(random() % 4, static_cast<char>('a' + random() % 26));
        styled.Insert(place, typed, format);
        plain.insert(place, typed);
        formats.insert(at(place), typed.size(), format);
        break;
      }
      case 1:
        styled.Erase(place, count);
        plain.erase(place, count);
        formats.erase(at(place), at(place + count));
        break;
      default: {
        const FormatChange change{.bold = random() % 2 == 0,
                                  .color = static_cast<std::int32_t>(random() % 3)};
        styled.Change(place, count, change);
        std::for_each(at(place), at(place + count), [&](CharFormat& format) { change.ApplyTo(format); });
      }
    }
    ASSERT_EQ(styled.Text(), plain);
    std::vector<CharFormat> read;
    for (std::size_t run = 0; run < styled.Runs().size(); ++run) {
      ASSERT_GT(styled.Runs()[run].length, 0U);
      ASSERT_TRUE(run == 0 || styled.Runs()[run].format != styled.Runs()[run - 1].format);
      read.insert(read.end(), styled.Runs()[run].length, styled.Runs()[run].format);
    }
    ASSERT_EQ(read, formats);
  }
}

}  // namespace
}  // namespace tessera

#include "language/statements.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <utility>

#include "prepare/prepared_text.h"
#include "prepare/tagging.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kEditorCount = 3;
using Sources = std::array<std::string, kEditorCount>;

// Editor, line and text of a statement. Preparation spaces the operators, so blanks don't count.
struct Found {
  std::size_t editor;
  std::size_t line;
  std::string text;

  bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found) {
  return out << found.editor << ":" << found.line << " " << found.text;
}

std::string WithoutBlanks(std::string_view text) {
  std::string out(text);
  std::erase(out, ' ');
  return out;
}

// As preparation joins the editors, without the end statement.
std::vector<Found> PreparedStatements(const Sources& sources) {
  std::string text;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    text += TagSourceLines(sources[i], static_cast<std::int16_t>(i)) + std::string(kCrLf);
  }
  const std::string numbered = NumberStatements(NormaliseSource(text));
  std::vector<Found> found;
  for (Position at = 1; at < numbered.size();) {
    const Position end = Find(numbered, kCrLf, at);
    const std::string_view line = Mid(numbered, at, end - at);
    found.push_back({std::stoul(std::string(Mid(line, kEditorColumn, 2))),
                     std::stoul(std::string(Mid(line, kSourceLineColumn, 5))) + 1,
                     WithoutBlanks(Mid(line, kStatementColumn))});
    at = end + kCrLf.size();
  }
  return found;
}

std::vector<Found> ScannedStatements(const Sources& sources) {
  std::vector<Found> found;
  ScanState state;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    const ScannedText scanned = ScanStatements(sources[i], state);
    std::string joined;
    for (const Piece& piece : scanned.pieces) {
      EXPECT_EQ(piece.begin, joined.size());
      EXPECT_GT(piece.size, 0U);
      joined += sources[i].substr(piece.begin, piece.size);
    }
    EXPECT_EQ(joined, sources[i]);
    for (const ScannedStatement& statement : scanned.statements) {
      std::string text;
      for (std::size_t k = statement.firstPiece; k < statement.endPiece; ++k) {
        const Piece& piece = scanned.pieces[k];
        if (piece.kind != PieceKind::Comment) text += sources[i].substr(piece.begin, piece.size);
      }
      EXPECT_EQ(scanned.lineBegins[statement.place.line - 1] + statement.place.column - 1,
                scanned.pieces[statement.firstPiece].begin);
      found.push_back({i, statement.place.line, WithoutBlanks(text)});
    }
  }
  return found;
}

std::string Kinds(std::string_view source) {
  ScanState state;
  std::string kinds;
  for (const Piece& piece : ScanStatements(source, state).pieces) {
    kinds += "wnlcs;b|"[static_cast<std::size_t>(piece.kind)];
  }
  return kinds;
}

}  // namespace

TEST(Statements, AreThoseThatPreparationFinds) {
  constexpr std::array<std::string_view, 16> kBits = {"x",    "Se ", "\"", "\"", "'",   ";",    " ",  "\r\n",
                                                      "\r\n", "=",   "<=", "12", "1.5", "\xC9", "\t", "y(1)"};
  std::mt19937 random(31);
  for (int program = 0; program < 20000; ++program) {
    Sources sources;
    for (std::string& source : sources) {
      for (std::size_t bits = random() % 14; bits > 0; --bits) source += kBits[random() % kBits.size()];
    }
    ASSERT_EQ(ScannedStatements(sources), PreparedStatements(sources)) << sources[0] << "\n--\n"
                                                                       << sources[1] << "\n--\n"
                                                                       << sources[2];
  }
}

TEST(Statements, AreCutIntoPieces) {
  EXPECT_EQ(Kinds("Total1 = 1.5*x.Txt"), "wbsbnswsw");
  EXPECT_EQ(Kinds("Se a<>\"b;'c\" ' fim"), "wbwslbc");
  EXPECT_EQ(Kinds("a;b\r\n\tc 1. \xC7\xE3o"), "w;w|swbnsbw");
  EXPECT_EQ(Kinds("x = \"aberto\r\ny ' dentro"), "wbsbl|wbsbw") << "an open quote hides the comment below it";
  EXPECT_EQ(Kinds(""), "");
}

TEST(Statements, TellLineAndColumn) {
  ScanState state;
  const ScannedText scanned = ScanStatements("' nota\r\n\r\n  a = 1; b = 2\r\n", state);
  ASSERT_EQ(scanned.statements.size(), 2U);
  EXPECT_EQ(scanned.statements[0].place, (TextPlace{3, 3}));
  EXPECT_EQ(scanned.statements[1].place, (TextPlace{3, 10}));
  EXPECT_EQ(scanned.PlaceOf(8), (TextPlace{2, 1}));
}

}  // namespace tessera

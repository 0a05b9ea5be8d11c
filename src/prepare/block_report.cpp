#include "prepare/block_report.h"

#include <algorithm>
#include <span>

#include "language/words.h"
#include "prepare/linking.h"
#include "prepare/prepared_text.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

struct Statement {
  SourcePlace place;
  std::string_view head;  // the columns before the statement's own, which a source may spell itself
  std::string_view text;
};

std::int32_t NumberIn(std::string_view digits) {
  return static_cast<std::int32_t>(LeadingNumber(digits));
}

// What a line's head tells.
SourcePlace PlaceIn(std::string_view line) {
  return {.editor = NumberIn(Mid(line, kEditorColumn, 2)),
          .line = NumberIn(Mid(line, kSourceLineColumn, 5)) + 1};
}

std::vector<Statement> StatementsOf(std::string_view text) {
  std::vector<Statement> statements;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find(kCrLf));
    text.remove_prefix(std::min(text.size(), line.size() + kCrLf.size()));
    statements.push_back({PlaceIn(line), Left(line, kStatementColumn - 1), Mid(line, kStatementColumn)});
  }
  return statements;
}

std::size_t Count(std::string_view text, std::string_view sought) {
  std::size_t count = 0;
  for (Position at = Find(text, sought); at != 0; at = Find(text, sought, at + sought.size())) ++count;
  return count;
}

// The two counts of the block check: every text with the letters and the bracket counts.
bool CountsDiffer(std::string_view upperText, const BlockPair& kind) {
  const std::size_t closings = Count(upperText, Upper(kind.closing) + "[");
  std::size_t openings = Count(upperText, Upper(kind.opening) + "[");
  if (kind.closing.ends_with(kind.opening)) openings -= closings;  // "FIMSE[" holds "SE["
  return openings != closings;
}

bool IsBlockWord(std::string_view statement, std::string_view word) {
  return statement.starts_with(word) && CharAt(statement, word.size() + 1) == '[';
}

// Walks the statements with the open blocks of both kinds on one stack, as a person nests them.
class BlockWalk {
 public:
  explicit BlockWalk(std::string_view text) {
    const std::string upper = Upper(text);
    for (std::size_t k = 0; k < kinds_.size(); ++k) failing_[k] = CountsDiffer(upper, kinds_[k]);
  }

  std::vector<PlacedProblem> Run(const std::vector<Statement>& statements) {
    std::int32_t editor = 0;
    for (const Statement& statement : statements) {
      // No block goes from one routine into the next, so what is open there was forgotten here.
      if (statement.place.editor != editor || IsRoutineBoundary(statement.text)) DropOpenFrom(0);
      editor = statement.place.editor;
      for (std::size_t k = 0; k < kinds_.size(); ++k) Take(statement, k);
    }
    DropOpenFrom(0);
    std::stable_sort(problems_.begin(), problems_.end(),
                     [](const PlacedProblem& a, const PlacedProblem& b) { return a.place < b.place; });
    return std::move(problems_);
  }

 private:
  struct Open {
    std::size_t kind;
    SourcePlace place;
  };

  void Take(const Statement& statement, std::size_t k) {
    const BlockPair& kind = kinds_[k];
    std::string_view rest = statement.text;
    if (IsBlockWord(rest, kind.opening)) {
      open_.push_back({k, statement.place});
      rest.remove_prefix(kind.opening.size() + 1);
    } else if (IsBlockWord(rest, kind.closing)) {
      Close(statement.place, k);
      rest.remove_prefix(kind.closing.size() + 1);
    }
    const std::string upper = Upper(std::string(statement.head).append(rest));
    for (const std::string_view word : {kind.opening, kind.closing}) {
      if (Contains(upper, Upper(word) + "[")) {
        Tell(statement.place, k, " Nesta linha, o texto \""_w, Upper(word) + "[",
             "\" também é contado como comando."_w);
        break;
      }
    }
  }

  void Close(SourcePlace place, std::size_t k) {
    const auto matching =
        std::find_if(open_.rbegin(), open_.rend(), [&](const Open& block) { return block.kind == k; });
    if (matching == open_.rend()) {
      Tell(place, k, " Não há bloco aberto para este "_w, kinds_[k].closing, ".");
      return;
    }
    const auto index = static_cast<std::size_t>(open_.rend() - matching) - 1;
    DropOpenFrom(index + 1);
    open_.pop_back();
  }

  // The blocks from that row of the stack on were never closed.
  void DropOpenFrom(std::size_t row) {
    for (std::size_t i = row; i < open_.size(); ++i) {
      Tell(open_[i].place, open_[i].kind, " O bloco aberto nesta linha não foi fechado."_w, "", "");
    }
    open_.resize(std::min(open_.size(), row));
  }

  // Only of a kind whose counts differ: crossed blocks with equal counts are legal.
  void Tell(SourcePlace place, std::size_t k, std::string_view before, std::string_view word,
            std::string_view after) {
    if (!failing_[k]) return;
    problems_.push_back({place, OpenBlockMessage(kinds_[k]).append(before).append(word).append(after)});
  }

  std::span<const BlockPair> kinds_ = BlockPairs();
  std::vector<bool> failing_ = std::vector<bool>(kinds_.size());
  std::vector<Open> open_;
  std::vector<PlacedProblem> problems_;
};

}  // namespace

std::vector<PlacedProblem> ReportBlocks(std::string_view text) {
  return BlockWalk(text).Run(StatementsOf(text));
}

}  // namespace tessera

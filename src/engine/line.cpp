#include "engine/line.h"

#include <algorithm>

#include "commands/command_table.h"
#include "language/words.h"

namespace tessera {

namespace {

std::int32_t NumberIn(std::string_view text) {
  return static_cast<std::int32_t>(LeadingNumber(text));
}

// The word in front of the position `end`: what stands behind the last blank.
std::string_view WordBefore(std::string_view text, Position end) {
  const Position blank = FindBack(text, " ", end - 1);
  return Mid(text, blank + 1, end - blank - 1);
}

// A compound form "x + = e"; preparation may have left no blank in front of its sign, and the first sign of
// the line that has a blank behind its "=" gets one.
bool ReadCompound(Line& line, char sign) {
  const std::string mark = {sign, ' ', '='};
  const Position tight = Find(line.text, mark + ' ');
  const bool needsBlank = tight > 1 && CharAt(line.text, tight - 1) != ' ';
  const Position spaced = Find(line.text, ' ' + mark);
  if (needsBlank && (spaced == 0 || tight < spaced)) {
    line.variable = WordBefore(line.text, tight);
    line.expression = Mid(line.text, tight + mark.size() + 1);
    return true;
  }
  if (spaced == 0) return false;
  line.variable = WordBefore(line.text, spaced);
  line.expression = Mid(line.text, spaced + mark.size() + 2);
  if (needsBlank) {
    std::string text(line.expression);
    text.insert(tight - 1 - (line.text.size() - text.size()), 1, ' ');
    line.spacedExpression = std::make_unique<const std::string>(std::move(text));
    line.expression = *line.spacedExpression;
  }
  return true;
}

bool ReadStep(Line& line, std::string_view sign) {
  if (!line.text.ends_with(sign)) return false;
  line.variable = WordBefore(line.text, Find(line.text, sign));
  return true;
}

std::optional<Bracket> ReadBracket(std::string_view text, std::string_view word,
                                   std::size_t conditionOffset = 0) {
  const Position at = Find(text, std::string(word) + "[");
  if (at == 0) return std::nullopt;
  const Position open = at + word.size();
  const Position close = Find(text, "]", open);
  if (close == 0) return std::nullopt;
  return Bracket{Mid(text, open + 1, close - open - 1), Mid(text, at + conditionOffset), {}, {}};
}

std::unique_ptr<const Blocks> ReadBlocks(std::string_view text) {
  constexpr std::size_t kEnquantoCondition = 12;  // behind "Enquanto[0] "
  constexpr std::size_t kSeCondition = 6;         // behind "Se[0] "
  if (!Contains(text, "[")) return nullptr;
  auto blocks = std::make_unique<Blocks>();
  blocks->enquanto = ReadBracket(text, "Enquanto", kEnquantoCondition);
  blocks->repita = ReadBracket(text, "Repita");
  blocks->fimSe = ReadBracket(text, "FimSe");
  if (!Contains(text, "FimSe[")) blocks->se = ReadBracket(text, "Se", kSeCondition);
  blocks->casoContrario = ReadBracket(text, "CasoContrario");
  blocks->testsClick = blocks->se && Contains(text, "CliqueMouse");
  return blocks;
}

Opening ReadOpening(const Run& run, std::string_view text) {
  Opening opening;
  const Position blank = Find(text, " ", kStatementColumn);
  opening.word =
      blank == 0 ? Mid(text, kStatementColumn) : Mid(text, kStatementColumn, blank - kStatementColumn);
  opening.rest = Mid(text, kStatementColumn + opening.word.size() + 1);
  const std::string upperWord = Upper(opening.word);
  opening.declares = upperWord == "VAR" || upperWord == "VARIAVEL";
  opening.returns = upperWord == "RETORNE";
  const auto& subs = run.program.routines.SubNames;
  opening.callsSub = std::find(subs.begin(), subs.end(), opening.word) != subs.end();
  opening.mayDispatch = IsReservedWord(run.functionTable, opening.word) || upperWord.starts_with("REL.") ||
                        upperWord.starts_with("IMP.");
  return opening;
}

Road ReadRoad(Line& line, std::string_view upper) {
  constexpr std::string_view kGoTo = "VaPara";
  // KEPT: the end words count wherever they stand in the line, names and literals included
  // (ConsoleOutputs.EndWordInALiteral).
  if (Contains(upper, "FIMPROGRAMA")) return Road::EndProgram;
  if (Contains(upper, "FIMFUNCAO")) return Road::EndFunction;
  if (Contains(upper, "FIMJANELA")) return Road::EndWindow;
  if (ReadStep(line, "++")) return Road::Increment;
  if (ReadStep(line, "--")) return Road::Decrement;
  if (ReadCompound(line, '+')) return Road::Add;
  if (ReadCompound(line, '-')) return Road::Subtract;
  if (Contains(upper, "NOVAJANELA")) return Road::NewWindow;
  if (Mid(line.text, kStatementColumn, 2) == "BD") return Road::Database;
  if (const Position at = Find(line.text, kGoTo)) {
    line.label = Mid(line.text, at + kGoTo.size() + 1);
    return Road::GoTo;
  }
  return Road::Blocks;
}

std::unique_ptr<const Line> ReadLine(const Run& run, const PreparedText& text, Position position) {
  auto line = std::make_unique<Line>();
  line->position = position;
  line->end = text.FindLineEnd(position);
  line->text = Mid(text.text(), position, line->end == 0 ? std::string_view::npos : line->end - position);
  line->number = text.NumberAt(position);
  line->source.editor = NumberIn(Mid(line->text, kEditorColumn, 2));
  line->source.line = NumberIn(Mid(line->text, kSourceLineColumn, 5)) + 1;
  const std::string upper = Upper(line->text);
  line->road = ReadRoad(*line, upper);
  if (line->road != Road::Blocks) return line;
  line->blocks = ReadBlocks(line->text);
  line->opening = ReadOpening(run, line->text);
  return line;
}

// What a lazily filled place holds, filled by `search` at first use.
template <typename Result, typename Search>
const Result& Remember(std::optional<Result>& place, Search search) {
  if (!place) place = search();
  return *place;
}

}  // namespace

RightSide ReadRightSide(std::string_view line) {
  constexpr std::string_view kJoin = " & ";
  RightSide right;
  right.text = Trim(Mid(line, Find(line, "=") + 1));
  right.isText = HoldsCallOf(trait::kText, line);
  const std::string upperRight = Upper(right.text);
  right.readsSql = upperRight.starts_with("SQL(") && !Contains(upperRight, "TOTALREGISTROS");
  if (!Contains(right.text, kJoin)) return right;
  Position begin = 1;
  for (Position at; (at = Find(right.text, kJoin, begin)) != 0; begin = at + kJoin.size()) {
    right.joined.push_back(Trim(Mid(right.text, begin, at - begin)));
  }
  right.joined.push_back(Trim(Mid(right.text, begin)));
  return right;
}

RunnableText::RunnableText(const Run& run, std::shared_ptr<const PreparedText> text, bool once)
    : run_(run), text_(std::move(text)), once_(once) {}

const Line* RunnableText::LineAt(Position position) const {
  auto& line = lines_[position];
  if (!line) line = ReadLine(run_, *text_, position);
  return line.get();
}

const Line* RunnableText::First() const {
  return Remember(first_, [&]() -> const Line* {
    const Position tag = text_->FirstTag();
    return tag == 0 ? nullptr : FindStatement(text_->NumberAt(tag), 1);
  });
}

const Line* RunnableText::FindStatement(std::int32_t number, Position from) const {
  const Position found = text_->FindStatement(number, from);
  return found == 0 ? nullptr : LineAt(found);
}

const Line* RunnableText::Next(const Line& line) const {
  return Remember(line.next, [&] { return FindStatement(line.number + 1, line.position); });
}

// The line behind the statement that holds a word found at `hit`, searched from `line` on.
Jump RunnableText::Behind(const Line& line, Position hit) const {
  if (hit == 0) return {};
  const std::int32_t number = text_->NumberAt(text_->FindTagBack(hit));
  return {true, FindStatement(number + 1, line.position)};
}

Jump RunnableText::LoopEnd(const Line& line) const {
  return Remember(line.blocks->loopEnd, [&] {
    return Behind(line, text_->FindBracket("Repita", line.blocks->enquanto->depth, line.position));
  });
}

Jump RunnableText::LoopStart(const Line& line) const {
  return Remember(line.blocks->loopStart, [&]() -> Jump {
    const Position hit = text_->FindBracketBack("Enquanto", line.blocks->repita->depth, line.position);
    const Position tag = hit == 0 ? 0 : text_->FindTagBack(hit);
    if (tag == 0) return {};
    return {true, LineAt(tag)};
  });
}

// A line may have a Se and a CasoContrario of two depths.
Jump RunnableText::BlockEnd(const Line& line, const Bracket& bracket) const {
  return Remember(bracket.blockEnd,
                  [&] { return Behind(line, text_->FindBracket("FimSe", bracket.depth, line.position)); });
}

// Depths are not unique: a CasoContrario behind the block's own FimSe belongs to a later block.
Jump RunnableText::Alternative(const Line& line) const {
  return Remember(line.blocks->alternative, [&]() -> Jump {
    const auto numberOf = [&](Position hit) {
      return hit == 0 ? 0 : text_->NumberAt(text_->FindTagBack(hit));
    };
    const std::string_view depth = line.blocks->se->depth;
    const std::int32_t blockEnd = numberOf(text_->FindBracket("FimSe", depth, line.position));
    const Position hit = text_->FindBracket("CasoContrario", depth, line.position);
    if (hit == 0 || numberOf(hit) >= blockEnd) return {};
    return Behind(line, hit);
  });
}

Jump RunnableText::Target(const Line& line) const {
  return Remember(line.target, [&]() -> Jump {
    // OPEN: a label with a blank in front of it is none; a search would find it behind the blank that ends
    // every head.
    if (line.label.starts_with(' ')) return {};
    const Position hit = text_->FindLabel(std::string(line.label) + ":");
    const Position tag = hit == 0 ? 0 : text_->FindTagBack(hit);
    if (tag == 0) return {};
    return {true, LineAt(tag)};
  });
}

}  // namespace tessera

#include "checker/outline.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "language/families.h"
#include "language/types.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// A field may have the name of a command: what stands behind it tells.
bool IsFieldType(const Token& token) {
  constexpr std::array<std::string_view, 4> kTypes = {"STRING", "INTEIRO", "DECIMAL", "AUTOINC"};
  return std::find(kTypes.begin(), kTypes.end(), Upper(Bare(token))) != kTypes.end();
}

class OutlineReader {
 public:
  explicit OutlineReader(const Source& source) : source_(source) {}

  Outline Read() {
    const auto& statements = source_.statements();
    out_.forms.reserve(statements.size());
    out_.routineOf.reserve(statements.size());
    for (at_ = 0; at_ < statements.size(); ++at_) Take(source_.TokensOf(statements[at_]));
    CloseRoutine(false);
    return std::move(out_);
  }

 private:
  void Take(Tokens tokens) {
    FormedWord formed = ReadForm(tokens);
    if (database_ != kNone) formed = InDatabase(formed, tokens);
    const bool opens = formed.form == Form::Funcao || formed.form == Form::Sub;
    if (opens) {
      CloseRoutine(false);
      routine_ = out_.routines.size();
      out_.routines.push_back(ReadRoutine(formed, tokens));
    }
    out_.forms.push_back(formed);
    out_.routineOf.push_back(routine_);
    switch (formed.form) {
      case Form::FimFuncao:
      case Form::FimSub:
        CloseRoutine(true);
        break;
      case Form::Declaration:
        TakeDeclaration(tokens.subspan(formed.tokens));
        break;
      case Form::Label:
        out_.labels.push_back({tokens[0].text, at_});
        break;
      case Form::BdHeader:
        OpenDatabase(tokens);
        break;
      case Form::Other:
        TakeCommand(tokens);
        break;
      default:
        break;
    }
  }

  Routine ReadRoutine(const FormedWord& formed, Tokens tokens) {
    Routine routine{.isFunction = formed.form == Form::Funcao, .token = tokens.data(), .begin = at_};
    const Tokens rest = tokens.subspan(std::min<std::size_t>(formed.tokens, tokens.size()));
    if (rest.empty() || !rest[0].IsName()) return routine;
    routine.token = rest.data();
    routine.name = rest[0].text;
    if (rest.size() < 2 || !rest[1].Is('(')) return routine;
    const std::size_t close = ClosingParen(rest, 1);
    if (close == rest.size()) return routine;
    routine.hasParens = true;
    routine.parameterTokens = rest.subspan(2, close - 2);
    for (const Tokens part : SplitAtCommas(routine.parameterTokens)) {
      if (part.empty() || !part[0].IsName()) continue;
      const bool isTyped = part.size() >= 2 && part[1].IsName();
      routine.locals.push_back({part[0].text, isTyped ? part[1].text : kTypeString, part.data(), true});
    }
    routine.parameters = routine.locals.size();
    if (close + 1 < rest.size() && rest[close + 1].IsName()) routine.resultType = rest[close + 1].text;
    return routine;
  }

  void CloseRoutine(bool closed) {
    if (routine_ == kNone) return;
    out_.routines[routine_].end = at_;
    out_.routines[routine_].isClosed = closed;
    routine_ = kNone;
  }

  void TakeDeclaration(Tokens list) {
    Routine* routine = routine_ == kNone ? nullptr : &out_.routines[routine_];
    const bool isLocal = routine != nullptr && routine->isFunction && at_ == routine->begin + 1 &&
                         source_.TokensOf(source_.statements()[at_])[0].text.starts_with("Var");
    for (const Tokens part : SplitAtCommas(list)) {
      if (part.empty() || !part[0].IsName()) continue;
      const Declared variable = ReadVariable(part);
      if (isLocal) {
        routine->locals.push_back({variable.name, variable.type, part.data(), false});
      } else {
        out_.variables.push_back(variable);
      }
    }
  }

  Declared ReadVariable(Tokens part) const {
    Declared variable{.name = part[0].text, .type = kTypeString, .statement = at_, .token = part.data()};
    std::size_t next = 1;
    if (next < part.size() && part[next].Is('(')) {
      const std::size_t close = ClosingParen(part, next);
      variable.isArray = true;
      variable.countTokens = part.subspan(next + 1, std::min(close, part.size()) - next - 1);
      variable.count = variable.countTokens.size() == 1 ? IntegerOf(variable.countTokens[0]) : -1;
      next = close + 1;
    }
    if (next < part.size() && part[next].IsName()) variable.type = part[next].text;
    return variable;
  }

  void TakeCommand(Tokens tokens) {
    if (tokens.size() < 2 || !tokens[0].IsName() || IsAssignment(tokens)) return;
    const Word* word = FindWord(tokens[0].text);
    if (word == nullptr) return;
    if (word->name == "NovaJanela" && tokens.size() >= 4 && tokens[1].upper == "DEFINE" &&
        tokens[2].Is(',')) {
      out_.windows.push_back({Bare(tokens[3]), at_, &tokens[3]});
      return;
    }
    if (FamilyOf(word->name) == nullptr || word->name == "MenuSistema" || word->name == "Navegador") return;
    const Token& name = tokens[1];
    const bool isName = (name.IsName() && !Contains(name.text, ".")) || name.IsLiteral();
    if (!isName) return;
    if (tokens.size() > 2 && !tokens[2].Is(',')) return;
    out_.objects.push_back({word->name, Bare(name), name.IsLiteral(), at_, &name});
  }

  void OpenDatabase(Tokens tokens) {
    database_ = out_.databases.size();
    Database database{.statement = at_};
    if (tokens.size() > 1) database.name = Bare(tokens[1]);
    out_.databases.push_back(database);
  }

  // Between `BD` and `FimBD` a line names a field, unless it clearly is something else: then nobody closed
  // the block.
  FormedWord InDatabase(FormedWord formed, Tokens tokens) {
    if (formed.form == Form::FimBD) {
      out_.databases[database_].isClosed = true;
      database_ = kNone;
      return formed;
    }
    const bool isField = tokens.size() >= 3 && (tokens[0].IsName() || tokens[0].IsLiteral()) &&
                         tokens[1].Is(',') && (FindWord(tokens[0].text) == nullptr || IsFieldType(tokens[2]));
    const bool isBareField = tokens.size() <= 3 && formed.form == Form::Other && !IsAssignment(tokens) &&
                             FindWord(tokens[0].text) == nullptr && (tokens.size() < 2 || !tokens[1].Is('('));
    if (!isField && !isBareField) {
      database_ = kNone;
      return formed;
    }
    DatabaseField field{.name = Bare(tokens[0]), .token = tokens.data(), .statement = at_};
    const std::vector<Tokens> parts = SplitAtCommas(tokens);
    if (parts.size() > 1 && !parts[1].empty()) field.type = Bare(parts[1][0]);
    if (parts.size() > 2 && parts[2].size() == 1) field.size = IntegerOf(parts[2][0]);
    out_.databases[database_].fields.push_back(field);
    return {Form::BdField, Spelling::Right, 1};
  }

  const Source& source_;
  Outline out_;
  std::size_t at_ = 0;
  std::size_t routine_ = kNone;
  std::size_t database_ = kNone;
};

}  // namespace

Outline ReadOutline(const Source& source) {
  return OutlineReader(source).Read();
}

std::string_view Bare(const Token& token) {
  if (!token.IsLiteral()) return token.text;
  std::string_view text = token.text.substr(1);
  if (text.ends_with('"')) text.remove_suffix(1);
  return text;
}

std::int64_t IntegerOf(const Token& token) {
  std::int64_t number = -1;
  const char* end = token.text.data() + token.text.size();
  const auto read = std::from_chars(token.text.data(), end, number);
  return token.IsNumber() && read.ptr == end ? number : -1;
}

}  // namespace tessera::check

#include "checker/form.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_map>

#include "checker/near.h"
#include "language/words.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

struct FormRow {
  Form form;
  std::string_view word;
  bool caseCounts;
};

constexpr std::array kRows = std::to_array<FormRow>({
    {Form::Declaration, "Var", false},
    {Form::Declaration, "Variavel", false},
    {Form::Se, "Se", true},
    {Form::CasoContrario, "CasoContrario", true},
    {Form::FimSe, "FimSe", true},
    {Form::Enquanto, "Enquanto", true},
    {Form::Repita, "Repita", true},
    {Form::VaPara, "VaPara", true},
    {Form::Funcao, "Funcao", true},
    {Form::FimFuncao, "FimFuncao", true},
    {Form::Sub, "Sub", true},
    {Form::FimSub, "FimSub", true},
    {Form::FimPrograma, "FimPrograma", false},
    {Form::FimJanela, "FimJanela", false},
    {Form::Retorne, "Retorne", false},
    {Form::FimBD, "FimBD", true},
});

// Words of other languages, and of one's own head, for the language's.
struct ForeignRow {
  std::string_view word;
  Form form;
};

constexpr std::array kForeign = std::to_array<ForeignRow>({
    {"SENAO", Form::CasoContrario},
    {"ELSE", Form::CasoContrario},
    {"CASO", Form::CasoContrario},
    {"IF", Form::Se},
    {"ENDIF", Form::FimSe},
    {"FIMIF", Form::FimSe},
    {"WHILE", Form::Enquanto},
    {"WEND", Form::Repita},
    {"ENDWHILE", Form::Repita},
    {"LOOP", Form::Repita},
    {"NEXT", Form::Repita},
    {"PROXIMO", Form::Repita},
    {"FIMENQUANTO", Form::Repita},
    {"FIMPARA", Form::Repita},
    {"REPETIR", Form::Repita},
    {"PARA", Form::Enquanto},
    {"FOR", Form::Enquanto},
    {"GOTO", Form::VaPara},
    {"FUNCTION", Form::Funcao},
    {"ENDFUNCTION", Form::FimFuncao},
    {"ENDSUB", Form::FimSub},
    {"SUBROTINA", Form::Sub},
    {"PROCEDIMENTO", Form::Sub},
    {"FIMSUBROTINA", Form::FimSub},
    {"FIMPROCEDIMENTO", Form::FimSub},
    {"RETURN", Form::Retorne},
    {"RETORNA", Form::Retorne},
    {"RETORNAR", Form::Retorne},
    {"DIM", Form::Declaration},
    {"DECLARE", Form::Declaration},
    {"VARIAVEIS", Form::Declaration},
    {"ENDPROGRAM", Form::FimPrograma},
});

// Two words that are one.
struct SplitRow {
  std::string_view first;
  std::string_view second;
  Form form;
};

constexpr std::array kSplit = std::to_array<SplitRow>({
    {"FIM", "SE", Form::FimSe},
    {"CASO", "CONTRARIO", Form::CasoContrario},
    {"FIM", "ENQUANTO", Form::Repita},
    {"FIM", "REPITA", Form::Repita},
    {"FIM", "PARA", Form::Repita},
    {"VA", "PARA", Form::VaPara},
    {"FIM", "FUNCAO", Form::FimFuncao},
    {"FIM", "SUB", Form::FimSub},
    {"FIM", "PROGRAMA", Form::FimPrograma},
    {"FIM", "JANELA", Form::FimJanela},
    {"FIM", "BD", Form::FimBD},
    {"END", "IF", Form::FimSe},
    {"END", "WHILE", Form::Repita},
    {"END", "SUB", Form::FimSub},
    {"END", "FUNCTION", Form::FimFuncao},
    {"GO", "TO", Form::VaPara},
    {"DO", "WHILE", Form::Enquanto},
});

char WithoutAccent(char c) {
  constexpr std::string_view kFrom = "ÁÀÃÂÄÉÊÈËÍÎÌÏÓÕÔÒÖÚÛÙÜÇ"_w;
  constexpr std::string_view kTo = "AAAAAEEEEIIIIOOOOOUUUUC";
  const std::size_t at = kFrom.find(c);
  return at == std::string_view::npos ? c : kTo[at];
}

const FormRow* RowOfWord(std::string_view upper) {
  static const auto kByWord = [] {
    std::unordered_map<std::string, const FormRow*> rows;
    for (const FormRow& row : kRows) rows.emplace(Upper(row.word), &row);
    return rows;
  }();
  const auto found = kByWord.find(std::string(upper));
  return found == kByWord.end() ? nullptr : found->second;
}

std::optional<FormedWord> ReadSplit(Tokens tokens) {
  if (tokens.size() < 2 || !tokens[1].IsName() || tokens[0].text.size() > 4) return std::nullopt;
  const std::string first = Folded(tokens[0].text);
  const std::string second = Folded(tokens[1].text);
  for (const SplitRow& row : kSplit) {
    if (row.first == first && row.second == second) return FormedWord{row.form, Spelling::Split, 2};
  }
  return std::nullopt;
}

// Whether a foreign word stands as that block word would: followed by what such a word takes.
bool StandsAs(Form form, Tokens tokens) {
  const bool isAlone = tokens.size() == 1;
  const bool isCall =
      !isAlone && tokens[1].Is('(') && form != Form::Se && form != Form::Enquanto && form != Form::Retorne;
  if (isCall) return false;
  switch (form) {
    case Form::Se:
    case Form::Enquanto:
    case Form::VaPara:
    case Form::Sub:
    case Form::Funcao:
    case Form::Declaration:
    case Form::Retorne:
      return !isAlone;
    case Form::CasoContrario:
      return true;
    case Form::Repita:
      return tokens.size() <= 2;
    default:
      return isAlone;
  }
}

std::optional<FormedWord> ReadForeign(Tokens tokens, const std::string& folded) {
  for (const ForeignRow& row : kForeign) {
    if (row.word == folded && StandsAs(row.form, tokens)) return FormedWord{row.form, Spelling::Foreign, 1};
  }
  return std::nullopt;
}

// A word that is nearly a block word; short ones resemble too much.
std::optional<FormedWord> ReadNear(Tokens tokens, const std::string& folded) {
  if (folded.size() < 4 || FindWord(folded) != nullptr) return std::nullopt;
  if (tokens.size() > 1 && tokens[1].Is('(')) return std::nullopt;
  const FormRow* best = nullptr;
  std::size_t least = folded.size() < 6 ? 2 : 3;
  for (const FormRow& row : kRows) {
    if (row.word.size() < 5 || row.form == Form::Declaration || !StandsAs(row.form, tokens)) continue;
    const std::size_t distance = EditDistance(Upper(row.word), folded, least);
    if (distance < least) {
      least = distance;
      best = &row;
    }
  }
  if (best == nullptr) return std::nullopt;
  return FormedWord{best->form, Spelling::Near, 1};
}

bool IsLabel(Tokens tokens) {
  return tokens.size() >= 2 && tokens[1].Is(':') && !tokens[1].blankBefore;
}

}  // namespace

std::string Folded(std::string_view text) {
  std::string folded = Upper(text);
  for (char& c : folded) c = WithoutAccent(c);
  return folded;
}

bool IsAssignment(Tokens tokens) {
  if (tokens.empty() || !tokens[0].IsName()) return false;
  std::size_t next = 1;
  if (next < tokens.size() && tokens[next].Is('(')) next = ClosingParen(tokens, next) + 1;
  if (next >= tokens.size()) return false;
  if (tokens[next].Is('=')) return next + 1 >= tokens.size() || !tokens[next + 1].Is('=') || next > 1;
  const bool isStep = tokens[next].Is('+') || tokens[next].Is('-');
  return isStep && next + 1 < tokens.size() &&
         (tokens[next + 1].Is('=') || tokens[next + 1].text == tokens[next].text);
}

FormedWord ReadForm(Tokens tokens) {
  if (tokens.empty() || !tokens[0].IsName()) return {};
  const Token& word = tokens[0];
  if (IsLabel(tokens)) return {Form::Label, Spelling::Right, 2};
  if (word.text.starts_with("BD") && (word.text.size() == 2)) return {Form::BdHeader, Spelling::Right, 1};
  if (const FormRow* row = RowOfWord(word.upper)) {
    if (row->caseCounts && row->word != word.text) {
      if (IsAssignment(tokens)) return {};
      return {row->form, Spelling::Case, 1};
    }
    const bool needsBlank =
        row->form == Form::Se || row->form == Form::Enquanto || row->form == Form::Retorne;
    if (needsBlank && tokens.size() > 1 && !tokens[1].blankBefore && tokens[1].Is('('))
      return {row->form, Spelling::NoBlank, 1};
    return {row->form, Spelling::Right, 1};
  }
  if (IsAssignment(tokens)) return {};
  if (const auto split = ReadSplit(tokens)) return *split;
  const std::string folded = Folded(word.text);
  if (folded != word.upper) {
    if (const FormRow* row = RowOfWord(folded)) return {row->form, Spelling::Accent, 1};
  }
  if (const auto foreign = ReadForeign(tokens, folded)) return *foreign;
  if (const auto near = ReadNear(tokens, folded)) return *near;
  return {};
}

std::string_view WordOf(Form form) {
  for (const FormRow& row : kRows) {
    if (row.form == form) return row.word;
  }
  return {};
}

}  // namespace tessera::check

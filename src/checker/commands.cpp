#include "checker/commands.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "checker/calls.h"
#include "checker/near.h"
#include "checker/reading.h"
#include "checker/rehearsal.h"
#include "language/families.h"
#include "language/spelling.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// What stands behind the name of a form, as arguments. `skipped` is the "=" or the first comma.
std::vector<Tokens> ValuesBehind(Tokens tokens) {
  if (!tokens.empty() && (tokens[0].Is(',') || tokens[0].Is('='))) tokens = tokens.subspan(1);
  return SplitAtCommas(tokens);
}

std::string_view SuffixOf(std::string_view name) {
  const std::size_t point = name.find('.');
  return point == std::string_view::npos ? std::string_view() : name.substr(point);
}

std::string ShownForm(std::string_view word) {
  return Shown(word);
}

const WordForm* FindFormAnyCase(std::span<const WordForm> forms, std::string_view upper) {
  for (const WordForm& form : forms) {
    if (EqualsIgnoringCase(form.word, upper)) return &form;
  }
  return nullptr;
}

std::string NearForm(std::span<const WordForm> forms, std::string_view written) {
  Nearest nearest(written);
  for (const WordForm& form : forms) nearest.Show(Spelled(form.word));
  if (!nearest.found().empty()) return "você quis dizer " + Shown(nearest.found()) + "?";
  std::string list;
  for (const WordForm& form : forms) list += (list.empty() ? "" : ", ") + Spelled(form.word);
  return "as palavras são " + list;
}

// SIM and NAO that the language compares as they stand.
void CheckState(Context& context, std::string_view suffix, Tokens value) {
  const std::string upper = Upper(suffix);
  if ((upper != ".ATIVO" && upper != ".VISIVEL") || value.size() != 1) return;
  if (!value[0].IsLiteral() && !value[0].IsName()) return;
  const std::string_view word = Bare(value[0]);
  const std::string upperWord = Upper(word);
  if ((upperWord == "SIM" || upperWord == "NAO") && word != upperWord) {
    context.Tell(rule::kStateCase, value[0], "aqui só valem \"SIM\" e \"NAO\", em maiúsculas",
                 "escreva " + Shown(upperWord));
  }
}

void CheckValues(Context& context, const Word& word, const WordForm& form, Tokens behind, const Token& name) {
  const std::vector<Tokens> values = ValuesBehind(behind);
  if (form.values == Values::Equals && !form.arguments.text().empty()) {
    const bool mayBeBare = form.result != Result::None && behind.empty();
    if (!mayBeBare && (behind.empty() || !behind[0].Is('='))) {
      context.Tell(rule::kTooFew, name, "falta \"=\" e o valor atrás de " + ShownForm(name.text),
                   "escreva " + Shown(std::string(word.name) + " " + std::string(name.text) + " = ..."));
      return;
    }
  }
  if (form.values == Values::None && !values.empty()) {
    if (form.word == ".Remove") return;
    context.Tell(rule::kTooMany, values[0].empty() ? Tokens(&name, 1) : values[0],
                 ShownForm(name.text) + " não leva nenhum valor", "tire o valor");
    return;
  }
  if (form.values == Values::None) return;
  CheckArguments(context, word, form.arguments, values, name);
  if (!values.empty()) CheckState(context, form.word, values[0]);
}

void CheckSuffix(Context& context, const Word& word, const Token& name, Tokens behind) {
  const std::string_view object = Left(name.text, name.text.find('.'));
  const std::string_view suffix = SuffixOf(name.text);
  const WordForm* form = FindFormAnyCase(word.more.suffixes, suffix);
  if (form == nullptr) {
    context.Tell(rule::kUnknownSuffix, name,
                 Shown(word.name) + " não tem o sufixo " + Shown(suffix) + ": a instrução não faz nada",
                 NearForm(word.more.suffixes, suffix));
    return;
  }
  if (form->anywhere && form->word != suffix) {
    context.Tell(rule::kUnknownSuffix, name, Shown(suffix) + " só vale escrito como " + Shown(form->word),
                 "escreva " + Shown(std::string(object) + std::string(form->word)));
    return;
  }
  CheckObject(context, word, name, object);
  if (CheckCuts(context, behind, nullptr, false, Place::Argument)) return;
  CheckValues(context, word, *form, behind, name);
}

void CheckCreation(Context& context, const Word& word, Tokens tokens) {
  const std::vector<Tokens> arguments = SplitAtCommas(tokens.subspan(1));
  Signature signature = word.arguments;
  if (word.name == "Botao" && arguments.size() > 1) {
    const bool isSkinned = arguments[1].size() == 1 && arguments[1][0].IsLiteral() &&
                           Upper(Bare(arguments[1][0])).starts_with("TIPO");
    if (isSkinned) signature = word.more.otherForms[0].arguments;
    if (!isSkinned && arguments.size() > 4) signature = word.more.otherForms[1].arguments;
  }
  CheckArguments(context, word, signature, arguments, tokens[0]);
}

// `Janela PALAVRA = valor, valor, PALAVRA = valor`, and `Fonte`, `EstiloBotao` in the same form.
void CheckKeywords(Context& context, const Word& word, Tokens tokens) {
  const std::vector<Tokens> parts = SplitAtCommas(tokens.subspan(1));
  for (std::size_t i = 0; i < parts.size();) {
    const Tokens part = parts[i];
    if (part.empty() || !part[0].IsName()) {
      const Token& place = part.empty() ? tokens[0] : part[0];
      context.Tell(rule::kUnknownKeyword, place, Shown(word.name) + " quer uma palavra e o seu valor",
                   "escreva " + Shown(std::string(word.name) + " Palavra = valor") + "; " +
                       NearForm(word.more.keywords, ""));
      return;
    }
    std::string_view written = part[0].text;
    if (word.name == "Fonte" && Contains(written, ".")) written = written.substr(written.rfind('.') + 1);
    const WordForm* form = FindFormAnyCase(word.more.keywords, written);
    if (form == nullptr || (form->anywhere && form->word != written)) {
      context.Tell(rule::kUnknownKeyword, part[0],
                   Shown(word.name) + " não tem a palavra " + Shown(written) + ": a instrução não faz nada",
                   form != nullptr ? "escreva " + Shown(form->word) : NearForm(word.more.keywords, written));
      return;
    }
    if (part.size() < 2 || !part[1].Is('=')) {
      context.Tell(rule::kTooFew, part[0], "falta \"=\" atrás de " + Shown(written),
                   "escreva " + Shown(std::string(word.name) + " " + std::string(written) + " = ..."));
      return;
    }
    std::vector<Tokens> values{part.subspan(2)};
    for (++i; i < parts.size(); ++i) {
      if (parts[i].size() > 1 && parts[i][1].Is('=')) break;
      values.push_back(parts[i]);
    }
    CheckArguments(context, word, form->arguments, values, part[0]);
  }
  if (parts.empty())
    context.Tell(rule::kTooFew, tokens[0], "faltam as palavras de " + Shown(word.name),
                 NearForm(word.more.keywords, ""));
}

bool IsDefined(const Context& context, std::string_view upper) {
  for (const Editor& editor : context.names.editors()) {
    for (const DefinedWindow& window : editor.outline->windows) {
      if (EqualsIgnoringCase(window.name, upper)) return true;
    }
  }
  return upper == "PAI";
}

void CheckNovaJanela(Context& context, const Word& word, Tokens tokens) {
  if (tokens.size() < 2 || !tokens[1].IsName()) {
    context.Tell(rule::kTooFew, tokens[0], "NovaJanela quer Define ou o nome de uma janela",
                 "escreva \"NovaJanela Define, Nome\"");
    return;
  }
  const Token& name = tokens[1];
  if (name.upper == "DEFINE") {
    const std::vector<Tokens> arguments = SplitAtCommas(tokens.subspan(1));
    CheckArguments(context, word, word.arguments, arguments, name);
    return;
  }
  const std::string_view suffix = SuffixOf(name.text);
  const std::string_view window = Left(name.text, name.text.find('.'));
  const WordForm* form = FindFormAnyCase(word.more.suffixes, suffix);
  if (form == nullptr) {
    context.Tell(
        rule::kUnknownSuffix, name,
        suffix.empty() ? "NovaJanela quer Define ou um nome com sufixo: " + Shown(name.text) + " não é nenhum"
                       : "NovaJanela não tem o sufixo " + Shown(suffix) + ": a instrução não faz nada",
        suffix.empty() ? "escreva \"NovaJanela Define, Nome\"" : NearForm(word.more.suffixes, suffix));
    return;
  }
  if (!IsDefined(context, Upper(window))) {
    Nearest nearest(window);
    for (const Editor& editor : context.names.editors()) {
      for (const DefinedWindow& defined : editor.outline->windows) nearest.Show(defined.name);
    }
    context.Tell(rule::kUnknownObject, name,
                 "nenhuma janela se chama " + Shown(window) + ": a instrução não faz nada",
                 nearest.found().empty() ? "defina-a antes: NovaJanela Define, " + ToUtf8(window)
                                         : "você quis dizer " + Shown(nearest.found()) + "?");
    return;
  }
  const std::string code = std::string(window) + "_Codigo";
  if (form->word == ".ATIVA" && context.names.FindSub(code) == nullptr) {
    const RoutineRef* other = context.names.FindSubAnyCase(Upper(code));
    context.Tell(rule::kSubCall, name,
                 "a janela " + Shown(window) + " não tem a sua sub-rotina " + Shown(code + "()"),
                 other != nullptr
                     ? "o nome da sub-rotina é " + Shown(other->routine->name) + ": a caixa das letras conta"
                     : "escreva Sub " + ToUtf8(code) + "() ... FimSub, que monta a janela");
    return;
  }
  Tokens behind = tokens.subspan(2);
  CheckValues(context, word, *form, behind, name);
}

void CheckTemporizador(Context& context, Tokens tokens) {
  if (tokens.size() < 2 || !tokens[1].IsName()) {
    context.Tell(rule::kTooFew, tokens[0], "faltam o nome e a ação do temporizador",
                 "escreva \"Temporizador Nome.Ativa, 10\"");
    return;
  }
  const Token& name = tokens[1];
  const std::string suffix = Upper(SuffixOf(name.text));
  const std::string timer = "TEMPORIZADOR_" + Upper(Left(name.text, name.text.find('.')));
  if (suffix != ".ATIVA" && suffix != ".DESATIVA") {
    context.Tell(rule::kUnknownSuffix, name, "um temporizador se liga com .Ativa e se desliga com .Desativa",
                 "escreva \"Temporizador Nome.Ativa, 10\"");
    return;
  }
  if (context.names.FindSubAnyCase(timer) == nullptr) {
    context.Tell(rule::kUnknownObject, name,
                 "nenhuma sub-rotina se chama " +
                     Shown("Temporizador_" + std::string(Left(name.text, name.text.find('.'))) + "()"),
                 "escreva a sub-rotina do temporizador, ou acerte o nome");
    return;
  }
  const std::vector<Tokens> arguments = SplitAtCommas(tokens.subspan(1));
  if (suffix == ".DESATIVA") return;
  if (arguments.size() < 2 || arguments[1].empty()) {
    context.Tell(rule::kTimer, name, "o temporizador não diz de quanto em quanto tempo dispara",
                 "ponha o tempo em centésimos de segundo: Temporizador " + ToUtf8(name.text) + ", 10");
    return;
  }
  const Tokens value = arguments[1];
  const std::int64_t ticks = value.size() == 1 ? IntegerOf(value[0]) : -1;
  if (ticks == 0 || ticks > 32767) {
    context.Tell(
        rule::kTimer, value,
        ticks == 0 ? "um temporizador de 0 nunca dispara" : "o tempo de um temporizador vai até 32767",
        "o tempo conta em centésimos de segundo, de 1 a 32767");
    return;
  }
  CheckExpression(context, value, {.place = Place::Argument, .kind = Kind::Number, .argument = "tempo"});
}

void CheckAguarde(Context& context, const Word& word, Tokens tokens) {
  const std::vector<Tokens> arguments = SplitAtCommas(tokens.subspan(1));
  if (arguments.size() == 1 && arguments[0].size() == 1) {
    const Token& what = arguments[0][0];
    const bool isEvent = FindFormAnyCase(word.more.keywords, Bare(what)) != nullptr;
    if (isEvent && what.IsLiteral()) {
      context.Tell(rule::kWrongKind, what, "a palavra de Aguarde vai sem aspas",
                   "escreva " + Shown("Aguarde " + std::string(Bare(what))));
      return;
    }
    if (isEvent) return;
    if (what.IsName() && TypeOfName(context, what) == Type::Unknown) {
      context.Tell(rule::kUnknownKeyword, what, Shown(what.text) + " não é nada que se possa aguardar",
                   NearForm(word.more.keywords, what.text));
      return;
    }
  }
  CheckArguments(context, word, word.arguments, arguments, tokens[0]);
}

// `SQL Base.Palavra`, `SQL Base.Tabela.Palavra`, and a table's fields.
void CheckSqlPath(Context& context, const Word& word, const Token& path, Tokens behind, bool isCall) {
  const auto points = std::count(path.text.begin(), path.text.end(), '.');
  if (points < 1 || points > 2) {
    context.Tell(rule::kUnknownKeyword, path, "um caminho de SQL é Base.Palavra ou Base.Tabela.Palavra",
                 "por exemplo: SQL Loja.Abre \"loja.db\"");
    return;
  }
  const std::string_view last = path.text.substr(path.text.rfind('.') + 1);
  const std::string sought = (points == 1 ? "BASE." : "BASE.TABELA.") + Upper(last);
  const WordForm* form = FindForm(word.more.keywords, sought);
  const bool isField = points == 2 && (isCall || (!behind.empty() && behind[0].Is('=')));
  if (form == nullptr && !isField) {
    Nearest nearest(last);
    for (const WordForm& known : word.more.keywords) {
      const bool isSame = std::count(known.word.begin(), known.word.end(), '.') == points;
      if (isSame) nearest.Show(Spelled(known.word.substr(known.word.rfind('.') + 1)));
    }
    context.Tell(rule::kUnknownKeyword, path, "SQL não tem a palavra " + Shown(last),
                 nearest.found().empty() ? "um campo se muda com \"=\": SQL Base.Tabela.Campo = valor"
                                         : "você quis dizer " + Shown(nearest.found()) + "?");
    return;
  }
  if (isCall) return;
  // The path goes to the first comma, equals sign or quote.
  const bool isCut = behind.empty() || behind[0].Is(',') || behind[0].Is('=') || behind[0].IsLiteral();
  if (!isCut && form->arguments.size() > 0) {
    context.Tell(rule::kUnknownKeyword, behind[0],
                 "sem vírgula, SQL lê " + Shown(std::string(last) + " " + std::string(behind[0].text)) +
                     " como uma palavra só",
                 "escreva " + Shown("SQL " + std::string(path.text) + ", " + std::string(behind[0].text)));
    return;
  }
  if (form == nullptr) form = FindForm(word.more.keywords, "BASE.TABELA.CAMPO");
  CheckArguments(context, word, form->arguments, ValuesBehind(behind), path);
}

// `Rel.Palavra valores`.
void CheckPrefixed(Context& context, const Word& word, Tokens tokens) {
  const std::string_view written = tokens[0].text.substr(tokens[0].text.find('.') + 1);
  const WordForm* form = FindFormAnyCase(word.more.keywords, written);
  if (form == nullptr) {
    context.Tell(rule::kUnknownKeyword, tokens[0], Shown(word.name) + " não tem a palavra " + Shown(written),
                 NearForm(word.more.keywords, written));
    return;
  }
  if (CheckCuts(context, tokens.subspan(1), nullptr, false, Place::Argument)) return;
  CheckArguments(context, word, form->arguments, ValuesBehind(tokens.subspan(1)), tokens[0]);
}

}  // namespace

void CheckObject(Context& context, const Word& word, const Token& name, std::string_view object) {
  if (context.names.objectsAreNamedByVariables()) return;
  const std::span<const ObjectRef> found = context.names.FindObjects(Upper(object));
  const auto isOfFamily = [&](const ObjectRef& made) { return made.object->family == word.name; };
  const bool isThere = std::any_of(found.begin(), found.end(), [&](const ObjectRef& made) {
    return isOfFamily(made) && made.object->name == object;
  });
  if (isThere) return;
  if (found.empty()) {
    Nearest nearest(object);
    for (const ObjectRef& made : context.names.objects()) {
      if (isOfFamily(made)) nearest.Show(made.object->name);
    }
    context.Tell(
        rule::kUnknownObject, name,
        "nenhum objeto de " + Shown(word.name) + " se chama " + Shown(object) + ": a instrução não faz nada",
        nearest.found().empty()
            ? "crie o objeto antes: " + std::string(word.name) + " " + ToUtf8(object) + ", ..."
            : "você quis dizer " + Shown(nearest.found()) + "?");
    return;
  }
  const Note made{context.names.PlaceOf(found[0].editor, *found[0].object->token), "o objeto é este"};
  if (std::any_of(found.begin(), found.end(), isOfFamily)) {
    context.Tell(rule::kUnknownObject, name,
                 "o nome de um objeto vale só na caixa em que foi escrito: " + Shown(object) + " não é " +
                     Shown(found[0].object->name),
                 "escreva " + Shown(found[0].object->name), {made});
    return;
  }
  context.Tell(rule::kUnknownObject, name,
               Shown(object) + " não é um objeto de " + Shown(word.name) + ": a instrução não faz nada",
               "o objeto foi criado com " + std::string(found[0].object->family), {made});
}

bool CheckValueOfObject(Context& context, const Word& word, const Token& name, Tokens list) {
  if (list.empty() || !list[0].IsName()) return false;
  if (word.name == "SQL") {
    CheckSqlPath(context, word, list[0], list.subspan(1), true);
    return true;
  }
  if (word.more.suffixes.empty()) return false;
  if (!Contains(list[0].text, ".")) {
    context.Tell(rule::kNoValue, name, Shown(word.name) + " só dá um valor com um sufixo",
                 "escreva " + Shown(std::string(word.name) + "(Nome.Sufixo)"));
    return true;
  }
  const std::string_view suffix = SuffixOf(list[0].text);
  const WordForm* form = FindFormAnyCase(word.more.suffixes, suffix);
  if (form == nullptr || form->result == Result::None) {
    std::vector<WordForm> giving;
    std::copy_if(word.more.suffixes.begin(), word.more.suffixes.end(), std::back_inserter(giving),
                 [](const WordForm& other) { return other.result != Result::None; });
    const bool isKept = context.names.FindVariable(list[0].upper) != nullptr;
    context.Tell(rule::kUnknownSuffix, list[0],
                 Shown(word.name) + " não dá nenhum valor por " + Shown(suffix),
                 isKept           ? "leia a variável " + Shown(list[0].text) + " sem o comando em volta"
                 : giving.empty() ? "só as variáveis de um objeto dizem os seus valores"
                                  : NearForm(giving, suffix));
    return true;
  }
  CheckObject(context, word, list[0], Left(list[0].text, list[0].text.find('.')));
  CheckArguments(context, word, form->arguments, ValuesBehind(list.subspan(1)), list[0]);
  return true;
}

// Letters that hardly stand twice in a row but for a part of a date.
constexpr std::array<std::string_view, 6> kDateParts = {"DD", "MM", "YY", "HH", "NN", "SS"};

void CheckFormat(Context& context, Tokens format) {
  if (format.size() != 1 || !format[0].IsLiteral()) return;
  const std::string_view pattern = Bare(format[0]);
  const std::string folded = Folded(pattern);
  if (folded == "PADRAO") {
    if (Upper(pattern) != "PADRAO") {
      context.Tell(rule::kFormat, format[0], "o formato padrão se escreve sem acento", "escreva \"PADRAO\"");
    }
    return;
  }
  const std::size_t comma = pattern.rfind(',');
  const bool hasDigits = pattern.find_first_of("0#") != std::string_view::npos;
  const bool isDecimalComma = comma != std::string_view::npos && !Contains(pattern, ".") &&
                              pattern.size() - comma - 1 < 3 && hasDigits;
  const bool isGroupPoint =
      comma != std::string_view::npos && Contains(pattern, ".") && pattern.find('.') < comma;
  if (isDecimalComma || isGroupPoint) {
    context.Tell(
        rule::kFormat, format[0],
        "em um formato o ponto separa a fração e a vírgula os milhares: " + Shown(pattern) + " os troca",
        "escreva \"0.00\" ou \"#,##0.00\"; o resultado sai com vírgula decimal");
    return;
  }
  if (hasDigits || pattern.empty()) return;
  const bool isDate = !Contains(folded, "AA") && folded.find_first_of("DMYHNS") != std::string::npos &&
                      folded.find_first_not_of("DMYHNSAP/:-. ,") == std::string::npos;
  if (isDate) return;
  const bool holdsDate = std::any_of(kDateParts.begin(), kDateParts.end(),
                                     [&](std::string_view part) { return Contains(folded, part); });
  if (holdsDate && !Contains(folded, "AA")) {
    context.Tell(rule::kFormat, format[0],
                 "em um formato de data as letras d, m, y, h, n e s são sempre trocadas, também dentro de " +
                     Shown(pattern),
                 "junte os pedaços: x = Formata(data, \"dd\") & \" de \" & Formata(data, \"mmmm\")");
    return;
  }
  context.Tell(rule::kFormat, format[0],
               "o formato " + Shown(pattern) + " não tem lugar para um número nem para uma data",
               folded.find('A') != std::string::npos && folded.find('D') != std::string::npos
                   ? "o ano se escreve yyyy: \"dd/mm/yyyy\""
                   : "use \"PADRAO\", \"0.00\" ou \"dd/mm/yyyy\"");
}

void CheckCommand(Context& context, const Word& word) {
  const Tokens tokens = context.tokens;
  if (tokens.size() > 1 && tokens[1].Is('(') && !tokens[1].blankBefore) {
    const bool isValue = word.role == Role::Value;
    context.Tell(
        isValue ? rule::kLostValue : rule::kCommandParens, tokens[0],
        isValue
            ? "o resultado de " + Shown(word.name) + " não vai a lugar nenhum, e a linha não é entendida"
            : "um comando não leva parênteses: " + Shown(std::string(word.name) + "(") + " não é entendido",
        isValue ? "guarde-o: x = " + ToUtf8(context.source.TextOf(tokens))
                : "escreva " + Shown(std::string(word.name) + " ...") + ", com um branco e sem parênteses");
    return;
  }
  if (tokens.size() > 1 && !tokens[1].blankBefore) {
    context.Tell(rule::kUnknownWord, tokens[0], "falta um branco atrás de " + Shown(word.name),
                 "separe o comando dos seus valores");
    return;
  }
  if (word.role == Role::Value) {
    context.Tell(rule::kLostValue, tokens[0], Shown(word.name) + " dá um valor, que aqui se perde",
                 "use-a em uma expressão: x = " + std::string(word.name) + "(...)");
    return;
  }
  if (Contains(tokens[0].text, ".") && !Contains(word.name, ".")) return CheckPrefixed(context, word, tokens);
  if (word.name == "NovaJanela") return CheckNovaJanela(context, word, tokens);
  if (word.name == "Temporizador") return CheckTemporizador(context, tokens);
  if (word.name == "Aguarde") return CheckAguarde(context, word, tokens);
  if (word.name == "SQL" && tokens.size() > 1)
    return CheckSqlPath(context, word, tokens[1], tokens.subspan(2), false);
  if (word.name == "Janela" || word.name == "Fonte" || word.name == "EstiloBotao")
    return CheckKeywords(context, word, tokens);
  const bool hasSign = tokens.size() > 1 && tokens[1].Is('$');
  if (hasSign) return;
  if (!word.more.suffixes.empty() && tokens.size() > 1 && tokens[1].IsName() && Contains(tokens[1].text, "."))
    return CheckSuffix(context, word, tokens[1], tokens.subspan(2));
  if (CheckCuts(context, tokens.subspan(1), nullptr, false, Place::Argument)) return;
  if (!word.more.suffixes.empty()) return CheckCreation(context, word, tokens);
  const std::size_t told = context.findings.size();
  CheckArguments(context, word, word.arguments, SplitAtCommas(tokens.subspan(1)), tokens[0]);
  if (context.findings.size() == told) RehearseList(context, tokens.subspan(1), Place::Argument);
}

}  // namespace tessera::check

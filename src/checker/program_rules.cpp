#include "checker/program_rules.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "checker/near.h"
#include "checker/summaries.h"
#include "language/types.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// Whether a line somewhere uses the command by that name.
bool IsUsedAsCommand(const Names& names, std::string_view upper) {
  for (const Editor& editor : names.editors()) {
    for (std::size_t i = 0; i < editor.outline->forms.size(); ++i) {
      if (editor.outline->forms[i].form != Form::Other) continue;
      const Tokens tokens = editor.source->TokensOf(editor.source->statements()[i]);
      if (tokens[0].upper == upper && !IsAssignment(tokens)) return true;
    }
  }
  return false;
}

void CheckRepeated(Context& context) {
  for (const Variable& again : context.names.repeated()) {
    if (again.editor != context.source.editor()) continue;
    const Variable& first = *context.names.FindVariable(Upper(again.name));
    const bool differs = first.type != again.type ||
                         (first.origin == Origin::Declared && first.isArray != again.isArray) ||
                         (first.origin == Origin::Declared && first.count != again.count);
    if (!differs) continue;
    const std::string before =
        first.origin == Origin::Builtin ? "a linguagem já a declara como " : "ela já é ";
    std::vector<Note> notes;
    if (first.token != nullptr)
      notes.push_back({context.names.PlaceOf(first.editor, *first.token),
                       "a primeira declaração é esta, e é a que vale"});
    context.Tell(rule::kOtherType, *again.token,
                 "a variável " + Shown(again.name) + " é declarada de novo de outro jeito: " + before +
                     std::string(first.type) + (first.isArray ? ", um vetor" : ""),
                 "dê outro nome a uma das duas", std::move(notes));
  }
}

void CheckHiding(Context& context, const Variable& variable) {
  const Word* word = FindWord(variable.name);
  if (word == nullptr || word->role == Role::Value || word->role == Role::Block) return;
  if (!IsUsedAsCommand(context.names, Upper(variable.name))) return;
  context.Tell(rule::kHidesCommand, *variable.token,
               "a variável " + Shown(variable.name) + " esconde o comando " + Shown(word->name) +
                   ", que o programa usa",
               "dê outro nome à variável: uma linha que começa com " + std::string(word->name) +
                   " passa a ser da variável");
}

// All uses of a name in upper case.
Use SumOf(const std::vector<const Uses*>& uses, const std::string& upper) {
  Use sum;
  for (const Uses* editor : uses) {
    const auto found = editor->find(upper);
    if (found == editor->end()) continue;
    sum.reads += found->second.reads;
    sum.writes += found->second.writes;
    sum.writesOfCalls += found->second.writesOfCalls;
  }
  return sum;
}

void CheckRead(Context& context, const Variable& variable, const std::vector<const Uses*>& uses) {
  if (variable.type != kTypeString && variable.type != kTypeInteiro && variable.type != kTypeDecimal)
    return;  // told there
  const Use sum = SumOf(uses, Upper(variable.name));
  if (sum.reads > 0 || (sum.writes > 0 && sum.writes == sum.writesOfCalls)) return;
  context.Tell(rule::kNeverRead, *variable.token,
               sum.writes == 0 ? "a variável " + Shown(variable.name) + " nunca é usada"
                               : "a variável " + Shown(variable.name) + " recebe valores, mas ninguém os lê",
               sum.writes == 0 ? "tire-a da declaração, ou veja se um nome parecido foi escrito no lugar dela"
                               : "mostre o seu valor, ou tire-a do programa");
}

// Whether a name in the program is one that `holds(tokens of its statement, name)`.
template <typename Predicate>
bool AnyName(const Names& names, Predicate holds) {
  for (const Editor& editor : names.editors()) {
    for (const Statement& statement : editor.source->statements()) {
      const Tokens tokens = editor.source->TokensOf(statement);
      const bool found = std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        return token.IsName() && holds(tokens, token);
      });
      if (found) return true;
    }
  }
  return false;
}

// Whether the program puts texts into the variable, so that it may well hold a name.
bool MayHoldName(const Context& context, const Variable& variable, const std::vector<const Uses*>& uses) {
  if (variable.type != kTypeString) return false;
  const std::string upper = Upper(variable.name);
  return SumOf(uses, upper).writes > 0 || AnyName(context.names, [&](Tokens tokens, const Token& token) {
           return token.upper == upper && std::any_of(tokens.begin(), tokens.end(), [](const Token& word) {
                    return word.IsName() && WritesVariables(word.upper.substr(0, word.upper.find('.')));
                  });
         });
}

// The variable whose value stands for a name that is written without quotes; null for none, or where a
// function's own variable has that name too.
const Variable* TakenFor(const Context& context, const Token& name, std::size_t statement) {
  const Variable* variable = name.IsName() ? context.names.FindVariable(name.upper) : nullptr;
  if (variable == nullptr || variable->origin != Origin::Declared || variable->isArray) return nullptr;
  const std::size_t routine = context.outline.routineOf[statement];
  if (routine == kNone) return variable;
  const std::vector<Local>& locals = context.outline.routines[routine].locals;
  const bool isHidden = std::any_of(locals.begin(), locals.end(), [&](const Local& local) {
    return EqualsIgnoringCase(local.name, name.text);
  });
  return isHidden ? nullptr : variable;
}

// A text that the program assigns may well be meant as the name; but whoever writes `Nome.Txt` means the
// object's own.
void CheckObjectName(Context& context, const MadeObject& object, const std::vector<const Uses*>& uses) {
  const Variable* variable = TakenFor(context, *object.token, object.statement);
  if (variable == nullptr) return;
  const std::string prefix = Upper(object.name) + ".";
  const bool isSpokenOf =
      AnyName(context.names, [&](Tokens, const Token& token) { return token.upper.starts_with(prefix); });
  if (!isSpokenOf && MayHoldName(context, *variable, uses)) return;
  context.Tell(rule::kObjectIsVariable, *object.token,
               "há uma variável " + Shown(variable->name) + ": o objeto toma por nome o que ela contém",
               "dê outro nome ao objeto ou à variável; maiúsculas e minúsculas não os distinguem",
               {{context.names.PlaceOf(variable->editor, *variable->token), "a variável é esta"}});
}

// Aliases of files, by their name in upper case.
struct Alias {
  Span opened;
  bool isOpened = false;
  bool isClosed = false;
  std::set<std::string> modes;
};

struct FileUse {
  std::size_t editor;
  std::size_t statement;
  const Token* word;
  const Token* alias;
  std::string mode;
};

// Every use of a file command with its alias.
std::vector<FileUse> FileUses(const Names& names) {
  constexpr std::array kCommands = {"ABREARQUIVO", "FECHAARQUIVO", "LEARQUIVO", "GRAVAARQUIVO",
                                    "TAMANHOARQUIVO"};
  std::vector<FileUse> uses;
  for (std::size_t e = 0; e < names.editors().size(); ++e) {
    const Editor& editor = names.editors()[e];
    const std::vector<Statement>& statements = editor.source->statements();
    for (std::size_t s = 0; s < statements.size(); ++s) {
      const Tokens tokens = editor.source->TokensOf(statements[s]);
      for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const bool isFile = tokens[i].IsName() && tokens[i].upper.ends_with("ARQUIVO") &&
                            std::find(kCommands.begin(), kCommands.end(), tokens[i].upper) != kCommands.end();
        if (!isFile) continue;
        const std::size_t at = tokens[i + 1].Is('(') ? i + 2 : i + 1;
        if (at >= tokens.size()) continue;
        std::string mode;
        if (tokens[i].upper == "ABREARQUIVO") mode = Upper(Bare(tokens.back()));
        uses.push_back({e, s, &tokens[i], &tokens[at], mode});
      }
    }
  }
  return uses;
}

// An alias that a program puts into a variable is its own affair.
void CheckAliasName(Context& context, const FileUse& use, const std::vector<const Uses*>& uses) {
  const Variable* variable = TakenFor(context, *use.alias, use.statement);
  if (variable == nullptr || MayHoldName(context, *variable, uses)) return;
  context.Tell(rule::kAliasIsVariable, *use.alias,
               "há uma variável " + Shown(variable->name) + ": vale por apelido o que ela contém",
               "dê outro nome ao apelido ou à variável; maiúsculas e minúsculas não os distinguem",
               {{context.names.PlaceOf(variable->editor, *variable->token), "a variável é esta"}});
}

// Whether the alias is written out, and not what a variable holds.
bool IsPlain(const Names& names, const Token& alias) {
  return alias.IsLiteral() || (alias.IsName() && names.FindVariable(alias.upper) == nullptr);
}

constexpr std::size_t kLongestStoredName = 20;  // the file's place of 25 bytes, less the codec's 5
constexpr std::int64_t kLargestField = 32762;   // a width of 16 bits, less the codec's 5

constexpr std::array kFieldTypes = {"String", "Inteiro", "Decimal", "AutoInc"};

void CheckField(Context& context, const DatabaseField& field) {
  const Tokens line = context.source.TokensOf(context.source.statements()[field.statement]);
  const std::vector<Tokens> parts = SplitAtCommas(line);
  if (field.type.empty()) {
    context.Tell(rule::kDatabaseBlock, line, "um campo tem um nome e um tipo, com uma vírgula entre os dois",
                 "escreva como em Nome, String, 40");
    return;
  }
  if (std::find(kFieldTypes.begin(), kFieldTypes.end(), field.type) == kFieldTypes.end()) {
    Nearest nearest(field.type);
    for (const char* type : kFieldTypes) nearest.Show(type);
    context.Tell(rule::kDatabaseBlock, parts[1].empty() ? line : parts[1],
                 "um campo não pode ter o tipo " + Shown(field.type),
                 nearest.found().empty() ? "os tipos são String, Inteiro, Decimal e AutoInc"
                                         : "você quis dizer " + Shown(nearest.found()) + "?");
    return;
  }
  const bool isText = field.type == "String";
  if (isText && field.size <= 0 && (parts.size() < 3 || parts[2].size() != 1 || !parts[2][0].IsName())) {
    context.Tell(rule::kDatabaseBlock, line, "um campo String diz quantas letras guarda",
                 "escreva o tamanho: " + ToUtf8(field.name) + ", String, 40");
    return;
  }
  if (field.name.size() > kLongestStoredName) {
    context.Tell(
        rule::kFieldTooLong, *field.token,
        "o nome do campo tem " + std::to_string(field.name.size()) + " letras, e o arquivo guarda 20",
        "encurte o nome");
    return;
  }
  if (isText && field.size > kLargestField) {
    context.Tell(rule::kFieldTooLong, parts[2], "um campo deste tamanho não cabe em um registro",
                 "guarde textos longos em um arquivo próprio");
    return;
  }
  if (field.token->text.starts_with("BD")) {
    context.Tell(rule::kDatabaseBlock, *field.token, "o nome de um campo não pode começar com BD",
                 "mude o nome do campo");
    return;
  }
  const Variable* variable =
      field.token->IsLiteral() ? nullptr : context.names.FindVariable(Upper(field.name));
  if (variable == nullptr) return;
  std::vector<Note> notes;
  if (variable->token != nullptr)
    notes.push_back({context.names.PlaceOf(variable->editor, *variable->token), "a variável é esta"});
  context.Tell(
      rule::kFieldIsVariable, *field.token,
      "há uma variável " + Shown(field.name) + ": o campo toma por nome o que ela contém",
      "escreva o campo entre aspas: " + Shown("\"" + std::string(field.name) + "\"") + ", ou mude a variável",
      std::move(notes));
}

}  // namespace

void CheckNames(Context& context, const std::vector<const Uses*>& uses) {
  CheckRepeated(context);
  for (const Variable& variable : context.names.variables()) {
    if (variable.origin != Origin::Declared || variable.editor != context.source.editor()) continue;
    CheckHiding(context, variable);
    CheckRead(context, variable, uses);
  }
  for (const MadeObject& object : context.outline.objects) CheckObjectName(context, object, uses);
}

void CheckOrder(Context& context, const BlockMap& blocks) {
  if (context.source.editor() != 0) return;
  const auto& forms = context.outline.forms;
  const bool jumps = std::any_of(forms.begin(), forms.end(),
                                 [](const FormedWord& formed) { return formed.form == Form::VaPara; });
  if (jumps) return;
  std::set<std::string_view> told;
  for (std::size_t i = 0; i < forms.size() && context.outline.routineOf[i] == kNone; ++i) {
    if (blocks.around[i] != kNone || forms[i].form == Form::Declaration || forms[i].form == Form::BdField)
      continue;
    for (const Token& token : context.source.TokensOf(context.source.statements()[i])) {
      if (!token.IsName()) continue;
      const Variable* variable = context.names.FindVariable(token.upper);
      if (variable == nullptr || variable->origin != Origin::Declared || variable->editor != 0 ||
          variable->statement <= i)
        continue;
      if (context.outline.routineOf[variable->statement] != kNone || !told.insert(variable->name).second)
        continue;
      context.Tell(rule::kUsedBefore, token,
                   "a variável " + Shown(token.text) + " só é declarada mais abaixo",
                   "leve a declaração para cima desta linha",
                   {{context.source.SpanOf(*variable->token), "a declaração está aqui"}});
    }
  }
}

void CheckFiles(Context& context, const std::vector<const Uses*>& uses) {
  const std::vector<FileUse> files = FileUses(context.names);
  for (const FileUse& use : files) {
    if (use.editor == context.source.editor()) CheckAliasName(context, use, uses);
  }
  const bool areKnown = std::all_of(files.begin(), files.end(),
                                    [&](const FileUse& use) { return IsPlain(context.names, *use.alias); });
  if (!areKnown) return;
  std::map<std::string, Alias> aliases;
  for (const FileUse& use : files) {
    Alias& alias = aliases[Upper(Bare(*use.alias))];
    if (use.word->upper == "ABREARQUIVO") {
      if (!alias.isOpened) alias.opened = context.names.PlaceOf(use.editor, *use.alias);
      alias.isOpened = true;
      alias.modes.insert(use.mode);
    }
    if (use.word->upper == "FECHAARQUIVO") alias.isClosed = true;
  }
  for (const FileUse& use : files) {
    if (use.editor != context.source.editor()) continue;
    const Alias& alias = aliases[Upper(Bare(*use.alias))];
    const std::string name = Shown(Bare(*use.alias));
    if (!alias.isOpened) {
      Nearest nearest(Bare(*use.alias));
      for (const auto& [other, row] : aliases) {
        if (row.isOpened) nearest.Show(other);
      }
      context.Tell(rule::kNeverOpened, *use.alias, "nenhum AbreArquivo dá o apelido " + name,
                   nearest.found().empty() ? "abra o arquivo antes com AbreArquivo, ou acerte o apelido"
                                           : "você quis dizer " + Shown(nearest.found()) + "?");
      continue;
    }
    if (use.word->upper == "ABREARQUIVO" && !alias.isClosed &&
        context.names.PlaceOf(use.editor, *use.alias) == alias.opened) {
      context.Tell(rule::kNeverClosed, *use.alias, "o arquivo " + name + " é aberto, mas ninguém o fecha",
                   "ponha FechaArquivo " + ToUtf8(Bare(*use.alias)) + " depois do último uso");
    }
    if (alias.modes.size() != 1) continue;
    const std::string& mode = *alias.modes.begin();
    const bool isRead = use.word->upper == "LEARQUIVO" && mode == "TEXTOGRAVACAO";
    const bool isWritten = use.word->upper == "GRAVAARQUIVO" && mode == "TEXTOLEITURA";
    if (!isRead && !isWritten) continue;
    context.Tell(rule::kFileMode, *use.word,
                 isRead ? "o arquivo " + name + " foi aberto para gravar, e não se lê"
                        : "o arquivo " + name + " foi aberto para ler, e não se grava nele",
                 isRead ? "abra-o com TEXTOLEITURA" : "abra-o com TEXTOGRAVACAO",
                 {{alias.opened, "aberto aqui"}});
  }
}

void CheckDatabases(Context& context) {
  for (const Database& database : context.outline.databases) {
    const Tokens head = context.source.TokensOf(context.source.statements()[database.statement]);
    if (!database.isClosed)
      context.Tell(rule::kDatabaseBlock, head, "a descrição do banco de dados não tem o seu FimBD",
                   "ponha FimBD atrás do último campo");
    if (database.name.empty())
      context.Tell(rule::kDatabaseBlock, head, "falta o nome do banco de dados", "escreva BD Nome, pasta");
    if (database.isClosed && database.fields.empty())
      context.Tell(rule::kDatabaseBlock, head, "o banco de dados não tem nenhum campo",
                   "escreva um campo em cada linha: Nome, String, 40");
    for (const DatabaseField& field : database.fields) CheckField(context, field);
  }
  constexpr std::array kCommands = {
      "ABREBD",     "FECHABD", "ADICIONAREGISTRO", "ATUALIZAREGISTRO", "EXCLUIREGISTRO",
      "LEREGISTRO", "ORDEMBD", "LIMPABD",          "PROCURE",          "TOTALREGISTROSBD"};
  for (const Statement& statement : context.source.statements()) {
    const Tokens tokens = context.source.TokensOf(statement);
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
      const bool isOne = tokens[i].IsName() &&
                         std::find(kCommands.begin(), kCommands.end(), tokens[i].upper) != kCommands.end();
      const std::size_t at = tokens[i + 1].Is('(') ? i + 2 : i + 1;
      if (!isOne || at >= tokens.size() || (i > 0 && at == i + 1)) continue;
      const Token& name = tokens[at];
      if (!name.IsLiteral() && !name.IsName()) continue;
      if (name.IsName() && context.names.FindVariable(name.upper) != nullptr) continue;
      if (context.names.FindDatabase(Bare(name)) == nullptr) {
        Nearest nearest(Bare(name));
        for (const DatabaseRef& row : context.names.databases()) nearest.Show(row.database->name);
        context.Tell(rule::kUnknownDatabase, name, "nenhum banco de dados se chama " + Shown(Bare(name)),
                     nearest.found().empty() ? "descreva-o antes com BD ... FimBD"
                                             : "você quis dizer " + Shown(nearest.found()) + "?");
        continue;
      }
      if (tokens[i].upper != "ORDEMBD") continue;
      const Database& database = *context.names.FindDatabase(Bare(name))->database;
      const std::vector<Tokens> arguments = SplitAtCommas(tokens.subspan(1));
      for (std::size_t k = 1; k < arguments.size(); ++k) {
        if (arguments[k].size() != 1) continue;
        const Token& field = arguments[k][0];
        const bool isKnown =
            EqualsIgnoringCase(Bare(field), "Sequencial") ||
            context.names.FindVariable(field.upper) != nullptr ||
            std::any_of(database.fields.begin(), database.fields.end(),
                        [&](const DatabaseField& row) { return EqualsIgnoringCase(row.name, Bare(field)); });
        if (isKnown) continue;
        Nearest nearest(Bare(field));
        for (const DatabaseField& row : database.fields) nearest.Show(row.name);
        context.Tell(rule::kUnknownDatabase, field,
                     "o banco de dados " + Shown(database.name) + " não tem o campo " + Shown(Bare(field)),
                     nearest.found().empty() ? "escolha um dos campos descritos em BD"
                                             : "você quis dizer " + Shown(nearest.found()) + "?");
      }
    }
  }
}

}  // namespace tessera::check

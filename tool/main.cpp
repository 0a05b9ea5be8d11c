// The tool `tessera` of the person who writes programs: reads the call and hands it to a sub-command.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/prepare_process.h"
#include "platform/stack_limit.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {
namespace {

constexpr const char* kProgramHelp = "Arquivo Nome.tsc, ou pasta com os editores do programa";

// Behind an option stands the name of its value alone; what values it takes, its sentence says.
class PlainFormatter : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string value = option->get_type_name();
    return value.empty() ? "" : " " + value.substr(0, value.find(':'));
  }
};

// Help in Portuguese.
std::shared_ptr<CLI::Formatter> PortugueseHelp() {
  auto formatter = std::make_shared<PlainFormatter>();
  formatter->label("Usage", "Uso");
  formatter->label("OPTIONS", "OPÇÕES");
  formatter->label("Positionals", "Argumentos");
  formatter->label("Options", "Opções");
  formatter->label("SUBCOMMAND", "COMANDO");
  formatter->label("SUBCOMMANDS", "COMANDO");
  formatter->label("Subcommands", "Comandos");
  formatter->column_width(34);
  return formatter;
}

// What stands behind "--" belongs to the program, whatever it looks like.
std::vector<std::string> TakeProgramArguments(std::vector<std::string>& words) {
  const auto divider = std::find(words.begin(), words.end(), "--");
  if (divider == words.end()) return {};
  std::vector<std::string> behind(divider + 1, words.end());
  words.erase(divider, words.end());
  return behind;
}

class CommandLine {
 public:
  CommandLine() : app_("Tessera: escreva, verifique, execute e empacote programas.", "tessera") {
    app_.formatter(PortugueseHelp());
    app_.option_defaults()->group("Opções");
    app_.allow_extras();
    app_.set_help_flag("-h,--help", "Mostra esta ajuda");
    app_.set_version_flag("--version", "tessera " TESSERA_VERSION, "Mostra a versão");
    app_.footer(
        "Ajuda de um comando: tessera COMANDO --help\n"
        "Estado de saída: 0 feito; 1 programa recusado ou abandonado; 2 chamada errada ou arquivo "
        "inadequado;\n                 3 roteiro de eventos com erro");
    AddWithProgram(
        "run", "Executa um programa", run_.program, [this] { return RunSubcommand(run_); },
        [this](CLI::App& run) { AddRun(run); });
    AddWithProgram(
        "build", "Grava um programa como um executável", build_.program,
        [this] { return BuildSubcommand(build_); }, [this](CLI::App& build) { AddBuild(build); });
    AddWithProgram(
        "check", "Aponta os erros de um programa sem o executar", check_.program,
        [this] { return CheckSubcommand(check_); }, [this](CLI::App& check) { AddCheck(check); });
    Add(
        "test", "Executa os testes de programas: roteiros com a saída esperada",
        [this] { return TestSubcommand(test_); }, [this](CLI::App& test) { AddTest(test); });
    AddWithProgram(
        "record", "Grava um teste: executa o programa e escreve o roteiro do que se faz", record_.program,
        [this] { return RecordSubcommand(record_); }, [this](CLI::App& record) { AddRecord(record); });
    AddWithProgram("show", "Mostra o texto preparado de um programa", name_,
                   [this] { return ShowSubcommand(name_); });
    Add(
        "new", "Cria uma pasta com um primeiro programa", [this] { return NewSubcommand(name_); },
        [this](CLI::App& created) {
          created.add_option("NOME", name_, "Nome da pasta e do programa")->type_name("")->required();
        });
    Add("words", "Escreve a tabela das palavras da linguagem, em JSON", WordsSubcommand);
    Add(
        "bd", "Examina um arquivo de banco de dados (.Tsa)", [this] { return Refuse("falta COMANDO"); },
        [this](CLI::App& bd) { AddBd(bd); });
  }

  int Run(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    run_.arguments = record_.arguments = TakeProgramArguments(words);
    std::reverse(words.begin(), words.end());  // the parser takes them from the back
    try {
      app_.parse(words);
    } catch (const CLI::CallForHelp&) {
      std::cout << app_.help();
      return kDone;
    } catch (const CLI::CallForVersion&) {
      std::cout << app_.version() << '\n';
      return kDone;
    } catch (const CLI::RequiredError& problem) {
      // The library's sentence begins with the argument's name.
      const std::string sentence = problem.what();
      return Refuse("falta " + sentence.substr(0, sentence.find(' ')));
    } catch (const CLI::ArgumentMismatch&) {
      return Refuse("falta o valor de uma opção");
    } catch (const CLI::ParseError&) {
      return Refuse("chamada errada");
    }
    return Dispatch();
  }

 private:
  using Action = std::function<int()>;
  // Gives a command its options. Done when it is called: there are many of them, and a call has a few.
  using Options = std::function<void(CLI::App&)>;

  void Add(const char* word, const char* description, Action action, const Options& options = {}) {
    AddBelow(app_, word, description, std::move(action), options);
  }

  void AddBelow(CLI::App& parent, const char* word, const char* description, Action action,
                const Options& options) {
    CLI::App* command = parent.add_subcommand(word, description);
    command->group("Comandos");
    command->get_help_ptr()->group("Opções");
    command->allow_extras();
    actions_[command] = std::move(action);
    if (options) command->preparse_callback([command, options](std::size_t) { options(*command); });
  }

  void AddWithProgram(const char* word, const char* description, std::string& program, Action action,
                      const Options& options = {}) {
    Add(word, description, std::move(action), [&program, options](CLI::App& command) {
      command.add_option("PROGRAMA", program, kProgramHelp)->type_name("")->required();
      if (options) options(command);
    });
  }

  void AddRun(CLI::App& run) {
    run.add_flag("--console", run_.console, "Executa no terminal, sem janelas");
    run.add_flag_callback(
        "--no-check", [this] { run_.check = false; }, "Não verifica o programa antes");
    run.add_flag("--plain", run_.plain,
                 "Executa só pelas regras simples, sem as formas rápidas, para comparar");
    run.add_flag("--failures", run_.failures, "Conta também as falhas que terminam uma rotina em silêncio");
    run.add_option("--script", run_.script, "Roteiro de eventos que conduz as janelas; - é a entrada padrão")
        ->type_name("ARQUIVO");
    run.add_option("--record", run_.record,
                   "Grava em um roteiro o que se faz nas janelas; não com --script nem --console")
        ->type_name("ARQUIVO")
        ->excludes("--script")
        ->excludes("--console");
    run.add_flag("--cancel", run_.answerCancel,
                 "No terminal e em um roteiro, responde Cancelar às caixas de OK e Cancelar");
    run.add_option("--printer", run_.printer,
                   "Impressora: uma fila, ou um arquivo .pdf que recebe o documento")
        ->type_name("DESTINO");
    run.add_option("--microphone", run_.microphone,
                   "Microfone: um arquivo de som, que o gravador ouve em lugar dele")
        ->type_name("ARQUIVO");
    run.add_option("--camera", run_.camera,
                   "Câmera: uma figura, ou uma pasta de figuras, que ela vê uma após a outra")
        ->type_name("CAMINHO");
    run.footer("O que vem depois de -- é a linha de comando do programa (LinhaComando).");
  }

  void AddCheck(CLI::App& check) {
    check.add_flag("--json", check_.json, "Escreve um objeto JSON por linha");
    check.add_option("--format", check_.format, "Formato da saída: sarif, para serviços")
        ->type_name("FORMATO")
        ->check(CLI::IsMember({"sarif"}));
    check.add_option("--color", check_.colour, "Cores: always, never ou auto")
        ->type_name("QUANDO")
        ->check(CLI::IsMember({"always", "never", "auto"}));
    check.add_flag("--deny-warnings", check_.denyWarnings, "Um aviso também recusa o programa");
    check.footer(
        "Um comentário silencia uma regra: ' tessera: permite T0306 (na linha, ou sozinho acima dela),\n"
        "' tessera: permite no programa T0306 (em todo o programa).");
  }

  void AddTest(CLI::App& test) {
    test.add_option("CAMINHO", test_.path, "Pasta, programa ou teste; sem ele, a pasta atual")->type_name("");
    test.add_flag("--update", test_.update, "Grava a saída que vem agora como a esperada");
    test.add_option("--filter", test_.filter, "Só os testes que têm este texto no nome")->type_name("TEXTO");
    test.add_flag("--windows", test_.windows, "Com janelas de verdade, que ninguém vê");
    test.add_option("--junit", test_.junit, "Grava os resultados em XML, para serviços")
        ->type_name("ARQUIVO");
    test.add_option("--jobs", test_.jobs, "Quantos testes ao mesmo tempo, de 1 a 256; sem ele, um por núcleo")
        ->type_name("N")
        ->check(CLI::Range(1, 256));
    test.add_option("--timeout", test_.patience, "Segundos que um teste pode durar, de 1 a 3600; sem ele, 60")
        ->type_name("N")
        ->check(CLI::Range(1, 3600));
    test.footer(
        "Um teste é um roteiro ao lado do programa com a saída esperada: Nome.roteiro e Nome.saida, ou\n"
        "Nome.teste com os dois. Nome é o do programa, ou começa com ele e um ponto.");
  }

  void AddRecord(CLI::App& record) {
    record.add_option("-o", record_.script, "Roteiro a gravar; sem ele, Nome.roteiro ao lado do programa")
        ->type_name("ROTEIRO");
    record.add_flag("--force", record_.force, "Grava por cima de um teste que já existe");
    record.footer(
        "O programa roda em uma cópia da sua pasta. No fim, a saída que ele deu fica em Nome.saida, e\n"
        "tessera test a confere. O que vem depois de -- é a linha de comando do programa.");
  }

  void AddBuild(CLI::App& build) {
    build.add_option("-o", build_.output, "Arquivo a gravar; sem ele, o nome do programa na própria pasta")
        ->type_name("ARQUIVO");
    build.add_flag("--force", build_.force, "Substitui um arquivo que não é um programa já gravado");
    build
        .add_option("--runtime", build_.runtime,
                    "Executor a copiar; sem ele, o tessera-runtime ao lado da ferramenta")
        ->type_name("ARQUIVO");
    build
        .add_option("--icon", build_.icon,
                    "Ícone do programa (PNG, ICO ou SVG), gravado ao lado dele com um atalho")
        ->type_name("ARQUIVO");
    build.add_flag("--desktop", build_.desktop,
                   "Põe o programa, com o seu ícone, no menu de programas do usuário");
    build.add_option("--include", build_.included, "Arquivos e pastas que ficam ao lado do programa")
        ->type_name("ARQUIVO...");
    build.add_flag("--deb", build_.deb,
                   "Faz um pacote Debian com o programa, os seus arquivos e o que ele precisa");
    build.add_option("--deb-version", build_.version, "Versão do pacote; sem ela, 1.0")->type_name("VERSÃO");
    build.add_flag("--needs", build_.needs,
                   "Só diz de que pacotes o programa precisa; PROGRAMA pode ser um já gravado");
  }

  void AddBd(CLI::App& bd) {
    const auto add = [&](const char* word, const char* description, std::string& file, Action action,
                         const Options& options = {}) {
      AddBelow(bd, word, description, std::move(action), [&file, options](CLI::App& command) {
        command.add_option("ARQUIVO", file, "Arquivo .Tsa")->type_name("")->required();
        if (options) options(command);
      });
    };
    add("info", "Mostra o cabeçalho, a contagem e os campos", name_,
        [this] { return BdInfoSubcommand(name_); });
    add("check", "Percorre todos os registros e nomeia os que não se leem", name_,
        [this] { return BdCheckSubcommand(name_); });
    add("unlock", "Libera um arquivo que ficou marcado como ocupado", name_,
        [this] { return BdUnlockSubcommand(name_); });
    add("repair", "Conserta o que um fim repentino deixou; antes guarda uma cópia", name_,
        [this] { return BdRepairSubcommand(name_); });
    add(
        "export", "Grava os registros em outro formato", export_.file,
        [this] { return BdExportSubcommand(export_); }, [this](CLI::App& exported) { AddExport(exported); });
    add(
        "import", "Faz um banco de dados com registros de outro formato", import_.file,
        [this] { return BdImportSubcommand(import_); }, [this](CLI::App& imported) { AddImport(imported); });
  }

  void AddExport(CLI::App& exported) {
    exported
        .add_option("--csv", export_.csv, "Texto com ponto e vírgula entre os campos; - é a saída padrão")
        ->type_name("SAÍDA");
    exported.add_option("--sqlite", export_.sqlite, "Banco de dados SQLite")->type_name("SAÍDA");
    exported.add_option("--senha", export_.password, "Senha do banco de dados")->type_name("SENHA");
  }

  void AddImport(CLI::App& imported) {
    imported.add_option("--csv", import_.csv, "Texto com os nomes dos campos na primeira linha")
        ->type_name("ENTRADA");
    imported.add_option("--sqlite", import_.sqlite, "Banco de dados SQLite")->type_name("ENTRADA");
    imported.add_option("--table", import_.table, "Tabela do banco SQLite")->type_name("TABELA");
    imported.add_option("--senha", import_.password, "Senha que o banco de dados terá")->type_name("SENHA");
  }

  // The command chosen at the lowest level.
  const CLI::App* Chosen() const {
    const CLI::App* chosen = &app_;
    for (auto next = chosen->get_subcommands(); !next.empty(); next = chosen->get_subcommands())
      chosen = next.front();
    return chosen;
  }

  int Dispatch() {
    if (const std::vector<std::string> extra = app_.remaining(true); !extra.empty()) {
      return Refuse("não entendo \"" + extra.front() + "\"");
    }
    const CLI::App* chosen = Chosen();
    if (chosen == &app_) {
      std::cerr << app_.help();
      return kWrongCall;
    }
    return actions_.at(chosen)();
  }

  int Refuse(const std::string& problem) const {
    std::string words;
    for (const CLI::App* command = Chosen(); command != nullptr; command = command->get_parent()) {
      words.insert(0, command->get_name() + " ");
    }
    PrintError(problem + "; veja " + words + "--help");
    return kWrongCall;
  }

  CLI::App app_;
  std::map<const CLI::App*, std::function<int()>> actions_;
  RunCall run_;
  CheckCall check_;
  TestCall test_;
  RecordCall record_;
  BuildCall build_;
  BdExportCall export_;
  BdImportCall import_;
  std::string name_;
};

}  // namespace
}  // namespace tessera

int main(int argc, char** argv) {
  tessera::PrepareProcess();
  tessera::StackLimit::Raise(tessera::StackLimit::kRunStack);
  const int status = tessera::CommandLine().Run(argc, argv);
  std::cout.flush();
  if (std::cout) return status;
  tessera::PrintError("a saída não pôde ser gravada");
  return status == tessera::kDone ? tessera::kRefused : status;
}

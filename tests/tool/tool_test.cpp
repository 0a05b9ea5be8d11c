// The tool as its user meets it: real processes, their exit status, what they print and write.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "image/image_reader.h"
#include "support/process.h"
#include "tool/terminal.h"

namespace tessera {
namespace {

class Tool : public testing::Test {
 protected:
  ProcessResult Call(std::vector<std::string> words, const std::string& input = "") {
    words.insert(words.begin(), TESSERA_TOOL);
    return RunProcess(
        {.words = std::move(words), .input = input, .environment = {"DISPLAY", "QT_QPA_PLATFORM"}});
  }
  void ExpectRefused(const ProcessResult& result, std::string_view message) {
    EXPECT_EQ(result.status, kWrongCall);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find(message), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find('\033'), std::string::npos) << "no colours into a pipe";
  }

  TemporaryFolder folder_;
};

TEST_F(Tool, HelpIsInPortuguese) {
  for (const std::vector<std::string>& call : std::vector<std::vector<std::string>>{{"--help"},
                                                                                    {"run", "--help"},
                                                                                    {"build", "-h"},
                                                                                    {"check", "-h"},
                                                                                    {"show", "-h"},
                                                                                    {"new", "-h"},
                                                                                    {"test", "-h"},
                                                                                    {"record", "-h"},
                                                                                    {"bd", "-h"},
                                                                                    {"bd", "export", "-h"},
                                                                                    {"bd", "import", "-h"}}) {
    const ProcessResult help = Call(call);
    EXPECT_EQ(help.status, kDone);
    EXPECT_NE(help.out.find("Uso: tessera"), std::string::npos) << help.out;
    for (const char* english : {"Usage", "Options", "Positionals", "Subcommands", "OPTIONS", "REQUIRED",
                                "Excludes", "{", " in [", "... ..."}) {
      EXPECT_EQ(help.out.find(english), std::string::npos) << help.out;
    }
  }
}

TEST_F(Tool, AWrongCallSaysWhatIsWrong) {
  const std::string program = folder_.Write("a.tsc", "Cls");
  EXPECT_EQ(Call({}).status, kWrongCall);
  ExpectRefused(Call({"corre"}), "não entendo \"corre\"");
  ExpectRefused(Call({"run"}), "falta PROGRAMA");
  ExpectRefused(Call({"new"}), "falta NOME");
  ExpectRefused(Call({"check", program, "--rápido"}), "não entendo \"--rápido\"");
  ExpectRefused(Call({"build", program, "-o"}), "falta o valor de uma opção");
  ExpectRefused(Call({"run", folder_ / "nada.tsc"}), "programa não encontrado");
}

TEST_F(Tool, RunsOnTheTerminalWhereNoDisplayAnswers) {
  const std::string program = folder_.Write("a.tsc", "Escreva \"olá\"");
  const ProcessResult result = Call({"run", program});
  EXPECT_EQ(result.status, kDone);
  EXPECT_EQ(result.out, "olá\n");
  EXPECT_NE(result.err.find("nenhuma tela"), std::string::npos);
  EXPECT_EQ(Call({"run", "--console", program}).err, "");
}

TEST_F(Tool, TellsTheProgramItsFolderAndCommandLine) {
  const std::string program =
      folder_.Write("a.tsc", "Escreva PastaPrograma\nEscreva PastaTS\nEscreva LinhaComando");
  const std::string folder = std::filesystem::canonical(folder_.path()).string();
  const auto said = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"run", "--console", program, "--"});
    return Call(arguments).out;
  };
  EXPECT_EQ(said({}), folder + "\n" + folder + "\n\n");
  EXPECT_EQ(said({"a", "--help", "-o"}), folder + "\n" + folder + "\na --help -o\n");
  EXPECT_EQ(said({"um só"}), folder + "\n" + folder + "\num só\n") << "enclosing quotes go";
  EXPECT_EQ(said({"um só", "x"}), folder + "\n" + folder + "\n\"um só\" x\n") << "others stay";
}

TEST_F(Tool, ExitStatusTellsRefusedAndAbandonedPrograms) {
  const ProcessResult refused = Call({"run", "--console", folder_.Write("a.tsc", "Escreva 1\nSe 1 = 1")});
  EXPECT_EQ(refused.status, kRefused);
  EXPECT_EQ(refused.out, "");
  EXPECT_EQ(refused.err, "[critico] Comando Se sem o respectivo FimSe!\n");
  const ProcessResult abandoned =
      Call({"run", "--console", folder_.Write("b.tsc", "Var a(2) Inteiro\nEscreva 1\na(9) = 1\nEscreva 2")});
  EXPECT_EQ(abandoned.status, kRefused);
  EXPECT_EQ(abandoned.out, "1\n");
  EXPECT_EQ(abandoned.err, "[falha] Editor: 0 Linha: 3: Subscrito fora do intervalo\n");
}

// By whichever form the routines run, and nothing else of the run changes.
TEST_F(Tool, FailuresThatRoutinesHideAreToldWhereSomebodyAsks) {
  const std::string program = folder_.Write(
      "a.tsc",
      "Var n Inteiro, i Inteiro, f String\nEnquanto i < 2\nPoe()\ni++\nRepita\nf = Um(3)\nEscreva \"fim\"\n"
      "FimPrograma\nSub Poe()\nn = \"dez\"\nEscreva \"nem isto\"\nFimSub\n"
      "Funcao Um(a Inteiro) Inteiro\nAbreArquivo X, \"falta.txt\", TEXTOLEITURA\nRetorne a\nFimFuncao\n");
  for (const char* form : {"--no-check", "--plain"}) {
    const ProcessResult silent = Call({"run", "--console", form, program});
    const ProcessResult told = Call({"run", "--console", "--failures", form, program});
    EXPECT_EQ(told.out, silent.out);
    EXPECT_EQ(told.status, silent.status);
    const std::string inSub = "[falha na rotina] Editor: 0 Linha: 10: Tipos incompatíveis\n";
    const std::string inFunction = "[falha na função] Editor: 0 Linha: 14: Arquivo não encontrado\n";
    EXPECT_EQ(told.err, inSub + inSub + inFunction + silent.err);
    EXPECT_EQ(silent.err.find("[falha"), std::string::npos) << silent.err;
  }
}

TEST_F(Tool, ShowsAFindingWithItsLineCaretsAndASecondPlace) {
  const std::string main = folder_.Write("P/P.tsc", "Escreva 1\n");
  const std::string other =
      folder_.Write("P/Z.tsc", "Sub A()\n  Se 1 = 1\n    Enquanto 1 = 2\n  FimSe\nFimSub\n");
  const ProcessResult result = Call({"check", folder_ / "P"});
  EXPECT_EQ(result.status, kRefused);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, other +
                            ":3:5: erro[T0201]: este Enquanto não tem o seu Repita\n"
                            "  3 |     Enquanto 1 = 2\n"
                            "    |     ^^^^^^^^\n"
                            "  linha 4: aqui ele ainda está aberto\n"
                            "  4 |   FimSe\n"
                            "    |   ^^^^^\n"
                            "  ajuda: ponha Repita onde o bloco termina\n"
                            "\n1 erro\n");
  const ProcessResult fine = Call({"check", main});
  EXPECT_EQ(fine.status, kDone);
  EXPECT_EQ(fine.out, "");
}

TEST_F(Tool, ShowsFindingsToProgramsAndWithColours) {
  const std::string file = folder_.Write("a.tsc", "Var é Inteiro\n");
  EXPECT_EQ(Call({"check", file}).status, kDone);
  EXPECT_EQ(Call({"check", "--deny-warnings", file}).status, kRefused);
  EXPECT_EQ(
      Call({"check", "--json", file}).out,
      R"({"file":")" + file +
          R"(","line":1,"column":5,"size":1,"severity":"warning","code":"T0306","message":"a variável \"é\" nunca é )"
          R"(usada","help":"tire-a da declaração, ou veja se um nome parecido foi escrito no lugar dela","notes":[]})"
          "\n");
  const std::string sarif = Call({"check", "--format", "sarif", file}).out;
  for (const char* part :
       {R"("version": "2.1.0")", R"("ruleId": "T0306")", R"("startLine": 1)", R"("level": "warning")"})
    EXPECT_NE(sarif.find(part), std::string::npos) << part << sarif;
  EXPECT_NE(Call({"check", "--color", "always", file}).out.find("\033[1;33maviso[T0306]\033[0m"),
            std::string::npos);
  EXPECT_EQ(Call({"check", "--color", "never", file}).out.find('\033'), std::string::npos);
  ExpectRefused(Call({"check", "--color", "talvez", file}), "chamada errada");
}

// What refuses a program when it starts is an error of the check, and no finished program is made of it.
TEST_F(Tool, TellsWhatCannotStart) {
  for (const std::string head : {"§#00009$#77 ", "§#00009$#03 ", "§#00009$#-1 ", "§#00009$#xx "}) {
    const std::string file = folder_.Write("a.tsc", "Escreva 1;" + head + "FimSe");
    const ProcessResult result = Call({"check", file});
    EXPECT_EQ(result.status, kRefused) << head;
    EXPECT_TRUE(result.out.starts_with(folder_ / "a.tsc" + ":")) << result.out;
  }
  const std::string open = folder_.Write("b.tsc", "Se 1 = 1\n");
  const ProcessResult built = Call({"build", open, "-o", folder_ / "b"});
  EXPECT_EQ(built.status, kRefused);
  EXPECT_NE(built.err.find("b.tsc:1:1: erro[T0201]"), std::string::npos) << built.err;
  EXPECT_NE(built.err.find("não começaria"), std::string::npos) << built.err;
  EXPECT_FALSE(std::filesystem::exists(folder_ / "b"));
}

// A run that nobody reads along says nothing of its own.
TEST_F(Tool, ChecksBeforeARunWhereATerminalIs) {
  const std::string file = folder_.Write("a.tsc", "Escreva nada\nPosicione 1\n");
  EXPECT_EQ(Call({"run", "--console", file}).err, "[falha] Editor: 0 Linha: 2: Tipos incompatíveis\n");
  const auto onTerminal = [&](const std::string& options) {
    return RunProcess(
               {.words = {"/usr/bin/script", "-qec",
                          std::string(TESSERA_TOOL) + " run --console " + options + file, "/dev/null"}})
        .out;
  };
  const std::string checked = onTerminal("");
  EXPECT_NE(checked.find("a.tsc:1:9:"), std::string::npos) << checked;
  EXPECT_NE(checked.find("  em " + file + ":2"), std::string::npos) << checked;
  const std::string unchecked = onTerminal("--no-check ");
  EXPECT_EQ(unchecked.find("T0301"), std::string::npos) << unchecked;
}

TEST_F(Tool, ShowsThePreparedText) {
  const ProcessResult shown = Call({"show", folder_.Write("a.tsc", "Escreva \"é\"; Cls")});
  EXPECT_EQ(shown.status, kDone);
  EXPECT_EQ(
      shown.out,
      "&#00000§#00000$#00 Escreva \"é\"\r\n&#00001§#00000$#00 Cls\r\n&#00002§#00001$#00 FimPrograma\r\n");
}

TEST_F(Tool, MakesAFirstProgramThatRuns) {
  const ProcessResult made = Call({"new", folder_ / "Primeiro"});
  EXPECT_EQ(made.status, kDone);
  EXPECT_EQ(Call({"check", folder_ / "Primeiro"}).status, kDone);
  const ProcessResult run = Call({"run", "--console", folder_ / "Primeiro"}, "Ana\n");
  EXPECT_EQ(run.status, kDone);
  EXPECT_EQ(run.out.substr(0, 11), "Olá, Ana!\n");
  ExpectRefused(Call({"new", folder_ / "Primeiro"}), "já existe");
  ExpectRefused(Call({"new", folder_ / "sem/pasta"}), "não foi possível criar a pasta");
}

TEST_F(Tool, BuildsIntoANewExecutable) {
  const std::string program = folder_.Write("jogo.tsc", "Escreva \"é\"");
  const std::string runtime = folder_.Write("executor",
                                            "\x7F"
                                            "ELF vazio");
  const ProcessResult built = Call({"build", program, "--runtime", runtime});
  EXPECT_EQ(built.status, kDone) << built.err;
  const std::string bytes = ReadBytes(folder_ / "jogo");
  const auto read = ReadProgram(bytes);
  const PackedProgram* packed = std::get_if<PackedProgram>(&read);
  ASSERT_NE(packed, nullptr);
  EXPECT_TRUE(
      bytes.starts_with("\x7F"
                        "ELF vazio"));
  EXPECT_EQ(packed->name, "JOGO");
  EXPECT_EQ(packed->EditorText[0], "Escreva \"\xE9\"");
  struct stat status {};
  ASSERT_EQ(stat((folder_ / "jogo").c_str(), &status), 0);
  EXPECT_NE(status.st_mode & S_IXUSR, 0u);
  EXPECT_EQ(Call({"build", program, "--runtime", runtime}).status, kDone) << "an older one is replaced";
}

// The desktop's own validator reads the entries.
TEST_F(Tool, BuildGivesAProgramItsLooksOnTheDesktop) {
  const std::string program = folder_.Write("Olá.tsc", "Cls");
  const std::string runtime = folder_.Write("executor",
                                            "\x7F"
                                            "ELF vazio");
  const std::string svg =
      folder_.Write("a.svg", "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\"/>");
  const std::string folder = std::filesystem::canonical(folder_.path()).string();
  const auto build = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {TESSERA_TOOL, "build", program, "--runtime", runtime});
    return RunProcess({.words = more, .environment = {"XDG_DATA_HOME=" + folder + "/dados"}});
  };
  const auto isValid = [&](const std::string& entry) {
    return RunProcess({.words = {"/usr/bin/desktop-file-validate", folder_ / entry}}).status == 0;
  };
  const std::string beside = folder + "/uma pasta/Jogo 100%";
  std::filesystem::create_directory(folder_ / "uma pasta");
  const ProcessResult built = build({"-o", folder_ / "uma pasta/Jogo 100%", "--icon", svg});
  EXPECT_EQ(built.status, kDone) << built.err;
  EXPECT_TRUE(isValid("uma pasta/Jogo 100%.desktop"));
  EXPECT_EQ(folder_.Read("uma pasta/Jogo 100%.desktop"),
            "[Desktop Entry]\nType=Application\nName=Jogo 100%\nExec=\"" + beside + "%\"\nPath=" + folder +
                "/uma pasta\nIcon=" + beside + ".icone.svg\nTerminal=false\nCategories=Utility;\n");
  EXPECT_EQ(folder_.Read("uma pasta/Jogo 100%.icone.svg"), ReadBytes(svg));

  // Of an icon file the largest picture, as the desktop takes it.
  const std::string small = std::string("\x28\0\0\0\1\0\0\0\2\0\0\0\1\0\x20\0", 16) + std::string(24, '\0') +
                            "\1\2\3\xFF" + std::string(4, '\0');
  std::string large = small;
  large[4] = 2;
  large.insert(44, "\4\5\6\x80");
  const std::string ico = std::string("\0\0\1\0\2\0\1\1\0\0\1\0\x20\0\x30\0\0\0\x26\0\0\0", 22) +
                          std::string("\2\1\0\0\1\0\x20\0\x34\0\0\0\x56\0\0\0", 16) + small + large;
  EXPECT_EQ(build({"--desktop", "--icon", folder_.Write("a.ico", ico)}).status, kDone);
  EXPECT_TRUE(isValid("dados/applications/tessera-Olá.desktop"));
  const std::string png = folder_.Read("dados/icons/tessera-Olá.png");
  EXPECT_EQ(png.substr(0, 4), "\x89PNG");
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\2\0\0\0\1", 8)) << "width and height";
  EXPECT_EQ(folder_.Read("dados/applications/tessera-Olá.desktop").find("Icon=" + folder + "/dados/icons/"),
            folder_.Read("dados/applications/tessera-Olá.desktop").find("Icon="));

  std::filesystem::remove(folder_ / "Olá");
  ExpectRefused(build({"--icon", folder_.Write("b.png", "\x89PNG mas não é")}),
                "não é uma figura PNG, ICO ou SVG");
  ExpectRefused(build({"--icon", folder_ / "falta.png"}), "o ícone não pode ser lido: o caminho não existe");
  EXPECT_FALSE(folder_.Has("Olá")) << "nothing is written before";
  folder_.Write("Olá.desktop", "[Desktop Entry]\nExec=outro\n");
  ExpectRefused(build({"--icon", svg}), "é de outro programa");
}

// What is not an older finished program stays, unless the person insists; sources and what is no file always
// do.
TEST_F(Tool, BuildTakesThePlaceOfAnOlderProgramAlone) {
  const std::string program = folder_.Write("jogo.tsc", "Cls");
  const std::string runtime = folder_.Write("executor",
                                            "\x7F"
                                            "ELF vazio");
  const auto build = [&](const std::string& output, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"build", program, "--runtime", runtime, "-o", output});
    return Call(more);
  };
  const std::string text = folder_.Write("carta.txt", "Prezados");
  std::filesystem::create_symlink(text, folder_ / "atalho");
  std::filesystem::create_symlink(folder_ / "nada", folder_ / "solto");
  std::filesystem::create_symlink(program, folder_ / "fonte");
  ASSERT_EQ(mkfifo((folder_ / "fila").c_str(), 0600), 0);
  for (const char* name : {"carta.txt", "atalho", "solto"}) ExpectRefused(build(folder_ / name), "--force");
  for (const std::string& name : {program, folder_ / "fonte"}) {
    ExpectRefused(build(name), "é um dos editores do programa");
    ExpectRefused(build(name, {"--force"}), "é um dos editores do programa");
  }
  for (const std::string& name : {folder_ / "fila", std::string("/dev/null")}) {
    ExpectRefused(build(name, {"--force"}), "não é um arquivo comum");
  }
  EXPECT_EQ(ReadBytes(program), "Cls");
  EXPECT_EQ(ReadBytes(text), "Prezados");
  EXPECT_EQ(build(folder_ / "atalho", {"--force"}).status, kDone);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "atalho"));
  EXPECT_TRUE(ReadBytes(text).starts_with("\x7F"));
  EXPECT_EQ(build(text).status, kDone) << "now it is a finished program";
}

TEST_F(Tool, ALostOutputIsTold) {
  const std::string program = folder_.Write("a.tsc", "Escreva 1");
  for (const std::string& call :
       {"run --console " + program, "show " + program, std::string("--help"), std::string("--version")}) {
    const ProcessResult result =
        RunProcess({.words = {"/bin/sh", "-c", std::string(TESSERA_TOOL) + " " + call + " > /dev/full"}});
    EXPECT_EQ(result.status, kRefused) << call;
    EXPECT_NE(result.err.find("não pôde ser gravada"), std::string::npos) << call << result.err;
  }
}

// The language's own word for a full disk, in place of the signal that ends a process.
TEST_F(Tool, AFileThatMayNotGrowIsAFullDisk) {
  const std::string program = folder_.Write(
      "a.tsc", "AbreArquivo \"A\", \"a.bin\", \"BINARIO\"\nGravaArquivo \"A\", 100000, \"x\"\nEscreva 1");
  const ProcessResult result =
      RunProcess({.words = {"/bin/sh", "-c",
                            std::string("ulimit -f 1; exec ") + TESSERA_TOOL + " run --console " + program}});
  EXPECT_EQ(result.status, kRefused);
  EXPECT_EQ(result.err, "[falha] Editor: 0 Linha: 2: Disco cheio\n");
}

// The program writes a line, then computes or waits for ever.
TEST_F(Tool, APoliteEndClosesTheRunAndKeepsItsLines) {
  const std::string start =
      "AbreArquivo \"S\", \"s.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", \"linha\"\n"
      "AbreArquivo \"P\", \"pronto.txt\", \"TextoGravacao\"\nFechaArquivo \"P\"\n";
  const std::string pipe = folder_ / "entrada";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string rest : {"Enquanto 1 = 1\nRepita\n", "Aguarde 600000\n", "Aguarde CliqueBotao\n",
                                 "Enquanto 1 = 1\nEscreva 1\nRepita\n"}) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      std::filesystem::remove(folder_ / "pronto.txt");
      const std::string program = folder_.Write("a.tsc", start + rest);
      const int held = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
      RunningProcess running(
          {.words = {"/bin/sh", "-c",
                     "exec " + std::string(TESSERA_TOOL) + " run --console " + program + " < " + pipe}});
      while (!std::filesystem::exists(folder_ / "pronto.txt")) std::this_thread::yield();
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      running.Signal(signal);
      EXPECT_EQ(running.WaitFor(std::chrono::seconds(5)), 0) << rest << signal;
      EXPECT_EQ(ReadBytes(folder_ / "s.txt"), "linha\r\n") << rest << signal;
      close(held);
    }
  }
}

TEST_F(Tool, AReaderThatGoesEndsTheRun) {
  const std::string program =
      folder_.Write("a.tsc",
                    "AbreArquivo \"S\", \"s.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", \"linha\"\n"
                    "Enquanto 1 = 1\nEscreva \"muito texto para um leitor\"\nRepita\n");
  const ProcessResult result = RunProcess(
      {.words = {"/bin/sh", "-c", std::string(TESSERA_TOOL) + " run --console " + program + " | head -n 1"}});
  EXPECT_EQ(result.out, "muito texto para um leitor\n");
  EXPECT_EQ(ReadBytes(folder_ / "s.txt"), "linha\r\n");
}

// A log is there for others while the program that writes it computes on.
TEST_F(Tool, WrittenLinesAreSeenWithinASecond) {
  const std::string program =
      folder_.Write("a.tsc",
                    "AbreArquivo \"S\", \"s.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", \"linha\"\n"
                    "Enquanto 1 = 1\nRepita\n");
  RunningProcess running({.words = {TESSERA_TOOL, "run", "--console", program}});
  const auto start = std::chrono::steady_clock::now();
  while (ReadBytes(folder_ / "s.txt") != "linha\r\n" &&
         std::chrono::steady_clock::now() - start < std::chrono::seconds(5)) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST_F(Tool, BuildRefusesWithoutTouchingAnything) {
  const std::string program = folder_.Write("jogo.tsc", "Cls");
  const std::string runtime = folder_.Write("executor",
                                            "\x7F"
                                            "ELF vazio");
  ASSERT_EQ(Call({"build", program, "--runtime", runtime}).status, kDone);
  const std::string before = ReadBytes(folder_ / "jogo");
  const auto build = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"build", program});
    return Call(more);
  };
  ExpectRefused(build({"--runtime", folder_ / "nada"}), "o executor não foi encontrado");
  ExpectRefused(build({"--runtime", folder_.Write("texto", "oi")}), "não é um executável");
  ExpectRefused(build({"--runtime", folder_ / "jogo", "-o", folder_ / "outro"}), "já tem um programa dentro");
  ExpectRefused(build({"--runtime", runtime, "-o", folder_.path().string()}), "já existe uma pasta");
  ExpectRefused(build({"--runtime", runtime, "-o", runtime}), "sobre o executor");
  ExpectRefused(build({"--runtime", runtime, "-o", folder_ / "sem/pasta/x"}),
                "não foi possível gravar: o caminho não existe");
  ExpectRefused(Call({"build", folder_.Write("#FIMNOME.tsc", "Cls"), "--runtime", runtime}),
                "o nome do programa não pode ser usado");
  EXPECT_EQ(ReadBytes(folder_ / "jogo"), before);
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    files += entry.exists() ? 1u : 0u;
  EXPECT_EQ(files, 5u) << "nothing half written stays behind";
}

}  // namespace
}  // namespace tessera

// The tool as its user meets it: real processes, their exit status, what they print and write.
#include <gtest/gtest.h>
#include <sys/stat.h>

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
  for (const std::vector<std::string>& call : std::vector<std::vector<std::string>>{
           {"--help"}, {"run", "--help"}, {"build", "-h"}, {"check", "-h"}, {"show", "-h"}, {"new", "-h"}}) {
    const ProcessResult help = Call(call);
    EXPECT_EQ(help.status, kDone);
    EXPECT_NE(help.out.find("Uso: tessera"), std::string::npos) << help.out;
    for (const char* english :
         {"Usage", "Options", "Positionals", "Subcommands", "OPTIONS", "REQUIRED", "TEXT"}) {
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

TEST_F(Tool, ChecksWhereABlockOpened) {
  const std::string main = folder_.Write("P/P.tsc", "Escreva 1\n");
  const std::string other = folder_.Write("P/Z.tsc",
                                          "Sub A()\n  Se 1 = 1\n    Enquanto 1 = 1\n  FimSe\nFimSub\n"
                                          "Sub B()\n  FimSe\nFimSub\nSub C()\n  Se 1 = 1\nFimSub");
  const ProcessResult result = Call({"check", folder_ / "P"});
  EXPECT_EQ(result.status, kRefused);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(
      result.out,
      other + ":3: Comando Enquanto sem o respectivo Repita! O bloco aberto nesta linha não foi fechado.\n");

  const ProcessResult unclosed =
      Call({"check", folder_.Write("Se.tsc", "x = 1; Se 1 = 1\n\nSe 2 = 2\nFimSe")});
  EXPECT_EQ(unclosed.status, kRefused);
  EXPECT_EQ(unclosed.out,
            folder_ / "Se.tsc" +
                ":1: Comando Se sem o respectivo FimSe! O bloco aberto nesta linha não foi fechado.\n");
  const ProcessResult routine =
      Call({"check", folder_.Write("R.tsc", "FimPrograma\n\nFuncao Dobro(a Inteiro)\n")});
  EXPECT_EQ(routine.status, kRefused);
  EXPECT_EQ(routine.out, folder_ / "R.tsc" + ":3: Funcao sem o respectivo comando FimFuncao: Dobro\n");

  const ProcessResult fine = Call({"check", main});
  EXPECT_EQ(fine.status, kDone);
  EXPECT_EQ(fine.out, "");
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

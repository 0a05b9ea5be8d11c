// The command `API` against a library of the tests' own, and against those of the system.
#include <gtest/gtest.h>

#include "support/console_window.h"
#include "support/process.h"
#include "support/temporary_folder.h"

namespace tessera::test {

namespace {

class Api : public ConsoleWindowTest {
 protected:
  // What a program prints behind the choice of the tests' library.
  std::string Run(const std::string& lines) {
    Draw("Var t String\nAPI Biblioteca, \"" TESSERA_API_SAMPLE "\"\n" + lines);
    return Printed();
  }
};

}  // namespace

TEST_F(Api, ThirtyIntegersKeepTheirPlaces) {
  std::string call = "API NomeFuncao, \"soma30\"\nAPI Execute";
  int sum = 0;
  for (int i = 1; i <= 30; ++i) {
    call += ", " + std::to_string(i * i);
    sum += i * i * i;
  }
  EXPECT_EQ(Run(call + "\nEscreva Retorno"), std::to_string(sum) + "\n");
}

TEST_F(Api, AThirtyFirstArgumentIsAFailure) {
  std::string call = "API NomeFuncao, \"soma30\"\nAPI Execute";
  for (int i = 1; i <= 31; ++i) call += ", 1";
  EXPECT_EQ(program.Start(call), RunOutcome::Abandoned);
  EXPECT_NE(err.str().find("Subscrito fora do intervalo"), std::string::npos) << err.str();
}

TEST_F(Api, IntegersGoInAllTheirBitsAndResultsComeInTheirLowerHalf) {
  EXPECT_EQ(Run("API NomeFuncao, \"inteiro64\"\n"
                "API Execute, \"-9007199254740993\"\nEscreva Retorno\n"
                "t = \"9223372036854775807\"\nAPI Execute, t\nEscreva Retorno\n"
                "API Execute, 5\nEscreva Retorno\n"
                "API NomeFuncao, \"metadeAlta\"\nAPI Execute\nEscreva Retorno"),
            "1\n2\n0\n-1\n");
}

TEST_F(Api, ANumberWithAFractionIsRoundedAndOneOfMoreThan64BitsIsAFailure) {
  EXPECT_EQ(Run("API NomeFuncao, \"dobro\"\nAPI Execute, \"2,5\"\nEscreva Retorno\n"
                "API Execute, \"3,5\"\nEscreva Retorno\nAPI Execute, \"-1,6\"\nEscreva Retorno\n"
                "API Execute, \"18446744073709551615\"\nEscreva Retorno"),
            "4\n8\n-4\n-2\n");
  EXPECT_EQ(program.Start("API Execute, \"18446744073709551616\""), RunOutcome::Abandoned);
}

TEST_F(Api, ABufferTakesWhatItMustAndIsReadBack) {
  EXPECT_EQ(Run("API NomeFuncao, \"enche\"\nAPI Execute, t\nEscreva Retorno\nAPI Argumento, 0\n"
                "Escreva Comprimento(Retorno)"),
            "0\n65535\n");
}

TEST_F(Api, TheEleventhTextHasNoBuffer) {
  EXPECT_EQ(Run("API NomeFuncao, \"texto11\"\n"
                "API Execute, a, b, c, d, e, f, g, h, i, jota, k\nEscreva Retorno\nAPI Argumento, "
                "10\nEscreva Retorno"),
            "104\nk\n");
}

TEST_F(Api, EachExecutionLoadsTheLibraryAnew) {
  EXPECT_EQ(Run("API NomeFuncao, \"conta\"\nAPI Execute\nAPI Execute\nEscreva Retorno"), "1\n");
}

TEST_F(Api, ArgumentsBeyondTheListAreAFailure) {
  Run("API NomeFuncao, \"conta\"\nAPI Execute, 5, \"\"\nAPI Argumento, 1\nEscreva \"[\", Retorno, \"]\"");
  EXPECT_EQ(Printed(), "[]\n") << "an empty text is an argument";
  EXPECT_EQ(program.Start("API Argumento, 2"), RunOutcome::Abandoned);
}

TEST_F(Api, AMissingFunctionIsToldWithTheLibrarysOwnWordsAndEndsNothing) {
  EXPECT_EQ(Run("API NomeFuncao, \"Conta\"\nAPI Execute\nEscreva \"[\", Retorno, \"]\""), "[0]\n");
  EXPECT_EQ(err.str(),
            "[critico: Erro na chamada da função] Não pode encontrar o ponto de entrada para Conta\n"
            "  Nota: funções são sensíveis à maiúsculas/minúsculas, verifique a sintaxe da mesma!\n"
            "[critico: Erro na chamada da função] Função não definida!\n");
}

namespace {

// Programs in a folder of their own, run by the tool.
class ApiProcess : public testing::Test {
 protected:
  ProcessResult Run(const std::string& source) {
    folder_.Write("P.tsc", source);
    return RunProcess({.words = {TESSERA_TOOL, "run", "--console", folder_ / "P.tsc"}});
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(ApiProcess, ACrashIsToldAndLosesNothing) {
  for (const std::string function : {"falha", "aborta", "lanca", "fundo"}) {
    const ProcessResult result =
        Run("BD Gente, dados\nNome, String, 20\nFimBD\nAbreBD Gente\nGente.Nome = \"Ana\"\n"
            "AdicionaRegistro Gente\n"
            "AbreArquivo S, \"linhas.txt\", TEXTOGRAVACAO\nGravaArquivo S, \"uma linha\"\nEscreva \"antes\"\n"
            "API Biblioteca, \"" TESSERA_API_SAMPLE "\"\nAPI NomeFuncao, \"" +
            function + "\"\nAPI Execute, 1\nEscreva \"depois\"");
    EXPECT_EQ(result.status, 1) << function;
    EXPECT_EQ(result.out, "antes\n") << function;
    const std::string told =
        "[falha] API: " + function + " de " + TESSERA_API_SAMPLE + " encerrou o programa\n";
    EXPECT_TRUE(result.err.ends_with(told)) << result.err;
    EXPECT_EQ(folder_.Read("linhas.txt"), "uma linha\r\n") << function;
    const std::string records = folder_ / "dados/Gente.Tsa";
    const ProcessResult checked = RunProcess({.words = {TESSERA_TOOL, "bd", "check", records}});
    EXPECT_EQ(checked.status, 0) << function;
    EXPECT_EQ(checked.out, "1 registro bom, 0 excluídos, 0 com defeito\n") << function;
    std::filesystem::remove(records);
  }
}

TEST_F(ApiProcess, LibrariesAreFoundByTheirNames) {
  std::filesystem::copy(TESSERA_API_SAMPLE, folder_ / "libminha.so");
  folder_.Write("quebrada.so", "isto não é uma biblioteca");
  const auto calls = [](const std::string& library, const std::string& function) {
    return "API Biblioteca, \"" + library + "\"\nAPI NomeFuncao, \"" + function +
           "\"\nAPI Execute, 5\nEscreva Retorno\n";
  };
  const ProcessResult result =
      Run(calls("LIBMINHA.so", "conta") + calls("./libminha.so", "conta") + calls("libc.so.6", "abs") +
          calls("c", "abs") + calls("libm.so", "abs") + calls("quebrada.so", "abs") + calls("", "abs"));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "1\n1\n5\n5\n5\n0\n0\n") << result.err;
  EXPECT_EQ(result.err,
            "[critico: Erro na chamada da função] Não pode encontrar a livraria quebrada.so\n"
            "[critico: Erro na chamada da função] Função não definida!\n"
            "[critico: Erro na chamada da função] Não pode encontrar a livraria \n"
            "[critico: Erro na chamada da função] Função não definida!\n");
}

}  // namespace tessera::test

// Each call of the system fails once in each of the tool's commands: the command says so, and ends by itself.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "support/process.h"

namespace tessera {
namespace {

struct Command {
  std::string_view name;
  std::vector<std::string> words;  // behind the tool's name; "@" is the test's folder
  int error;
};

class FailingCalls : public testing::TestWithParam<Command> {
 protected:
  // A folder with a program that uses files of every kind, a record file, and what an earlier run left.
  void Prepare() {
    std::filesystem::remove_all(folder_ / "p");
    folder_.Write("p/p.tsc", kProgram);
    folder_.Write("p/velho.txt", "velho\r\n");
    folder_.Write("p/executor",
                  "\x7F"
                  "ELF vazio");
    std::filesystem::copy_file(folder_ / "Gente.Tsa", folder_ / "p/Gente.Tsa");
  }

  ProcessResult Call(const std::vector<std::string>& more) {
    std::vector<std::string> words = {TESSERA_TOOL};
    for (const std::string& word : GetParam().words)
      words.push_back(word.starts_with('@') ? folder_ / ("p" + word.substr(1)) : word);
    std::vector<std::string> environment = {"LD_PRELOAD=" TESSERA_FAILING_CALLS,
                                            "DISPLAY",
                                            "QT_QPA_PLATFORM",
                                            "HOME=" + folder_ / "p",
                                            "XDG_CONFIG_HOME",
                                            "ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0"};
    environment.insert(environment.end(), more.begin(), more.end());
    return RunProcess({.words = words, .environment = environment, .folder = folder_ / "p"});
  }

  static constexpr const char* kProgram =
      "BD Gente, \".\"\nNome, String, 8\nFimBD\nAbreBD Gente\nGente.Nome = \"Bia\"\nAdicionaRegistro Gente\n"
      "LeRegistro Gente, 0\nEscreva Gente.Nome\nExcluiRegistro Gente, 0\nFechaBD Gente\nLimpaBD Gente\n"
      "SalvaRegWin \"HKEY_USERS\", \"k\", \"n\", \"v\"\nRetorno = LeRegWin(\"HKEY_USERS\", \"k\", \"n\")\n"
      "SalvaString \"a\", \"b\"\nAbreArquivo \"S\", \"novo.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", "
      "\"linha\"\n"
      "FechaArquivo \"S\"\nCopia \"novo.txt\", \"velho.txt\"\nInsereArquivo \"n\", \"novo.txt\", \"p.pac\"\n"
      "ExtraiArquivo \"n\", \"fora.txt\", \"p.pac\"\nEscreva Diretorio(\"*.txt\")\nCriaPasta \"pasta\"\n"
      "BD Novo, \".\"\nValor, Inteiro\nFimBD\n";

  TemporaryFolder folder_;
};

TEST_P(FailingCalls, AreToldAndNothingIsLost) {
  ASSERT_EQ(RunProcess({.words = {TESSERA_TOOL, "run", "--console",
                                  folder_.Write("b.tsc",
                                                "BD Gente, \".\"\nNome, String, 8\nFimBD\nAbreBD Gente\n"
                                                "Gente.Nome = \"Ana\"\nAdicionaRegistro Gente\n")}})
                .status,
            0);
  const std::string source = kProgram;
  Prepare();
  const std::string count = folder_ / "quantas";
  Call({"FAILING_COUNT=" + count});
  const int calls = std::stoi(ReadBytes(count));
  ASSERT_GT(calls, 3);
  for (int call = 1; call <= calls; ++call) {
    Prepare();
    const ProcessResult result =
        Call({"FAILING_CALL=" + std::to_string(call), "FAILING_ERROR=" + std::to_string(GetParam().error)});
    EXPECT_GE(result.status, 0) << call;
    EXPECT_LE(result.status, 3) << call << result.err;
    EXPECT_TRUE(result.status == 0 || !result.err.empty()) << call;
    EXPECT_EQ(ReadBytes(folder_ / "p/p.tsc"), source) << call;
    const std::string old = ReadBytes(folder_ / "p/velho.txt");
    EXPECT_TRUE(old == "velho\r\n" || old == "linha\r\n") << call << old;
    EXPECT_GE(std::filesystem::file_size(folder_ / "p/Gente.Tsa"), 20000u) << call;
    // A new file is whole, or not there.
    const std::string fresh = folder_ / "p/Novo.Tsa";
    EXPECT_TRUE(!std::filesystem::exists(fresh) || std::filesystem::file_size(fresh) == 20000u) << call;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, FailingCalls,
    testing::Values(Command{"run", {"run", "--console", "@/p.tsc"}, EIO},
                    Command{"run_full", {"run", "--console", "@/p.tsc"}, ENOSPC},
                    Command{"check", {"check", "@"}, EIO}, Command{"show", {"show", "@/p.tsc"}, EIO},
                    Command{"build", {"build", "@/p.tsc", "--runtime", "@/executor"}, ENOSPC},
                    Command{"made", {"new", "@/outro"}, ENOSPC},
                    Command{"bd_check", {"bd", "check", "@/Gente.Tsa"}, EIO},
                    Command{"bd_repair", {"bd", "repair", "@/Gente.Tsa"}, EIO},
                    Command{"bd_csv", {"bd", "export", "@/Gente.Tsa", "--csv", "@/x.csv"}, ENOSPC}),
    [](const auto& command) { return std::string(command.param.name); });

}  // namespace
}  // namespace tessera

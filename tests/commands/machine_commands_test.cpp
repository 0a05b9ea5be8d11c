#include "commands/machine_commands.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "support/file_program.h"

namespace tessera::test {

namespace {

using namespace std::string_literals;

// The machine's commands in a folder of their own.
class MachineProgram : public FileProgram {
 public:
  using FileProgram::FileProgram;

  // What a started program wrote, waited for.
  std::string Written(std::string_view name) {
    for (int i = 0; i < 300 && folder.Read(name).empty(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return folder.Read(name);
  }
};

}  // namespace

TEST(Registry, KeepsTextsByRootKeyAndNameBlindToCase) {
  MachineProgram program;
  program.Answer("SALVAREGWIN", R"("HKEY_CURRENT_USER", "Software\Loja", "Caixa", "nº 1")");
  program.Answer("SALVAREGWIN", R"("HKEY_USERS", "Software\Loja", "Caixa", "outro")");
  program.Answer("SALVAREGWIN", R"("HKEY_OUTRA", "Software\Loja", "Caixa", "nada")");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("hkey_current_user", "SOFTWARE\loja", "CAIXA")"), "\"nº 1\"");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("HKEY_USERS", "Software\Loja", "Caixa")"), "\"outro\"");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("HKEY_OUTRA", "Software\Loja", "Caixa")"), "\"\"");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("HKEY_USERS", "Software\Loja", "Falta")"), "\"\"");
  program.Answer("SALVAREGWIN", R"("HKEY_USERS", "software\LOJA", "caixa", "novo")");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("HKEY_USERS", "Software\Loja", "Caixa")"), "\"novo\"");
}

TEST(Registry, AnyTextComesBackAndADamagedLineIsPassedOver) {
  TemporaryFolder folder;
  SystemFiles files;
  const RegistryFile registry(files, folder / "a/b/registro");
  const std::string odd = "tab\tlinha\r\n\\n \xE7\x81 fim";
  ASSERT_TRUE(registry.Write("HKEY_USERS", odd, odd, odd));
  EXPECT_EQ(registry.Read("HKEY_USERS", odd, odd), odd);
  folder.Write("a/b/registro",
               "lixo\nHKEY_USERS\tk\tn\tv\n\tso\ttres\n\xFF\xFE\\\n" + folder.Read("a/b/registro"));
  EXPECT_EQ(registry.Read("HKEY_USERS", "k", "n"), "v");
  EXPECT_EQ(registry.Read("HKEY_USERS", odd, odd), odd);
}

TEST(Registry, NoProcessLosesWhatAnotherWrites) {
  TemporaryFolder folder;
  SystemFiles files;
  const RegistryFile registry(files, folder / "registro");
  constexpr int kProcesses = 4;
  constexpr int kValues = 25;
  for (int process = 0; process < kProcesses; ++process) {
    if (fork() != 0) continue;
    bool done = true;
    for (int i = 0; i < kValues; ++i) {
      done &= registry.Write("HKEY_USERS", "P" + std::to_string(process), std::to_string(i), "x");
    }
    _exit(done ? 0 : 1);
  }
  for (int process = 0; process < kProcesses; ++process) {
    int status = -1;
    wait(&status);
    EXPECT_EQ(status, 0);
  }
  int found = 0;
  for (int process = 0; process < kProcesses; ++process) {
    for (int i = 0; i < kValues; ++i) {
      found += registry.Read("HKEY_USERS", "P" + std::to_string(process), std::to_string(i)) == "x";
    }
  }
  EXPECT_EQ(found, kProcesses * kValues);
}

TEST(Registry, AFolderThatCanNotBeWrittenGivesNoMessage) {
  MachineProgram program;
  program.folder.Write("config/tessera", "um arquivo no lugar da pasta");
  EXPECT_EQ(program.Answer("SALVAREGWIN", R"("HKEY_USERS", "k", "n", "v")"), "");
  EXPECT_EQ(program.Answer("LEREGWIN", R"("HKEY_USERS", "k", "n")"), "\"\"");
  EXPECT_TRUE(program.Boxes().empty());
}

// A file that is there and can't be read is no empty one.
TEST(Registry, WhatCanNotBeReadIsNotReplaced) {
  TemporaryFolder folder;
  SystemFiles files;
  const RegistryFile registry(files, folder / "registro");
  ASSERT_TRUE(registry.Write("HKEY_USERS", "k", "n", "v"));
  std::filesystem::rename(folder / "registro", folder / "guardado");
  std::filesystem::create_directory(folder / "registro");
  EXPECT_EQ(registry.Read("HKEY_USERS", "k", "n"), "");
  EXPECT_FALSE(registry.Write("HKEY_USERS", "k", "outro", "v"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "registro"));
  // A link leads on to the file.
  std::filesystem::remove(folder / "registro");
  std::filesystem::create_symlink(folder / "guardado", folder / "registro");
  EXPECT_TRUE(registry.Write("HKEY_USERS", "k", "outro", "w"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "registro"));
  EXPECT_EQ(RegistryFile(files, folder / "guardado").Read("HKEY_USERS", "k", "n"), "v");
}

TEST(StartList, AProgramThatIsNotBuiltIsRefused) {
  FileProgram program("/dev/null/port", false);
  program.Answer("ADICIONESISTEMA", "\"Loja\"");
  EXPECT_EQ(program.Boxes().size(), 1u);
  EXPECT_FALSE(program.folder.Has("config/autostart/Loja.desktop"));
}

TEST(StartList, AnEntryStartsThisProgramAndIsTakenAwayAgain) {
  MachineProgram program;
  program.Answer("ADICIONESISTEMA", "\"Minha loja/1\"");
  const std::string entry = program.folder.Read("config/autostart/Minha loja_1.desktop");
  const std::string own = std::filesystem::read_symlink("/proc/self/exe").string();
  EXPECT_NE(entry.find("[Desktop Entry]\nType=Application\nName=Minha loja/1\nExec=\"" + own + "\""),
            std::string::npos)
      << entry;
  EXPECT_NE(entry.find("\nPath=" + std::filesystem::current_path().string() + "\n"), std::string::npos);
  program.Answer("REMOVESISTEMA", "\"Minha loja/1\"");
  EXPECT_FALSE(program.folder.Has("config/autostart/Minha loja_1.desktop"));
}

TEST(StartList, OddWordsOfACommandAreQuotedForTheDesktop) {
  TemporaryFolder folder;
  SystemFiles files;
  ASSERT_TRUE(StartList(files, folder.path()).Add("x", {{"/bin/a b", "50%", "\"$x`\\"}, "/"}));
  EXPECT_NE(folder.Read("x.desktop").find(R"(Exec="/bin/a b" "50%%" "\\"\\$x\\`\\\\")"), std::string::npos)
      << folder.Read("x.desktop");
}

TEST(Chame, StartsAProgramOfTheFolderOrOfTheSystemAndAnswersItsNumber) {
  MachineProgram program;
  program.folder.Write("diz.sh", "#!/bin/sh\necho $$ $TESSERA_JANELA \"$1\" > \"$2\"\n");
  std::filesystem::permissions(program.folder / "diz.sh", std::filesystem::perms::owner_all);
  const std::string out = program.folder / "saida";
  const std::string number = program.Answer("CHAME", "\"diz.sh um " + out + "\", \"maximizado\"");
  EXPECT_EQ(program.Written("saida"), number + " 3 um\n");
  program.run.variables.VarCreateScalar("Linha", "String");
  program.run.variables.VarWrite("Linha", Value("sh -c \"echo $TESSERA_JANELA > '" + out + "2'\""), true);
  EXPECT_NE(program.Answer("CHAME", "Linha, \"qualquer\"").substr(0, 4), "\"Err");
  EXPECT_EQ(program.Written("saida2"), "0\n");
}

TEST(Chame, TheProgramFindsTheLinesThatWereWrittenBefore) {
  MachineProgram program;
  program.Run(
      "AbreArquivo \"S\", \"s.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", \"um\"\n"
      "Chame \"cp " +
      program.folder / "s.txt" + " " + program.folder / "copia" + "\"\n");
  EXPECT_EQ(program.Written("copia"), "um\r\n");
}

TEST(Chame, AProgramTakesTheFormOutOfItsEnvironment) {
  setenv("TESSERA_JANELA", "3", 1);
  EXPECT_EQ(TakeStartForm(), StartForm::Maximised);
  EXPECT_EQ(std::getenv("TESSERA_JANELA"), nullptr);
  EXPECT_EQ(TakeStartForm(), StartForm::Normal) << "nobody asked";
  for (const char* odd : {"5", "", "x", "33", "-1"}) {
    setenv("TESSERA_JANELA", odd, 1);
    EXPECT_EQ(TakeStartForm(), StartForm::Normal) << odd;
    EXPECT_EQ(std::getenv("TESSERA_JANELA"), nullptr);
  }
}

TEST(Chame, AFailureIsAnsweredByItsNumber) {
  MachineProgram program;
  program.folder.Write("dados.txt", "x");
  EXPECT_EQ(program.Answer("CHAME", "\"nao_existe.exe\", \"NORMAL\""), "\"Erro 53\"");
  EXPECT_EQ(program.Answer("CHAME", "\"C:\\falta\\x.exe\", \"NORMAL\""), "\"Erro 53\"");
  EXPECT_EQ(program.Answer("CHAME", "\"dados.txt\", \"NORMAL\""), "\"Erro 70\"");
  EXPECT_EQ(program.Answer("CHAME", "\"\", \"NORMAL\""), "\"Erro 5\"");
}

TEST(HardwarePort, ReadsAndWritesAByteAtThePortsPlace) {
  TemporaryFolder folder;
  folder.Write("portas", std::string(1000, '\0'));
  MachineProgram program(folder / "portas");
  program.Answer("ENVIAPORTA", "888, 65");
  EXPECT_EQ(folder.Read("portas").substr(887, 3), "\0A\0"s);
  EXPECT_EQ(program.Answer("LEPORTA", "888"), "65");
  EXPECT_EQ(program.Answer("LEPORTA", "40000"), "falha 6");
}

TEST(HardwarePort, AForbiddenPortIsToldAndTheRunGoesOn) {
  MachineProgram program;
  EXPECT_EQ(program.Answer("LEPORTA", "888"), "0");
  program.Answer("ENVIAPORTA", "889, 1");
  ASSERT_EQ(program.Boxes().size(), 2U);
  EXPECT_EQ(program.Boxes()[0].substr(0, 53), "LePorta - O sistema não permite o acesso à porta 88");
  EXPECT_EQ(program.Boxes()[1].substr(0, 10), "EnviaPorta");
}

}  // namespace tessera::test

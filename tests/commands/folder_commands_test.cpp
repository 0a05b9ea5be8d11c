#include "commands/folder_commands.h"

#include <gtest/gtest.h>

#include "support/file_program.h"

namespace tessera {
namespace {

using test::FileProgram;

TEST(FolderCommands, ProcureArquivoFindsTheFirstInTheTree) {
  FileProgram program;
  program.folder.Write("t/b/alvo.txt", "");
  program.folder.Write("t/a/fundo/ALVO.txt", "");
  std::filesystem::create_directory_symlink("..", program.folder / "t/a/volta");
  EXPECT_EQ(program.Answer("ProcureArquivo", "\"t\", \"Alvo.TXT\""), "\"t\\a\\fundo\\ALVO.txt\"");
  program.folder.Write("t/alvo.txt", "");
  EXPECT_EQ(program.Answer("ProcureArquivo", "\"T\\\", \"alvo.txt\""), "\"T\\alvo.txt\"");
  EXPECT_EQ(program.Answer("ProcureArquivo", "\"t\", \"nada\""), "\"\"");
  EXPECT_EQ(program.Answer("ProcureArquivo", "\"falta\", \"alvo.txt\""), "\"\"");
  EXPECT_EQ(program.Answer("ProcureArquivo", "\"\", \"\""), "\"\"");
}

TEST(FolderCommands, RemoveArquivoAnswersTheResolvedPath) {
  FileProgram program;
  program.folder.Write("a.txt", "");
  program.folder.Write("dados/C/b.txt", "");
  std::filesystem::create_directory(program.folder / "pasta");
  EXPECT_EQ(program.Answer("RemoveArquivo", "\"A.TXT\""),
            "\"" + program.folder.path().string() + "\\A.TXT\"");
  EXPECT_FALSE(program.folder.Has("a.txt"));
  EXPECT_EQ(program.Answer("RemoveArquivo", "\"c:\\b.txt\""), "\"c:\\b.txt\"");
  EXPECT_FALSE(program.folder.Has("dados/C/b.txt"));
  EXPECT_EQ(program.Answer("RemoveArquivo", "\"a.txt\""), "\"\"");
  EXPECT_EQ(program.Answer("RemoveArquivo", "\"pasta\""), "\"\"");
  EXPECT_EQ(program.Answer("RemoveArquivo", "\"\""), "\"\"");
  EXPECT_TRUE(program.folder.Has("pasta"));
}

TEST(FolderCommands, CopiaAnswersTheNumberOfItsFailure) {
  FileProgram program;
  program.folder.Write("a.txt", "conteúdo");
  EXPECT_EQ(program.Answer("Copia", "\"a.txt\", \"C:\\b.txt\""), "");
  EXPECT_EQ(program.folder.Read("dados/C/b.txt"), "conteúdo");
  EXPECT_EQ(program.Answer("Copia", "\"x.txt\", \"b.txt\""), "\"Erro 53\"");
  EXPECT_EQ(program.Answer("Copia", "\"a.txt\", \"falta\\b.txt\""), "\"Erro 76\"");
  EXPECT_EQ(program.Answer("Copia", "\"a.txt\", \"/dev/full\""), "\"Erro 61\"");
}

TEST(FolderCommands, FoldersAnswerTheDescriptionOfTheirFailure) {
  FileProgram program;
  EXPECT_EQ(program.Answer("CriaPasta", "\"nova\""), "");
  EXPECT_EQ(program.Answer("CriaPasta", "\"NOVA\""), "\"Erro de acesso a caminho/arquivo\"");
  EXPECT_EQ(program.Answer("CriaPasta", "\"falta\\nova\""), "\"Caminho não encontrado\"");
  program.folder.Write("nova/a.txt", "");
  EXPECT_EQ(program.Answer("RemovePasta", "\"nova\""), "\"Erro de acesso a caminho/arquivo\"");
  std::filesystem::remove(program.folder / "nova/a.txt");
  EXPECT_EQ(program.Answer("RemovePasta", "\"nova\""), "");
  EXPECT_EQ(program.Answer("RemovePasta", "\"nova\""), "\"Caminho não encontrado\"");
}

// ---- Packages ------------------------------------------------------------------------------------------

std::string Record(std::string name, std::string size, std::string position) {
  name.resize(25, ' ');
  size.resize(10, ' ');
  position.resize(15, ' ');
  return name + size + position;
}

std::string DirectoryOf(std::string records) {
  records.resize(15000, ' ');
  return records;
}

TEST(PackageFile, OneByteLiesBetweenTwoFiles) {
  FileProgram program;
  program.folder.Write("a.txt", "abc");
  program.folder.Write("b.txt", "defg");
  EXPECT_EQ(program.Answer("InsereArquivo", "\"Primeiro\", \"a.txt\", \"p.pac\""), "");
  EXPECT_EQ(program.folder.Read("p.pac"), DirectoryOf(Record("Primeiro", "3", "15001")) + "abc");
  EXPECT_EQ(program.Answer("InsereArquivo", "\"Um nome com mais de vinte e cinco\", \"b.txt\", \"P.PAC\""),
            "");
  EXPECT_EQ(program.folder.Read("p.pac"), DirectoryOf(Record("Primeiro", "3", "15001") +
                                                      Record("Um nome com mais de vinte", "4", "15005")) +
                                              "abc" + std::string(1, '\0') + "defg");
}

TEST(PackageFile, ExtractionFindsTheFirstOfAName) {
  FileProgram program;
  program.folder.Write("p.pac",
                       DirectoryOf(Record("Um", "3", "15001") + Record("UM", "2", "15005")) + "abc-de");
  program.folder.Write("alvo.txt", "mais longo que antes");
  EXPECT_EQ(program.Answer("ExtraiArquivo", "\"um\", \"ALVO.txt\", \"p.pac\""), "");
  EXPECT_EQ(program.folder.Read("alvo.txt"), "abc");
  EXPECT_TRUE(program.Boxes().empty());
}

TEST(PackageFile, AnAbsentNameShowsABoxAndLeavesTheTargetDeleted) {
  FileProgram program;
  program.folder.Write("p.pac", DirectoryOf(Record("um", "3", "15001")) + "abc");
  program.folder.Write("alvo.txt", "x");
  EXPECT_EQ(program.Answer("ExtraiArquivo", "\"dois\", \"alvo.txt\", \"p.pac\""), "");
  EXPECT_EQ(program.Answer("ExtraiArquivo", "\"um\", \"alvo.txt\", \"falta.pac\""), "");
  EXPECT_EQ(program.Boxes(), (std::vector<std::string>(2, "Arquivo não encontrado!")));
  EXPECT_FALSE(program.folder.Has("alvo.txt"));
  EXPECT_FALSE(program.folder.Has("falta.pac"));
}

TEST(PackageFile, The301stInsertionIsRefused) {
  FileProgram program;
  program.folder.Write("a.txt", std::string(1024, 'a'));
  for (int i = 1; i <= 300; ++i) {
    const std::string name = "f" + std::to_string(i);
    ASSERT_EQ(program.Answer("InsereArquivo", name + ", \"a.txt\", \"p.pac\""), "");
  }
  EXPECT_TRUE(program.Boxes().empty());
  const std::string before = program.folder.Read("p.pac");
  EXPECT_EQ(before.size(), 15000U + 300 * 1024 + 299);
  EXPECT_EQ(program.Answer("InsereArquivo", "f301, \"a.txt\", \"p.pac\""), "");
  EXPECT_EQ(program.Boxes(), (std::vector<std::string>{"InsereArquivo - Pacote cheio, cabem 300 arquivos: "
                                                       "p.pac|\nEditor: 0 Linha: 0"}));
  EXPECT_EQ(program.folder.Read("p.pac"), before);
  for (int i = 1; i <= 300; ++i) {
    const std::string name = "f" + std::to_string(i);
    ASSERT_EQ(program.Answer("ExtraiArquivo", name + ", \"" + name + "\", \"p.pac\""), "");
  }
  EXPECT_EQ(program.folder.Read("f300"), std::string(1024, 'a'));
}

TEST(PackageFile, DamagedPackagesEndInAFailureAndLeaveNoTarget) {
  FileProgram program;
  const auto extracted = [&](std::string_view package) {
    program.folder.Write("p.pac", package);
    const std::string answer = program.Answer("ExtraiArquivo", "\"um\", \"alvo.txt\", \"p.pac\"");
    EXPECT_FALSE(program.folder.Has("alvo.txt"));
    return answer;
  };
  EXPECT_EQ(extracted(DirectoryOf(Record("um", "4", "15001")) + "abc"), "falha 62");
  EXPECT_EQ(extracted(DirectoryOf(Record("um", "3", "99999999999999"))), "falha 62");
  EXPECT_EQ(extracted(DirectoryOf(Record("um", "x", "15001")) + "abc"), "falha 13");
  EXPECT_EQ(extracted(DirectoryOf(Record("um", "3", "")) + "abc"), "falha 13");
  EXPECT_EQ(extracted(DirectoryOf(Record("um", "3", "0")) + "abc"), "falha 5");
  EXPECT_EQ(extracted(Record("um", "3", "150").substr(0, 37)), "falha 5");
  EXPECT_EQ(extracted(""), "");
  program.folder.Write("a.txt", "x");
  program.folder.Write("p.pac", DirectoryOf(Record("um", "?", "15001")));
  EXPECT_EQ(program.Answer("InsereArquivo", "\"dois\", \"a.txt\", \"p.pac\""), "falha 13");
  EXPECT_EQ(program.Answer("InsereArquivo", "\"dois\", \"falta.txt\", \"p.pac\""), "falha 53");
  EXPECT_EQ(program.folder.Read("p.pac"), DirectoryOf(Record("um", "?", "15001")));
}

TEST(PackageFile, AnEmptyFileIsAPackageWithoutFiles) {
  FileProgram program;
  program.folder.Write("a.txt", "abc");
  program.folder.Write("vazio.pac", "");
  EXPECT_EQ(program.Answer("InsereArquivo", "um, \"a.txt\", \"vazio.pac\""), "");
  EXPECT_EQ(program.folder.Read("vazio.pac"), DirectoryOf(Record("um", "3", "15001")) + "abc");
}

// ---- The side file -------------------------------------------------------------------------------------

TEST(SideFile, KeepsTextsUnderScrambledKeys) {
  FileProgram program;
  EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"\"");
  EXPECT_FALSE(program.folder.Has("TS.arq"));
  EXPECT_EQ(program.Answer("SalvaString", "\"K\", \"abc\""), "");
  EXPECT_EQ(program.folder.Read("TS.arq"), "#!\xB4#@\x9E\x9D\x9C#$");
  EXPECT_EQ(program.Answer("SalvaString", "\"J\", \"é\""), "");
  EXPECT_EQ(program.folder.Read("TS.arq"), "#!\xB4#@\x9E\x9D\x9C#$#!\xB5#@\x16#$");
  EXPECT_EQ(program.Answer("SalvaString", "\"K\", \"abcd\""), "");
  EXPECT_EQ(program.folder.Read("TS.arq"), "#!\xB4#@\x9E\x9D\x9C\x9B#$#!\xB5#@\x16#$");
  EXPECT_EQ(program.Answer("LeString", "\"J\""), "\"é\"");
  EXPECT_EQ(program.Answer("LeString", "\"k\""), "\"\"");
}

TEST(SideFile, AShorterTextLeavesTheOldTail) {
  FileProgram program;
  program.folder.Write("TS.arq", "#!\xB4#@\x9E\x9D\x9C#$");
  EXPECT_EQ(program.Answer("SalvaString", "\"K\", \"a\""), "");
  EXPECT_EQ(program.folder.Read("TS.arq"), "#!\xB4#@\x9E#$#$");
  EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"a\"");
}

TEST(SideFile, IsReadOnceAndKept) {
  FileProgram program;
  program.folder.Write("ts.ARQ", "#!\xB4#@\x9E#$");
  EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"a\"");
  program.folder.Write("ts.ARQ", "#!\xB4#@\x9D#$");
  EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"a\"");
}

TEST(SideFile, ADamagedFileIsReadAsFarAsItGoes) {
  for (const std::string_view bytes :
       {"#!\xB4#@\x9E\x9D", "#!\xB4#@", "#!\xB4#", "#!\xB4", "#!", "#", "lixo"}) {
    FileProgram program;
    program.folder.Write("TS.arq", bytes);
    const std::string expected = bytes.size() == 7 ? "\"ab\"" : "\"\"";
    EXPECT_EQ(program.Answer("LeString", "\"K\""), expected) << bytes;
    EXPECT_EQ(program.Answer("SalvaString", "\"K\", \"xyz\""), "") << bytes;
    EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"xyz\"") << bytes;
  }
  FileProgram program;
  std::filesystem::create_directory(program.folder / "TS.arq");
  EXPECT_EQ(program.Answer("LeString", "\"K\""), "\"\"");
  EXPECT_EQ(program.Answer("SalvaString", "\"K\", \"x\""), "falha 75");
}

}  // namespace
}  // namespace tessera

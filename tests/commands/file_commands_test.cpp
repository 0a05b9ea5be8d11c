#include "commands/file_commands.h"

#include <gtest/gtest.h>

#include "support/file_program.h"

namespace tessera {
namespace {

using test::FileProgram;
using test::LibraryProgram;

TEST(FileCommands, LinesGoOutAndComeBack) {
  FileProgram program;
  EXPECT_EQ(program.Run("Var l String\n"
                        "AbreArquivo \"Saida\", \"nomes.txt\", \"TextoGravacao\"\n"
                        "GravaArquivo \"SAIDA\", \"José\"\n"
                        "GravaArquivo \"saida\", \"\"\n"
                        "Escreva TamanhoArquivo(\"saida\")\n"
                        "FechaArquivo \"saida\"\n"
                        "AbreArquivo \"Entra\", \"NOMES.TXT\", \"TEXTOLEITURA\"\n"
                        "l = LeArquivo(\"Entra\")\n"
                        "Enquanto l <> \"EOF\"\n"
                        "Escreva \"[\", l, \"]\"\n"
                        "l = LeArquivo(\"Entra\")\n"
                        "Repita\n"
                        "FechaArquivo \"Entra\"\n"),
            "8\n[José]\n[]\n");
  EXPECT_EQ(program.folder.Read("nomes.txt"), "Jos\xE9\r\n\r\n");
  EXPECT_TRUE(program.Boxes().empty());
}

TEST(FileCommands, AllLineEndsAreKnown) {
  FileProgram program;
  program.folder.Write("a.txt", "um\r\ndois\ntr\rfim");
  program.Answer("AbreArquivo", "a, \"a.txt\", TEXTOLEITURA");
  for (const std::string_view line : {"um", "dois", "tr", "fim", "EOF", "EOF"}) {
    EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"" + std::string(line) + "\"");
  }
}

TEST(FileCommands, ATextFileInUtf8IsReadAsSuch) {
  const std::string full(65535, 'x');
  struct Row {
    const char* what;
    std::string bytes;
    std::vector<std::string> lines;
  };
  const std::vector<Row> rows = {
      {"accents", "Jo\xC3\xA3o\r\n\xE2\x82\xAC 5\n", {"Jo\xE3o", "\x80 5"}},
      {"a mark in front",
       "\xEF\xBB\xBF"
       "um\ndois\n",
       {"um", "dois"}},
      {"beyond the code page", "\xCE\xB1 \xC3\xA7", {"? \xE7"}},
      {"one byte of the code page", "Jo\xC3\xA3o\nJo\xE3o\n", {"Jo\xC3\xA3o", "Jo\xE3o"}},
      {"cut at the end", "\xC3\xA7 \xC3", {"\xC3\xA7 \xC3"}},
      {"accents behind the first 64 KB", full + "\n\xC3\xA7\n", {full, "\xC3\xA7"}},
      {"a character across the border",
       "\xC3\xA7" + full.substr(2) + "\xC3\xA7\n\xE7\n",
       {"\xE7" + full.substr(2) + "\xE7", "\xE7"}},
  };
  for (const Row& row : rows) {
    FileProgram program;
    program.folder.Write("a.txt", row.bytes);
    program.Answer("AbreArquivo", "a, \"a.txt\", TEXTOLEITURA");
    for (const std::string& line : row.lines)
      EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"" + ToUtf8(line) + "\"") << row.what;
    EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"EOF\"") << row.what;
    EXPECT_EQ(program.Answer("TamanhoArquivo", "a"), std::to_string(row.bytes.size())) << row.what;
    program.Answer("AbreArquivo", "b, \"a.txt\", BINARIO");
    EXPECT_EQ(program.Answer("LeArquivo", "b, 1, 1"), "\"" + ToUtf8(row.bytes.substr(0, 1)) + "\"")
        << row.what;
  }
}

TEST(FileCommands, LinesCrossTheBuffersBorder) {
  FileProgram program;
  const std::string atBorder(65535, 'x');
  program.folder.Write("a.txt", atBorder + "\r\ny\r\n" + std::string(200000, 'z'));
  program.Answer("AbreArquivo", "a, \"a.txt\", TEXTOLEITURA");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"" + atBorder + "\"");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"y\"");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"" + std::string(200000, 'z') + "\"");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"EOF\"");
}

TEST(FileCommands, ALineEofEndsAReadingLoop) {
  FileProgram program;
  program.folder.Write("a.txt", "EOF\r\nmais\r\n");
  program.Answer("AbreArquivo", "a, \"a.txt\", TEXTOLEITURA");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"EOF\"");
  EXPECT_EQ(program.Answer("LeArquivo", "a"), "\"mais\"");
}

TEST(FileCommands, BinaryFilesAreReadAndWrittenAtPositions) {
  FileProgram program;
  program.folder.Write("b.bin", "abcdef");
  program.Answer("AbreArquivo", "b, \"b.bin\", BINARIO");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 2, 3"), "\"bcd\"");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 5, 99"), "\"ef\"");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 6, 70000"), "\"f\"");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 7, 70000"), "\"\"");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 99, 1"), "\"\"");
  EXPECT_EQ(program.Answer("GravaArquivo", "b, 3, \"XY\""), "");
  EXPECT_EQ(program.folder.Read("b.bin"), "abXYef");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 0, 1"), "falha 5");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 1, 0-1"), "falha 5");
  EXPECT_EQ(program.Answer("GravaArquivo", "b, 0, \"x\""), "falha 5");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 99999999999999999999, 1"), "falha 6");
}

TEST(FileCommands, PositionsBeyondTwoGibibytesAreNotWrapped) {
  FileProgram program;
  program.Answer("AbreArquivo", "b, \"b.bin\", BINARIO");
  EXPECT_EQ(program.Answer("GravaArquivo", "b, 5000000000, \"fim\""), "");
  EXPECT_EQ(program.Answer("TamanhoArquivo", "b"), "5000000002");
  EXPECT_EQ(program.Answer("LeArquivo", "b, 5000000001, 2"), "\"im\"");
}

TEST(FileCommands, AnUnknownAliasShowsABoxWithThePosition) {
  FileProgram program;
  EXPECT_EQ(program.Run("FechaArquivo \"Nada\"\nGravaArquivo \"Nada\", \"x\"\nEscreva LeArquivo(\"Nada\")\n"
                        "Escreva TamanhoArquivo(\"Nada\")\n"),
            "\n0\n");
  const std::string text = " - Apelido de arquivo não encontrado: Nada|\nEditor: 0 Linha: ";
  EXPECT_EQ(program.Boxes(),
            (std::vector<std::string>{"FechaArquivo" + text + "1", "GravaArquivo" + text + "2",
                                      "LeArquivo" + text + "3", "TamanhoArquivo" + text + "4"}));
  for (const Box& box : program.dialogs.boxes) EXPECT_EQ(box.icon, BoxIcon::Critical);
}

TEST(FileCommands, ModesThatDoNotFitAreSkipped) {
  FileProgram program;
  program.folder.Write("a.txt", "um\r\n");
  program.Answer("AbreArquivo", "r, \"a.txt\", TEXTOLEITURA");
  program.Answer("AbreArquivo", "w, \"w.txt\", TEXTOGRAVACAO");
  program.Answer("AbreArquivo", "x, \"a.txt\", QUALQUER");
  EXPECT_EQ(program.Answer("GravaArquivo", "r, \"x\""), "");
  EXPECT_EQ(program.Answer("LeArquivo", "w"), "");
  EXPECT_EQ(program.Answer("LeArquivo", "x"), "");
  EXPECT_EQ(program.Answer("TamanhoArquivo", "x"), "falha 52");
  EXPECT_EQ(program.Answer("FechaArquivo", "x"), "0");
  EXPECT_EQ(program.folder.Read("a.txt"), "um\r\n");
  EXPECT_TRUE(program.Boxes().empty());
}

TEST(FileCommands, The21stAliasOpensNothing) {
  FileProgram program;
  for (int i = 1; i <= 21; ++i) {
    const std::string n = std::to_string(i);
    EXPECT_EQ(program.Answer("AbreArquivo", "a" + n + ", \"f" + n + "\", TEXTOGRAVACAO"), "");
  }
  EXPECT_TRUE(program.folder.Has("f20"));
  EXPECT_FALSE(program.folder.Has("f21"));
  program.Answer("FechaArquivo", "a7");
  program.Answer("AbreArquivo", "a21, \"f21\", TEXTOGRAVACAO");
  EXPECT_TRUE(program.folder.Has("f21"));
}

TEST(FileCommands, AFailedOpeningLeavesTheAliasTableRight) {
  FileProgram program;
  std::filesystem::create_directory(program.folder / "pasta");
  for (int i = 0; i < 25; ++i) {
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"falta.txt\", TEXTOLEITURA"), "falha 53");
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"falta\\x.txt\", TEXTOLEITURA"), "falha 76");
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"falta\\x.txt\", TEXTOGRAVACAO"), "falha 76");
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"falta\\x.txt\", BINARIO"), "falha 76");
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"pasta\", TEXTOLEITURA"), "falha 75");
    EXPECT_EQ(program.Answer("AbreArquivo", "a, \"pasta\", TEXTOGRAVACAO"), "falha 75");
    EXPECT_EQ(program.Answer("AbreArquivo", "\"\", \"x.txt\", TEXTOGRAVACAO"), "falha 52");
  }
  EXPECT_FALSE(program.folder.Has("x.txt"));
  program.Answer("AbreArquivo", "a, \"x.txt\", TEXTOGRAVACAO");
  EXPECT_TRUE(program.folder.Has("x.txt"));
}

TEST(FileCommands, AFullDiskIsToldAndTheFileCloses) {
  FileProgram program;
  EXPECT_EQ(program.Answer("AbreArquivo", "a, \"/dev/full\", TEXTOGRAVACAO"), "");
  EXPECT_EQ(program.Answer("GravaArquivo", "a, \"x\""), "");
  EXPECT_EQ(program.Answer("AbreArquivo", "outro, \"y.txt\", TEXTOGRAVACAO"), "");
  EXPECT_EQ(program.Answer("FechaArquivo", "a"), "falha 61");
  EXPECT_TRUE(program.Boxes().empty());
  program.Answer("FechaArquivo", "a");
  EXPECT_EQ(program.Boxes().size(), 1U);

  program.Answer("AbreArquivo", "a, \"/dev/full\", TEXTOGRAVACAO");
  const std::string arguments = "a, \"" + std::string(40000, 'x') + "\"";
  EXPECT_EQ(program.Answer("GravaArquivo", arguments), "");
  EXPECT_EQ(program.Answer("GravaArquivo", arguments), "falha 61");
  EXPECT_EQ(program.Answer("TamanhoArquivo", "a"), "40002");
}

// Whoever is handed a file by the program finds in it what the program has written.
TEST(FileCommands, WrittenLinesAreInTheFileThatIsCopiedOrPacked) {
  FileProgram program;
  EXPECT_EQ(
      program.Run("AbreArquivo \"S\", \"s.txt\", \"TextoGravacao\"\nGravaArquivo \"S\", \"um\"\n"
                  "Copia \"s.txt\", \"c.txt\"\nGravaArquivo \"S\", \"dois\"\n"
                  "InsereArquivo \"s\", \"s.txt\", \"p.pac\"\nExtraiArquivo \"s\", \"e.txt\", \"p.pac\"\n"),
      "");
  EXPECT_EQ(program.folder.Read("c.txt"), "um\r\n");
  EXPECT_EQ(program.folder.Read("e.txt"), "um\r\ndois\r\n");
}

// What is written is worked out first, and may close the file on its way.
TEST(FileCommands, AFunctionMayCloseTheFileThatIsWritten) {
  for (const std::string mode : {"BINARIO", "TEXTOGRAVACAO"}) {
    FileProgram program;
    EXPECT_EQ(program.Run("AbreArquivo \"S\", \"s.txt\", \"" + mode + "\"\nGravaArquivo \"S\", " +
                              (mode == "BINARIO" ? "1, " : "") + "Fecha(\"S\")\nEscreva 1",
                          {"Funcao Fecha(a String) String\nFechaArquivo a\nRetorne \"x\"\nFimFuncao"}),
              "falha 52\n")
        << mode;
  }
}

TEST(FileCommands, FilesAreOpenToOthersAndClosedOnEveryWayOut) {
  FileProgram program;
  program.Answer("AbreArquivo", "a, \"a.txt\", TEXTOGRAVACAO");
  program.Answer("GravaArquivo", "a, \"linha\"");
  EXPECT_EQ(program.Answer("AbreArquivo", "b, \"a.txt\", TEXTOLEITURA"), "");
  EXPECT_EQ(program.Answer("LeArquivo", "b"), "\"linha\"");
  program.Answer("GravaArquivo", "a, \"outra\"");
  const TemporaryFolder folder;
  {
    LibraryProgram ending;
    ending.run.paths = PathMapping(ending.run.host.files, folder.path(), folder.path());
    ending.Answer("AbreArquivo", "a, \"b.txt\", TEXTOGRAVACAO");
    ending.Answer("GravaArquivo", "a, \"fim\"");
    EXPECT_EQ(folder.Read("b.txt"), "");
  }
  EXPECT_EQ(folder.Read("b.txt"), "fim\r\n");
}

TEST(FileCommands, DiretorioGivesTheNamesOfPlainFiles) {
  FileProgram program;
  for (const std::string_view name :
       {"l/b.txt", "l/A.TXT", "l/c.dat", "l/.oculto.txt", "l/sub/d.txt", "l/ção.txt"}) {
    program.folder.Write(name, "");
  }
  EXPECT_EQ(program.Answer("Diretorio", ""), "falha 5");
  EXPECT_EQ(program.Answer("Diretorio", "\"L\\*.txt\""), "\"A.TXT\"");
  EXPECT_EQ(program.Answer("Diretorio", ""), "b.txt");
  EXPECT_EQ(program.Answer("Diretorio", ""), "ção.txt");
  EXPECT_EQ(program.Answer("Diretorio", ""), "");
  EXPECT_EQ(program.Answer("Diretorio", ""), "falha 5");
  EXPECT_EQ(program.Answer("Diretorio", "\"l\\?.dat\""), "\"c.dat\"");
  EXPECT_EQ(program.Answer("Diretorio", "\"l\\\""), "\"A.TXT\"");
  EXPECT_EQ(program.Answer("Diretorio", "\"l\\.*\""), "\".oculto.txt\"");
  EXPECT_EQ(program.Answer("Diretorio", "\"falta\\*.*\""), "\"\"");
  EXPECT_EQ(program.Answer("Diretorio", ""), "falha 5");
}

}  // namespace
}  // namespace tessera

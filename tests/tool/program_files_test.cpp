#include "tool/program_files.h"

#include <gtest/gtest.h>

#include "support/process.h"
#include "tool/source_text.h"

namespace tessera {
namespace {

using namespace std::string_literals;

std::string MustConvert(std::string_view bytes) {
  const auto text = SourceTextFromBytes(bytes);
  const SourceProblem* problem = std::get_if<SourceProblem>(&text);
  return problem == nullptr ? std::get<std::string>(text) : "problem: " + problem->reason;
}

TEST(SourceText, TakesBothEncodingsAndBothLineEnds) {
  EXPECT_EQ(MustConvert("Não"), "N\xE3o");
  EXPECT_EQ(MustConvert("\xEF\xBB\xBFNão"), "N\xE3o");
  EXPECT_EQ(MustConvert("N\xE3o"), "N\xE3o") << "no valid UTF-8: already in the code page";
  EXPECT_EQ(MustConvert("€ – ‰"), "\x80 \x96 \x89");
  EXPECT_EQ(MustConvert("\x81\x8D"), "\x81\x8D") << "the undefined bytes survive";
  EXPECT_EQ(MustConvert("a\nb\r\nc"), "a\r\nb\r\nc");
  EXPECT_EQ(MustConvert("a\rb\r"), "a\rb\r") << "a lone CR ends no line";
  EXPECT_EQ(MustConvert("\n\n"), "\r\n\r\n");
  EXPECT_EQ(MustConvert(""), "");
}

TEST(SourceText, NamesLineAndColumnOfAForeignCharacter) {
  struct Case {
    std::string bytes;
    std::size_t line, column;
    const char* says;
  };
  const Case cases[] = {
      {"Ω", 1, 1, "U+03A9"},          {"é\r\nção Ω", 2, 5, "\"Ω\""},
      {"a\n\nb😀", 3, 2, "U+1F600"},   {"\xEF\xBB\xBFΩ", 1, 1, "U+03A9"},
      {"a\nb\0c"s, 2, 2, "código 0"},
  };
  for (const Case& c : cases) {
    const auto text = SourceTextFromBytes(c.bytes);
    const SourceProblem* problem = std::get_if<SourceProblem>(&text);
    ASSERT_NE(problem, nullptr) << c.bytes;
    EXPECT_EQ(problem->line, c.line) << c.bytes;
    EXPECT_EQ(problem->column, c.column) << c.bytes;
    EXPECT_NE(problem->reason.find(c.says), std::string::npos) << problem->reason;
  }
}

TEST(SourceText, AForeignCharacterBeforeMalformedBytesMakesNoUtf8) {
  EXPECT_EQ(MustConvert("\xCE\xA9 \xE3"), "\xCE\xA9 \xE3");
}

class ProgramFiles : public testing::Test {
 protected:
  LoadedProgram MustLoad(const std::string& path) {
    auto loaded = LoadProgram(path);
    if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) {
      ADD_FAILURE() << problem->message;
      return {};
    }
    return std::get<LoadedProgram>(std::move(loaded));
  }
  std::string ProblemOf(const std::string& path) {
    const auto loaded = LoadProgram(path);
    const LoadProblem* problem = std::get_if<LoadProblem>(&loaded);
    return problem == nullptr ? "no problem" : problem->message;
  }
  void ExpectProblem(const std::string& path, std::string_view part) {
    const std::string problem = ProblemOf(path);
    EXPECT_NE(problem.find(part), std::string::npos) << problem;
    EXPECT_EQ(problem.find(path), 0u) << "the message names the file: " << problem;
  }

  TemporaryFolder folder_;
};

TEST_F(ProgramFiles, AFileIsEditorZeroAlone) {
  folder_.Write("outro.tsc", "x");
  const LoadedProgram loaded = MustLoad(folder_.Write("ação.tsc", "Cls\n"));
  EXPECT_EQ(loaded.program.name, "A\xC7\xC3O");
  EXPECT_EQ(loaded.program.EditorText[0], "Cls\r\n");
  EXPECT_EQ(loaded.program.EditorText[1], "");
  EXPECT_EQ(loaded.folder, std::filesystem::canonical(folder_.path()));
}

TEST_F(ProgramFiles, AFolderNamesItsMainEditor) {
  folder_.Write("Jogo/a.tsc", "a");
  folder_.Write("Jogo/B.tsc", "b");
  folder_.Write("Jogo/leia.txt", "x");
  folder_.Write("Jogo/pasta.tsc/x", "x");
  folder_.Write("Jogo/principal.tsc", "p");
  LoadedProgram loaded = MustLoad(folder_ / "Jogo");
  EXPECT_EQ(loaded.program.EditorText[0], "p");
  EXPECT_EQ(loaded.program.EditorText[1], "b") << "file-name order";
  EXPECT_EQ(loaded.program.EditorName[0], "B");
  EXPECT_EQ(loaded.program.EditorText[2], "a");
  EXPECT_EQ(loaded.files[2], folder_ / "Jogo" + "/a.tsc");

  folder_.Write("Jogo/JOGO.TSC", "j");
  loaded = MustLoad(folder_ / "Jogo/");
  EXPECT_EQ(loaded.program.EditorText[0], "j") << "the folder's name goes first, blind to case";
  EXPECT_EQ(loaded.program.name, "JOGO");
  EXPECT_EQ(loaded.folder.filename(), "Jogo");
}

TEST_F(ProgramFiles, TheOnlyFileIsTheMainEditor) {
  folder_.Write("Jogo/qualquer.tsc", "q");
  EXPECT_EQ(MustLoad(folder_ / "Jogo").program.EditorText[0], "q");
}

TEST_F(ProgramFiles, TakesSixFurtherEditorsAndNoSeventh) {
  for (int i = 0; i <= 6; ++i)
    folder_.Write("Jogo/" + std::string(i == 0 ? "Jogo" : std::to_string(i)) + ".tsc", "x");
  EXPECT_EQ(MustLoad(folder_ / "Jogo").program.EditorName[5], "6");
  folder_.Write("Jogo/7.tsc", "x");
  ExpectProblem(folder_ / "Jogo", "há 7 editores além do principal (Jogo.tsc); o máximo é 6: 1.tsc, 2.tsc");
}

TEST_F(ProgramFiles, TellsWhatIsMissing) {
  ExpectProblem(folder_ / "nada.tsc", "programa não encontrado");
  ExpectProblem(folder_.Write("programa.txt", ""), "um programa é um arquivo .tsc ou uma pasta");
  folder_.Write("vazia/leia.txt", "");
  ExpectProblem(folder_ / "vazia", "a pasta não tem nenhum arquivo .tsc");
  folder_.Write("Jogo/um.tsc", "");
  folder_.Write("Jogo/dois.tsc", "");
  ExpectProblem(folder_ / "Jogo", "nem Jogo.tsc nem Principal.tsc está na pasta, que tem dois.tsc, um.tsc");
  ExpectProblem(folder_.Write("x.tsc", "a\nb Ω"), ":2:3: ");
  ExpectProblem(folder_.Write("Ω.tsc", ""), "o nome tem um caractere");
}

}  // namespace
}  // namespace tessera

// How the lines of a recorded script are kept: which become one, what is in the file, and what tells an act.
#include "console/recording.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "console/console_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"
#include "windows/act_line.h"

namespace tessera::test {

namespace {

// Does these acts, one each time that it is asked, and then closes what is open. "NAME: LINE" is done on the
// window of that name.
class ActsOf final : public ScriptAuthor {
 public:
  explicit ActsOf(std::vector<std::string> acts) : acts_(std::move(acts)) {}

  Dialogs& Answers() override { return boxes_; }
  void Rest(Milliseconds time) override { rested += time; }
  std::optional<PersonAct> NextAct(std::optional<Milliseconds>, std::span<const int>) override {
    const std::string act = next_ < acts_.size() ? acts_[next_++] : "fecha";
    const std::size_t colon = act.find(": ");
    if (colon == std::string::npos) return PersonAct{.line = act};
    return PersonAct{.line = act.substr(colon + 2), .window = windows->FindWindow(act.substr(0, colon))};
  }

  const WindowModel* windows = nullptr;
  Milliseconds rested{0};

 private:
  RecordedBoxes boxes_;
  std::vector<std::string> acts_;
  std::size_t next_ = 0;
};

}  // namespace

// What was recorded is played in memory, and does the same.
TEST(RecordingTest, AScriptThatIsWrittenWhileItIsPlayedPlaysTheSameAgain) {
  const std::string source =
      "Texto T, 1, 1, 20\nBotao B, 3, 1\nVar s String\nNovaJanela Define, Outra\nNovaJanela Outra.Ativa\n"
      "NovaJanela Outra.Use\nBotao C, 1, 1\nNovaJanela Pai.Use\nEnquanto TestaBotao <> \"B\"\n"
      "  Aguarde Eventos\n"
      "  Escreva T.Txt, \"|\", GanhouFoco, \"|\", TestaBotao\nRepita\n"
      "s = EntraTexto(\"Nome\")\nEscreva s\n";
  const TemporaryFolder folder;
  const std::string file = folder / "roteiro";
  ActsOf author({"Pai: foco T", "digita ab", "digita c", "Outra: clique C", "Pai: tecla 8", "clique Nada",
                 "mouse 1 1", "mouse 2 2", "clique", "clique B"});
  const auto play = [&](const std::string& script, Recording* recording) {
    std::istringstream in(script);
    std::ostringstream out;
    std::ostringstream err;
    ConsoleHost host({in, out, err}, {.programTitle = "TESTE", .recording = recording});
    HostedProgram program(host.host(), host);
    author.windows = &program.janela.windows();
    program.Run(source, "Sub Outra_Codigo()\nFimSub\n");
    return out.str();
  };
  std::string seen;
  {
    Recording recording(author, Descriptor(open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600)));
    seen = play("", &recording);
    EXPECT_TRUE(recording.IsWhole());
  }
  EXPECT_EQ(ReadBytes(file),
            "foco T\ndigita ab\ndigita c\nfoco Outra\nclique C\nfoco Pai\ntecla 8\nmouse 1 1\nmouse 2 2\n"
            "clique\nclique B\nCANCELADO\nfecha\n");
  EXPECT_EQ(seen,
            "|T|\nab|T|\nabc|T|\nabc|T|\nabc|C|C\nabc|C|C\nab|C|C\nab|C|C\nab|C|C\nab|C|C\nab|B|B\n"
            "CANCELADO\n");
  EXPECT_EQ(author.rested.count(), 100) << "behind the click on the window";
  EXPECT_EQ(play(ReadBytes(file), nullptr), seen);
}

// The lines are whole in the file before they are done.
TEST(RecordingTest, AProgramThatDiesLeavesAllThatWentBefore) {
  const TemporaryFolder folder;
  const std::string file = folder / "roteiro";
  ActsOf author({});
  Recording recording(author, Descriptor(open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600)));
  const auto keep = [&](const std::string& line, std::uint64_t yields) {
    recording.Keep(line, yields);
    return ReadBytes(file);
  };
  EXPECT_EQ(keep("foco Nome", 1), "foco Nome\n");
  EXPECT_EQ(keep("clique Nome", 1), "clique Nome\n");
  EXPECT_EQ(keep("digita A", 1), "clique Nome\ndigita A\n");
  EXPECT_EQ(keep("tecla 32", 1), "clique Nome\ndigita A\ntecla 32\n");
  EXPECT_EQ(keep("digita b", 1), "clique Nome\ndigita A b\n");
  EXPECT_EQ(keep("digita c", 2), "clique Nome\ndigita A b\ndigita c\n");
  recording.KeepAnswer("\xE7");
  EXPECT_EQ(keep("aperta 37", 2), "clique Nome\ndigita A b\ndigita c\nç\naperta 37\n");
  EXPECT_EQ(keep("solta 37", 2), "clique Nome\ndigita A b\ndigita c\nç\ntecla 37\n");
  recording.TakeBack();
  EXPECT_EQ(ReadBytes(file), "clique Nome\ndigita A b\ndigita c\nç\naperta 37\n");
  // What is drawn with a button down is drawn along the way.
  recording.KeepAnswer("");
  const std::string before = ReadBytes(file);
  for (const char* line : {"pressiona 2", "mouse 1 1", "mouse 2 2", "libera 2", "mouse 3 3"}) keep(line, 2);
  EXPECT_EQ(keep("mouse 4 4", 2), before + "pressiona 2\nmouse 1 1\nmouse 2 2\nlibera 2\nmouse 4 4\n");
}

TEST(RecordingTest, LinesBecomeOneOnlyWhereNothingIsLost) {
  struct Row {
    std::vector<std::string> lines;
    std::string line;
    std::vector<std::string> withinWait;
    std::vector<std::string> later;
  };
  for (const Row& row : {
           Row{{"espera 20"}, "espera 20", {"espera 20 x2"}, {"espera 20 x2"}},
           Row{{"espera 20 x9"}, "espera 20", {"espera 20 x10"}, {"espera 20 x10"}},
           Row{{"espera 20"}, "espera 30", {"espera 20", "espera 30"}, {"espera 20", "espera 30"}},
           Row{{"mouse 1 1"}, "mouse 2 2", {"mouse 2 2"}, {"mouse 1 1", "mouse 2 2"}},
           Row{{"valor B 1"}, "valor B 2", {"valor B 2"}, {"valor B 1", "valor B 2"}},
           Row{{"valor A 1"}, "valor B 2", {"valor A 1", "valor B 2"}, {"valor A 1", "valor B 2"}},
           Row{{"pressiona 1"}, "libera 1", {"clique"}, {"pressiona 1", "libera 1"}},
           Row{{"pressiona 2"}, "libera 2", {"pressiona 2", "libera 2"}, {"pressiona 2", "libera 2"}},
           Row{{"clique"}, "duploclique", {"duploclique"}, {"clique", "duploclique"}},
           Row{{"clique A"}, "duploclique A", {"duploclique A"}, {"clique A", "duploclique A"}},
           Row{{"linha A 1"},
               "duploclique A",
               {"linha A 1", "duploclique A"},
               {"linha A 1", "duploclique A"}},
           Row{{"cursor T 1"}, "cursor T 2", {"cursor T 2"}, {"cursor T 1", "cursor T 2"}},
           Row{{"rola G 1"}, "rola G 2", {"rola G 2"}, {"rola G 1", "rola G 2"}},
           Row{{"redim 1 1"}, "redim 2 2", {"redim 2 2"}, {"redim 1 1", "redim 2 2"}},
           Row{{"foco A"}, "foco A", {"foco A"}, {"foco A", "foco A"}},
           Row{{"foco A"}, "data A 01/02/2003", {"data A 01/02/2003"}, {"foco A", "data A 01/02/2003"}},
           Row{{"foco A"}, "digita x", {"foco A", "digita x"}, {"foco A", "digita x"}},
           Row{{"linha G 1"}, "linha G 1", {"linha G 1", "linha G 1"}, {"linha G 1", "linha G 1"}},
           Row{{"aperta 37"}, "solta 37", {"tecla 37"}, {"aperta 37", "solta 37"}},
           Row{{"aperta 37"}, "solta 38", {"aperta 37", "solta 38"}, {"aperta 37", "solta 38"}},
           Row{{"pressiona 1"}, "libera 2", {"pressiona 1", "libera 2"}, {"pressiona 1", "libera 2"}},
           Row{{"clique", "pressiona 1"},
               "libera 1",
               {"clique", "clique"},
               {"clique", "pressiona 1", "libera 1"}},
           Row{{"digita a"}, "digita b", {"digita ab"}, {"digita a", "digita b"}},
           Row{{"digita a", "tecla 32", "tecla 32"},
               "digita b",
               {"digita a  b"},
               {"digita a", "tecla 32", "tecla 32", "digita b"}},
           Row{{}, "espera 20", {"espera 20"}, {"espera 20"}},
           Row{{}, "digita a", {"digita a"}, {"digita a"}},
           Row{{"abre D"}, "data D 1", {"data D 1"}, {"abre D", "data D 1"}},
           Row{{"abre C"}, "escolhe C 1", {"escolhe C 1"}, {"abre C", "escolhe C 1"}},
           Row{{"abre C"}, "abre C", {"abre C", "abre C"}, {"abre C", "abre C"}},
           Row{{"foco A"}, "clique B", {"foco A", "clique B"}, {"foco A", "clique B"}},
           Row{{"tecla 32"}, "digita a", {"tecla 32", "digita a"}, {"tecla 32", "digita a"}},
           Row{{"digita a", "tecla 13"},
               "digita b",
               {"digita a", "tecla 13", "digita b"},
               {"digita a", "tecla 13", "digita b"}},
       }) {
    EXPECT_EQ(WithLine(row.lines, row.line, true), row.withinWait) << row.line;
    EXPECT_EQ(WithLine(row.lines, row.line, false), row.later) << row.line;
  }
}

TEST(ActLines, TellKeysCaretsAndTypedTexts) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(ActLine({"cursor", "T", "1"}), "cursor T 1");
  EXPECT_EQ(ActNumber(2.5), "2,5");
  EXPECT_EQ(CaretLine("T", 3, 3), "cursor T 3");
  EXPECT_EQ(CaretLine("T", 3, 1), "cursor T 3 1");
  EXPECT_EQ(KeyLine(65, {}), "tecla 65");
  EXPECT_EQ(KeyLine(65, {.shift = true}), "tecla 65 shift");
  EXPECT_EQ(KeyLine(65, {.shift = true, .ctrl = true}), "tecla 65 ctrl");
  for (const int held : {0, 16, 17, 18, 20}) EXPECT_EQ(KeyLine(held, {}), "") << held;
  for (const int key : {1, 15, 19, 21}) EXPECT_EQ(KeyLine(key, {}), "tecla " + std::to_string(key));
  EXPECT_EQ(TypingLines(""), Lines{});
  EXPECT_EQ(TypingLines("a b"), Lines{"digita a b"});
  EXPECT_EQ(TypingLines(" a  "), (Lines{"digita  a", "tecla 32", "tecla 32"}));
  EXPECT_EQ(TypingLines("  "), (Lines{"tecla 32", "tecla 32"}));
  EXPECT_EQ(TypingLines("a\r\nb\nc\rd"),
            (Lines{"digita a", "tecla 13", "digita b", "tecla 13", "digita c", "tecla 13", "digita d"}));
  EXPECT_EQ(TypingLines("a\r\n"), (Lines{"digita a", "tecla 13"}));
}

}  // namespace tessera::test

#include <gtest/gtest.h>
#include <unistd.h>

#include <random>
#include <sstream>

#include "console/console_host.h"
#include "console/event_script.h"
#include "console/script_time.h"
#include "text/number.h"

namespace tessera::test {

namespace {

using std::chrono::milliseconds;

// Writes down what it is made to do.
class RecordedPerson final : public Person, private PersonObject {
 public:
  bool TurnTo(PersonObject&) override {
    log += "vai ";
    return true;
  }
  PersonObject* FindObject(std::string_view name) override { return name == "B" ? this : nullptr; }
  void Click() override { log += "clique "; }
  void DoubleClick() override { log += "duplo "; }
  void ClickTitle(std::string_view title) override { Note("titulo", title); }
  void ReplaceText(std::string_view text) override { Note("texto", text); }
  void EnterValue(double value) override { Note("valor", NumberText(value)); }
  void PressArrow(bool up) override { Note("seta", up ? "+" : "-"); }
  void Choose(int entry) override { Note("escolhe", NumberText(entry)); }
  void PickDate(std::string_view date) override { Note("data", date); }
  void ClickRow(int row) override { Note("linha", NumberText(row)); }
  void EditCell(int row, int column, std::string_view text) override {
    Note("celula", NumberText(row) + "," + NumberText(column) + "," + std::string(text));
  }
  void PressButton(MouseButton button) override { Note("pressiona", NumberText(static_cast<int>(button))); }
  void ReleaseButton(MouseButton button) override { Note("libera", NumberText(static_cast<int>(button))); }
  void MovePointer(double line, double column) override {
    Note("mouse", NumberText(line) + ";" + NumberText(column));
  }
  void TypeText(std::string_view text) override { Note("digita", text); }
  void PressKey(int code, KeyShift shift) override {
    Note("aperta", NumberText(code) + (shift.shift ? "S" : "") + (shift.ctrl ? "C" : ""));
  }
  void ReleaseKey(int code, KeyShift) override { Note("solta", NumberText(code)); }
  void ResizeWindow(double lines, double columns) override {
    Note("redim", NumberText(lines) + ";" + NumberText(columns));
  }
  void ClickCell(int row, int column) override { Note("celula", NumberText(row) + "," + NumberText(column)); }
  void ScrollTo(int row) override { Note("rola", NumberText(row)); }
  void PlaceCaret(std::size_t anchor, std::size_t caret) override {
    Note("cursor", std::to_string(anchor) + "," + std::to_string(caret));
  }
  void PressDropButton() override { log += "abre "; }
  bool TurnToWindow(std::string_view name) override {
    Note("janela", name);
    return name == "Janela2";
  }
  bool CloseWindow(std::string_view name) override {
    Note("fecha", name);
    return name != "Outra";
  }
  void LetTimePass(milliseconds time, int times) override {
    Note("espera", std::to_string(time.count()) + (times == 1 ? "" : "x" + std::to_string(times)));
  }
  void LetNetworkAct(milliseconds time) override { Note("rede", std::to_string(time.count())); }
  std::string TakePortrait(std::string_view path) override {
    Note("retrato", path);
    return path == "cheio.png" ? "sem lugar" : "";
  }

  std::string log;

 private:
  void Note(std::string_view word, std::string_view what) {
    log.append(word).append("[").append(what).append("] ");
  }
};

}  // namespace

TEST(EventScript, EachLineIsOneAct) {
  struct Row {
    const char* line;
    const char* log;
  };
  for (const Row& row : {
           Row{"clique", "clique "},
           Row{"  CLIQUE B  ", "vai clique "},
           Row{"clique B Nome do cliente", "vai titulo[Nome do cliente] "},
           Row{"duploclique B", "vai duplo "},
           Row{"texto B  dois  blancos", "vai texto[ dois  blancos] "},
           Row{"texto B", "vai texto[] "},
           Row{"digita a b", "digita[a b] "},
           Row{"valor B -1,5", "vai valor[-1,5] "},
           Row{"seta B -", "vai seta[-] "},
           Row{"escolhe B 0", "vai escolhe[0] "},
           Row{"data B 31/12/2024", "vai data[31/12/2024] "},
           Row{"linha B 2", "vai linha[2] "},
           Row{"celula B 1 2 x y", "vai celula[1,2,x y] "},
           Row{"foco B", "vai "},
           Row{"foco Janela2", "janela[Janela2] "},
           Row{"linha B 2 1", "vai celula[2,1] "},
           Row{"rola B 3", "vai rola[3] "},
           Row{"cursor B 4", "vai cursor[4,4] "},
           Row{"cursor B 0 4", "vai cursor[0,4] "},
           Row{"abre B", "vai abre "},
           Row{"tecla 65 shift", "aperta[65S] solta[65] "},
           Row{"aperta 0", "aperta[0] "},
           Row{"aperta 255", "aperta[255] "},
           Row{"linha B 2147483647", "vai linha[2147483647] "},
           Row{"mouse 1,5 2", "mouse[1,5;2] "},
           Row{"pressiona 2", "pressiona[2] "},
           Row{"redim 20 60", "redim[20;60] "},
           Row{"espera 0", "espera[0] "},
           Row{"espera 20 x3", "espera[20x3] "},
           Row{"retrato minha janela.png", "retrato[minha janela.png] "},
           Row{"fecha", "fecha[] "},
       }) {
    RecordedPerson person;
    EXPECT_EQ(DoEventLine(row.line, person), "") << row.line;
    EXPECT_EQ(person.log, row.log) << row.line;
    const std::string line = row.line;
    for (const char* bare : {"valor", "seta", "escolhe", "linha", "rola", "cursor", "abre", "tecla", "aperta",
                             "mouse", "pressiona", "redim", "espera", "data", "foco", "fecha"}) {
      if (!line.starts_with(bare)) continue;
      EXPECT_NE(DoEventLine(line + " 1 1", person), "") << line << " takes no more";
    }
  }
}

TEST(EventScript, AFaultyLineDoesNothing) {
  for (const char* line : {"x",
                           "texto Z a",
                           "seta B",
                           "seta B x",
                           "escolhe B -1",
                           "escolhe B 1,5",
                           "linha B",
                           "celula B 1",
                           "linha B 2147483648",
                           "aperta 256",
                           "pressiona 3",
                           "tecla",
                           "tecla 1e9",
                           "mouse 1 2 3",
                           "redim 1 2 3",
                           "rede x",
                           "rede 1 2",
                           "espera 1 2",
                           "espera 1 x0",
                           "espera 1 x",
                           "espera 1 x2 3",
                           "cursor B",
                           "rola B -1",
                           "abre",
                           "espera 9999999999",
                           "pressiona 0",
                           "duploclique B B"}) {
    RecordedPerson person;
    EXPECT_NE(DoEventLine(line, person), "") << line;
    EXPECT_EQ(person.log, "") << line;
  }
}

TEST(EventScript, APortraitThatFailsIsAFaultWithItsReason) {
  RecordedPerson person;
  EXPECT_NE(DoEventLine("retrato cheio.png", person).find("sem lugar"), std::string::npos);
  EXPECT_NE(DoEventLine("retrato ", person), "");
}

TEST(EventScript, AnyBytesAreALineOrAFault) {
  std::mt19937 random(7);
  const std::string_view words[] = {"clique", "texto", "celula", "tecla", "espera",
                                    "B",      "1",     "-",      "\xA7",  ""};
  for (int i = 0; i < 2000; ++i) {
    std::string line;
    for (auto n = random() % 5; n > 0; --n)
      line.append(words[random() % std::size(words)]).append(random() % 2 + 1, ' ');
    if (random() % 3 == 0) line += static_cast<char>(random() % 256);
    RecordedPerson person;
    if (!DoEventLine(line, person).empty()) {
      EXPECT_EQ(person.log, "") << line;
    }
  }
}

TEST(ScriptTime, TicksFallDueInOrderAndATimerMayEndInItsOwnTick) {
  ScriptTime time;
  std::string log;
  auto slow = time.StartTimer(milliseconds(30), [&] { log += "s"; });
  std::unique_ptr<Timer> once;
  once = time.StartTimer(milliseconds(20), [&] {
    log += "o";
    once.reset();
  });
  auto fast = time.StartTimer(milliseconds(10), [&] { log += "f"; });
  time.Pass(milliseconds(35));
  // Of two that are due at once the one that was started first comes first.
  EXPECT_EQ(log, "fofsf");
  EXPECT_EQ(*time.UntilNextTick(), milliseconds(5));
  EXPECT_EQ(*time.UntilNextTick(milliseconds(10)), milliseconds(5)) << "one of just that interval counts";
  EXPECT_FALSE(time.UntilNextTick(milliseconds(1000)));
  time.Pass(milliseconds(5));
  EXPECT_EQ(log, "fofsff");
}

TEST(ScriptTime, MissedTicksOfRealTimeAreOne) {
  ScriptTime time;
  int ticks = 0;
  auto timer = time.StartTimer(milliseconds(10), [&] { ++ticks; });
  time.CatchUp(milliseconds(1000));
  EXPECT_EQ(ticks, 1);
  time.CatchUp(milliseconds(10));
  EXPECT_EQ(ticks, 2);
}

TEST(ConsoleTerminal, AWaitDoesNotBlockForALineAndTimersKeepRealTime) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  std::istringstream in("mouse 1 1\n");
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host({in, out, err, ends[0], true}, {});
  int ticks = 0;
  const auto timer = host.StartTimer(milliseconds(5), [&] { ++ticks; });
  EXPECT_TRUE(host.AwaitEvents(milliseconds(20)));
  EXPECT_GE(ticks, 1);
  EXPECT_EQ(in.tellg(), 0) << "the line is still there";
  close(ends[0]);
  close(ends[1]);
}

}  // namespace tessera::test

// Windows, events and their memory, looked at from inside while a script plays on the console host.
#include <gtest/gtest.h>
#include <malloc.h>

#include <sstream>

#include "support/console_window.h"
#include "windows/event_state.h"

namespace tessera::test {

namespace {

class WindowsTest : public ConsoleWindowTest {
 protected:
  // What the command `LePorta` does when the program comes to it.
  void AtLePorta(std::function<void()> look) {
    AtWord(program.run, "LePorta", [look = std::move(look)](std::string_view) {
      look();
      return Value();
    });
  }
};

}  // namespace

TEST(KeyStates, AWindowLetsAKeyGoInItsOwnForm) {
  KeyStates keys;
  keys.KeyDown(65);
  EXPECT_EQ(keys.OfCode(65), "65+");
  keys.KeyUpInWindow(65);
  EXPECT_EQ(keys.OfCode(65), "(065)-");
  keys.KeyUp(65);
  EXPECT_EQ(keys.OfCode(65), "65-");
  keys.KeyDown(32);
  EXPECT_EQ(*keys.Named("#"), "#+");
  keys.KeyUp(32);
  EXPECT_EQ(*keys.Named("#"), "#-");
}

TEST(EventState, ShiftAndCtrlAreToldWhenTheyAreHeldAlone) {
  EventState events;
  const auto pending = [&](KeyShift shift) {
    events.SinkKeyDown(65, shift);
    return events.EventoTeclado;
  };
  EXPECT_EQ(pending({}), "65");
  EXPECT_EQ(pending({.shift = true}), "65SHIFT");
  EXPECT_EQ(pending({.ctrl = true}), "65CTRL");
  EXPECT_EQ(pending({.shift = true, .ctrl = true}), "65");
}

// Twips: top, left, height and width, on whole pixels of a screen of 1,920 by 1,080.
TEST(WindowPlaces, EachNumberThatIsWrittenMovesItsOwnSide) {
  struct Row {
    std::string_view set;
    std::string_view main;
    std::string_view further;
  };
  for (const Row& row : std::initializer_list<Row>{
           {"", "4650 9600 6900 9600", "5550 10800 5100 7200"},
           {"Tamanho = 10", "4650 9600 2805 9600", "5550 10800 2805 7200"},
           {"Tamanho = , 40", "4650 9600 6900 4800", "5550 10800 5100 4800"},
           {"Tamanho = Maximo, 40", "0 9600 16200 4800", "0 10800 16200 4800"},
           {"Tamanho = 10, \"MAXIMO\"", "4650 0 2805 28800", "5550 0 2805 28800"},
           {"Posicao = 3", "660 9600 6900 9600", "660 10800 5100 7200"},
           {"Posicao = , 4", "4650 480 6900 9600", "5550 480 5100 7200"},
           {"Posicao = 3, 4;Posicao = Centro", "4650 480 6900 9600", "5550 480 5100 7200"},
           {"Posicao = 3, 4;Posicao = , \"CENTRO\"", "660 9600 6900 9600", "660 10800 5100 7200"},
           {"Tamanho = 10, 40;Posicao = Centro, Centro", "6705 12000 2805 4800", "6705 12000 2805 4800"}}) {
    for (const std::string_view window : {"Janela ", "NovaJanela A."}) {
      ConsoleProgram fresh;
      std::string source = "NovaJanela Define, A\n";
      std::istringstream sets{std::string(row.set)};
      for (std::string set; std::getline(sets, set, ';');) source.append(window).append(set).append("\n");
      std::ostringstream found;
      AtWord(fresh.program.run, "LePorta", [&](std::string_view) {
        const bool isMain = window == "Janela ";
        const Placement& place = fresh.program.janela.windows().FindWindow(isMain ? "Pai" : "A")->Place();
        found << place.Top << ' ' << place.Left << ' ' << place.Height << ' ' << place.Width;
        return Value();
      });
      EXPECT_EQ(fresh.program.Run(source + "LePorta\n"), 0) << fresh.err.str();
      EXPECT_EQ(found.str(), window == "Janela " ? row.main : row.further) << window << row.set;
    }
  }
}

// What a window's frame has: a title, a box, buttons to minimise and maximise, an edge to drag.
TEST_F(WindowsTest, TheFrameIsThatOfTheKindAndOfTheLastWordSaid) {
  std::vector<std::string> frames;
  AtLePorta([&] {
    std::string frame;
    for (const std::string_view name : {"Pai", "A", "B", "C"}) {
      const WindowStyle& style = Windows().FindWindow(name)->Style();
      for (const auto& [part, letter] : {std::pair{style.Titlebar, 'T'},
                                         {style.ControlBox, 'C'},
                                         {style.MinButton, 'n'},
                                         {style.MaxButton, 'x'},
                                         {style.Sizable, 'S'}}) {
        if (part) frame += letter;
      }
      frame += ' ';
    }
    frames.push_back(frame);
  });
  program.Run(
      "NovaJanela Define, A\nNovaJanela Define, B, \"Fixa\"\nNovaJanela Define, C, SEMBOX\nLePorta\n"
      "Janela Fixa = \"SIM\", Box = \"NAO\"\nNovaJanela A.Borda = \"NAO\"\nNovaJanela C.Borda = "
      "\"SIM\"\nLePorta\n"
      "Janela Fixa = \"NAO\"\nJanela Box = \"SIM\"\nJanela Borda = \"SIM\"\nNovaJanela A.Borda = "
      "SIM\nLePorta\n");
  EXPECT_EQ(frames,
            (std::vector<std::string>{"TCnxS TCnxS TC TnxS ", "TS Cnx TC Tnx ", "TCnx TCnx TC Tnx "}));
}

TEST(JanelaCommand, ThePositionTakesALiteralNumberAlone) {
  for (const auto& [line, fails] : {std::pair{"Janela Posicao = 3, 4\n", false},
                                    {"Janela Posicao = n, 4\n", true},
                                    {"NovaJanela Pai.Posicao = n, 4\n", false}}) {
    ConsoleProgram fresh;
    EXPECT_EQ(fresh.program.Run("Var n Inteiro\nn = 3\n" + std::string(line)), fails ? 1 : 0) << line;
    if (!fails) {
      EXPECT_EQ(fresh.program.janela.form().Place().Top, 3 * 220) << line;
    }
  }
}

TEST_F(WindowsTest, KeywordsSetTheFrameOfTheMainWindow) {
  AtLePorta([&] {
    const WindowStyle& style = Windows().MainWindow().Style();
    EXPECT_FALSE(style.MinButton || style.MaxButton || style.ControlBox || style.Titlebar || style.Sizable);
    EXPECT_TRUE(Windows().FixedWindow);
    EXPECT_TRUE(Windows().MainWindow().KeyPreview);
    EXPECT_EQ(Windows().MainWindow().DrawWidth, 3);
  });
  program.Run("Janela Fixa = Sim, Box = Nao, Borda = Nao, AtivaEnter = \"sim\", TamanhoPonto = 3\nLePorta\n");
}

TEST_F(WindowsTest, BehindANestedRoutineTheNameIsThatOfASlot) {
  in.str("tecla 65\nespera 10\nfecha\nfecha\n");
  std::vector<std::string> names;
  AtLePorta([&] { names.push_back(Windows().CurrentWindowName()); });
  program.Run("NovaJanela Define, Um\nNovaJanela Define, Dois\nNovaJanela Um.Ativa, \"ESTATICA\"\nLePorta\n",
              "Sub Um_Codigo()\nLePorta\nNovaJanela Dois.Ativa, \"ESTATICA\"\nLePorta\nFimSub\n"
              "Sub Dois_Codigo()\nLePorta\nAguarde 0\nFimSub\nSub Temporizador_n(1)\nLePorta\nFimSub\n");
  EXPECT_EQ(names, (std::vector<std::string>{"Um", "Dois", "PAI", "Um", "Pai"}));
}

TEST_F(WindowsTest, AnHourOfTicksAndClicksLeavesMemoryFlat) {
  constexpr int kClicks = 20000;
  std::string script;
  for (int i = 0; i < kClicks; ++i) script += "clique\nespera 180\n";
  in.str(script);
  std::size_t early = 0;
  std::size_t late = 0;
  AtLePorta([&] { (early == 0 ? early : late) = mallinfo2().uordblks; });
  program.Run(
      "Var n Inteiro, t Inteiro, texto String\nNovaJanela Define, J\nEnquanto n < 40000\nAguarde "
      "Eventos\nn++\n"
      "texto = Evento(\"CLIQUE\")\nSe n % 50 = 0\nNovaJanela J.Ativa\nFimSe\nSe n = "
      "2000\nLePorta\nFimSe\nRepita\n"
      "LePorta\nEscreva t\n",
      "Sub J_Codigo()\nNovaJanela J.Desativa\nNovaJanela Define, J\nFimSub\nSub "
      "Temporizador_a(1)\nt++\nFimSub\n");
  EXPECT_EQ(out.str(), "360000\n");
  EXPECT_LT(late, early + 64 * 1024);
}

}  // namespace tessera::test

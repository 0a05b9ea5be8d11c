// Windows, events and their memory, looked at from inside while a script plays on the console host.
#include <gtest/gtest.h>
#include <malloc.h>

#include <sstream>

#include "console/console_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "windows/event_state.h"

namespace tessera::test {

namespace {

class WindowsTest : public testing::Test {
 protected:
  WindowModel& Windows() { return program.janela.windows(); }
  // What the command `LePorta` does when the program comes to it.
  void AtLePorta(std::function<void()> look) {
    AtWord(program.run, "LePorta", [look = std::move(look)](std::string_view) {
      look();
      return Value();
    });
  }

  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host{{in, out, err}, {.programTitle = "TESTE"}};
  HostedProgram program{host.host(), host};
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

TEST_F(WindowsTest, SizeIsSetBeforeTheCentreOnOneLine) {
  AtLePorta([&] {
    const Placement& place = Windows().MainWindow().Place();
    EXPECT_EQ(place.Height, 10 * 220 + 600 + 5) << "on whole pixels";
    EXPECT_EQ(place.Width, 40 * 120);
    EXPECT_NEAR(place.Top, (1080 * 15 - place.Height) / 2, 15);
    EXPECT_NEAR(place.Left, (1920 * 15 - place.Width) / 2, 15);
  });
  program.Run("Janela Tamanho = 10, 40, Posicao = Centro, Centro\nLePorta\n");
}

TEST(JanelaCommand, ThePositionTakesALiteralNumberAlone) {
  for (const auto& [line, fails] : {std::pair{"Janela Posicao = 3, 4\n", false},
                                    {"Janela Posicao = n, 4\n", true},
                                    {"NovaJanela Pai.Posicao = n, 4\n", false}}) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    ConsoleHost host({in, out, err}, {});
    HostedProgram program(host.host(), host);
    EXPECT_EQ(program.Run("Var n Inteiro\nn = 3\n" + std::string(line)), fails ? 1 : 0) << line;
    if (!fails) {
      EXPECT_EQ(program.janela.windows().MainWindow().Place().Top, 3 * 220) << line;
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

// A test is made by using the program: what a person does at real windows is written as a script, and the
// script played in memory gives what the person saw.
#include "console/recording.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <sstream>
#include <utility>

#include "console/console_host.h"
#include "console/event_script.h"
#include "qt/qt_author.h"
#include "qt/qt_host.h"
#include "qt/qt_stage.h"
#include "support/hosted_program.h"
#include "support/qt_person.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

// Answers boxes by the lines of a script, as it stands at the person's side.
class AnswersFrom final : public Dialogs {
 public:
  explicit AnswersFrom(std::istream& lines) : lines_(lines) {}

  BoxAnswer ShowBox(const Box& box) override {
    if (box.buttons != BoxButtons::YesNo) return BoxAnswer::Ok;
    return Next() == "s" ? BoxAnswer::Yes : BoxAnswer::No;
  }
  TextInputAnswer AskText(const TextInput&) override {
    std::string text = Next();
    if (text == "<desiste>") return {InputEnd::Cancelled, {}};
    if (text == "<fecha>") return {InputEnd::ClosedByFrame, {}};
    return {InputEnd::Confirmed, std::move(text)};
  }
  std::optional<std::string> AskFile(const FileRequest&) override { return Next(); }
  std::optional<std::int32_t> AskColour(std::string_view) override { return 255; }
  std::optional<ChosenFont> AskFont(std::string_view) override {
    return ChosenFont{.name = "Arial", .size = 12};
  }
  std::optional<std::string> AskPrinter(std::string_view) override { return std::nullopt; }

 private:
  std::string Next() {
    std::string line;
    std::getline(lines_, line);
    return line;
  }

  std::istream& lines_;
};

// A person whose next act, by real keys and pointer, comes when the program waits for one.
class ActingAuthor final : public ScriptAuthor {
 public:
  ActingAuthor(QtHost& host, const std::string& script, bool tellsMoves)
      : author_(host, tellsMoves), lines_(FromUtf8Lossy(script)), answers_(lines_) {}

  QtPerson person;

  Dialogs& Answers() override { return answers_; }
  void Rest(Milliseconds time) override { author_.Rest(time); }
  // Where the program doesn't wait for anything, the person takes some time.
  std::optional<PersonAct> NextAct(std::optional<Milliseconds> within, std::span<const int>) override {
    constexpr int kSteps = 4;
    for (;;) {
      if (auto act = author_.NextAct(Milliseconds(0), {})) return act;
      if (hasEnded_ || (within == Milliseconds(0) && ++steps_ % kSteps != 0)) return std::nullopt;
      Act();
    }
  }

 private:
  // Behind the last line the person closes what is open.
  void Act() {
    std::string line = std::exchange(next_, {});
    while (line.empty() || line.starts_with('\'')) {
      if (!std::getline(lines_, line)) {
        hasEnded_ = ++closings_ > kMostWindows;
        person.CloseWindow({});
        return;
      }
    }
    // What drops down is there before something in it is clicked.
    const std::string_view word = std::string_view(line).substr(0, line.find(' '));
    if ((word == "escolhe" || word == "data") && !std::exchange(isOpen_, !isOpen_)) {
      next_ = line;
      const std::size_t name = word.size() + 1;
      line = "abre " + line.substr(name, line.find(' ', name) - name);
    }
    EXPECT_EQ(DoEventLine(line, person), "") << line;
  }

  static constexpr int kMostWindows = 5;
  QtAuthor author_;
  std::istringstream lines_;
  AnswersFrom answers_;
  std::string next_;
  bool isOpen_ = false;
  int closings_ = 0;
  int steps_ = 0;
  bool hasEnded_ = false;
};

struct Told {
  int status = 0;
  std::string out;
  std::string err;
  bool operator==(const Told&) const = default;
};

void PrintTo(const Told& told, std::ostream* stream) {
  *stream << told.status << "\n" << told.out << "---\n" << told.err;
}

Told Play(const std::string& program, const std::string& script, Stage* stage = nullptr) {
  std::istringstream in(script);
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host({.in = in, .out = out, .err = err}, {.programTitle = "TESTE", .stage = stage});
  HostedProgram hosted(host.host(), host);
  const int status = hosted.Run(program);
  return {status, out.str(), err.str()};
}

// Uses a program by hand; `script` takes what is written meanwhile.
Told Use(const std::string& program, const std::string& acts, std::string& script) {
  const TemporaryFolder folder;
  QtHost qt;
  QtStage stage(qt, QtStage::Led::ByPerson);
  ActingAuthor author(qt, acts, program.find("Mouse") != std::string::npos);
  const std::string file = folder / "roteiro";
  Recording recording(author, Descriptor(open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600)));
  std::istringstream none;
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host({.in = none, .out = out, .err = err},
                   {.programTitle = "TESTE", .stage = &stage, .recording = &recording});
  HostedProgram hosted(host.host(), host);
  author.person.windows = &hosted.janela.windows();
  const int status = hosted.Run(program);
  EXPECT_TRUE(recording.IsWhole());
  script = ReadBytes(file);
  return {status, out.str(), err.str()};
}

// Used by hand, and played again in memory and on windows: always the same.
std::string RecordedScript(const std::string& program, const std::string& acts) {
  std::string script;
  const Told used = Use(program, acts, script);
  EXPECT_EQ(Play(program, script), used) << script;
  QtHost qt;
  QtStage stage(qt);
  EXPECT_EQ(Play(program, script, &stage), used) << script;
  return script;
}

class ProgramsUsedByHand : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(ProgramsUsedByHand, AreUsedTheSameByTheirRecordedScript) {
  const std::filesystem::path files =
      std::filesystem::path(TESSERA_SOURCE_DIR) / "tests" / "programs" / GetParam();
  RecordedScript(ReadBytes(files.string() + ".tsc"), ReadBytes(files.string() + ".in"));
}

INSTANTIATE_TEST_SUITE_P(Programs, ProgramsUsedByHand,
                         testing::Values("entries_tell_their_variables", "objects_come_and_go_by_rows",
                                         "texts_have_formats_and_filters", "buttons_are_made_in_three_forms",
                                         "a_grid_is_sorted_by_its_titles", "cells_of_a_grid_are_edited",
                                         "clicks_of_a_grid_leave_its_row_in_variables",
                                         "a_surface_keeps_the_pointer_that_it_holds",
                                         "closing_a_static_window_stops_its_waiting_routine_alone",
                                         "enter_moves_the_focus_where_the_window_says_so",
                                         "keys_leave_their_state_and_one_pending_text",
                                         "main_window_is_dragged_by_its_area",
                                         "mouse_tells_buttons_clicks_and_places",
                                         "static_window_takes_events_until_it_is_closed",
                                         "waiting_for_a_click_ends_with_the_input"));

TEST(RecordingTest, AFormIsWrittenAsAPersonWouldTellIt) {
  const std::string script = RecordedScript(
      "Var nome String, n Inteiro\n"
      "nome = EntraTexto(\"Nome?\", \"\")\n"
      "Texto Cidade, 4, 2, 20\n"
      "Combo Cor, 6, 2, 15\n"
      "Combo Cor.Adiciona \"Azul\"\n"
      "Combo Cor.Adiciona \"Verde\"\n"
      "Check Pago, 8, 2, \"Pago\", 0\n"
      "Botao Grava, 10, 2, \"Grava\"\n"
      "BarraRolagem Nota, 100, 12, 2, 1, 20\n"
      "Box Lista, 14, 2, 5\nBox Lista.Titulo, \"Nome\", 20\nBox Lista.Ativa\n"
      "Enquanto n < 9\nBox Lista.Add n\nBox Lista.New\nn++\nRepita\nBox Lista.Fim\n"
      "Aguarde CliqueBotao\n"
      "Escreva nome, \" \", Cidade.Txt, \" \", Cor.Txt, \" \", Pago.Valor\n"
      "Se Mensagem(\"Mais?\", OpcaoSimNao) = \"SIM\"\n"
      "  Escreva \"mais\"\n"
      "FimSe\n",
      "Ana Maria\nclique Cidade\ndigita Natal RN\nescolhe Cor 1\nclique Pago\n"
      "mouse 13 40\nseta Nota +\nseta Nota -\nvalor Nota 40\nrola Lista 3\nlinha Lista 7\nduploclique "
      "Lista\nlinha Lista 0\nclique Grava\ns\n");
  EXPECT_EQ(script,
            "Ana Maria\n"
            "clique Cidade\n"
            "digita Natal RN\n"
            "escolhe Cor 1\n"
            "clique Pago\n"
            "seta Nota +\nseta Nota -\nvalor Nota 40\nseta Nota +\n"
            "rola Lista 3\nlinha Lista 7\nlinha Lista 7\nduploclique Lista\nrola Lista 0\nlinha Lista 0\n"
            "clique Grava\n"
            "s\n"
            "fecha\n");
}

TEST(RecordingTest, ADoubleClickIsOneLine) {
  const std::string script = RecordedScript("Imagem P, \"\", 2, 10, 10, 20\nAguarde 0\nEscreva CliqueMouse\n",
                                            "mouse 3 12\nduploclique\nmouse 20 40\nduploclique\n");
  EXPECT_TRUE(script.ends_with("\nmouse 3 12\nduploclique\nmouse 20 40\nduploclique\nfecha\n")) << script;
}

// A form that is left is told by the answer that it gives.
TEST(RecordingTest, AnInputFormThatWasLeftAnswersTheSameAgain) {
  EXPECT_EQ(RecordedScript("Var t String\nt = EntraTexto(\"Nome?\", \"\")\nEscreva t\n"
                           "t = EntraTexto(\"Idade?\", \"\")\nEscreva t\n",
                           "<desiste>\n<fecha>\n"),
            "CANCELADO\nIdade?\nfecha\n");
}

// Each step of such a loop takes a line, so a script that tells them all comes to the same step.
TEST(RecordingTest, AProgramThatGoesOnByItselfComesToTheSameStep) {
  const std::string script = RecordedScript(
      "Var n Inteiro\n"
      "Botao Fim, 2, 2, \"Fim\"\n"
      "n = 0\n"
      "Enquanto TestaBotao <> \"Fim\"\n"
      "  n++\n"
      "  Aguarde 5\n"
      "Repita\n"
      "Escreva n\n",
      "clique Fim\n");
  EXPECT_TRUE(script.starts_with("espera ")) << script;
}

// The script's timers tick as often as they did.
TEST(RecordingTest, TimersTickAsOftenAgain) {
  RecordedScript(
      "Var n Inteiro\n"
      "Botao Fim, 2, 2, \"Fim\"\n"
      "Temporizador Conta.Ativa, 5\n"
      "Aguarde CliqueBotao\n"
      "Temporizador Conta.Desativa\n"
      "Escreva \"vezes: \", n\n"
      "FimPrograma\n"
      "Sub Temporizador_Conta()\n"
      "  n++\n"
      "FimSub\n",
      "espera 220\nclique Fim\n");
}

}  // namespace tessera::test

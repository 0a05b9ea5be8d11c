#include "console/console_host.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <sstream>
#include <thread>

#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/temporary_folder.h"
#include "windows/picture_file.h"

namespace tessera::test {

namespace {

struct Transcript {
  std::string out;
  std::string err;
  int status;
};

Transcript Play(std::string_view source, const std::string& script = "", std::string_view routines = {},
                bool cancel = false) {
  std::istringstream in(script);
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host({in, out, err}, {.programTitle = "TESTE", .answerCancel = cancel});
  HostedProgram program(host.host(), host);
  const int status = program.Run(source, routines);
  return {out.str(), err.str(), status};
}

}  // namespace

TEST(ConsoleOutput, ARefusedProgramShowsItsBoxRunsNoLineAndEndsWithOne) {
  const Transcript t = Play("Escreva \"nunca\"\nSe 1 = 1\nEscreva \"x\"\n", "espera 10\n");
  EXPECT_EQ(t.out, "");
  EXPECT_TRUE(t.err.starts_with("[critico] Comando Se ")) << t.err;
  EXPECT_EQ(t.status, 1);
}

TEST(ConsoleDispatch, WhatAnotherThreadPostsRunsInADispatchInItsOrder) {
  std::istringstream in("espera 40\n");
  std::ostringstream out;
  ConsoleHost host({in, out, out}, {});
  std::string seen;
  std::thread([&] {
    host.Post([&] { seen += "a"; });
    host.Post([&] {
      seen += "b(";
      host.ProcessEvents();
      seen += ")";
    });
    host.Post([&] { seen += "c"; });
  }).join();
  EXPECT_EQ(seen, "");
  host.ProcessEvents();
  EXPECT_EQ(seen, "ab(c)");
  EXPECT_EQ(host.DispatchTime(), std::chrono::milliseconds(0));
  HostedProgram(host.host(), host).Run("Aguarde 1");
  EXPECT_EQ(host.DispatchTime(), std::chrono::milliseconds(40)) << "the script's own time";
}

TEST(ConsoleDispatch, APostWakesAPersonsTerminal) {
  std::array<int, 2> terminal{};
  ASSERT_EQ(pipe(terminal.data()), 0);
  std::istringstream in;
  std::ostringstream out;
  ConsoleHost host({in, out, out, terminal[0], true}, {});
  bool seen = false;
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    host.Post([&] { seen = true; });
  });
  EXPECT_TRUE(host.AwaitNextEvents()) << "nobody has typed, and the input has not ended";
  EXPECT_TRUE(seen);
  other.join();
  bool ticked = false;
  const auto timer = host.StartTimer(std::chrono::milliseconds(40), [&] { ticked = true; });
  for (int waits = 0; waits < 2; ++waits) host.AwaitNextEvents();
  EXPECT_TRUE(ticked) << "the post wakes it once";
  EXPECT_GE(host.DispatchTime(), std::chrono::milliseconds(40)) << "a person's time is real";
  close(terminal[0]);
  close(terminal[1]);
}

TEST(ConsoleBoxes, LineBreaksInsideATextAreIndentedAndItsPlaceFollows) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  ConsoleOptions options{.programTitle = "TESTE"};
  options.placeOf = [](std::string_view text) { return std::string(text == "x" ? "a.tsc:1" : ""); };
  ConsoleHost host({in, out, err}, options);
  host.ShowBox({.text = "a\r\nb\rc\nd", .title = "Aviso", .icon = BoxIcon::Warning});
  host.ShowBox({.text = "x", .title = "TESTE"});
  EXPECT_EQ(err.str(), "[aviso: Aviso] a\n  b\n  c\n  d\n[caixa] x\n  em a.tsc:1\n");
}

TEST(ConsoleBoxes, OkAndCancelAreAnsweredWithoutALine) {
  std::istringstream in("s\n");
  std::ostringstream out;
  std::ostringstream err;
  for (const bool cancel : {false, true}) {
    ConsoleHost host({in, out, err}, {.programTitle = "T", .answerCancel = cancel});
    EXPECT_EQ(host.ShowBox({.text = "?", .title = "T", .buttons = BoxButtons::OkCancel}),
              cancel ? BoxAnswer::Cancel : BoxAnswer::Ok);
    EXPECT_EQ(host.ShowBox({.text = "?", .title = "T", .buttons = BoxButtons::Ok}), BoxAnswer::Ok);
  }
  ConsoleHost host({in, out, err}, {});
  EXPECT_EQ(host.ShowBox({.text = "?", .title = "T", .buttons = BoxButtons::YesNo}), BoxAnswer::Yes)
      << "the line is still there";
}

TEST(ConsoleScript, AFaultyLineEndsTheRunWithThree) {
  struct Row {
    const char* script;
    const char* err;
  };
  for (const Row& row : {
           Row{"pula 3\n", "[roteiro] linha 1: palavra desconhecida: pula\n"},
           Row{"' nota\n\nclique Gravar\n", "[roteiro] linha 3: objeto desconhecido: Gravar\n"},
           Row{"texto\n", "[roteiro] linha 1: falta o nome\n"},
           Row{"data D\n", "[roteiro] linha 1: falta a data\n"},
           Row{"redim 10 -1\n", "[roteiro] linha 1: número fora dos limites: -1\n"},
           Row{"mouse 1\n", "[roteiro] linha 1: falta um número\n"},
           Row{"mouse a 1\n", "[roteiro] linha 1: não é um número: a\n"},
           Row{"tecla 256\n", "[roteiro] linha 1: número fora dos limites: 256\n"},
           Row{"tecla 65 alt\n", "[roteiro] linha 1: tecla de apoio desconhecida: alt\n"},
           Row{"espera -1\n", "[roteiro] linha 1: número fora dos limites: -1\n"},
           Row{"espera 1 2\n", "[roteiro] linha 1: sobra texto: 2\n"},
           Row{"libera 3\n", "[roteiro] linha 1: número fora dos limites: 3\n"},
           Row{"fecha Outra\n", "[roteiro] linha 1: janela desconhecida: Outra\n"},
           Row{"\xff\xfe\n", "[roteiro] linha 1: palavra desconhecida: ÿþ\n"},
       }) {
    const Transcript t = Play("Calendario D, 1, 1\nEscreva 1\nAguarde 0\nEscreva 2\n", row.script);
    EXPECT_EQ(t.err, row.err);
    EXPECT_EQ(t.out, "1\n") << row.script;
    EXPECT_EQ(t.status, 3) << row.script;
  }
}

// Printed texts leave no pixels then, and what else stands there does.
TEST(ConsoleScript, AMissingPartForTheTextsOfPortraitsIsToldOnce) {
  const TemporaryFolder folder;
  std::istringstream in("retrato " + (folder / "um.png") + "\nretrato " + (folder / "dois.png") + "\n");
  std::ostringstream out;
  std::ostringstream err;
  reports::PaperPart paper(reports::PainterOfPart({folder.path()}));
  const auto codec = [] { return FoundCodec{&TestCodec(), {}}; };
  ConsoleHost host({in, out, err}, {.programTitle = "TESTE", .paper = &paper, .findCodec = codec});
  HostedProgram(host.host(), host)
      .Run(
          "Escreva \"a\"\nBotao B, 1, 1\nBotao B.CorFundo = Vermelho\nImagem P, \"\", 5, 30, 1, 2\n"
          "Imagem P.CorFundo = Azul\nGifAnimado G, \"GifSapo1\", 0, 7, 1\n"
          "GifAnimado H, \"GifSapo1\", 0, 7, 20\nGifAnimado H.Largura = 4\n");
  EXPECT_EQ(err.str(), "[critico] Instale o pacote tessera-paper\n");
  const PictureRef portrait = DecodePicture(TestCodec(), ReadBytes(folder / "dois.png"));
  ASSERT_NE(portrait, nullptr);
  constexpr Pixel kRed = 0xFFFF0000U;
  EXPECT_EQ(portrait->raster.At(9, 15), kRed);
  EXPECT_EQ(portrait->raster.At(86, 40), kRed);
  for (const auto& [x, y] : {std::pair{8, 15}, {87, 40}, {9, 14}, {86, 41}})
    EXPECT_EQ(portrait->raster.At(x, y), portrait->raster.At(8, 14)) << "the frame";
  EXPECT_NE(portrait->raster.At(8, 14), kRed);
  const Pixel ground = portrait->raster.At(88, 42);
  EXPECT_EQ(portrait->raster.At(240, 70), 0xFF0000FFU) << "a surface";
  EXPECT_EQ(portrait->raster.At(8, 98), ground) << "an animation in its own size has the window's ground";
  EXPECT_NE(portrait->raster.At(56, 146), ground);
  EXPECT_NE(portrait->raster.At(176, 146), ground) << "and a narrower one";
  EXPECT_NE(portrait->raster.At(8, 14), portrait->raster.At(88, 42)) << "the ground";
}

TEST(ConsoleClosing, ClosingEndsTheProgramWhereItWaits) {
  const char* program = "Escreva Espere(1)\nEscreva \"nunca\"\n";
  const char* routines = "Funcao Espere(x Inteiro) Numero\nAguarde 0\nRetorne 7\nFimFuncao\n";
  for (const char* line : {"fecha", "FECHA Pai", "tecla 19", "tecla 117 ctrl", "aperta 19"}) {
    const Transcript t = Play(program, line, routines);
    EXPECT_EQ(t.out, "") << line;
    EXPECT_EQ(t.status, 0) << line;
  }
  EXPECT_EQ(Play(program, "tecla 65", routines).out, "7\nnunca\n");
}

TEST(ConsoleClosing, AClosingNeverHidesThatTheRunWasAbandoned) {
  EXPECT_EQ(Play("Var a(2) Inteiro\na(9) = 1\n", "fecha\n").status, 1);
}

}  // namespace tessera::test

// A program that runs for long takes no more memory than one that runs for a while.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/process.h"

namespace tessera {
namespace {

// Is ticked a hundred times a second and counts every tenth, draws, prints, takes its clicks, and tells its
// peak, in kilobytes, at the end.
constexpr const char* kProgram =
    "Var i Inteiro, n Inteiro, cliques Inteiro, tiques Inteiro, linha String, clique String, texto String\n"
    "n = LinhaComando\n"
    "Enquanto i < n\n"
    "  i++\n"
    "  Aguarde Eventos\n"
    "  Aguarde Eventos\n"
    "  clique = Evento(\"CLIQUE\")\n"
    "  Se clique = \"CLIQUE\"\n    cliques++\n  FimSe\n"
    "  Circulo 10, i % 60, 3, Azul\n"
    "  Escreva texto\n"
    "Repita\n"
    "AbreArquivo A, \"/proc/self/status\", TEXTOLEITURA\n"
    "linha = LeArquivo(\"A\")\n"
    "Enquanto linha <> \"EOF\"\n"
    "  Se Separe(linha, 1, 6) = \"VmHWM:\"\n    Escreva linha\n  FimSe\n"
    "  linha = LeArquivo(\"A\")\n"
    "Repita\n"
    "FechaArquivo A\n"
    "Escreva cliques, \" \", tiques\n"
    "FimJanela\n"
    "Sub Temporizador_Conta(10)\n"
    "  tiques++\n"
    "  texto = Unir(\"tique \", tiques)\n"
    "FimSub\n";

struct Peak {
  long kilobytes;
  std::string counts;  // of clicks and ticks
};

Peak PeakOf(const std::string& program, int seconds) {
  std::string script;
  for (int i = 0; i < seconds; ++i) script += "espera 1000\nclique\n";
  // A sanitizer would hold what is given back, to look at it.
  const ProcessResult run =
      RunProcess({.words = {TESSERA_TOOL, "run", "--console", program, "--", std::to_string(seconds)},
                  .input = script,
                  .environment = {"ASAN_OPTIONS=quarantine_size_mb=0:thread_local_quarantine_size_kb=0"}});
  EXPECT_EQ(run.status, 0) << run.err;
  const std::size_t peak = run.out.rfind("VmHWM:");
  if (peak == std::string::npos) return {0, run.out.substr(0, 100)};
  const std::size_t counts = run.out.find('\n', peak) + 1;
  return {std::strtol(run.out.c_str() + peak + 6, nullptr, 10), run.out.substr(counts)};
}

TEST(Memory, AnHourOfTicksAndClicksTakesNoMoreThanAMinute) {
  constexpr long kSlack = 2048;  // kilobytes: peaks differ by which pages of the libraries were read
  TemporaryFolder folder;
  const std::string program = folder.Write("relogio.tsc", kProgram);
  const Peak minute = PeakOf(program, 60);
  const Peak hour = PeakOf(program, 3600);
  EXPECT_EQ(minute.counts, "60 600\n");
  EXPECT_EQ(hour.counts, "3600 36000\n");
  EXPECT_GT(minute.kilobytes, 1000);
  EXPECT_LT(hour.kilobytes, minute.kilobytes + kSlack);
}

}  // namespace
}  // namespace tessera

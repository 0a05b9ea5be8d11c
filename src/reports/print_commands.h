// The `Imp.` words, which write straight to the printer.
#pragma once

#include <cstdint>

#include "commands/arguments.h"
#include "commands/command_table.h"
#include "commands/form_table.h"
#include "reports/paper.h"

namespace tessera::reports {

class PrintCommands {
 public:
  // Binds the words. All outlive it.
  PrintCommands(CommandTable& table, Run& run, Paper& paper);
  PrintCommands(const PrintCommands&) = delete;
  PrintCommands& operator=(const PrintCommands&) = delete;

 private:
  using Words = FormTable<void (PrintCommands::*)(Paper::Tools& tools, const ArgumentView& arguments)>;
  static Words AllWords();

  Value Imp(const WordCall& call);
  void Fonte(Paper::Tools& tools, const ArgumentView& arguments);
  void Posicione(Paper::Tools& tools, const ArgumentView& arguments);
  void Escreva(Paper::Tools& tools, const ArgumentView& arguments);
  void Desenhe(Paper::Tools& tools, const ArgumentView& arguments);
  void NovaPagina(Paper::Tools& tools, const ArgumentView& arguments);
  void Fim(Paper::Tools& tools, const ArgumentView& arguments);

  Run& run_;
  Paper& paper_;
  const Words words_ = AllWords();
  // Where `Posicione` has put the pen: the only place that `Desenhe` looks at.
  std::int16_t PrinterRow_ = 0;
  std::int16_t PrinterColumn_ = 0;
};

}  // namespace tessera::reports

// The `Rel.` words, which drive the one report of a run, and its preview.
#pragma once

#include <optional>
#include <string>

#include "commands/arguments.h"
#include "commands/command_table.h"
#include "commands/form_table.h"
#include "reports/paper.h"
#include "reports/xrelatorio.h"
#include "values/run.h"
#include "windows/picture.h"
#include "windows/window_model.h"

namespace tessera {

class Display;

}  // namespace tessera

namespace tessera::reports {

class ReportCommands {
 public:
  // Binds the words. All outlive it.
  ReportCommands(CommandTable& table, Run& run, Paper& paper, WindowModel& windows, Display& display);
  ReportCommands(const ReportCommands&) = delete;
  ReportCommands& operator=(const ReportCommands&) = delete;

 private:
  using Words = FormTable<void (ReportCommands::*)(Paper::Tools& tools, const ArgumentView& arguments)>;
  static Words AllWords();

  Value Rel(const WordCall& call);
  Value TestaFimPagWord(const WordCall& call);
  XRelatorio& Report(Paper::Tools& tools);

  void Config(Paper::Tools& tools, const ArgumentView& arguments);
  void AlturaPapel(Paper::Tools& tools, const ArgumentView& arguments);
  void AlturaLinha(Paper::Tools& tools, const ArgumentView& arguments);
  void Col(Paper::Tools& tools, const ArgumentView& arguments);
  void Add(Paper::Tools& tools, const ArgumentView& arguments);
  void Imprime(Paper::Tools& tools, const ArgumentView& arguments);
  void Linha(Paper::Tools& tools, const ArgumentView& arguments);
  void Img(Paper::Tools& tools, const ArgumentView& arguments);
  void NovaPagina(Paper::Tools& tools, const ArgumentView& arguments);
  void NovaLinha(Paper::Tools& tools, const ArgumentView& arguments);
  void TestaFimPag(Paper::Tools& tools, const ArgumentView& arguments);
  void Fim(Paper::Tools& tools, const ArgumentView& arguments);
  void Preview(Paper::Tools& tools);

  Run& run_;
  Paper& paper_;
  WindowModel& windows_;
  Display& display_;
  const Words words_ = AllWords();

  std::string ReportTarget_;
  PageRange pageRange_;  // `PageRangeFirst` and `PageRangeLast`
  std::optional<XRelatorio> report_;
  bool isPreviewOpen_ = false;
};

}  // namespace tessera::reports

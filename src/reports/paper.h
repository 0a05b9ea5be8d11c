// What reports and direct printing share: the painter, loaded at the first of their words, the measures of
// texts, and the one printer.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "commands/command_table.h"
#include "commands/dialog_commands.h"
#include "reports/paper_part.h"
#include "reports/paper_surface.h"
#include "reports/picture_shelf.h"
#include "reports/printer.h"
#include "reports/report_host.h"
#include "values/run.h"

namespace tessera::reports {

// What a run on paper needs beside its host.
struct PaperServices {
  ReportHost& host;
  ChosenPrinter& chosen;
  PagePainterFinder findPainter;
  std::string printer;  // UTF-8, given by whoever started the program; or empty
};

class Paper {
 public:
  // Both outlive it.
  Paper(Run& run, SharedPictures& sharedPictures, PaperServices services);

  struct Tools {
    Tools(Run& run, SharedPictures& sharedPictures, PagePainter& pagePainter, const PaperServices& services)
        : painter(pagePainter),
          measures(pagePainter),
          printer(run, measures, pagePainter, services.host, services.chosen, services.printer),
          pictures(run, sharedPictures) {}

    PagePainter& painter;
    TextMeasures measures;
    Printer printer;
    PictureShelf pictures;
  };

  // Does what a word of paper says. A run-time failure is told in the box of these words, and so, once in a
  // run, is a missing painter; without one nothing is done. False where it failed.
  bool Do(const WordCall& call, const std::function<void(Tools& tools)>& act);

  // Sends the document that the program has left open.
  void EndDocument();

  ReportHost& host() const { return services_.host; }
  ChosenPrinter& chosen() const { return services_.chosen; }

 private:
  Tools* Load();

  Run& run_;
  SharedPictures& pictures_;
  PaperServices services_;
  PaperPart part_;
  bool isMissingTold_ = false;
  std::optional<Tools> tools_;
};

}  // namespace tessera::reports

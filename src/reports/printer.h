// The system printer: the one printer object of a run, with at most one open document, for reports and for
// direct printing alike. Every document is a PDF, which goes to a queue of the print system or to a file.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "commands/dialog_commands.h"
#include "reports/page_painter.h"
#include "reports/paper_surface.h"
#include "reports/report_host.h"
#include "values/run.h"

namespace tessera::reports {

// Whether a printer's name is that of a PDF file.
bool IsPdfPath(std::string_view name);

class Printer final : public PaperSurface {
 public:
  // `given` is the printer that whoever started the program gave it (UTF-8), or empty. All outlive it.
  Printer(Run& run, TextMeasures& measures, PagePainter& painter, ReportHost& host,
          const ChosenPrinter& chosen, std::string given);
  // An open document is lost; `EndDoc` sends it.
  ~Printer() override = default;

  // Failure 482 where there is no printer.
  void Require() const;
  // The next sheet; a document that has none begins with an empty one.
  void NewPage();
  // Sends the document; without one nothing is sent. Failure 482 where it does not arrive.
  void EndDoc();

 protected:
  Page& DrawnPage() override;

 private:
  struct Destination {
    std::string name;  // as it was given, UTF-8
    std::string path;  // of the system; empty for a queue
  };

  std::optional<Destination> FindDestination() const;
  void Begin();
  void Deliver(const std::string& pdf);
  void ResetPen();

  Run& run_;
  PagePainter& painter_;
  ReportHost& host_;
  const ChosenPrinter& chosen_;
  std::string given_;
  std::unique_ptr<PdfDocument> document_;
  Destination destination_;
  Page page_;
  int pages_ = 0;
  std::map<std::string, int> documentsOf_;  // how many each file has received, by its path
};

}  // namespace tessera::reports

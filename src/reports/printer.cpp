#include "reports/printer.h"

#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/file_store.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::reports {

namespace {

constexpr std::string_view kPdf = ".PDF";

[[noreturn]] void FailPrinter() {
  constexpr long kPrinterError = 482;
  throw RunFailure(kPrinterError, "Erro da impressora"_w);
}

// "NAME-2.pdf" for the second document of "NAME.pdf".
std::string Numbered(const std::string& path, int number) {
  if (number == 1) return path;
  const std::size_t stem = path.size() - kPdf.size();
  return path.substr(0, stem) + "-" + std::to_string(number) + path.substr(stem);
}

}  // namespace

bool IsPdfPath(std::string_view name) {
  return Upper(name).ends_with(kPdf);
}

Printer::Printer(Run& run, TextMeasures& measures, PagePainter& painter, ReportHost& host,
                 const ChosenPrinter& chosen, std::string given)
    : PaperSurface(measures),
      run_(run),
      painter_(painter),
      host_(host),
      chosen_(chosen),
      given_(std::move(given)) {}

// The one chosen last in a dialog, else the system's own.
std::optional<Printer::Destination> Printer::FindDestination() const {
  if (!chosen_.name.empty()) {
    const bool isFile = IsPdfPath(chosen_.name);
    return Destination{ToUtf8(chosen_.name), isFile ? run_.paths.SystemPath(chosen_.name) : ""};
  }
  if (!given_.empty()) {
    return Destination{given_, IsPdfPath(given_) ? given_ : ""};
  }
  PrintQueues& queues = painter_.Queues();
  if (std::string name = queues.Default(); !name.empty()) return Destination{std::move(name), {}};
  std::vector<std::string> names = queues.Names();
  if (names.empty()) return std::nullopt;
  return Destination{std::move(names.front()), {}};
}

void Printer::Require() const {
  if (document_ == nullptr && !FindDestination()) FailPrinter();
}

void Printer::Begin() {
  auto destination = FindDestination();
  if (!destination) FailPrinter();
  destination_ = std::move(*destination);
  document_ = painter_.NewPdf(ProgramTitle(run_));
  page_ = {};
  pages_ = 1;
}

Page& Printer::DrawnPage() {
  if (document_ == nullptr) Begin();
  return page_;
}

void Printer::ResetPen() {
  CurrentX = CurrentY = 0;
}

void Printer::NewPage() {
  Page& full = DrawnPage();
  document_->Add(std::exchange(full, {}));
  ++pages_;
  ResetPen();
}

void Printer::EndDoc() {
  ResetPen();
  const auto document = std::exchange(document_, nullptr);
  if (document == nullptr) return;
  document->Add(std::exchange(page_, {}));
  Deliver(document->End());
}

void Printer::Deliver(const std::string& pdf) {
  if (destination_.path.empty()) {
    if (!painter_.Queues().Send(destination_.name, ToUtf8(ProgramTitle(run_)), pdf)) FailPrinter();
    return host_.TellPrinted(destination_.name, pages_);
  }
  const int number = ++documentsOf_[destination_.path];
  if (run_.host.files.Replace(Numbered(destination_.path, number), pdf) != 0) FailPrinter();
  host_.TellPrinted(Numbered(destination_.name, number), pages_);
}

}  // namespace tessera::reports

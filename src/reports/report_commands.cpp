#include "reports/report_commands.h"

#include "platform/failure.h"
#include "reports/frm_xrel.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "values/eval.h"

namespace tessera::reports {

namespace {

constexpr std::string_view kPrinterWord = "IMPRESSORA";
constexpr std::string_view kPrefix = "REL.";
constexpr std::int32_t kNoCellColour = 0xFFFFFF;

std::int32_t ColourOr(const ArgumentView& arguments, ArgumentName name, std::int32_t otherwise) {
  const auto colour = arguments.OptionalNumber(name);
  return colour ? colour->ToInteger() : otherwise;
}

void TellRetorno(Run& run, std::string_view text) {
  run.variables.VarWrite("Retorno", text, true);
}

}  // namespace

ReportCommands::ReportCommands(CommandTable& table, Run& run, Paper& paper, WindowModel& windows,
                               Display& display)
    : run_(run), paper_(paper), windows_(windows), display_(display) {
  constexpr MemberRow<ReportCommands> kRows[] = {{"Rel", &ReportCommands::Rel},
                                                 {"Rel.TestaFimPag", &ReportCommands::TestaFimPagWord}};
  Bind(table, kRows, *this);
}

ReportCommands::Words ReportCommands::AllWords() {
  static constexpr Words::Row kWords[] = {
      {"CONFIG", &ReportCommands::Config},
      {"ALTURAPAPEL", &ReportCommands::AlturaPapel},
      {"ALTURALINHA", &ReportCommands::AlturaLinha},
      {"COL", &ReportCommands::Col},
      {"ADD", &ReportCommands::Add},
      {"ADICIONA", &ReportCommands::Add},
      {"IMPRIME", &ReportCommands::Imprime},
      {"LINHA", &ReportCommands::Linha},
      {"IMG", &ReportCommands::Img},
      {"NOVAPAGINA", &ReportCommands::NovaPagina},
      {"NOVALINHA", &ReportCommands::NovaLinha},
      {"TESTAFIMPAG", &ReportCommands::TestaFimPag},
      {"FIM", &ReportCommands::Fim},
  };
  return Words(FindWord("Rel")->more.keywords, {kWords});
}

// A name of the program's own that only begins like these words does nothing. In an expression a call's name
// ends before its point, and `Rel.TestaFimPag` is the only one of these words that stands there.
Value ReportCommands::Rel(const WordCall& call) {
  const std::string name = Upper(call.name);
  if (name == "REL") return TestaFimPagWord(call);
  const Words::Bound* word = name.starts_with(kPrefix) ? words_.Find(name.substr(kPrefix.size())) : nullptr;
  if (word == nullptr) return {};
  paper_.Do(call, [&](Paper::Tools& tools) {
    const Arguments arguments(call);
    (this->*word->act)(tools, arguments.As(word->form->arguments));
  });
  return {};
}

Value ReportCommands::TestaFimPagWord(const WordCall& call) {
  std::string answer;
  paper_.Do(call, [&](Paper::Tools& tools) {
    const Arguments arguments(call);
    TestaFimPag(tools, arguments);
    answer = Report(tools).TestaFimPag() ? "SIM" : "NAO";
  });
  return Quote(answer);
}

// The report in work; while its preview is open nobody else has it.
XRelatorio& ReportCommands::Report(Paper::Tools& tools) {
  if (isPreviewOpen_) FailArgument();
  if (!report_) report_.emplace(run_, tools.painter, tools.measures, tools.printer, windows_.pictures);
  return *report_;
}

void ReportCommands::Config(Paper::Tools& tools, const ArgumentView& arguments) {
  XRelatorio& report = Report(tools);
  const std::string text = arguments.Text("texto");
  if (Contains(Upper(text), kPrinterWord)) ReportTarget_ = kPrinterWord;
  report.Config(text, pageRange_);
}

void ReportCommands::AlturaPapel(Paper::Tools& tools, const ArgumentView& arguments) {
  Report(tools).Size("TamPag:" + arguments.Number("altura").ToText());
}

void ReportCommands::AlturaLinha(Paper::Tools& tools, const ArgumentView& arguments) {
  Report(tools).Size("TamLin:" + arguments.Number("altura").ToText());
}

void ReportCommands::Col(Paper::Tools& tools, const ArgumentView& arguments) {
  const std::int32_t column = arguments.Number("coluna").ToInteger();
  Report(tools).Col(column, arguments.Number("texto").ToText());
}

void ReportCommands::Add(Paper::Tools& tools, const ArgumentView& arguments) {
  const std::string text = arguments.Number("texto").ToText();
  const std::int32_t colour = ColourOr(arguments, "cor", 0);
  Report(tools).Add(text, colour, ColourOr(arguments, "fundo", kNoCellColour));
}

void ReportCommands::Imprime(Paper::Tools& tools, const ArgumentView& arguments) {
  const std::string text = arguments.Number("texto").ToText();
  Report(tools).Imprime(text, arguments.Number("x").ToShort());
}

void ReportCommands::Linha(Paper::Tools& tools, const ArgumentView& arguments) {
  const std::int16_t x1 = arguments.Number("x1").ToShort();
  const std::int16_t x2 = arguments.Number("x2").ToShort();
  const std::int32_t colour = arguments.Number("cor").ToInteger();
  Report(tools).Linha(x1, x2, colour, arguments.Number("altura").ToShort());
}

void ReportCommands::Img(Paper::Tools& tools, const ArgumentView& arguments) {
  const PictureRef picture = tools.pictures.Load(arguments.Text("arquivo"));
  const std::int16_t x = arguments.Number("x").ToShort();
  const bool advances = arguments.IsEmpty("avança") || arguments.Word("avança") == "SIM";
  Report(tools).Imagem(picture, x, advances);
}

void ReportCommands::NovaPagina(Paper::Tools& tools, const ArgumentView&) {
  Report(tools).NovaPagina();
}

void ReportCommands::NovaLinha(Paper::Tools& tools, const ArgumentView&) {
  Report(tools).NovaLinha();
}

void ReportCommands::TestaFimPag(Paper::Tools& tools, const ArgumentView&) {
  TellRetorno(run_, Report(tools).TestaFimPag() ? "SIM" : "NAO");
}

// OPEN: where the end fails, target and `Retorno` are empty too, so that a program that prints as long as it
// is asked to comes to an end.
void ReportCommands::Fim(Paper::Tools& tools, const ArgumentView&) {
  XRelatorio& report = Report(tools);
  const auto failure = Guard([&] { report.Finaliza(); });
  const bool isPreviewed = !failure && ReportTarget_ != kPrinterWord;
  if (isPreviewed) {
    Preview(tools);
  } else {
    ReportTarget_.clear();
    pageRange_ = {};
    report.EndPages();
  }
  TellRetorno(run_, ReportTarget_);
  if (failure) throw RunFailure(*failure);
}

// The form's closing sets the whole range, and behind it the report's control, which goes with the form,
// stores what was typed; it counts for the printer pass that follows, and for nothing else.
void ReportCommands::Preview(Paper::Tools& tools) {
  // Comes back also where the program ends from inside.
  struct Open {
    explicit Open(bool& flag) : flag_(flag) { flag_ = true; }
    ~Open() { flag_ = false; }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    bool& flag_;
  };
  bool wantsPrint = false;
  {
    const Open open(isPreviewOpen_);
    FrmXRel form(run_, windows_, display_, tools.painter, paper_.host(), *report_, paper_.chosen());
    wantsPrint = form.ShowModal();
  }
  ReportTarget_ = wantsPrint ? kPrinterWord : "";
  pageRange_ = wantsPrint ? report_->TypedRange() : PageRange();
  report_.reset();
}

}  // namespace tessera::reports

// The preview of a report on the console host: where its parts stand, and what each line of a script does to
// them.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "console/console_host.h"
#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/combo.h"
#include "objects/rotulo.h"
#include "objects/texto.h"
#include "reports/preview_controls.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/table.h"
#include "support/temporary_folder.h"
#include "support/typewriter.h"
#include "text/code_page.h"
#include "windows/form.h"

namespace tessera::test {

namespace {

// Gives a script line by line, and looks before each line and before the end.
class WatchedScript final : public std::streambuf {
 public:
  WatchedScript(std::vector<std::string> lines, std::function<void()> look)
      : lines_(std::move(lines)), look_(std::move(look)) {}

 private:
  int_type underflow() override {
    look_();
    if (next_ == lines_.size()) return traits_type::eof();
    line_ = lines_[next_++] + "\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_[0]);
  }

  std::vector<std::string> lines_;
  std::function<void()> look_;
  std::size_t next_ = 0;
  std::string line_;
};

class PreviewTest : public testing::Test {
 protected:
  // What the preview shows before each line of the script, and before its end.
  std::vector<std::string> Looks(std::vector<std::string> script, const std::function<std::string()>& look) {
    std::vector<std::string> looks;
    WatchedScript watched(std::move(script), [&] {
      if (program_ != nullptr && program_->janela.windows().WindowInHand() != nullptr)
        looks.push_back(look());
    });
    std::istream in(&watched);
    ConsoleHost host({in, out, err}, {.programTitle = "TESTE"});
    HostedProgram program(host.host(), host, WithPaper(host));
    Prepare(program);
    program_ = &program;
    EXPECT_EQ(program.Run(source), 0) << err.str();
    program_ = nullptr;
    return looks;
  }

  std::function<void(Services&)> WithPaper(ConsoleHost& host) {
    return [&](Services& services) {
      services.findPainter = [this] { return reports::FoundPainter{&painter}; };
      services.reportHost = &host;
    };
  }

  void Prepare(HostedProgram& program) const {
    program.run.ProgramFolderText = folder.path().string() + "\\";
    program.run.paths = PathMapping(program.run.host.files, folder.path(), folder.path());
  }

  template <typename Part>
  const Part& PartOf(std::string_view name) const {
    return dynamic_cast<const Part&>(*program_->janela.windows().modalParts->FindPart(name));
  }

  // The page: its zoom, its place in the frame, how far each bar goes and where it stands, the label.
  std::string Page() const {
    const auto& page = PartOf<reports::PaginaControl>("PicXRel");
    std::ostringstream text;
    text << std::lround(page.Zoom() * 100) << "% " << page.PageLeft() << "," << page.PageTop();
    for (const std::string_view name : {"BarraHor", "Barra"}) {
      const auto& bar = PartOf<BarraControl>(name);
      text << " " << bar.State().Value() << "/" << bar.State().Max() << (bar.Enabled() ? "" : " off");
    }
    text << " [" << PartOf<ComboControl>("CmbZoom").Shown().text << "] "
         << PartOf<RotuloControl>("LblPagina").Caption() << (page.Shown() == nullptr ? " blank" : "");
    return ToUtf8(text.str());
  }

  // Where the parts stand that follow the window's size, and what the buttons say.
  std::string Places() const {
    std::ostringstream text;
    const auto tell = [&](const Control& part) {
      const ControlPlace& at = part.Place();
      text << at.Left << "," << at.Top << "," << at.Width << "," << at.Height << " ";
    };
    for (const std::string_view name : {"PicXRel", "BarraHor", "Barra"}) tell(PartOf<Control>(name));
    for (const std::string_view name : {"BtnImprimir", "BtnPdf", "BtnSair"}) {
      tell(PartOf<Control>(name));
      text << PartOf<BotaoControl>(name).Caption() << " ";
    }
    text << ".";
    return text.str();
  }

  std::string source =
      "Var p Inteiro\nRel.Config \"SAIDA:VIDEO\"\nEnquanto p < 3\n  p++\n  Rel.Imprime p, 100\n"
      "  Se p < 3\n    Rel.NovaPagina\n  FimSe\nRepita\nRel.Fim\nFimJanela\n";
  TemporaryFolder folder;
  Typewriter painter;
  std::ostringstream out;
  std::ostringstream err;

 private:
  HostedProgram* program_ = nullptr;
};

}  // namespace

// Acts one behind the other, and what they make of the page and its parts. The page is 794 by 1123 pixels at
// 100 %.
TEST_F(PreviewTest, EachActMovesWhatTheTableTells) {
  const std::vector<Table> tables = TablesOf("reports/preview.txt");
  for (const auto& [table, look] :
       {std::pair{tables.at(1), std::function<std::string()>([this] { return Page(); })},
        {tables.at(2), [this] { return Places(); }}}) {
    std::vector<std::string> script;
    for (const TableCase& step : table.cases) script.push_back(step.given);
    script.erase(script.begin());
    script.push_back("clique BtnSair");
    const std::vector<std::string> looks = Looks(script, look);
    ASSERT_EQ(looks.size(), table.cases.size());
    for (std::size_t i = 0; i < looks.size(); ++i)
      EXPECT_EQ(looks[i] + "\n", table.cases[i].result) << "behind " << table.cases[i].given;
  }
}

// Each part as the table tells it: its font, what it says under the pointer, its picture, its entries and
// steps.
TEST_F(PreviewTest, ThePartsAreThoseOfTheTable) {
  const Table table = TablesOf("reports/preview.txt").at(0);
  std::vector<std::string> told;
  // Letters are no page number.
  Looks({"foco TxtPagIni", "digita x7", "foco TxtPagFim", "digita y8", "clique BtnSair"}, [&] {
    told.clear();
    for (const TableCase& part : table.cases) {
      const auto& control = PartOf<Control>(part.given);
      std::ostringstream text;
      text << control.Font().name << " " << control.Font().size << " [" << control.ToolTipText() << "]";
      if (const auto* button = dynamic_cast<const BotaoControl*>(&control))
        text << (button->Picture() ? " picture" : "");
      if (const auto* entry = dynamic_cast<const TextoControl*>(&control)) text << " " << entry->Text();
      if (const auto* combo = dynamic_cast<const ComboControl*>(&control))
        for (const std::string& entry : combo->State().Entries()) text << " " << entry;
      if (const auto* bar = dynamic_cast<const BarraControl*>(&control))
        text << " " << bar->State().SmallChange() << " " << bar->State().LargeChange();
      told.push_back(ToUtf8(text.str()) + "\n");
    }
    return std::string();
  });
  for (std::size_t i = 0; i < table.cases.size(); ++i)
    EXPECT_EQ(told.at(i), table.cases[i].result) << table.cases[i].given;
}

TEST_F(PreviewTest, EachUseOfAFontBeginsPlain) {
  source =
      "Imp.Fonte \"NEGRITO\", \"SIM\", \"ITALICO\", \"SIM\"\nImp.Escreva \"a\"\nImp.Fonte \"TAMANHO\", 12\n"
      "Imp.Escreva \"b\"\nImp.Fim\nFimJanela\n";
  Looks({}, [] { return std::string(); });
  std::string told;
  const reports::Page& sheet = painter.sheets.at(0);
  for (const auto& operation : sheet.Operations()) {
    const FontFace& face = sheet.FaceOf(operation);
    told += std::string(sheet.TextOf(operation)) + (face.bold ? " bold" : "") +
            (face.italic ? " italic" : "") + ";";
  }
  EXPECT_EQ(told, "a bold italic;b;");
}

// The programs on paper, with letters of another library: what they say and ask is the same.
TEST_F(PreviewTest, ProgramsSayTheSameOnAnyPaper) {
  painter.queues.clear();
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TESSERA_REPORTS)) {
    if (entry.path().extension() != ".tsc") continue;
    ++count;
    const auto beside = [&](const char* extension) {
      auto path = entry.path();
      return ReadBytes(path.replace_extension(extension));
    };
    std::istringstream in(beside(".in"));
    out.str({});
    err.str({});
    ConsoleHost host({in, out, err}, {.programTitle = "TESTE"});
    HostedProgram program(host.host(), host, WithPaper(host));
    Prepare(program);
    program.Run(beside(".tsc"));
    program.EndPrinting();
    EXPECT_EQ(out.str(), beside(".out")) << entry.path();
    EXPECT_EQ(err.str(), beside(".err")) << entry.path();
  }
  EXPECT_EQ(count, 4);
}

}  // namespace tessera::test

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

using Lines = std::vector<std::string>;

void ExpectSteps(const std::vector<std::pair<std::string, std::string>>& steps, const Lines& looks) {
  ASSERT_EQ(looks.size(), steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i)
    EXPECT_EQ(looks[i], steps[i].second) << "behind " << steps[i].first;
}

Lines ScriptOf(const std::vector<std::pair<std::string, std::string>>& steps) {
  Lines script;
  for (std::size_t i = 1; i < steps.size(); ++i) script.push_back(steps[i].first);
  script.push_back("clique BtnSair");
  return script;
}

}  // namespace

// The page is 794 by 1123 pixels at 100 %.
TEST_F(PreviewTest, EachActMovesThePageAsFarAsItGoes) {
  const std::vector<std::pair<std::string, std::string>> steps = {
      {"the start", "100% 60,8 0/0 off 0/70 [100%] 1 of 3"},
      {"tecla 40", "100% 60,-19 0/0 off 4/70 [100%] 1 of 3"},
      {"tecla 38", "100% 60,8 0/0 off 0/70 [100%] 1 of 3"},
      {"tecla 38", "100% 60,8 0/0 off 0/70 [100%] 1 of 3"},
      {"valor Barra 10", "100% 60,-59 0/0 off 10/70 [100%] 1 of 3"},
      {"clique ImgSeta 2", "100% 60,8 0/0 off 0/70 [100%] 2 de 3"},
      {"tecla 35", "100% 60,8 0/0 off 0/70 [100%] 3 de 3"},
      {"tecla 34", "100% 60,8 0/0 off 0/70 [100%] 3 de 3"},
      {"tecla 36", "100% 60,8 0/0 off 0/70 [100%] 1 de 3"},
      {"tecla 33", "100% 60,8 0/0 off 0/70 [100%] 1 de 3"},
      {"tecla 107 ctrl", "125% 8,8 0/15 0/113 [125%] 1 de 3"},
      {"tecla 187 ctrl", "150% 8,8 0/45 0/155 [150%] 1 de 3"},
      {"tecla 107", "150% 8,8 0/45 0/155 [150%] 1 de 3"},
      {"valor BarraHor 5", "150% -25,8 5/45 0/155 [150%] 1 de 3"},
      {"texto CmbZoom 400", "400% -25,8 5/342 0/576 [400] 1 de 3"},
      {"tecla 107 ctrl", "400% -25,8 5/342 0/576 [400] 1 de 3"},
      {"texto CmbZoom 401", "400% -25,8 5/342 0/576 [401] 1 de 3"},
      {"texto CmbZoom 9", "400% -25,8 5/342 0/576 [9] 1 de 3"},
      {"texto CmbZoom 10", "10% 417,280 0/0 off 0/0 off [10] 1 de 3"},
      {"tecla 109 ctrl", "10% 417,280 0/0 off 0/0 off [10] 1 de 3"},
      {"tecla 107 ctrl", "50% 258,56 0/0 off 0/0 off [50%] 1 de 3"},
      {"tecla 189 ctrl", "50% 258,56 0/0 off 0/0 off [50%] 1 de 3"},
      {"texto CmbZoom Largura", "113% 8,8 0/0 off 0/92 [Largura] 1 de 3"},
      {"texto CmbZoom Página", "59% 224,8 0/0 off 0/0 off [Página] 1 de 3"},
      {"redim 20 60", "20% 145,8 0/0 off 0/0 off [Página] 1 de 3"},
      {"texto CmbZoom 60", "60% 8,8 0/6 0/67 [60] 1 de 3"},
      {"tecla 109 ctrl", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
      {"tecla 109 ctrl", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
      {"foco TxtPagIni", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
      {"tecla 35", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
      {"tecla 40", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
      {"tecla 34", "50% 28,8 0/0 off 0/50 [50%] 2 de 3"},
      {"foco Barra", "50% 28,8 0/0 off 0/50 [50%] 2 de 3"},
      {"tecla 40", "50% 28,-19 0/0 off 4/50 [50%] 2 de 3"},
      {"tecla 36", "50% 28,8 0/0 off 0/50 [50%] 1 de 3"},
  };
  ExpectSteps(steps, Looks(ScriptOf(steps), [this] { return Page(); }));
}

TEST_F(PreviewTest, ThePartsFollowTheWindow) {
  const std::vector<std::pair<std::string, std::string>> steps = {
      {"the start",
       "5,30,913,673 5,703,913,17 918,30,17,673 651,2,92,26 Imprimir 747,2,92,26 PDF 843,2,92,26 Sair "},
      {"redim 40 97", "5,30,749,540 5,570,749,17 754,30,17,540 661,2,34,26  699,2,34,26  737,2,34,26  "},
      {"redim 40 101",
       "5,30,781,540 5,570,781,17 786,30,17,540 519,2,92,26 Imprimir 615,2,92,26 PDF 711,2,92,26 Sair "},
      {"redim 10 20", "5,30,133,100 5,130,133,17 138,30,17,100 510,2,34,26  548,2,34,26  586,2,34,26  "},
      {"redim 1 1", "5,30,1,1 5,31,1,17 6,30,17,1 510,2,34,26  548,2,34,26  586,2,34,26  "},
  };
  ExpectSteps(steps, Looks(ScriptOf(steps), [this] { return Places(); }));
}

// Each part as the table tells it: its font, what it says under the pointer, its picture, its entries and
// steps.
TEST_F(PreviewTest, ThePartsAreThoseOfTheTable) {
  const Table table = TablesOf("reports/preview.txt").at(0);
  std::vector<std::string> told;
  Looks({"clique BtnSair"}, [&] {
    told.clear();
    for (const TableCase& part : table.cases) {
      const auto& control = PartOf<Control>(part.given);
      std::ostringstream text;
      text << control.Font().name << " " << control.Font().size << " [" << control.ToolTipText() << "]";
      if (const auto* button = dynamic_cast<const BotaoControl*>(&control))
        text << (button->Picture() ? " picture" : "");
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

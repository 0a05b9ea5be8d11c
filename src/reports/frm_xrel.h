// `FrmXRel`, the preview of a report: a modal window with the page, its label, four arrows, the range of
// pages to print, and buttons to print, to save a PDF and to leave. It decides what keys, wheel and clicks
// mean; the hosts show its controls as those of any window.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "commands/dialog_commands.h"
#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/combo.h"
#include "objects/rotulo.h"
#include "objects/texto.h"
#include "reports/preview_controls.h"
#include "reports/report_host.h"
#include "reports/xrelatorio.h"
#include "values/run.h"
#include "windows/form_events.h"
#include "windows/window_model.h"

namespace tessera {

class Display;

}  // namespace tessera

namespace tessera::reports {

class FrmXRel final : private FormEvents, private ControlEvents, private WindowParts {
 public:
  // All outlive it.
  FrmXRel(Run& run, WindowModel& windows, Display& display, PagePainter& painter, ReportHost& host,
          XRelatorio& report, ChosenPrinter& chosen);
  ~FrmXRel() override;

  // Comes back when the form is closed. True where the person wants to print.
  bool ShowModal();

 private:
  void LoadParts();
  template <typename Part, typename... More>
  std::shared_ptr<Part> Load(std::string_view name, int index, const ControlPlace& place, More&&... more);
  void Arrange();
  void PlaceButtons(double right);
  void PlacePage();
  void ShowPage();
  void ImgSeta(int arrow);
  void SetZoom(double zoom);
  void StepZoom(int direction);
  void TakeZoomText();
  void Turn(double pixels, bool zooms);
  void BtnImprimir();
  void BtnPdf();
  bool SelecionaImpressora();
  void Close();

  void OnResize() override { Arrange(); }
  void OnClose() override { Close(); }
  void OnKeyDown(int keyCode, KeyShift shift) override;
  bool OnKeyPress(char character) override;
  Grid PlacementGrid() const override { return {WindowModel::kTamLin, WindowModel::kTamCol}; }
  using FormEvents::OnClick;
  void OnClick(Control& control) override;
  void OnChange(Control& control) override;
  PersonObject* FindPart(std::string_view name) override;

  Run& run_;
  WindowModel& windows_;
  PagePainter& painter_;
  ReportHost& host_;
  XRelatorio& report_;
  ChosenPrinter& chosen_;
  std::unique_ptr<Form> form_;
  bool wantsPrint_ = false;
  int loaded_ = 0;

  enum class Fit { None, Width, Page };
  Fit fit_ = Fit::None;

  std::array<std::shared_ptr<SetaControl>, 4> ImgSeta_;
  std::shared_ptr<PaginaControl> PicXRel_;
  std::shared_ptr<RotuloControl> LblPagina_;
  std::shared_ptr<RotuloControl> LblPaginas_;
  std::shared_ptr<RotuloControl> LblAte_;
  std::shared_ptr<TextoControl> TxtPagIni_;
  std::shared_ptr<TextoControl> TxtPagFim_;
  std::shared_ptr<ComboControl> CmbZoom_;
  std::shared_ptr<BotaoControl> BtnImprimir_;
  std::shared_ptr<BotaoControl> BtnPdf_;
  std::shared_ptr<BotaoControl> BtnSair_;
  std::shared_ptr<BarraControl> Barra_;
  std::shared_ptr<BarraControl> BarraHor_;
};

}  // namespace tessera::reports

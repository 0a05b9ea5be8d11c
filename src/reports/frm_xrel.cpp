#include "reports/frm_xrel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "controls/key_code.h"
#include "platform/failure.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/display.h"
#include "windows/form.h"
#include "windows/program_window.h"
#include "windows/stock_pictures.h"

namespace tessera::reports {

namespace {

// The window's size at first, as far as the screen has room for it.
constexpr WindowSize kPreviewSize{940, 720};
constexpr double kScreenShare = 0.9;

// What the form keeps beside `XRel`, in twips: at both sides together, and above it.
constexpr double kBesideTwips = 150;
constexpr double kAboveTwips = 450;
constexpr double kBarThickness = 17;
// Between page and frame, in pixels.
constexpr double kPageGap = 8;
// A step of a bar, in twips of the page's movement.
constexpr double kBarStep = 100;
constexpr double kStepsOfArrow = 4;

constexpr double kSmallestZoom = 0.1;
constexpr double kLargestZoom = 4;
constexpr std::array kZooms = {0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0, 4.0};
constexpr double kPercent = 100;

constexpr int kKeyEscape = 27;
constexpr int kKeyPageUp = 33;
constexpr int kKeyPageDown = 34;
constexpr int kKeyEnd = 35;
constexpr int kKeyHome = 36;
constexpr int kKeyUp = 38;
constexpr int kKeyDown = 40;
constexpr int kKeyPlus = 107;
constexpr int kKeyPadMinus = 109;
constexpr int kKeyEqual = 187;
constexpr int kKeyMinus = 189;

constexpr std::string_view kFitWidth = "Largura";
constexpr std::string_view kFitPage = "Página"_w;
constexpr std::string_view kPdf = ".pdf";

std::string ZoomText(double zoom) {
  return NumberText(std::round(zoom * kPercent)) + "%";
}

PictureRef Figure(std::string_view name) {
  return StockPicture(StockKind::Figure, StockNumber(StockKind::Figure, name));
}

std::int32_t BarSteps(double pixels) {
  return static_cast<std::int32_t>(std::ceil(TwipsOfPixels(std::max(pixels, 0.0)) / kBarStep));
}

}  // namespace

FrmXRel::FrmXRel(Run& run, WindowModel& windows, Display& display, PagePainter& painter, ReportHost& host,
                 XRelatorio& report, ChosenPrinter& chosen)
    : run_(run), windows_(windows), painter_(painter), host_(host), report_(report), chosen_(chosen) {
  const ScreenSize screen = display.ScreenExtent();
  const WindowSize size{std::min(kPreviewSize.width, PixelsOfTwips(screen.Width) * kScreenShare),
                        std::min(kPreviewSize.height, PixelsOfTwips(screen.Height) * kScreenShare)};
  form_ = display.NewForm("FrmXRel", Centred(size, screen), *this);
  form_->SetCaption("Relatório"_w);
  form_->SetIcon(windows_.MainWindow().Icon());
  form_->KeyPreview = true;
  LoadParts();
  Arrange();
  ShowPage();
}

FrmXRel::~FrmXRel() {
  windows_.modal.Close(*form_);
  if (windows_.modalParts == this) windows_.modalParts = nullptr;
  form_->UnloadControls();
}

template <typename Part, typename... More>
std::shared_ptr<Part> FrmXRel::Load(std::string_view name, int index, const ControlPlace& place,
                                    More&&... more) {
  auto part = std::make_shared<Part>(*form_, static_cast<ControlEvents&>(*this), std::forward<More>(more)...);
  form_->LoadControl(name, part);
  part->SetName(index == 0 ? std::string(name) : std::string(name) + NumberText(index));
  // Tab goes through the parts as they are loaded.
  part->SetTabIndex(loaded_++);
  part->Move(place);
  part->SetVisible(true);
  return part;
}

// In one row above the page, from the left: the arrows with the label, the range, the zoom, the buttons.
void FrmXRel::LoadParts() {
  constexpr double kTop = 2;
  constexpr double kHeight = 26;
  // A label is written from its top; so it stands on the line of the fields.
  constexpr double kLabelTop = 5;
  constexpr double kLabelHeight = 22;
  for (int arrow = 0; arrow < 4; ++arrow) {
    const double left = arrow < 2 ? 5 + arrow * 28 : 163 + (arrow - 2) * 28;
    ImgSeta_[static_cast<std::size_t>(arrow)] =
        Load<SetaControl>(kImgSeta, arrow, {left, kTop, 28, kHeight}, arrow);
  }
  LblPagina_ = Load<RotuloControl>("LblPagina", 0, {63, kLabelTop, 98, kLabelHeight}, 0);
  LblPagina_->SetAlignment(TextAlign::kCentre);
  LblPaginas_ = Load<RotuloControl>("LblPaginas", 0, {234, kLabelTop, 50, kLabelHeight}, 0);
  LblPaginas_->SetCaption("Páginas"_w);
  TxtPagIni_ = Load<TextoControl>("TxtPagIni", 0, {286, kTop + 1, 48, 24}, 0, false);
  LblAte_ = Load<RotuloControl>("LblAte", 0, {338, kLabelTop, 14, kLabelHeight}, 0);
  LblAte_->SetCaption("a");
  TxtPagFim_ = Load<TextoControl>("TxtPagFim", 0, {352, kTop + 1, 48, 24}, 0, false);
  for (const auto& [field, text] :
       {std::pair(TxtPagIni_, report_.TxtPagIni), std::pair(TxtPagFim_, report_.TxtPagFim)}) {
    field->SetTag("NUMERICO");
    field->SetText(text);
  }
  CmbZoom_ = Load<ComboControl>("CmbZoom", 0, {416, kTop + 1, 88, 24}, 0);
  CmbZoom_->AddItem(kFitWidth);
  CmbZoom_->AddItem(kFitPage);
  for (const double zoom : kZooms) CmbZoom_->AddItem(ZoomText(zoom));
  CmbZoom_->SetListHeight(240);
  CmbZoom_->SetText(ZoomText(1));
  EventDispatch& dispatch = run_.host.events;
  BtnImprimir_ = Load<BotaoControl>("BtnImprimir", 0, {}, 0, dispatch);
  BtnPdf_ = Load<BotaoControl>("BtnPdf", 0, {}, 0, dispatch);
  BtnSair_ = Load<BotaoControl>("BtnSair", 0, {}, 0, dispatch);
  BtnImprimir_->SetPicture(Figure("FigImprimir"));
  BtnImprimir_->SetToolTipText("Imprimir as páginas escolhidas (Ctrl+P)"_w);
  BtnPdf_->SetPicture(Figure("FigSalvar"));
  BtnPdf_->SetToolTipText("Salvar as páginas escolhidas em um arquivo PDF"_w);
  BtnSair_->SetPicture(Figure("FigSair"));
  BtnSair_->SetToolTipText("Fechar (Esc)");
  PicXRel_ = Load<PaginaControl>("PicXRel", 0, {}, painter_);
  PicXRel_->Wheel = [this](double pixels, bool zooms) { Turn(pixels, zooms); };
  Barra_ = Load<BarraControl>("Barra", 0, {}, 0, BarDirection::Vertical);
  BarraHor_ = Load<BarraControl>("BarraHor", 0, {}, 0, BarDirection::Horizontal);
}

bool FrmXRel::ShowModal() {
  ProgramWindow& opener = windows_.CurrentOwner();
  windows_.modal.Open(*form_);
  WindowParts* const before = std::exchange(windows_.modalParts, static_cast<WindowParts*>(this));
  host_.TellPage(report_.LblPagina());
  form_->ShowModal(opener.form());
  windows_.modalParts = before;
  if (ProgramWindow* below = windows_.activation.Active()) below->form().Activate();
  return wantsPrint_;
}

void FrmXRel::Close() {
  windows_.modal.Close(*form_);
  form_->SetVisible(false);
}

PersonObject* FrmXRel::FindPart(std::string_view name) {
  for (const std::shared_ptr<Control>& part : std::initializer_list<std::shared_ptr<Control>>{
           ImgSeta_[0], PicXRel_, LblPagina_, TxtPagIni_, TxtPagFim_, CmbZoom_, BtnImprimir_, BtnPdf_,
           BtnSair_, Barra_, BarraHor_}) {
    if (EqualsIgnoringCase(part->Name(), name)) return part.get();
  }
  return nullptr;
}

// Where things are

void FrmXRel::Arrange() {
  const double width = form_->ScaleWidth();
  const double height = form_->ScaleHeight();
  constexpr double kSide = PixelsOfTwips(kBesideTwips) / 2;
  PlaceButtons(width - kSide);
  const ControlPlace xrel = {kSide, PixelsOfTwips(kAboveTwips),
                             std::max(width - PixelsOfTwips(kBesideTwips), 1.0),
                             std::max(height - PixelsOfTwips(kAboveTwips), 1.0)};
  const double viewWidth = std::max(xrel.Width - kBarThickness, 1.0);
  const double viewHeight = std::max(xrel.Height - kBarThickness, 1.0);
  PicXRel_->Move({xrel.Left, xrel.Top, viewWidth, viewHeight});
  Barra_->Move({xrel.Left + viewWidth, xrel.Top, kBarThickness, viewHeight});
  BarraHor_->Move({xrel.Left, xrel.Top + viewHeight, viewWidth, kBarThickness});
  const double fitWidth = (viewWidth - 2 * kPageGap) / kPagePixels.width;
  const double fitHeight = (viewHeight - 2 * kPageGap) / kPagePixels.height;
  if (fit_ == Fit::Width) PicXRel_->SetZoom(std::clamp(fitWidth, kSmallestZoom, kLargestZoom));
  if (fit_ == Fit::Page) {
    PicXRel_->SetZoom(std::clamp(std::min(fitWidth, fitHeight), kSmallestZoom, kLargestZoom));
  }
  // OPEN: a bar ends where the page's last edge is in sight; the page's whole length would lead past it.
  Barra_->SetMax(BarSteps(PicXRel_->PageHeight() + 2 * kPageGap - viewHeight));
  BarraHor_->SetMax(BarSteps(PicXRel_->PageWidth() + 2 * kPageGap - viewWidth));
  Barra_->SetSmallChange(static_cast<std::int32_t>(kStepsOfArrow));
  BarraHor_->SetSmallChange(static_cast<std::int32_t>(kStepsOfArrow));
  Barra_->SetLargeChange(std::max(BarSteps(viewHeight), 1));
  BarraHor_->SetLargeChange(std::max(BarSteps(viewWidth), 1));
  for (const auto& bar : {Barra_, BarraHor_}) {
    if (bar->State().Value() > bar->State().Max()) bar->SetValue(bar->State().Max());
    bar->SetEnabled(bar->State().Max() > 0);
  }
  PlacePage();
}

// From the right edge; where there is no room for words the pictures stand alone.
void FrmXRel::PlaceButtons(double right) {
  constexpr double kFirst = 510;
  constexpr double kGap = 4;
  constexpr double kWithWord = 92;
  constexpr double kPictureAlone = 34;
  const std::array<std::pair<BotaoControl*, std::string_view>, 3> buttons = {
      std::pair{BtnImprimir_.get(), "Imprimir"}, std::pair{BtnPdf_.get(), "PDF"},
      std::pair{BtnSair_.get(), "Sair"}};
  const bool hasWords = right - kFirst >= buttons.size() * (kWithWord + kGap) - kGap;
  const double width = hasWords ? kWithWord : kPictureAlone;
  double left = std::max(kFirst, right - buttons.size() * (width + kGap) + kGap);
  for (const auto& [button, word] : buttons) {
    button->SetCaption(hasWords ? word : "");
    button->Move({left, 2, width, 26});
    left += width + kGap;
  }
}

// Comes of each change of a bar. A page that is smaller than the view stands in its middle; whole pixels keep
// it sharp.
void FrmXRel::PlacePage() {
  const auto corner = [](double view, double page, const BarraControl& bar) {
    const double room = view - page;
    if (room >= 2 * kPageGap) return std::round(room / 2);
    const double moved = PixelsOfTwips(bar.State().Value() * kBarStep);
    return std::round(std::max(kPageGap - moved, room - kPageGap));
  };
  PicXRel_->MovePage(corner(PicXRel_->Place().Width, PicXRel_->PageWidth(), *BarraHor_),
                     corner(PicXRel_->Place().Height, PicXRel_->PageHeight(), *Barra_));
}

// What is shown

void FrmXRel::ShowPage() {
  const auto& pages = report_.Pages();
  const auto shown = static_cast<std::size_t>(report_.ShownPage());
  PicXRel_->Show(shown >= 1 && shown <= pages.size() ? &pages[shown - 1] : nullptr);
  LblPagina_->SetCaption(report_.LblPagina());
}

void FrmXRel::ImgSeta(int arrow) {
  report_.ImgSeta(arrow);
  Barra_->SetValue(0);
  ShowPage();
  host_.TellPage(report_.LblPagina());
}

void FrmXRel::SetZoom(double zoom) {
  fit_ = Fit::None;
  PicXRel_->SetZoom(std::clamp(zoom, kSmallestZoom, kLargestZoom));
  CmbZoom_->SetText(ZoomText(PicXRel_->Zoom()));
  Arrange();
}

void FrmXRel::StepZoom(int direction) {
  const double zoom = PicXRel_->Zoom();
  constexpr double kSame = 0.005;
  if (direction > 0) {
    const auto next = std::find_if(kZooms.begin(), kZooms.end(), [=](double z) { return z > zoom + kSame; });
    if (next != kZooms.end()) SetZoom(*next);
  } else {
    const auto next =
        std::find_if(kZooms.rbegin(), kZooms.rend(), [=](double z) { return z < zoom - kSame; });
    if (next != kZooms.rend()) SetZoom(*next);
  }
}

// What is no zoom changes nothing, for it may still be on the way to one.
void FrmXRel::TakeZoomText() {
  const std::string text = CmbZoom_->Shown().text;
  if (text == kFitWidth || text == kFitPage) {
    fit_ = text == kFitWidth ? Fit::Width : Fit::Page;
    return Arrange();
  }
  const double percent = LeadingNumber(text);
  if (percent < kSmallestZoom * kPercent || percent > kLargestZoom * kPercent) return;
  fit_ = Fit::None;
  PicXRel_->SetZoom(percent / kPercent);
  Arrange();
}

void FrmXRel::Turn(double pixels, bool zooms) {
  if (zooms) return StepZoom(pixels > 0 ? -1 : 1);
  const auto steps = static_cast<std::int32_t>(std::round(TwipsOfPixels(pixels) / kBarStep));
  Barra_->SetValue(std::clamp(Barra_->State().Value() + steps, 0, Barra_->State().Max()));
}

// What the person does

void FrmXRel::OnClick(Control& control) {
  if (const auto* arrow = dynamic_cast<SetaControl*>(&control)) return ImgSeta(arrow->Index());
  if (&control == BtnImprimir_.get()) BtnImprimir();
  if (&control == BtnPdf_.get()) BtnPdf();
  if (&control == BtnSair_.get()) Close();
}

void FrmXRel::OnChange(Control& control) {
  if (&control == TxtPagIni_.get()) report_.TxtPagIni = TxtPagIni_->Text();
  if (&control == TxtPagFim_.get()) report_.TxtPagFim = TxtPagFim_->Text();
  if (&control == CmbZoom_.get()) TakeZoomText();
  if (&control == Barra_.get() || &control == BarraHor_.get()) PlacePage();
}

// A field that has the focus keeps the keys that move its caret, and the open list of zooms its own.
void FrmXRel::OnKeyDown(int keyCode, KeyShift shift) {
  const Control* focus = form_->Focus();
  if (focus == CmbZoom_.get() && CmbZoom_->State().ListIsOpen()) return;
  const bool isInField = focus == TxtPagIni_.get() || focus == TxtPagFim_.get() || focus == CmbZoom_.get();
  const bool isOnBar = focus == Barra_.get() || focus == BarraHor_.get();
  constexpr double kArrowPixels = kBarStep * kStepsOfArrow / kTwipsOfPixel;
  if (keyCode == kKeyPageUp) ImgSeta(1);
  if (keyCode == kKeyPageDown) ImgSeta(2);
  if (keyCode == kKeyHome && !isInField) ImgSeta(0);
  if (keyCode == kKeyEnd && !isInField) ImgSeta(3);
  if (keyCode == kKeyUp && !isInField && !isOnBar) Turn(-kArrowPixels, false);
  if (keyCode == kKeyDown && !isInField && !isOnBar) Turn(kArrowPixels, false);
  if (shift.ctrl && (keyCode == kKeyPlus || keyCode == kKeyEqual)) StepZoom(1);
  if (shift.ctrl && (keyCode == kKeyPadMinus || keyCode == kKeyMinus)) StepZoom(-1);
  if (shift.ctrl && keyCode == 'P') BtnImprimir();
  if (keyCode == kKeyEscape) Close();
}

bool FrmXRel::OnKeyPress(char character) {
  if (character != key::kEnter || form_->Focus() != TxtPagIni_.get()) return false;
  TxtPagFim_->SetFocus();
  return true;
}

void FrmXRel::BtnImprimir() {
  if (!SelecionaImpressora()) return;
  wantsPrint_ = true;
  Close();
}

bool FrmXRel::SelecionaImpressora() {
  auto printer = run_.host.dialogs.AskPrinter("");
  if (!printer) {
    ShowCritical(run_, "Cancelado pelo usuário!"_w);
    return false;
  }
  chosen_.name = std::move(*printer);
  return true;
}

void FrmXRel::BtnPdf() {
  auto path = run_.host.dialogs.AskFile({.save = true,
                                         .title = "Salvar PDF",
                                         .description = "Documento PDF",
                                         .pattern = "*.pdf",
                                         .proposed = ProgramTitle(run_) + std::string(kPdf)});
  if (!path) return;
  if (!IsPdfPath(*path)) path->append(kPdf);
  const PageRange range = report_.TypedRange();
  const auto total = static_cast<std::int16_t>(report_.Pages().size());
  const auto document = painter_.NewPdf(ProgramTitle(run_));
  const std::int16_t last = std::min(range.last, total);
  const auto first = std::max<std::int16_t>(range.first, 1);
  if (first > last) {
    return ShowCritical(run_, "Nenhuma página do relatório está entre as páginas escolhidas."_w);
  }
  for (int page = first; page <= last; ++page) {
    document->Add(report_.Pages()[static_cast<std::size_t>(page) - 1]);
  }
  int error = 0;
  const auto failure =
      Guard([&] { error = run_.host.files.Replace(run_.paths.SystemPath(*path), document->End()); });
  if (error != 0 || failure) {
    ShowCritical(run_, std::string("O arquivo não pôde ser gravado:"_w).append(kCrLf).append(*path));
  }
}

}  // namespace tessera::reports

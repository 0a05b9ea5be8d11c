#include "objects/imagem.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/picture_commands.h"
#include "windows/picture_file.h"
#include "windows/window_commands.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr ControlPlace kSurfaceSize = {.Width = 160, .Height = 112};
constexpr long kDiskFailure = 75;
constexpr int kUsualQuality = 75;

ImagemControl& ControlOf(const SuffixCall& call) {
  return call.As<ImagemControl>();
}

ImagemSurface& SurfaceOf(const SuffixCall& call) {
  return ControlOf(call).surface();
}

double LinesOf(const SuffixCall& call, const Value& count) {
  return count.ToDouble() * call.frame.windows().TamLin;
}

double ColumnsOf(const SuffixCall& call, const Value& count) {
  return count.ToDouble() * call.frame.windows().TamCol;
}

PixelPoint PointOf(const SuffixCall& call, ArgumentName x, ArgumentName y) {
  const std::int32_t across = call.Nth(x).ToInteger();
  return {.x = across, .y = call.Nth(y).ToInteger()};
}

Value Img(const SuffixCall& call) {
  ImagemSurface& surface = SurfaceOf(call);
  if (const PictureRef picture = FigureOfFile(call.run, call.frame.windows(), call.Text()))
    surface.PaintPicture(picture, {RoundToInteger(surface.CurrentX), RoundToInteger(surface.CurrentY)});
  return {};
}

Value PosX(const SuffixCall& call) {
  SurfaceOf(call).CurrentX = call.Number().ToDouble();
  return {};
}

Value PosY(const SuffixCall& call) {
  SurfaceOf(call).CurrentY = call.Number().ToDouble();
  return {};
}

Value Ponto(const SuffixCall& call) {
  SurfaceOf(call).PSet(PointOf(call, "x", "y"), call.Nth("cor").ToInteger());
  return {};
}

Value LePonto(const SuffixCall& call) {
  return SurfaceOf(call).Point(PointOf(call, "x", "y"));
}

Value LinhaReta(const SuffixCall& call) {
  const PixelPoint from = PointOf(call, "x1", "y1");
  SurfaceOf(call).Line(from, PointOf(call, "x2", "y2"), call.Nth("cor").ToInteger());
  return {};
}

Value MouseX(const SuffixCall& call) {
  return ControlOf(call).MouseX();
}

Value MouseY(const SuffixCall& call) {
  return ControlOf(call).MouseY();
}

Value MouseBotao(const SuffixCall& call) {
  return std::int32_t{ControlOf(call).MouseBotao()};
}

Value TamanhoPonto(const SuffixCall& call) {
  SurfaceOf(call).DrawWidth = call.Number().ToInteger();
  return {};
}

Value MouseIcone(const SuffixCall& call) {
  SurfaceOf(call).SetMouseIcon(call.frame.windows().pictures.OfFile(call.Text()));
  return {};
}

Value AjustaImagem(const SuffixCall& call) {
  ControlOf(call).FitPicture();
  return {};
}

Value Redimensiona(const SuffixCall& call) {
  ImagemControl& control = ControlOf(call);
  ControlPlace place = control.Place();
  place.Height = LinesOf(call, call.Nth("altura"));
  place.Width = ColumnsOf(call, call.Nth("largura"));
  control.Move(place);
  const PictureRef& picture = control.surface().Background();
  if (!picture) return {};
  const Size size{RoundToInteger(place.Width), RoundToInteger(place.Height)};
  PictureCodec* const codec = call.frame.windows().pictures.Codec();
  const PictureRef scaled = codec == nullptr ? nullptr : codec->Rescale(*picture, size);
  if (scaled) control.surface().PaintPicture(scaled, {0, 0});
  return {};
}

// OPEN: a surface has no title; a line that is marked as one is the current window's.
Value Escreva(const SuffixCall& call) {
  const std::vector<std::string> values = call.Values();
  const auto [text, isTitle] =
      LineOf(call.run, values, [&](std::size_t place) { return EvalNumber(call.run, values[place]); });
  WindowModel& windows = call.frame.windows();
  if (isTitle) {
    windows.CurrentForm().SetCaption(text);
  } else {
    ImagemSurface& surface = SurfaceOf(call);
    surface.Print(text);
    surface.CurrentY += windows.TamLin;
  }
  windows.OnYield();
  call.run.host.events.ProcessEvents();
  return {};
}

Value Cls(const SuffixCall& call) {
  SurfaceOf(call).Cls();
  return {};
}

Value SalvaFigura(const SuffixCall& call) {
  const std::string path = EvalText(call.run, call.NthRaw("arquivo")).ToText();
  const std::string upper = Upper(path);
  const bool isJpeg = Contains(upper, ".JPG");
  if (!isJpeg && !Contains(upper, ".BMP")) {
    ShowCritical(call.run, "SalvaFigura: o nome do arquivo deve conter extensão .bmp ou .jpg!"_w);
    return {};
  }
  const std::string file = call.run.paths.SystemPath(path);
  const Raster image = SurfaceOf(call).InSight();
  const Value told = call.Nth("qualidade");
  const std::int32_t quality = told.IsNumeric() ? told.ToInteger() : 0;
  PictureCodec* const codec = call.frame.windows().pictures.Codec();
  if (codec == nullptr) Fail(kDiskFailure);
  const std::string bytes =
      isJpeg ? codec->EncodeJpeg(image, quality == 0 ? kUsualQuality : std::clamp(quality, 1, 100))
             : codec->EncodeBitmap(image);
  if (SavePicture(bytes, call.run.host.files, file) != 0) Fail(kDiskFailure);
  return {};
}

Value Use(const SuffixCall& call) {
  call.frame.windows().UseSurface(ControlOf(call).SharedSurface());
  return {};
}

Value Ordem(const SuffixCall& call) {
  const std::string word = Upper(call.Word());
  if (word == "FRENTE") call.control.SetZOrder(ZOrder::Front);
  if (word == "ATRAS") call.control.SetZOrder(ZOrder::Back);
  return {};
}

// The window system knows the window alone.
Value HWnd(const SuffixCall& call) {
  return static_cast<double>(call.control.form().hWnd());
}

Value HDc(const SuffixCall&) {
  return std::int32_t{0};
}

Value CorFundo(const SuffixCall& call) {
  SurfaceOf(call).SetBackColor(call.Number().ToInteger());
  return {};
}

Value CorLetra(const SuffixCall& call) {
  SurfaceOf(call).ForeColor = call.Number().ToInteger();
  return {};
}

Value NomeFonte(const SuffixCall& call) {
  SurfaceOf(call).Font.name = call.Text();
  return {};
}

Value TamFonte(const SuffixCall& call) {
  SurfaceOf(call).Font.size = call.Number().ToDouble();
  return {};
}

Value Negrito(const SuffixCall& call) {
  SurfaceOf(call).Font.bold = suffix::IsSim(call);
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ALTURA", suffix::Altura},
    {".LARGURA", suffix::Largura},
    {".LINHA", suffix::Linha},
    {".COLUNA", suffix::Coluna},
    {".VISIVEL", suffix::Visivel},
    {".PAI", suffix::Pai},
    {".CORFUNDO", CorFundo},
    {".CORLETRA", CorLetra},
    {".NOMEFONTE", NomeFonte},
    {".TAMFONTE", TamFonte},
    {".NEGRITO", Negrito},
    {".IMG", Img},
    {".POSX", PosX},
    {".POSY", PosY},
    {".PONTO", Ponto},
    {".LEPONTO", LePonto},
    {".MOUSEX", MouseX},
    {".MOUSEY", MouseY},
    {".MOUSEBOTAO", MouseBotao},
    {".TAMANHOPONTO", TamanhoPonto},
    {".MOUSEICONE", MouseIcone},
    {".AJUSTAIMAGEM", AjustaImagem},
    {".REDIMENSIONA", Redimensiona},
    {".ESCREVA", Escreva},
    {".CLS", Cls},
    {".SALVAFIGURA", SalvaFigura},
    {".LINHARETA", LinhaReta},
    {".USE", Use},
    {".ORDEM", Ordem},
    {".HWND", HWnd},
    {".HDC", HDc},
};

}  // namespace

// The surface

void ImagemSurface::Reset() {
  Cls();
  CurrentX = CurrentY = 0;
  DrawWidth = 1;
  FillColor = 0;
  FillStyle = Filling::Transparent;
  ForeColor = kButtonTextColour;
  Font = {};
  SetBackColor(kButtonFaceColour);
  SetBackground(nullptr);
  SetMouseIcon(nullptr);
}

void ImagemSurface::ShowGround() {
  if (view != nullptr) view->ShowGround();
}

void ImagemSurface::ShowMouseIcon() {
  if (view != nullptr) view->ShowMouseIcon();
}

void ImagemSurface::ShowErased() {
  if (view != nullptr) view->ShowErased();
}

void ImagemSurface::ShowDrawn(const Spans& spans, Pixel pixel) {
  if (view != nullptr) view->ShowDrawn(spans, pixel);
}

void ImagemSurface::ShowPainted(const PlacedPictures& pictures, bool erased) {
  if (view != nullptr) view->ShowPainted(pictures, erased);
}

void ImagemSurface::ShowPrinted(std::string_view text, const TextMask& mask) {
  if (view != nullptr) view->ShowPrinted(text, mask);
}

// The control

ImagemControl::ImagemControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kSurfaceSize), surface_(*this, form.SurfaceTexts()) {}

std::weak_ptr<Surface> ImagemControl::SharedSurface() {
  return std::shared_ptr<Surface>(shared_from_this(), &surface_);
}

void ImagemControl::Reset() {
  surface_.Reset();
  mouse_ = {};
  mouseBotao_ = 0;
  Move(kSurfaceSize);
  SetZOrder(ZOrder::Front);
}

void ImagemControl::FitPicture() {
  const PictureRef& picture = surface_.Background();
  if (!picture) return;
  ControlPlace place = Place();
  place.Width = picture->size().width;
  place.Height = picture->size().height;
  Move(place);
}

void ImagemControl::OnMouseDown(MouseButton button, PointerPlace at) {
  mouse_ = at;
  mouseBotao_ = static_cast<int>(button);
}

void ImagemControl::OnMouseUp(MouseButton button, PointerPlace at) {
  mouse_ = at;
  mouseBotao_ = 0;
  const bool isInside = at.x >= 0 && at.y >= 0 && at.x < Place().Width && at.y < Place().Height;
  if (button == MouseButton::Left && isInside) Events().OnClick(*this);
}

void ImagemControl::Click() {
  const PointerPlace middle{std::floor(Place().Width / 2), std::floor(Place().Height / 2)};
  OnMouseDown(MouseButton::Left, middle);
  OnMouseUp(MouseButton::Left, middle);
}

bool ImagemControl::DrawOn(Raster& face) const {
  face.Lay(surface_.InSight(), 0, 0);
  return true;
}

// The family

Imagem::Imagem(ObjectFrame& frame) : ObjectFamily(frame, "Imagem", kSuffixes) {}

std::shared_ptr<Control> Imagem::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<ImagemControl>(form, *this, index);
}

// OPEN: without a height or width the surface has that of its picture.
void Imagem::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& image = static_cast<ImagemControl&>(control);
  image.Reset();
  PictureRef picture = PictureByName(run(), windows(), arguments.Text("imagem"));
  Place(image, arguments);
  if (picture) {
    ControlPlace place = image.Place();
    place.Width = picture->size().width;
    place.Height = picture->size().height;
    image.Move(place);
  }
  SetHeight(image, arguments);
  SetWidth(image, arguments);
  image.surface().SetBackground(std::move(picture));
}

// KEPT: three suffixes pass an unknown surface over in silence (programs.images_draw_hold_objects_and_save).
void Imagem::TellMissing(std::string_view name, std::string_view suffix) {
  constexpr std::array<std::string_view, 3> kSilent = {".IMG", ".PONTO", ".PAI"};
  if (std::find(kSilent.begin(), kSilent.end(), suffix) != kSilent.end()) return;
  ShowCritical(run(), std::string("Imagem não existente: '"_w).append(name).append("'"));
}

void Imagem::Gone(Control& control) {
  if (windows().UsedSurface().get() == &static_cast<ImagemControl&>(control).surface())
    windows().UseSurface({});
}

}  // namespace tessera

#include "objects/gif_animado.h"

#include <utility>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/picture_file.h"
#include "windows/stock_pictures.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr std::string_view kGifAni = "GifAni";
constexpr std::string_view kAniGif = "AniGif";
// Files count the time of their frames in hundredths of a second.
constexpr std::chrono::milliseconds kTick{10};

GifControl& ControlOf(const SuffixCall& call) {
  return call.As<GifControl>();
}

Value Altura(const SuffixCall& call) {
  ControlOf(call).SetStretch();
  return suffix::Altura(call);
}

Value Largura(const SuffixCall& call) {
  ControlOf(call).SetStretch();
  return suffix::Largura(call);
}

Value ProximoFrame(const SuffixCall& call) {
  GifControl& gif = ControlOf(call);
  gif.SetFrame(gif.Frames() < gif.Frame() + 1 ? 1 : gif.Frame() + 1);
  return {};
}

Value FrameAnterior(const SuffixCall& call) {
  GifControl& gif = ControlOf(call);
  gif.SetFrame(gif.Frame() - 1 >= 1 ? gif.Frame() - 1 : gif.Frames());
  return {};
}

Value FrameNumero(const SuffixCall& call) {
  GifControl& gif = ControlOf(call);
  if (call.arguments.Part(1) != "=") return gif.Frame();
  gif.SetFrame(call.Number().ToInteger());
  return {};
}

// A floating picture has no order among objects.
Value SetOrder(const SuffixCall& call, ZOrder order) {
  GifControl& gif = ControlOf(call);
  if (gif.kind() == GifControl::Kind::Placed) gif.SetZOrder(order);
  return {};
}

Value Atras(const SuffixCall& call) {
  return SetOrder(call, ZOrder::Back);
}

Value Frente(const SuffixCall& call) {
  return SetOrder(call, ZOrder::Front);
}

Value Animar(const SuffixCall& call) {
  static_cast<GifAnimado&>(call.family).Play(ControlOf(call));
  return {};
}

Value Parar(const SuffixCall& call) {
  ControlOf(call).Stop();
  return {};
}

Value Loop(const SuffixCall& call) {
  ControlOf(call).SetLoop(call.Number().ToInteger());
  return {};
}

Value Imagem(const SuffixCall& call) {
  static_cast<GifAnimado&>(call.family).SetImage(ControlOf(call), call.Text());
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".LINHA", suffix::Linha},
    {".COLUNA", suffix::Coluna},
    {".ALTURA", Altura},
    {".LARGURA", Largura},
    {".VISIVEL", suffix::Visivel},
    {".PROXIMOFRAME", ProximoFrame},
    {".FRAMEANTERIOR", FrameAnterior},
    {".FRAMENUMERO", FrameNumero},
    {".ATRAS", Atras},
    {".FRENTE", Frente},
    {".ANIMAR", Animar},
    {".PARAR", Parar},
    {".LOOP", Loop},
    {".IMAGEM", Imagem},
};

}  // namespace

// The control

GifControl::GifControl(Form& form, ControlEvents& events, int index, Kind kind, SharedPictures& pictures)
    : Control(form, events, index, {}), kind_(kind), pictures_(pictures) {
  if (LiesBehind()) SetZOrder(ZOrder::Back);
}

void GifControl::Reset() {
  film_.reset();
  stretch_ = false;
  loop_.reset();
  Stop();
  Move({});
  SetZOrder(LiesBehind() ? ZOrder::Back : ZOrder::Front);
}

void GifControl::SetAnimation(AnimationRef animation) {
  Stop();
  film_.reset();
  if (animation) film_.emplace(std::move(animation));
  if (film_ && !stretch_) {
    ControlPlace place = Place();
    place.Width = film_->animation().size.width;
    place.Height = film_->animation().size.height;
    Move(place);
  }
  Refresh();
}

const AnimationFrame* GifControl::WholeFrame() const {
  if (!film_) return nullptr;
  const AnimationFrame& frame = film_->animation().frames[film_->Frame()];
  return frame.picture->vector.empty() ? nullptr : &frame;
}

std::int32_t GifControl::Frames() const {
  return film_ ? static_cast<std::int32_t>(film_->animation().frames.size()) : 0;
}

void GifControl::SetFrame(std::int32_t frame) {
  if (frame < 1 || frame > Frames()) return;
  film_->Show(static_cast<std::size_t>(frame) - 1);
  Refresh();
}

// At its end it begins anew.
void GifControl::Play(std::chrono::milliseconds now) {
  if (!film_ || Frames() < 2 || IsPlaying()) return;
  begun_ = 0;
  if (Frame() == Frames()) SetFrame(1);
  due_ = now + film_->animation().frames[film_->Frame()].time;
}

// OPEN: a number that the program tells counts repetitions, so that 0 is none and 2 shows all three times.
bool GifControl::MayBeginAnew() {
  const std::int64_t told = loop_ ? *loop_ : film_->animation().plays - 1;
  if (told >= 0 && begun_ >= told) return false;
  ++begun_;
  return true;
}

// A program that computed for long doesn't see all that it missed: the animation goes on from where it is.
void GifControl::Advance(std::chrono::milliseconds now) {
  const auto frame = Frame();
  for (std::int32_t steps = 0; due_ && *due_ <= now; ++steps) {
    if (Frame() == Frames() && !MayBeginAnew()) {
      Stop();
      break;
    }
    film_->Show(Frame() == Frames() ? 0 : film_->Frame() + 1);
    *due_ += film_->animation().frames[film_->Frame()].time;
    if (steps > Frames()) due_ = now + film_->animation().frames[film_->Frame()].time;
  }
  if (Frame() != frame) Refresh();
}

void GifControl::OnMouseUp(MouseButton button, PointerPlace at) {
  const bool isInside = at.x >= 0 && at.y >= 0 && at.x < Place().Width && at.y < Place().Height;
  if (button == MouseButton::Left && isInside) Click();
}

// A placed one has the window's ground.
bool GifControl::DrawOn(Raster& face) const {
  const Size size = face.size();
  if (kind_ == Kind::Placed) {
    const Pixel ground = PixelOfColour(form().BackColor());
    for (int y = 0; y < size.height; ++y) face.Fill({.y = y, .left = 0, .right = size.width - 1}, ground);
  }
  if (!film_) return true;
  PictureCodec* const codec = film_->Seen().size() == size ? nullptr : pictures_.SilentCodec();
  if (codec == nullptr) {
    face.Lay(film_->Seen(), 0, 0);
  } else if (const PictureRef scaled = codec->Rescale({.raster = film_->Seen()}, size)) {
    face.Lay(scaled->raster, 0, 0);
  }
  return true;
}

// The family

GifAnimado::GifAnimado(ObjectFrame& frame) : ObjectFamily(frame, "GifAnimado", kSuffixes) {}

std::string GifAnimado::ArrayFor(const Arguments& arguments) {
  const bool isFloating = LeadingNumber(arguments.Number("tipo").ToText()) == 1;
  return std::string(isFloating ? kAniGif : kGifAni);
}

std::shared_ptr<Control> GifAnimado::NewControl(Form& form, std::string_view array, int index) {
  return std::make_shared<GifControl>(
      form, *this, index, array == kAniGif ? GifControl::Kind::Floating : GifControl::Kind::Placed,
      windows().pictures);
}

void GifAnimado::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& gif = static_cast<GifControl&>(control);
  gif.Reset();
  Place(gif, arguments);
  SetImage(gif, arguments.Text("imagem"));
}

void GifAnimado::SetImage(GifControl& gif, const std::string& name) {
  if (name.empty()) return;
  const std::int32_t number = StockNumber(StockKind::Animation, name);
  if (number != kNoStockNumber) {
    if (gif.kind() == GifControl::Kind::Placed)
      return gif.SetAnimation(windows().pictures.StockAnimation(number));
    return ShowCritical(run(), "Gif inválido para tipo = 1 (flutuante)!"_w);
  }
  if (AnimationRef animation = windows().pictures.AnimationOfFile(name))
    return gif.SetAnimation(std::move(animation));
  ShowCritical(run(), std::string("Caminho do gif animado não encontrado:\r"_w).append(name));
}

void GifAnimado::Play(GifControl& gif) {
  EventDispatch& events = run().host.events;
  gif.Play(events.DispatchTime());
  if (gif.IsPlaying() && !timer_) timer_ = events.StartTimer(kTick, [this] { OnTick(); });
}

void GifAnimado::OnTick() {
  const auto now = run().host.events.DispatchTime();
  bool plays = false;
  for (const ObjectRow& row : Rows()) {
    const auto control = row.object.lock();
    if (!control || row.name.empty()) continue;
    auto& gif = static_cast<GifControl&>(*control);
    gif.Advance(now);
    plays = plays || gif.IsPlaying();
  }
  if (!plays) timer_.reset();
}

void GifAnimado::TellEvent(Control& control, std::string_view word) {
  ObjectFamily::OnClick(control);
  windows().events.EventoClique = word;
  windows().events.EventoGif = word;
}

void GifAnimado::OnClick(Control& control) {
  TellEvent(control, "CLIQUE");
}

void GifAnimado::OnDoubleClick(Control& control) {
  TellEvent(control, "DUPLOCLIQUE");
}

void GifAnimado::Gone(Control& control) {
  static_cast<GifControl&>(control).Stop();
}

void GifAnimado::Reset() {
  timer_.reset();
  ObjectFamily::Reset();
}

}  // namespace tessera

#include "media/som.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/window_model.h"

namespace tessera::media {

namespace {

constexpr ControlPlace kPlayerSize = {.Width = 320, .Height = 240};
constexpr Milliseconds kTimerSound{100};
constexpr std::string_view kTempo = ".Tempo";
constexpr std::string_view kPosicao = ".Posicao";

Som& Family(const SuffixCall& call) {
  return static_cast<Som&>(call.family);
}

MediaPlayerControl& MediaPlayer(const SuffixCall& call) {
  return call.As<MediaPlayerControl>();
}

// One side of the place, in lines or columns.
Value SetPlace(const SuffixCall& call, double ControlPlace::*side, double pixels) {
  ControlPlace place = call.control.Place();
  place.*side = call.Number().ToDouble() * pixels;
  call.control.Move(place);
  return {};
}

Value Linha(const SuffixCall& call) {
  return SetPlace(call, &ControlPlace::Top, call.frame.windows().TamLin);
}

Value Coluna(const SuffixCall& call) {
  return SetPlace(call, &ControlPlace::Left, call.frame.windows().TamCol);
}

Value Largura(const SuffixCall& call) {
  return SetPlace(call, &ControlPlace::Width, call.frame.windows().TamCol);
}

Value NomeArquivo(const SuffixCall& call) {
  MediaPlayer(call).NextFile = call.Text();
  return {};
}

Value Loop(const SuffixCall& call) {
  MediaPlayer(call).Loop = suffix::IsSim(call);
  return {};
}

template <void (Som::*Act)(MediaPlayerControl& control)>
Value On(const SuffixCall& call) {
  (Family(call).*Act)(MediaPlayer(call));
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo},
    {".VISIVEL", suffix::Visivel},
    {".INDICETAB", suffix::IndiceTab},
    {".NOMEARQUIVO", NomeArquivo},
    {".LINHA", Linha},
    {".COLUNA", Coluna},
    {".ALTURA", suffix::Altura},
    {".LARGURA", Largura},
    {".TOCAR", On<&Som::Tocar>},
    {".PARAR", On<&Som::Parar>},
    {".CONTINUAR", On<&Som::Continuar>},
    {".PAUSAR", On<&Som::Parar>},
    {".FIM", On<&Som::Fim>},
    {".LOOP", Loop},
};

Value InMilliseconds(Milliseconds time) {
  return static_cast<double>(time.count());
}

}  // namespace

// The control

MediaPlayerControl::MediaPlayerControl(Form& form, ControlEvents& events, int index)
    : ScreenControl(form, events, index, kPlayerSize) {
  SetBackColor(0);
}

ControlPlace MediaPlayerControl::PlaceOfFrame(Size frame) const {
  const double scale = std::min(Place().Width / frame.width, Place().Height / frame.height);
  const double width = frame.width * scale;
  const double height = frame.height * scale;
  return {.Left = (Place().Width - width) / 2,
          .Top = (Place().Height - height) / 2,
          .Width = width,
          .Height = height};
}

// The family

Som::Som(ObjectFrame& frame, Media& media) : ObjectFamily(frame, "Som", kSuffixes), media_(media) {}

void Som::BindVideo(CommandTable& table) {
  table.Add("Video", [this](const WordCall& call) { return Do(call); });
}

std::shared_ptr<Control> Som::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<MediaPlayerControl>(form, *this, index);
}

void Som::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& player = static_cast<MediaPlayerControl&>(control);
  player.NextFile = arguments.Text("arquivo");
  player.Loop = false;
  if (!timerSound_) StartTimer();
}

bool Som::IsShownAtFirst(const Arguments& arguments) const {
  return arguments.word().name == "Video";
}

// A name behind a "$" is that of the variable which holds the name.
std::string Som::LookupName(std::string_view written) {
  if (!written.starts_with('$')) return std::string(written);
  return run().variables.VarRead(Mid(written, 2)).ToText();
}

// Its element may stand on, hidden.
void Som::OnRemoved(Control& control) {
  auto& player = static_cast<MediaPlayerControl&>(control);
  Fim(player);
  player.player.reset();
}

void Som::Reset() {
  timerSound_.reset();
  ObjectFamily::Reset();
}

// Playing

void Som::Tocar(MediaPlayerControl& control) {
  Fim(control);
  const std::string place = run().paths.SystemPath(control.NextFile);
  const int error = run().host.files.Open(place, OpenAs::Read).error;
  if (error == ENOENT || error == ENOTDIR) Fail(53);
  if (error != 0) Fail(75);
  // A box on the way may let a timer in: the control is open only when all is there.
  const std::string file = control.NextFile;
  const Milliseconds length = media_.LengthOf(place);
  if (!control.player) control.player = NewPlayer(control);
  control.FileName = file;
  control.path = place;
  control.knownLength = length;
  OpenAndPlay(control);
  if (control.knownLength.count() == 0) AwaitLoading(*control.player);
  TellCompanion(control, kTempo, InMilliseconds(control.player->Length()));
}

std::unique_ptr<Player> Som::NewPlayer(MediaPlayerControl& control) {
  return media_.NewPlayer([weak = control.weak_from_this()](PictureRef frame) {
    if (const auto held = weak.lock()) static_cast<MediaPlayerControl&>(*held).SetFrame(std::move(frame));
  });
}

void Som::OpenAndPlay(MediaPlayerControl& control) {
  control.player->Open(control.path, control.knownLength);
  control.player->Play();
  media_.host().TellPlaying(control.FileName);
}

// A pause this long lets the machine go on with it, and no event in.
void Som::AwaitLoading(Player& player) {
  constexpr Milliseconds kStep{60};
  constexpr Milliseconds kMost{1000};
  for (Milliseconds waited{0}; player.IsLoading() && waited < kMost; waited += kStep)
    run().host.events.Pause(kStep);
}

void Som::Parar(MediaPlayerControl& control) {
  if (control.IsOpen()) control.player->Pause();
}

// OPEN: behind its end a file goes on with nothing; it is `.TOCAR` that starts it anew.
void Som::Continuar(MediaPlayerControl& control) {
  if (control.IsOpen()) control.player->Play();
}

void Som::Fim(MediaPlayerControl& control) {
  if (!control.IsOpen()) return;
  control.player->Close();
  control.path.clear();
  control.SetFrame(nullptr);
}

// The timer

// Its ticks are those of a timer that runs from the start of the run: nobody could see the ones before the
// first object (FAST).
void Som::StartTimer() {
  EventDispatch& events = run().host.events;
  const auto first = kTimerSound - events.DispatchTime() % kTimerSound;
  timerSound_ = events.StartTimer(first, [this] {
    timerSound_ = run().host.events.StartTimer(kTimerSound, [this] { TimerSound(); });
    TimerSound();
  });
}

void Som::TimerSound() {
  // A box may let a program's timer in, which makes further rows.
  for (std::size_t index = 0; index < Rows().size(); ++index) {
    const ObjectRow& row = Rows()[index];
    const auto control = std::static_pointer_cast<MediaPlayerControl>(row.object.lock());
    if (control && !row.name.empty() && control->IsOpen()) Publish(*control);
  }
}

void Som::Publish(MediaPlayerControl& control) {
  Player& player = *control.player;
  if (const std::string problem = player.TakeProblem(); !problem.empty()) ShowCritical(run(), problem);
  if (!control.IsOpen()) return;
  const Milliseconds length = player.Length();
  TellCompanion(control, kTempo, InMilliseconds(length));
  TellCompanion(control, kPosicao, InMilliseconds(player.Position()));
  if (control.Loop && length.count() > 0 && player.HasEnded()) OpenAndPlay(control);
}

}  // namespace tessera::media

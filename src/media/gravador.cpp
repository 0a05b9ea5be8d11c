#include "media/gravador.h"

#include <vector>

#include "platform/arriving_file.h"
#include "platform/system_reason.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::media {

Gravador::Gravador(CommandTable& table, Run& run, Media& media, std::uint64_t most)
    : run_(run), media_(media), most_(most) {
  constexpr MemberRow<Gravador> kRows[] = {{"GravaSom", &Gravador::GravaSom}};
  Bind(table, kRows, *this);
}

// What is still heard goes into the recording, which goes with it.
Gravador::~Gravador() {
  if (device_) device_->Close();
}

Value Gravador::GravaSom(const WordCall& call) {
  constexpr KeywordTable<Gravador>::Row kActs[] = {
      {"INICIAR", &Gravador::Iniciar},
      {"PARAR", &Gravador::Parar},
      {"SALVAR", &Gravador::Salvar},
  };
  static const KeywordTable<Gravador> kForms(FindWord("GravaSom")->more.keywords, {kActs});
  return DoKeyword(*this, kForms, call);
}

// KEPT: the device is set up twice, the first time with a format that is not computed to its end
// (MediaOnTheTerminal.WithoutADeviceEachStepOfTheRecorderIsToldTwice).
void Gravador::Iniciar(const ArgumentView&) {
  OpenDevice();
  format_ = {.samplesPerSecond = kSamplesPerSecond, .channels = kChannels, .bitsPerSample = kBitsPerSample};
  SetFormat();
  format_.alignment = format_.channels * format_.bitsPerSample / 8;
  format_.bytesPerSecond = format_.samplesPerSecond * format_.alignment;
  OpenDevice();
  SetFormat();
  StartRecording();
  startedAt_ = run_.host.clock.Now();
}

void Gravador::Parar(const ArgumentView&) {
  StopRecording();
}

void Gravador::Salvar(const ArgumentView& arguments) {
  const std::string name = arguments.Text("arquivo");
  SaveRecording(name);
  CloseDevice();
}

// The device

void Gravador::OpenDevice() {
  if (device_ && !device_->Close()) Tell("Erro no fechamento geral !"_w);
  recording_.reset();
  device_ = media_.NewMicrophone();
  if (device_ && !device_->Open()) device_.reset();
  if (!device_) Tell("Erro de abertura do arquivo!"_w);
}

void Gravador::SetFormat() {
  if (!device_ || !device_->SetFormat(format_)) Tell("Definições não consistentes!"_w);
  if (!SeekToStart()) Tell("Erro de inicialização!"_w);
}

bool Gravador::SeekToStart() {
  if (!device_) return false;
  recording_.emplace(most_);
  return recording_->error() == 0;
}

void Gravador::StartRecording() {
  if (!device_ || !recording_) return;
  device_->Start([this](std::span<const SoundFrame> frames) { recording_->Append(frames); });
}

void Gravador::StopRecording() {
  if (device_) device_->Stop();
}

// KEPT: a name with a blank is none, and nothing is said of it
// (MediaOnTheTerminal.ANameWithABlankSavesNothingAndClosesTheDevice). OPEN: what a disk refuses is told, for
// the recording is lost with it.
void Gravador::SaveRecording(const std::string& name) {
  StopRecording();
  if (!recording_ || name.empty() || Contains(name, " ")) return;
  int error = 0;
  if (!WriteWave(run_.paths.SystemPath(name), error)) {
    Tell(std::string("A gravação não foi salva"_w)
             .append(error == 0 ? "" : ": " + FromUtf8Lossy(SystemReason(error)))
             .append("."));
  } else if (recording_->error() != 0) {
    Tell(std::string("A gravação terminou antes da hora: "_w)
             .append(FromUtf8Lossy(SystemReason(recording_->error())))
             .append("."));
  }
}

bool Gravador::WriteWave(const std::string& place, int& error) {
  constexpr std::size_t kPortion = 16'384;
  SoundFiles* const sounds = media_.Sounds();
  if (sounds == nullptr) return false;
  ArrivingFile file(run_.host.files, place);
  const auto wave = sounds->NewWave(
      [&](std::uint64_t offset, std::string_view bytes) { return error = file.WriteAt(offset, bytes); });
  if (!wave) return false;
  for (std::uint64_t at = 0; at < recording_->Frames();) {
    const std::vector<SoundFrame> frames = recording_->Read(at, kPortion);
    if (frames.empty() || !wave->Write(frames)) return false;
    at += frames.size();
  }
  if (!wave->Finish()) return false;
  error = file.Commit();
  return error == 0;
}

void Gravador::CloseDevice() {
  if (device_) device_->Close();
  device_.reset();
  recording_.reset();
}

void Gravador::Tell(std::string_view message) {
  run_.host.dialogs.ShowBox({.text = std::string(message), .title = ProgramTitle(run_)});
}

}  // namespace tessera::media

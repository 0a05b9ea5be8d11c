#include "media/web_cam.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/file_store.h"
#include "platform/paths.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/picture_file.h"
#include "windows/window_model.h"

namespace tessera::media {

namespace {

constexpr ControlPlace kCaptureSize = {.Width = 320, .Height = 240};
constexpr std::string_view kPicOutPut = "PicOutPut";
constexpr Milliseconds kTmrMain{100};
constexpr std::int16_t kFrameInterval = 3;
constexpr std::int16_t kJpegQuality = 25;

// Empty and 0 are the number that stands for them.
std::int16_t NumberOr(const ArgumentView& arguments, ArgumentName name, std::int16_t otherwise) {
  const auto value = arguments.OptionalNumber(name);
  const std::int16_t number = value ? value->ToShort() : std::int16_t{0};
  return number == 0 ? otherwise : number;
}

// The text before the last separator, where there is a folder in it.
std::string_view FolderPart(std::string_view path) {
  constexpr std::size_t kDrive = 2;
  const auto last = std::find_if(path.rbegin(), path.rend(), IsPathSeparator);
  if (last == path.rend()) return {};
  const std::string_view folder = path.substr(0, static_cast<std::size_t>(path.rend() - last) - 1);
  return folder.size() > kDrive ? folder : std::string_view();
}

std::string FiveDigits(std::int32_t number) {
  constexpr std::size_t kDigits = 5;
  std::string digits = std::to_string(number);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
  return digits;
}

}  // namespace

// The picture area

CameraControl::CameraControl(Form& form, ControlEvents& events)
    : ScreenControl(form, events, 0, kCaptureSize) {}

ControlPlace CameraControl::PlaceOfFrame(Size frame) const {
  const double scale = std::min({1.0, Place().Width / frame.width, Place().Height / frame.height});
  return {.Left = 0, .Top = 0, .Width = frame.width * scale, .Height = frame.height * scale};
}

// The command

WebCam::WebCam(CommandTable& table, Run& run, WindowModel& windows, Media& media)
    : run_(run), windows_(windows), media_(media) {
  constexpr MemberRow<WebCam> kRows[] = {{"WebCam", &WebCam::Do}};
  Bind(table, kRows, *this);
}

Value WebCam::Do(const WordCall& call) {
  constexpr KeywordTable<WebCam>::Row kActs[] = {
      {"CONFIG", &WebCam::Config},
      {"INICIA", &WebCam::Inicia},
      {"PARE", &WebCam::Pare},
  };
  static const KeywordTable<WebCam> kForms(FindWord("WebCam")->more.keywords, {kActs});
  return DoKeyword(*this, kForms, call);
}

CameraControl& WebCam::PicOutPut() {
  Form& form = windows_.MainWindow();
  if (!form.Controls().Element(kPicOutPut, 0)) {
    form.LoadControl(kPicOutPut, std::make_shared<CameraControl>(form, *this));
    form.Controls().Element(kPicOutPut, 0)->SetName(kPicOutPut);
  }
  return static_cast<CameraControl&>(*form.Controls().Element(kPicOutPut, 0));
}

void WebCam::Config(const ArgumentView& arguments) {
  const ControlPlace place = {.Left = arguments.Number("coluna").ToDouble() * windows_.TamCol,
                              .Top = arguments.Number("linha").ToDouble() * windows_.TamLin,
                              .Width = arguments.Number("largura").ToDouble() * windows_.TamCol,
                              .Height = arguments.Number("altura").ToDouble() * windows_.TamLin};
  const std::int16_t interval = NumberOr(arguments, "intervalo", kFrameInterval);
  const std::string path = arguments.IsEmpty("arquivo") ? std::string() : arguments.Text("arquivo");
  const std::int16_t quality = NumberOr(arguments, "qualidade", kJpegQuality);
  PicOutPut().Move(place);
  PicOutPut().SetVisible(true);
  FrameInterval_ = interval;
  OutputPath_ = path;
  JpegQuality_ = quality;
  TickCount_ = 0;
  FrameNumber_ = 0;
  const std::string_view folder = FolderPart(OutputPath_);
  if (!folder.empty()) run_.host.files.MakeFolders(run_.paths.SystemPath(folder));
}

// Without a camera its timer ticks all the same.
void WebCam::Inicia(const ArgumentView&) {
  if (camera_) camera_->Disconnect();
  camera_ = media_.NewCamera();
  run_.host.events.ProcessEvents();
  PicOutPut().SetFrame(nullptr);
  if (camera_ && !camera_->Connect()) camera_.reset();
  tmrMain_ = run_.host.events.StartTimer(kTmrMain, [this] { Tick(); });
}

void WebCam::Pare(const ArgumentView&) {
  tmrMain_.reset();
  run_.host.events.ProcessEvents();
  if (camera_) camera_->Disconnect();
  camera_.reset();
}

// OPEN: where nothing was configured the failure goes to whoever waits, and comes once.
void WebCam::Tick() {
  if (FrameInterval_ == 0) {
    tmrMain_.reset();
    FailDivision();
  }
  if (TickCount_ % FrameInterval_ == 0 && camera_) {
    if (const PictureRef picture = camera_->Grab()) {
      PicOutPut().SetFrame(picture);
      if (!OutputPath_.empty()) SaveStill(*picture);
    }
  }
  ++TickCount_;
}

// OPEN: a still that the disk refuses is dropped, and its number is that of the next one.
void WebCam::SaveStill(const Picture& picture) {
  const std::string place = run_.paths.SystemPath(OutputPath_ + FiveDigits(FrameNumber_));
  FileStore& files = run_.host.files;
  PictureCodec* const codec = windows_.pictures.Codec();
  if (codec == nullptr) return;
  const std::string bitmap = place + ".bmp";
  if (SavePicture(codec->EncodeBitmap(picture.raster), files, bitmap) != 0) return;
  const std::string jpeg = codec->EncodeJpeg(picture.raster, std::clamp<int>(JpegQuality_, 1, 100));
  const int error = SavePicture(jpeg, files, place + ".jpg");
  files.Remove(bitmap);
  if (error == 0) ++FrameNumber_;
}

}  // namespace tessera::media

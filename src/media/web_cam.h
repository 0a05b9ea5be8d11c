// `WebCam`: shows what the camera sees in the picture area `PicOutPut` of the main window, and saves a
// numbered series of stills. The timer `tmrMain` takes the frames.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "media/keyword_call.h"
#include "media/media.h"
#include "media/screen_control.h"
#include "platform/host.h"

namespace tessera {

struct WindowModel;

}  // namespace tessera

namespace tessera::media {

class CameraControl final : public ScreenControl {
 public:
  CameraControl(Form& form, ControlEvents& events);

  bool TakesFocus() const override { return false; }
  // At the upper left corner in its own size; what is larger than the area is made to fit.
  ControlPlace PlaceOfFrame(Size frame) const override;
};

class WebCam final : public ControlEvents {
 public:
  // All outlive it.
  WebCam(CommandTable& table, Run& run, WindowModel& windows, Media& media);

 private:
  Value Do(const WordCall& call);
  void Config(const ArgumentView& arguments);
  void Inicia(const ArgumentView& arguments);
  void Pare(const ArgumentView& arguments);

  // Failure 11 where nothing was configured.
  void Tick();
  void SaveStill(const Picture& picture);
  CameraControl& PicOutPut();

  Run& run_;
  WindowModel& windows_;
  Media& media_;
  std::unique_ptr<Camera> camera_;
  std::unique_ptr<Timer> tmrMain_;
  std::int16_t FrameInterval_ = 0;
  std::int16_t JpegQuality_ = 0;
  std::string OutputPath_;
  std::int32_t TickCount_ = 0;
  std::int32_t FrameNumber_ = 0;
};

}  // namespace tessera::media

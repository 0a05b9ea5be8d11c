// `GifAnimado`, an animated picture: the control `GifAni`, placed like any object, or the floating player
// `AniGif`, which paints on the main window with no ground of its own, behind its objects.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "objects/object_family.h"
#include "platform/host.h"
#include "windows/animation.h"

namespace tessera {

class SharedPictures;

class GifControl final : public Control {
 public:
  enum class Kind { Placed = 0, Floating = 1 };

  // The pictures outlive it.
  GifControl(Form& form, ControlEvents& events, int index, Kind kind, SharedPictures& pictures);

  Kind kind() const { return kind_; }

  // From its first frame, standing still; null shows nothing.
  void SetAnimation(AnimationRef animation);
  // The frame that is shown; null where there is none.
  const Raster* Seen() const { return film_ ? &film_->Seen() : nullptr; }

  // Its frame where that is a drawing of the stock, which is all there is to see then.
  const AnimationFrame* WholeFrame() const;

  // Frames count from 1; 0 frames without an animation.
  std::int32_t Frames() const;
  std::int32_t Frame() const { return film_ ? static_cast<std::int32_t>(film_->Frame()) + 1 : 0; }
  // A number that no frame has changes nothing.
  void SetFrame(std::int32_t frame);

  // How often the animation begins anew before it stands still at its last frame; a negative number is
  // without end. Nothing is what its file tells.
  void SetLoop(std::optional<std::int32_t> times) { loop_ = times; }
  void Play(std::chrono::milliseconds now);
  void Stop() { due_.reset(); }
  bool IsPlaying() const { return due_.has_value(); }
  // Shows what is due at that time.
  void Advance(std::chrono::milliseconds now);

  // A size of its own, to which the frames are stretched.
  void SetStretch() { stretch_ = true; }
  // As a new object.
  void Reset();

  bool TakesFocus() const override { return false; }
  bool LiesBehind() const override { return kind_ == Kind::Floating; }
  bool TakesPointer() const override { return kind_ == Kind::Placed; }
  bool IsInReach() const override { return kind_ == Kind::Placed && Control::IsInReach(); }
  void OnMouseUp(MouseButton button, PointerPlace at) override;
  void Click() override { Events().OnClick(*this); }
  void DoubleClick() override { Events().OnDoubleClick(*this); }

  bool DrawOn(Raster& face) const override;

 private:
  bool MayBeginAnew();

  Kind kind_;
  SharedPictures& pictures_;
  std::optional<Film> film_;
  bool stretch_ = false;
  std::optional<std::int32_t> loop_;
  std::int64_t begun_ = 0;                        // how often it began anew since it plays
  std::optional<std::chrono::milliseconds> due_;  // when its frame is over; nothing while it stands still
};

class GifAnimado final : public ObjectFamily {
 public:
  explicit GifAnimado(ObjectFrame& frame);

  // A stock animation, or a file; a missing one is told in a box, and the old one stays.
  void SetImage(GifControl& gif, const std::string& name);
  void Play(GifControl& gif);

  void OnClick(Control& control) override;
  void OnDoubleClick(Control& control) override;

  void Reset() override;

 protected:
  std::string ArrayFor(const Arguments& arguments) override;
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  void Gone(Control& control) override;

 private:
  void TellEvent(Control& control, std::string_view word);
  void OnTick();

  // Ticks as long as one of them plays.
  std::unique_ptr<Timer> timer_;
};

}  // namespace tessera

// The parts of the preview that no program can make: the page in its frame, and the arrows below it.
#pragma once

#include <functional>
#include <string_view>

#include "reports/page.h"
#include "reports/page_painter.h"
#include "windows/control.h"

namespace tessera::reports {

// The control array of the arrows.
inline constexpr std::string_view kImgSeta = "ImgSeta";

// One of the four arrows `ImgSeta`: to the first page, back, on, to the last. Each has a picture at rest and
// a pressed one.
class SetaControl final : public Control {
 public:
  SetaControl(Form& form, ControlEvents& events, int index);

  bool IsPressed() const { return isPressed_; }
  // The pointer's button over the arrow; it counts as a click where it is let go inside.
  void PointerDown() { Set(isPressed_, true); }
  void PointerUp(bool inside);

  bool TakesFocus() const override { return false; }
  void Click() override { Events().OnClick(*this); }
  // The arrows share one name: a script tells them by their number.
  void ClickTitle(std::string_view number) override;

 private:
  bool isPressed_ = false;
};

// The page `PicXRel` in its frame: how large it is shown, and which part of it.
class PaginaControl final : public Control {
 public:
  // The painter outlives the control.
  PaginaControl(Form& form, ControlEvents& events, PagePainter& painter);

  // Nothing is a white page. It outlives its showing.
  const Page* Shown() const { return page_; }
  void Show(const Page* page) { Set(page_, page); }
  PagePainter& Painter() const { return painter_; }

  // Pixels of the screen for one of the page picture's.
  double Zoom() const { return zoom_; }
  void SetZoom(double zoom) { Set(zoom_, zoom); }
  // The page's size on the screen, and its upper left corner in the frame.
  double PageWidth() const { return kPagePixels.width * zoom_; }
  double PageHeight() const { return kPagePixels.height * zoom_; }
  double PageLeft() const { return left_; }
  double PageTop() const { return top_; }
  void MovePage(double left, double top);

  // The wheel was turned: pixels that the page shall go down.
  std::function<void(double pixels, bool zooms)> Wheel;

 private:
  PagePainter& painter_;
  const Page* page_ = nullptr;
  double zoom_ = 1;
  double left_ = 0;
  double top_ = 0;
};

}  // namespace tessera::reports

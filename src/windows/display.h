// The display: what the logic needs of windows and of the screen. The logic of `windows/` owns this
// interface, each host implements it, and neither host decides anything that a program could notice. A
// property's value is kept here, once for all hosts; a host only shows it, in the `Show...` step that follows
// each change. What a person does reaches the logic through `FormEvents`.
#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/gradient.h"
#include "windows/surface.h"

namespace tessera {

// Twips are the unit of a window's outer placement and of the screen, pixels that of everything inside.
inline constexpr double kTwipsPerPixel = 15;
// What a window's outer height has beyond that of its client area; the outer width has nothing.
inline constexpr double kFrameTwips = 600;

// Twips of a line and of a column by which windows are measured; `kFrameTwips` comes to the height.
inline constexpr double kWindowLineTwips = 220;
inline constexpr double kWindowColumnTwips = 120;

constexpr double PixelsOfTwips(double twips) {
  return twips / kTwipsPerPixel;
}
constexpr double TwipsOfPixels(double pixels) {
  return pixels * kTwipsPerPixel;
}

// Outer placement of a window, in twips of the screen.
struct Placement {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;
};

enum class WindowState { Normal = 0, Maximised = 2 };

class Form : public Surface {
 public:
  // The hidden control that paints the window's gradient, and whether each resize repaints it.
  Gradiente Grd;
  bool GrdAtivo = false;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view text) {
    caption_ = text;
    ShowCaption();
  }

  // The picture that stands for the window; a window without one is allowed.
  const PictureRef& Icon() const { return icon_; }
  void SetIcon(PictureRef picture) {
    icon_ = std::move(picture);
    ShowIcon();
  }

  const Placement& Place() const { return place_; }
  // A window stands on whole pixels: the place taken is the nearest one.
  void Move(const Placement& place) {
    place_ = {OnPixels(place.Left), OnPixels(place.Top), OnPixels(place.Width), OnPixels(place.Height)};
    ShowPlace();
  }

  double ScaleWidth() const override { return PixelsOfTwips(place_.Width); }
  double ScaleHeight() const override { return PixelsOfTwips(place_.Height - kFrameTwips); }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) {
    visible_ = visible;
    ShowVisible();
  }

  WindowState State() const { return state_; }
  void SetState(WindowState state) {
    state_ = state;
    ShowState();
  }

  // Without it the window has no title bar, no control box and can't be resized by a person.
  bool Titlebar() const { return titlebar_; }
  void SetTitlebar(bool titlebar) {
    titlebar_ = titlebar;
    ShowTitlebar();
  }

 protected:
  // A client area of that many pixels, as a person or the screen made it.
  void TakeScale(double width, double height) {
    place_.Width = OnPixels(TwipsOfPixels(width));
    place_.Height = OnPixels(TwipsOfPixels(height)) + kFrameTwips;
  }
  void TakePosition(double left, double top) {
    place_.Left = left;
    place_.Top = top;
  }
  void TakeState(WindowState state) { state_ = state; }

  virtual void ShowCaption() {}
  virtual void ShowIcon() {}
  virtual void ShowPlace() {}
  virtual void ShowVisible() {}
  virtual void ShowState() {}
  virtual void ShowTitlebar() {}

 private:
  static double OnPixels(double twips) { return TwipsOfPixels(std::round(PixelsOfTwips(twips))); }

  std::string caption_;
  PictureRef icon_;
  Placement place_;
  WindowState state_ = WindowState::Normal;
  bool visible_ = false;
  bool titlebar_ = true;
};

enum class MouseButton { Left = 1, Right = 2 };

// State of the modifier keys with a key event.
struct KeyShift {
  bool shift = false;
  bool ctrl = false;
};

// Pixels of a line and of a column of a window's placement grid.
struct Grid {
  double TamLin;
  double TamCol;
};

// What happens to one window, told to the logic. A call may run the program (and end the process, by
// `ProcessEnd`); a host calls it from its dispatch alone. Pointer positions in pixels of the client area.
// What a kind of window doesn't feel does nothing.
class FormEvents {
 public:
  virtual ~FormEvents() = default;
  virtual void OnActivate() {}
  virtual void OnResize() {}
  // A person asks the window to close.
  virtual void OnClose() = 0;
  virtual void OnKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnMouseDown(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnMouseMove(double /*x*/, double /*y*/) {}
  virtual void OnMouseUp(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnClick() {}
  virtual void OnDoubleClick() {}

  virtual Grid PlacementGrid() const = 0;
};

// Width and height in twips.
struct ScreenSize {
  double Width = 0;
  double Height = 0;
};

class Display {
 public:
  virtual ~Display() = default;

  // The main window, hidden, in its design size. `events` outlives it.
  virtual std::unique_ptr<Form> NewMainForm(FormEvents& events) = 0;

  virtual ScreenSize Screen() = 0;
  virtual std::vector<std::string> FontNames() = 0;

  // A failure abandoned the run; "Editor: n Linha: m" and the failure's description.
  virtual void TellAbandonedRun(std::string_view position, std::string_view description) = 0;

  // Delivers events when the program's text has ended. It is left by `ProcessEnd` alone.
  virtual void ServeEvents() = 0;
};

}  // namespace tessera

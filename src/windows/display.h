// The display: what the logic needs of windows and of the screen. The logic of `windows/` owns this
// interface, each host implements it, and neither host decides anything that a program could notice. A
// property's value is kept here, once for all hosts; a host only shows it, in the `Show...` step that follows
// each change. What a person does reaches the logic through `FormEvents`.
#pragma once

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/control_arrays.h"
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

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

// The frame of a window and how a person may handle it.
struct WindowStyle {
  bool Titlebar = true;
  bool ControlBox = true;  // the system menu and the closing button
  bool MinButton = true;
  bool MaxButton = true;
  bool Sizable = true;
  bool ToolWindow = false;  // a narrow title, and no place among the desktop's windows
  bool TopMost = false;
  bool AutoDrag = false;         // the window moves when it is dragged by its client area
  bool AutoSysMenu = true;       // the system menu follows the buttons
  bool WhatsThisButton = false;  // a help button, where the title has neither of the two size buttons
};

enum class MouseButton { Left = 1, Right = 2 };

struct TextSize {
  double width = 0;
  double height = 0;
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
  // A person or the screen brought the window to the front.
  virtual void OnActivate() {}
  // The client area has another size, whoever changed it.
  virtual void OnResize() {}
  // A person asks the window to close.
  virtual void OnClose() = 0;
  // Keys while no object has the focus, or before the object that has it, where the window sees them first.
  virtual void OnKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}
  // A character is about to be typed; true where the window takes it away from its objects.
  virtual bool OnKeyPress(char /*character*/) { return false; }
  // Keys of the hidden key sink, which has the focus while no object has it.
  virtual void OnSinkKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnSinkKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnMouseDown(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnMouseMove(double /*x*/, double /*y*/) {}
  virtual void OnMouseUp(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnClick() {}
  virtual void OnDoubleClick() {}

  virtual Grid PlacementGrid() const = 0;
};

class Form : public Surface {
 public:
  // `events` outlives the window.
  explicit Form(FormEvents& events) : events_(events) {}

  FormEvents& Events() const { return events_; }

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
    const Placement before = std::exchange(
        place_, {OnPixels(place.Left), OnPixels(place.Top), OnPixels(place.Width), OnPixels(place.Height)});
    ShowPlace();
    if (place_.Width != before.Width || place_.Height != before.Height) events_.OnResize();
  }

  double ScaleWidth() const override { return PixelsOfTwips(place_.Width); }
  double ScaleHeight() const override { return PixelsOfTwips(place_.Height - kFrameTwips); }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) {
    visible_ = visible;
    ShowVisible();
  }

  // Shows the window above its opener and all others, which feel nothing of a person until it is hidden
  // again; the call returns then.
  void ShowModal(Form& opener) {
    PrepareModal(opener);
    SetVisible(true);
    ServeModal();
  }

  // Where set, the next showing leaves the focus with the window that has it.
  bool ShowWithoutFocus = false;

  // Brings a shown window to the front.
  virtual void Activate() {}

  WindowState State() const { return state_; }
  void SetState(WindowState state) {
    state_ = state;
    ShowState();
  }

  const WindowStyle& Style() const { return style_; }
  void SetStyle(const WindowStyle& style) {
    style_ = style;
    ShowStyle();
  }

  // The window sees keys before its objects do.
  bool KeyPreview = false;

  // The objects on the window.
  const ControlArrays& Controls() const { return controls_; }
  // Loads an element and lets the host show it; failure 360 for one that is loaded.
  void LoadControl(std::string_view array, std::shared_ptr<Control> control);
  void UnloadControl(std::string_view array, int index);
  void UnloadControls();

  // The object that has the focus; null is the window's hidden key sink.
  Control* Focus() const { return focus_.lock().get(); }
  // Null draws the focus to the sink, out of any object.
  void MoveFocus(Control* to);
  // Moves the focus on in the Tab order, or back. False where no object takes it.
  bool FocusNext(bool forward = true);
  // The control can keep the focus no longer.
  void DropFocus(const Control& control);
  int NextTabStamp() { return ++tabStamps_; }

  // A key goes down, types its character, and goes up, where the focus is. The Tab key moves the focus. True
  // where the window or Tab has used the key up; what the object itself did with it is the object's own.
  bool PressKey(int keyCode, KeyShift shift);
  bool TypeCharacter(char character);
  void ReleaseKey(int keyCode, KeyShift shift);
  // Width and height in pixels of one line of text.
  virtual TextSize MeasureText(std::string_view text, const FontFace& font) const = 0;

  // Cuts the window to the shape of what is drawn on it: it loses its caption, its ground takes the colour,
  // and what has the colour is cut out. A window that shows no such pixel keeps its full rectangle.
  void ShapeMe(Colour colour);
  // The runs of pixels that make the window; nothing for the full rectangle.
  const std::optional<Spans>& Shape() const { return shape_; }

  // Lets the pointer, whose button is down, move the window.
  virtual void DragForm() {}
  // Shows the system menu (sys_menu.h) at the pointer, where there is a screen.
  virtual void ShowSysMenu() {}

 protected:
  // The place before the window is first shown or felt.
  void TakeDesign(const Placement& place) { place_ = place; }
  // A client area of that many pixels, as a person or the screen made it.
  void TakeScale(double width, double height) {
    place_.Width = OnPixels(TwipsOfPixels(width));
    place_.Height = OnPixels(TwipsOfPixels(height)) + kFrameTwips;
    events_.OnResize();
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
  virtual void ShowStyle() {}
  virtual void ShowShape() {}
  // The host's picture of a control; none where nothing is shown.
  virtual std::unique_ptr<ControlView> NewView(Control& /*control*/) { return nullptr; }
  // The focus is the key sink's.
  virtual void ShowSinkFocus() {}
  // Makes the window modal, before it is shown.
  virtual void PrepareModal(Form& /*opener*/) {}
  // Delivers events until the window is hidden.
  virtual void ServeModal() = 0;

 private:
  // The window's part of a key, and whether it has used it up.
  bool PreviewKey(int keyCode, KeyShift shift);
  bool PreviewCharacter(char character);
  static double OnPixels(double twips) { return TwipsOfPixels(std::round(PixelsOfTwips(twips))); }

  FormEvents& events_;
  std::string caption_;
  PictureRef icon_;
  Placement place_;
  WindowState state_ = WindowState::Normal;
  WindowStyle style_;
  std::optional<Spans> shape_;
  bool visible_ = false;
  ControlArrays controls_;
  std::weak_ptr<Control> focus_;
  std::weak_ptr<Control> lastFocus_;  // where the Tab key goes on from the sink
  int tabStamps_ = 0;
};

// How a host finds the windows that a person's acts go to.
class WindowDirectory {
 public:
  virtual ~WindowDirectory() = default;
  // The window that feels what is done without a name: the modal one, else the current one.
  virtual Form* WindowInHand() const = 0;
  // By name, blind to case; nothing where there is none.
  virtual Form* FindWindow(std::string_view name) const = 0;
  // False while a modal window keeps the person from it.
  virtual bool CanBeReached(const Form& form) const = 0;
  // By the name that the program gave it: that of the current window first, else the lowest row; nothing
  // where there is none. A tab or a menu entry goes by its text.
  virtual PersonObject* FindObject(std::string_view name) const = 0;
  // A line of an event script is done.
  virtual void OnLineDone() const = 0;
};

// Width and height in twips.
struct ScreenSize {
  double Width = 0;
  double Height = 0;
};

// A place on the screen, in pixels.
struct ScreenPoint {
  double x = 0;
  double y = 0;
};

struct VideoMode {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t bits = 0;
};

class Display {
 public:
  virtual ~Display() = default;

  // The main window, hidden, in its design size. `events` and `windows` outlive it.
  virtual std::unique_ptr<Form> NewMainForm(FormEvents& events, const WindowDirectory& windows) = 0;
  // A further window, hidden; tests and assistive tools find it by `name`.
  virtual std::unique_ptr<Form> NewForm(std::string_view name, FormEvents& events) = 0;

  // Shows or hides the pointer over all windows of the program.
  virtual void ShowPointer(bool visible) = 0;
  virtual ScreenPoint PointerPlace() = 0;

  // Changes the screen's mode. Empty, or the reason why it can't, in the user's language.
  virtual std::string SetVideoMode(const VideoMode& mode) = 0;

  // Puts a bitmap file, by the system's path, on the desktop. False where the desktop doesn't take it.
  virtual bool SetWallpaper(const std::string& bitmap) = 0;

  // Opens an address of the net, or a file, with the desktop's program for it. Where there is none, nothing.
  virtual void OpenAddress(std::string_view /*address*/) {}

  virtual ScreenSize Screen() = 0;
  virtual std::vector<std::string> FontNames() = 0;

  // A failure abandoned the run; "Editor: n Linha: m" and the failure's description.
  virtual void TellAbandonedRun(std::string_view position, std::string_view description) = 0;

  // Delivers events when the program's text has ended. It is left by `ProcessEnd` alone.
  virtual void ServeEvents() = 0;
};

}  // namespace tessera

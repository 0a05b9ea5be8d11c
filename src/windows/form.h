// A window of a program. A property's value is kept here, once for all hosts; a host only shows it, in the
// `Show...` step that follows each change. A person's acts with keys and pointer come in here too, and what
// they mean is decided here; what the logic behind the window feels of them goes to its `FormEvents`.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "windows/control_arrays.h"
#include "windows/form_events.h"
#include "windows/gradient.h"
#include "windows/surface.h"

namespace tessera {

struct TextSize {
  double width = 0;
  double height = 0;
};

class Form : public Surface {
 public:
  // `events` outlives the window, and the painter of what is printed on it. The place is not shown yet.
  Form(FormEvents& events, const Placement& place, TextPainter* painter = nullptr)
      : Surface(painter), events_(events), place_(place) {}

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
  void Move(const Placement& place);

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

  // The number by which other programs know the window; 0 where no window system has one.
  virtual std::uintptr_t hWnd() const { return 0; }

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
  void LoadControl(std::string_view array, const std::shared_ptr<Control>& control);
  void UnloadControl(std::string_view array, int index);
  void UnloadControls();
  // The number by which a host knows a new control of the window; none is given twice.
  int TakeControlNumber() { return ++controlNumbers_; }

  // The number of a control that comes to lie in front of all others of the window, or behind them.
  int TakeZStamp(ZOrder order) { return order == ZOrder::Front ? ++frontStamps_ : --backStamps_; }

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
  void TypeCharacter(char character);
  void ReleaseKey(int keyCode, KeyShift shift);

  // A button goes down, and up again, beside the objects of the window; the first of them may be the second
  // press of a double click. The left one going up is a click. With `AutoDrag` the window follows the pointer
  // meanwhile, and feels nothing.
  void PressButton(MouseButton button, PointerPlace at);
  void PressButtonAgain(PointerPlace at);
  void ReleaseButton(MouseButton button, PointerPlace at);
  void MovePointer(PointerPlace to);
  // The object in front at that place, where the pointer's buttons are its own; null where they are the
  // window's.
  Control* PointerTarget(PointerPlace at) const;
  // It is there, over an object.
  void TakePointer(PointerPlace at) { pointer_ = at; }
  // Where the pointer was last, in pixels of the client area.
  PointerPlace Pointer() const { return pointer_; }

  // Paints the texts of the surfaces on the window; none where nothing can.
  virtual TextPainter* SurfaceTexts() { return nullptr; }

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
  // A client area of that many pixels, as a person or the screen made it.
  void TakeScale(double width, double height);
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

  FormEvents& events_;
  std::string caption_;
  PictureRef icon_;
  Placement place_;
  WindowState state_ = WindowState::Normal;
  WindowStyle style_;
  std::optional<Spans> shape_;
  bool visible_ = false;
  ControlArrays controls_;
  int controlNumbers_ = 0;
  int frontStamps_ = 0;
  int backStamps_ = 0;
  std::weak_ptr<Control> focus_;
  std::weak_ptr<Control> lastFocus_;  // where the Tab key goes on from the sink
  int tabStamps_ = 0;
  PointerPlace pointer_;
  // Where the left button holds a window with `AutoDrag`.
  std::optional<PointerPlace> draggedAt_;
  // The second release of a double click is no click of its own.
  bool isPressedAgain_ = false;
};

}  // namespace tessera

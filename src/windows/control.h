// A control: the element of a window's control array that stands for one object of the program. Its
// properties are kept here, once for all hosts; a host shows them through a `ControlView` and hands the
// control what the person does. What the control feels it tells its owner, the family of the object.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "windows/input.h"
#include "windows/person_object.h"
#include "windows/surface.h"

namespace tessera {

class Control;
class Form;
class TextLayout;

// What happens to the controls of a family; a control's `Index` is its object's row. The owner outlives its
// controls and only writes down what it hears.
class ControlEvents {
 public:
  virtual ~ControlEvents() = default;
  virtual void OnClick(Control& /*control*/) {}
  virtual void OnDoubleClick(Control& /*control*/) {}
  virtual void OnChange(Control& /*control*/) {}
  virtual void OnGotFocus(Control& /*control*/) {}
  virtual void OnLostFocus(Control& /*control*/) {}
};

// What a host shows of a control. `Content` is all that a kind of control has of its own.
enum class ControlProperty { Name, Place, Visible, Enabled, Colours, Font, ToolTip, Parent, Order, Content };

// A control's place among those that it overlaps.
enum class ZOrder { Front, Back };

// A host's picture of one control; it goes with the control.
class ControlView {
 public:
  explicit ControlView(Control& control) : control_(control) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  Control& control() const { return control_; }

  // The property has another value.
  virtual void Follow(ControlProperty changed) = 0;
  // The keyboard goes to the control from now on.
  virtual void TakeFocus() = 0;
  // How a text of several lines is folded where it is shown; none for other controls.
  virtual const TextLayout* Layout() const { return nullptr; }

 private:
  Control& control_;
};

// Pixels of the window's client area, or of the picture in which the control lies.
struct ControlPlace {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;
};

class Control : public PersonObject, public std::enable_shared_from_this<Control> {
 public:
  // `place` has the size that the kind of control comes in. Both references outlive the control.
  Control(Form& form, ControlEvents& events, int index, const ControlPlace& place);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  ~Control() override;

  Form& form() const { return form_; }
  Form* Window() const override { return &form_; }
  int Index() const { return index_; }
  // The number by which hosts know it, on its window.
  int Number() const { return number_; }

  // The object's name, by which tests and assistive tools find the control.
  const std::string& Name() const { return name_; }
  void SetName(std::string_view name) { Set(name_, std::string(name), ControlProperty::Name); }

  const ControlPlace& Place() const { return place_; }
  void Move(const ControlPlace& place);

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  int TabIndex() const { return tabIndex_; }
  void SetTabIndex(int tabIndex);
  // Before another in the order of the Tab key: of two controls with one number the one that took it last.
  bool IsTabbedBefore(const Control& other) const;

  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour) { Set(backColor_, colour, ControlProperty::Colours); }
  Colour ForeColor() const { return foreColor_; }
  virtual void SetForeColor(Colour colour) { Set(foreColor_, colour, ControlProperty::Colours); }
  const FontFace& Font() const { return font_; }
  void SetFont(const FontFace& font);
  const std::string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(std::string_view text) {
    Set(toolTipText_, std::string(text), ControlProperty::ToolTip);
  }

  // The picture in which the control lies, and with which it moves; none is the window itself. It comes to
  // lie in front there. A picture doesn't go into itself, nor into what lies in it.
  Control* Parent() const { return parent_.lock().get(); }
  void SetParent(Control& picture);
  // Back to the window, for an element that becomes another object.
  void LeaveParent();
  bool LiesIn(const Control& picture) const;

  // In front of the others that lie where it lies, or behind them.
  void SetZOrder(ZOrder order);
  // Grows from the back to the front; below 0 for what lies behind all that was never moved.
  int ZStamp() const { return zStamp_; }
  // Whether a control of this kind lies behind the others from the start.
  virtual bool LiesBehind() const { return false; }

  // Its upper left corner in the window's client area, and whether a place of that area lies on the control.
  PointerPlace Corner() const;
  bool Holds(PointerPlace at) const;

  // Shown, and the pictures in which it lies as well.
  bool IsShown() const { return visible_ && (Parent() == nullptr || Parent()->IsShown()); }
  // Whether a person reaches it: shown and enabled, on its window and within its picture.
  bool IsInReach() const override;

  // Whether the keyboard can go to a control of this kind.
  virtual bool TakesFocus() const { return true; }
  // Whether Enter is the control's own, in a window that makes it a Tab.
  virtual bool TakesEnter() const { return false; }
  // Draws the keyboard here; nothing happens while a person couldn't do it either.
  void SetFocus() override;

  // Keys while the control has the focus, by code, and the characters that they type.
  virtual void OnKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnKeyPress(char /*character*/) {}
  virtual void OnKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}

  // Whether the pointer's buttons are the control's own, wherever it is pressed. Places count from the
  // control's corner, and lie beyond it while a pressed button holds the pointer.
  virtual bool TakesPointer() const { return false; }
  virtual void OnMouseDown(MouseButton /*button*/, PointerPlace /*at*/) {}
  virtual void OnMouseMove(PointerPlace /*to*/) {}
  virtual void OnMouseUp(MouseButton /*button*/, PointerPlace /*at*/) {}

  // What a picture of the window shows of it: its own pixels from its corner on, or, where it has none, the
  // text in its frame.
  virtual bool DrawOn(Raster& /*face*/) const { return false; }
  virtual std::string PortraitText() const { return {}; }

  // The window tells of the focus' coming and going.
  void GainFocus();
  void LoseFocus();

  // The host shows the control from now on.
  void TakeView(std::unique_ptr<ControlView> view);
  ControlView* View() const { return view_.get(); }

 protected:
  // Behind each change that a person can see.
  void Refresh(ControlProperty changed = ControlProperty::Content);
  ControlEvents& Events() const { return events_; }

  virtual void FocusGained() {}
  virtual void FocusLost() {}
  virtual void EnabledChanged() {}
  virtual void Resized() {}
  virtual void FontChanged() {}

  template <typename T>
  void Set(T& property, T value, ControlProperty changed = ControlProperty::Content) {
    property = std::move(value);
    Refresh(changed);
  }

 private:
  Form& form_;
  ControlEvents& events_;
  int index_;
  int number_;
  std::string name_;
  ControlPlace place_;
  bool visible_ = false;
  bool enabled_ = true;
  int tabIndex_ = 0;
  int tabStamp_ = 0;
  int zStamp_;
  Colour backColor_ = kButtonFaceColour;
  Colour foreColor_ = kButtonTextColour;
  FontFace font_{.name = "MS Sans Serif", .size = 8};
  std::string toolTipText_;
  std::weak_ptr<Control> parent_;
  std::unique_ptr<ControlView> view_;
};

}  // namespace tessera

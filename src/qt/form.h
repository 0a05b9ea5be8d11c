// A window of a program on the screen: a `Form` over a widget. The widget paints the ground and what was
// printed, and tells the logic what the person does; nothing is decided here.
#pragma once

#include <QSize>
#include <memory>
#include <string_view>

#include "qt/logic_entry.h"
#include "qt/surface_pane.h"
#include "windows/form.h"

class QString;
class QWidget;

namespace tessera {

class FormWidget;

// The window that the program itself brought to the front. Until the screen has followed, what it tells of
// other windows coming to the front on the way is no act of a person.
struct FrontWatch {
  const void* expected = nullptr;
};

class StageLead;

// What all windows of a host share; it outlives them.
struct FormSurroundings {
  TextPainter& painter;
  LogicEntry& entry;
  FrontWatch& front;
  DrawnPanes& drawn;
  StageLead* lead = nullptr;  // where an event script leads the windows, and no person
};

class QtForm final : public Form {
 public:
  // `objectName` is the name by which tests and assistive tools find the widget.
  QtForm(const QString& objectName, const Placement& place, FormEvents& events,
         const FormSurroundings& surroundings);
  ~QtForm() override;
  QtForm(const QtForm&) = delete;
  QtForm& operator=(const QtForm&) = delete;

  QWidget* widget();

  // True while it delivers events as a modal window.
  bool IsServing() const { return isServing_; }

  // Where what is drawn on the window and its objects waits to be shown.
  DrawnPanes& Drawn() const { return around_.drawn; }

  // A client area of that many pixels, by a script's person.
  void ResizeByPerson(double width, double height);

  std::uintptr_t hWnd() const override;
  void Activate() override;
  TextPainter* SurfaceTexts() override { return &around_.painter; }
  TextSize MeasureText(std::string_view text, const FontFace& font) const override;
  void DragForm() override;
  void ShowSysMenu() override;

 protected:
  void ShowGround() override;
  void ShowMouseIcon() override;
  void ShowIcon() override;
  void ShowErased() override;
  void ShowPrinted(std::string_view text, const TextMask& mask) override;
  void ShowDrawn(const Spans& spans, Pixel pixel) override;
  void ShowPainted(const PlacedPictures& pictures, bool erased) override;
  void ShowCaption() override;
  void ShowPlace() override;
  void ShowVisible() override;
  void ShowState() override;
  void ShowStyle() override;
  void ShowShape() override;
  std::unique_ptr<ControlView> NewView(Control& control) override;
  void ShowSinkFocus() override;
  void PrepareModal(Form& opener) override;
  void ServeModal() override;

 private:
  friend class FormWidget;

  void TakeSizeOfWidget();
  void TakeFront();
  void FitSizable();
  QPoint CornerOnScreen() const;
  QSize SizeOfWidget() const;
  bool DragBySystem();
  void WaitForFirstPainting();

  bool isServing_ = false;
  FormSurroundings around_;
  // FAST: lists measure many texts in one font, and asking for a font costs more than measuring in it.
  struct FontMeasures;
  mutable std::unique_ptr<FontMeasures> measures_;
  std::unique_ptr<FormWidget> widget_;
};

}  // namespace tessera

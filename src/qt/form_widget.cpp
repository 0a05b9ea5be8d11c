#include "qt/form_widget.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <utility>

#include "qt/form_acts.h"
#include "qt/key_codes.h"
#include "qt/mouse_events.h"
#include "windows/event_state.h"

namespace tessera {

namespace {

WindowState StateOf(const QWidget& widget) {
  if (widget.isMinimized()) return WindowState::Minimised;
  return widget.isMaximized() ? WindowState::Maximised : WindowState::Normal;
}

}  // namespace

FormWidget::FormWidget(QtForm& form, const QString& objectName)
    : form_(form), pane_(*this, form, form.raster_, form.around_.drawn) {
  setObjectName(objectName);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
}

void FormWidget::FitSurface() {
  if (devicePixelRatioF() != 1) pane_.Fit();
}

void FormWidget::paintEvent(QPaintEvent* event) {
  pane_.OnPaint(*event);
}

void FormWidget::focusInEvent(QFocusEvent*) {
  form_.around_.entry.Enter([this] { form_.MoveFocus(nullptr); });
}

// Only a size that the program did not give is news to the logic.
void FormWidget::resizeEvent(QResizeEvent*) {
  if (size() == form_.SizeOfWidget()) return;
  Do([this] { form_.TakeSizeOfWidget(); }, [this] { return ResizeLine(width(), height()); });
}

void FormWidget::moveEvent(QMoveEvent*) {
  if (isVisible() && form_.around_.lead == nullptr)
    form_.TakePosition(TwipsOfPixels(x()), TwipsOfPixels(y()));
}

void FormWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && form_.around_.lead == nullptr) {
    form_.TakeState(StateOf(*this));
  }
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    form_.TakeFront();
  }
}

// The logic decides what closing means; the widget stays until then.
void FormWidget::closeEvent(QCloseEvent* event) {
  event->ignore();
  Do([this] { form_.Events().OnClose(); }, [] { return std::string("fecha"); });
}

void FormWidget::keyPressEvent(QKeyEvent* event) {
  const int code = KeyCodeOf(*event);
  const KeyShift shift = ShiftOf(*event);
  Do(
      [this, code, shift] {
        if (!form_.PressKey(code, shift) && code == kKeyEnter)
          form_.TypeCharacter(static_cast<char>(kKeyEnter));
      },
      [&] { return KeyDownLine(code, shift); });
}

// A key that repeats itself stays down.
void FormWidget::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  const int code = KeyCodeOf(*event);
  const KeyShift shift = ShiftOf(*event);
  Do([this, code, shift] { form_.ReleaseKey(code, shift); }, [&] { return KeyUpLine(code); });
}

void FormWidget::mousePressEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  form_.around_.front.expected = nullptr;
  form_.TakeFront();
  const bool isLed = form_.around_.lead != nullptr;
  if (!isLed && button == MouseButton::Left && form_.Style().AutoDrag && form_.DragBySystem()) return;
  Do([this, button, at = PlaceOf(*event)] { form_.PressButton(*button, at); },
     [&] { return PressLines(form_, PlaceOf(*event), *button); });
}

void FormWidget::mouseMoveEvent(QMouseEvent* event) {
  Do([this, at = PlaceOf(*event)] { form_.MovePointer(at); },
     [&] { return MoveLine(form_, PlaceOf(*event)); });
}

void FormWidget::mouseReleaseEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  const bool ofDoubleClick = std::exchange(isDoubleClick_, false);
  Do([this, button, at = PlaceOf(*event)] { form_.ReleaseButton(*button, at); },
     [&] { return ofDoubleClick ? std::string() : ReleaseLine(*button); });
}

void FormWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  isDoubleClick_ = true;
  Do([this, at = PlaceOf(*event)] { form_.PressButtonAgain(at); }, [] { return std::string("duploclique"); });
}

}  // namespace tessera

#include "qt/looks/look.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <string>

#include "qt/key_codes.h"
#include "qttext/fonts.h"
#include "qttext/text.h"
#include "windows/form.h"

namespace tessera {

namespace {

// What a key types, as far as it is a character: the keys that edit have a code alone.
std::string TypedText(const QKeyEvent& event) {
  std::string typed;
  if (event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier))
    return typed;
  for (const char character : FromQString(event.text())) {
    const auto code = static_cast<unsigned char>(character);
    if (code == '\r' || (code >= ' ' && code != 127)) typed += character;
  }
  return typed;
}

QRect RectOf(const ControlPlace& place) {
  return {qRound(place.Left), qRound(place.Top), qRound(place.Width), qRound(place.Height)};
}

}  // namespace

LookView::LookView(std::unique_ptr<LookBody> body, Control& control, QWidget& window, LogicEntry& entry)
    : ControlView(control), body_(body.release()), window_(window), logic_(control, entry), entry_(entry) {
  QWidget& widget = Widget();
  // No Tab focus: the logic itself knows the order.
  widget.setFocusPolicy(control.TakesFocus() ? Qt::ClickFocus : Qt::NoFocus);
  widget.setAttribute(Qt::WA_InputMethodEnabled, control.TakesFocus());
  widget.setAttribute(Qt::WA_NoMousePropagation);
  widget.installEventFilter(this);
  FollowAll();
}

// The widget may be in the middle of an event that it told the logic of.
LookView::~LookView() {
  QWidget& widget = Widget();
  widget.removeEventFilter(this);
  body_->LoseControl();
  widget.hide();
  if (entry_.IsInside()) {
    widget.deleteLater();
  } else {
    delete &widget;
  }
}

// What a kind of control has of its own changes with every key; the rest seldom.
void LookView::Follow(ControlProperty changed) {
  if (changed == ControlProperty::Order) return Stack();
  if (changed != ControlProperty::Content) return FollowAll();
  body_->FollowControl();
}

void LookView::Stack() {
  if (control().ZStamp() < 0) {
    Widget().lower();
  } else {
    Widget().raise();
  }
}

void LookView::FollowAll() {
  QWidget& widget = Widget();
  QWidget* parent = &window_;
  if (Control* picture = control().Parent()) {
    if (auto* view = dynamic_cast<LookView*>(picture->View())) parent = &view->Widget();
  }
  if (widget.parentWidget() != parent) {
    widget.setParent(parent);
    Stack();
  }
  widget.setObjectName(ToQString(control().Name()));
  widget.setAccessibleName(ToQString(control().Name()));
  widget.setToolTip(ToQString(control().ToolTipText()));
  widget.setFont(ToQFont(control().Font()));
  widget.setEnabled(control().Enabled());
  widget.setGeometry(RectOf(control().Place()));
  body_->FollowControl();
  widget.setVisible(control().Visible());
}

void LookView::TakeFocus() {
  Widget().setFocus();
}

bool LookView::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      TakeFocusEvent(static_cast<const QFocusEvent&>(*event));
      return false;
    case QEvent::ShortcutOverride:
      event->accept();
      return true;
    case QEvent::KeyPress:
      TakeKey(static_cast<QKeyEvent&>(*event));
      return true;
    case QEvent::KeyRelease: {
      // In a script the key is let go in the line that presses it. The window below has no part in it.
      const auto& key = static_cast<QKeyEvent&>(*event);
      if (key.isAutoRepeat()) return true;
      logic_.Tell([code = KeyCodeOf(key), shift = ShiftOf(key)](Control& control) {
        control.form().ReleaseKey(code, shift);
      });
      return true;
    }
    case QEvent::InputMethod: {
      const QString committed = static_cast<QInputMethodEvent&>(*event).commitString();
      const std::string typed = FromQString(committed);
      logic_.Tell(
          [typed](Control& control) {
            for (const char character : typed) control.form().TypeCharacter(character);
          },
          [&](const Control&) { return TypingLines(typed); });
      return true;
    }
    default:
      return false;
  }
}

void LookView::TakeKey(const QKeyEvent& event) {
  if (body_->TakeShortcut(event)) return;
  const int code = KeyCodeOf(event);
  const std::string typed = TypedText(event);
  logic_.Tell(
      [code, shift = ShiftOf(event), typed](Control& control) {
        Form& form = control.form();
        if (form.PressKey(code, shift)) return;
        for (const char character : typed) form.TypeCharacter(character);
      },
      [&](const Control&) {
        return typed.empty() ? ActLines(KeyLine(code, ShiftOf(event))) : TypingLines(typed);
      });
}

// Only the pointer brings the focus by itself; else a key or the program does.
void LookView::TakeFocusEvent(const QFocusEvent& event) {
  logic_.Tell(
      [](Control& control) { control.form().MoveFocus(&control); },
      [&](const Control& control) {
        return event.reason() == Qt::MouseFocusReason ? ActLine({"foco", control.Name()}) : std::string();
      });
}

}  // namespace tessera

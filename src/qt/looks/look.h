// The looks of objects: each kind of control has a widget that shows it and feeds it keys and pointer. What
// all looks have in common stands here: the place and state that every control has, the focus, the keys, and
// the one way into the logic.
//
// A kind of look is a widget and a `LookBody` that follows the control; registry.cpp names them all.
#pragma once

#include <QObject>
#include <QWidget>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qt/logic_entry.h"
#include "windows/act_line.h"
#include "windows/control.h"

class QEvent;
class QFocusEvent;
class QKeyEvent;

namespace tessera {

// What a look does by itself. The widget is the body's own object: whoever deletes one has deleted both.
class LookBody {
 public:
  virtual ~LookBody() = default;
  virtual QWidget& Widget() = 0;
  // The control's own properties have changed; place, font and the like are followed already.
  virtual void FollowControl() { Widget().update(); }
  // The control is about to go; the widget may outlive it.
  virtual void LoseControl() {}
  // A key combination of the desktop's own, like that of the clipboard; true where it was one.
  virtual bool TakeShortcut(const QKeyEvent& /*event*/) { return false; }
  // How it folds a text of several lines.
  virtual const TextLayout* Layout() const { return nullptr; }
};

// The lines of one act: one, several, or none at all, which an empty line is.
inline std::vector<std::string> ActLines(std::vector<std::string> lines) {
  return lines;
}
inline std::vector<std::string> ActLines(std::string line) {
  return line.empty() ? std::vector<std::string>() : std::vector<std::string>{std::move(line)};
}

// Where a widget's events go into the logic. It goes with the control; what comes later is dropped.
class LookEntry {
 public:
  LookEntry(Control& control, LogicEntry& entry) : control_(control.weak_from_this()), entry_(entry) {}

  // Runs `act` on the control, unless that has gone in the meantime.
  template <typename T = Control, typename Act>
  void Tell(Act act) const {
    entry_.Enter([control = control_, act = std::move(act)] {
      if (const auto held = control.lock()) act(static_cast<T&>(*held));
    });
  }

  // The same for an act that a script can tell: where one is written, by the lines that `lines` gives.
  template <typename T = Control, typename Act, typename Lines>
  void Tell(Act act, Lines lines) const {
    if (!entry_.TellsActs()) return Tell<T>(std::move(act));
    const auto held = control_.lock();
    if (held == nullptr) return;
    for (std::string& line : ActLines(lines(static_cast<T&>(*held)))) {
      entry_.TellAct({.line = std::move(line), .window = &held->form()});
    }
  }

  // For what changes nothing but the sight of the control.
  template <typename T = Control, typename Act>
  void Glance(Act act) const {
    entry_.Glance([control = control_, act = std::move(act)] {
      if (const auto held = control.lock()) act(static_cast<T&>(*held));
    });
  }

 private:
  std::weak_ptr<Control> control_;
  LogicEntry& entry_;
};

// The view of a control: its look's widget, which lies on the window or in the picture of the control.
class LookView final : public QObject, public ControlView {
 public:
  LookView(std::unique_ptr<LookBody> body, Control& control, QWidget& window, LogicEntry& entry);
  ~LookView() override;

  QWidget& Widget() { return body_->Widget(); }

  void Follow(ControlProperty changed) override;
  void TakeFocus() override;
  const TextLayout* Layout() const override { return body_->Layout(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeKey(const QKeyEvent& event);
  void TakeFocusEvent(const QFocusEvent& event);
  void FollowAll();
  // Puts the widget in front of its neighbours, or behind them.
  void Stack();

  LookBody* body_;
  QWidget& window_;
  LookEntry logic_;
  LogicEntry& entry_;
};

// A look that paints itself: a widget for one control of the kind `T`.
template <typename T>
class PaintedLook : public QWidget, public LookBody {
 public:
  PaintedLook(T& control, LogicEntry& entry) : control_(control), logic_(control, entry) {
    setMouseTracking(true);
  }

  QWidget& Widget() override { return *this; }

 protected:
  T& control() const { return control_; }

  template <typename Act>
  void Tell(Act act) const {
    logic_.Tell<T>(std::move(act));
  }
  template <typename Act, typename Lines>
  void Tell(Act act, Lines lines) const {
    logic_.Tell<T>(std::move(act), std::move(lines));
  }
  template <typename Act>
  void Glance(Act act) const {
    logic_.Glance<T>(std::move(act));
  }

 private:
  T& control_;
  LookEntry logic_;
};

// The look of a control, by the control's kind.
std::unique_ptr<ControlView> NewLook(Control& control, QWidget& window, LogicEntry& entry);

}  // namespace tessera

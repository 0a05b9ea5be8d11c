#include "support/qt_person.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <map>

#include "qt/form.h"
#include "support/qt_objects.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

Qt::MouseButton ToQt(MouseButton button) {
  return button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton;
}

Qt::KeyboardModifiers ToQt(KeyShift shift) {
  return (shift.shift ? Qt::ShiftModifier : Qt::NoModifier) |
         (shift.ctrl ? Qt::ControlModifier : Qt::NoModifier);
}

Qt::Key KeyOf(int code) {
  static const std::map<int, Qt::Key> keys = {
      {8, Qt::Key_Backspace}, {9, Qt::Key_Tab},     {13, Qt::Key_Return},   {16, Qt::Key_Shift},
      {19, Qt::Key_Pause},    {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {35, Qt::Key_End},
      {36, Qt::Key_Home},     {37, Qt::Key_Left},   {38, Qt::Key_Up},       {39, Qt::Key_Right},
      {40, Qt::Key_Down},     {27, Qt::Key_Escape}, {46, Qt::Key_Delete},   {117, Qt::Key_F6},
  };
  const auto key = keys.find(code);
  return key == keys.end() ? static_cast<Qt::Key>(code) : key->second;
}

// Counts the dispatches on the stack, also where the program's end leaves them.
class Dispatching {
 public:
  explicit Dispatching(int& count) : count_(count) { ++count_; }
  ~Dispatching() { --count_; }
  Dispatching(const Dispatching&) = delete;
  Dispatching& operator=(const Dispatching&) = delete;

 private:
  int& count_;
};

}  // namespace

QWidget& QtPerson::InHand() const {
  return *static_cast<QtForm&>(*windows->WindowInHand()).widget();
}

QPoint QtPerson::PointerIn(const QWidget&) const {
  const Grid grid = windows->WindowInHand()->Events().PlacementGrid();
  return QPointF(pointerColumn_ * grid.TamCol, pointerLine_ * grid.TamLin).toPoint();
}

bool QtPerson::HostServes() const {
  if (windows == nullptr || windows->WindowInHand() == nullptr) return false;
  const auto& form = static_cast<QtForm&>(*windows->WindowInHand());
  return form.IsServing() || (form.Visible() && QThread::currentThread()->loopLevel() > 0);
}

PersonObject* QtPerson::FindObject(std::string_view name) {
  PersonObject* found = windows->FindObject(name);
  object_ = found == nullptr ? nullptr : RealEventsOn(*found);
  return object_.get();
}

bool QtPerson::TurnTo(PersonObject& object) {
  const Form* form = object.Window();
  if (form == nullptr) return object.IsInReach();
  if (!object.IsInReach() || !form->Visible() || !windows->CanBeReached(*form)) return false;
  object.SetFocus();
  return true;
}

void QtPerson::Click() {
  QTest::mouseClick(InHand().windowHandle(), Qt::LeftButton, {}, PointerIn(InHand()));
}

void QtPerson::DoubleClick() {
  QTest::mouseDClick(InHand().windowHandle(), Qt::LeftButton, {}, PointerIn(InHand()));
}

void QtPerson::PressButton(MouseButton button) {
  QTest::mousePress(InHand().windowHandle(), ToQt(button), {}, PointerIn(InHand()));
}

void QtPerson::ReleaseButton(MouseButton button) {
  QTest::mouseRelease(InHand().windowHandle(), ToQt(button), {}, PointerIn(InHand()));
}

void QtPerson::MovePointer(double line, double column) {
  pointerLine_ = line;
  pointerColumn_ = column;
  const Grid grid = windows->WindowInHand()->Events().PlacementGrid();
  const QPoint before = InHand().pos();
  QTest::mouseMove(InHand().windowHandle(), PointerIn(InHand()));
  // A window that moves slides along below the pointer.
  const QPoint moved = InHand().pos() - before;
  pointerLine_ -= moved.y() / grid.TamLin;
  pointerColumn_ -= moved.x() / grid.TamCol;
}

void QtPerson::TypeText(std::string_view text) {
  TypeCharacters(InHand().windowHandle(), text);
}

void QtPerson::PressKey(int keyCode, KeyShift shift) {
  QTest::keyPress(InHand().windowHandle(), KeyOf(keyCode), ToQt(shift));
}

// The press may have closed the window.
void QtPerson::ReleaseKey(int keyCode, KeyShift shift) {
  if (InHand().isVisible()) QTest::keyRelease(InHand().windowHandle(), KeyOf(keyCode), ToQt(shift));
}

void QtPerson::ResizeWindow(double lines, double columns) {
  InHand().resize(qRound(PixelsOfTwips(columns * kWindowColumnTwips)),
                  qRound(PixelsOfTwips(lines * kWindowLineTwips)));
}

bool QtPerson::TurnToWindow(std::string_view name) {
  Form* form = windows->FindWindow(name);
  if (form != nullptr) static_cast<QtForm*>(form)->widget()->activateWindow();
  return form != nullptr;
}

bool QtPerson::CloseWindow(std::string_view name) {
  Form* form = name.empty() ? windows->WindowInHand() : windows->FindWindow(name);
  if (form == nullptr) return false;
  QWidget& widget = *static_cast<QtForm*>(form)->widget();
  // The window system keeps a person from what lies below a modal window.
  QWidget* modal = QApplication::activeModalWidget();
  if (widget.isVisible() && (modal == nullptr || modal == &widget)) widget.close();
  return true;
}

void QtPerson::LetTimePass(std::chrono::milliseconds time, int times) {
  QTest::qWait(static_cast<int>(time.count()) * times);
}

std::string QtPerson::TakePortrait(std::string_view path) {
  return InHand().grab().save(QString::fromStdString(ToUtf8(path)), "PNG") ? "" : "no file";
}

ScriptedDispatch::ScriptedDispatch(EventDispatch& host, const std::string& script)
    : host_(host), lines_(FromUtf8Lossy(script)) {
  idle_.callOnTimeout([this] { PlayIdle(); });
  idle_.start(5);
}

void ScriptedDispatch::ProcessEvents() {
  const Dispatching now(dispatching_);
  host_.ProcessEvents();
}

bool ScriptedDispatch::AwaitEvents(std::chrono::milliseconds sleep) {
  const Dispatching now(dispatching_);
  const bool played = PlayLine();
  host_.AwaitEvents(sleep);
  return played;
}

bool ScriptedDispatch::AwaitNextEvents() {
  return AwaitEvents(std::chrono::milliseconds(0));
}

bool ScriptedDispatch::PlayLine() {
  std::string line;
  do {
    if (!std::getline(lines_, line)) return false;
  } while (line.empty() || line.starts_with('\''));
  const std::string fault = DoEventLine(line, person);
  EXPECT_EQ(fault, "") << line;
  return true;
}

void ScriptedDispatch::PlayIdle() {
  // The second tick of one serving: at the first one a window's own routine may still have to start.
  if (dispatching_ > 0 || !person.HostServes()) {
    wasServing_ = false;
  } else if (std::exchange(wasServing_, true)) {
    if (!PlayLine()) person.CloseWindow({});
  }
}

}  // namespace tessera::test

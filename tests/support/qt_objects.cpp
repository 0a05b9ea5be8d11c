#include "support/qt_objects.h"

#include <QApplication>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "objects/barra_rolagem.h"
#include "objects/box_control.h"
#include "objects/check.h"
#include "objects/menu_sistema.h"
#include "objects/moeda.h"
#include "objects/texto.h"
#include "qt/looks/calendario_look.h"
#include "qt/looks/combo_look.h"
#include "qt/looks/guia_look.h"
#include "qt/looks/look.h"
#include "qttext/text.h"
#include "reports/preview_controls.h"
#include "text/date.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/form.h"

namespace tessera::test {

namespace {

// Whatever kind of object: its widget is clicked in the middle.
class QtObject : public PersonObject {
 public:
  explicit QtObject(Control& control)
      : control_(control), widget_(static_cast<LookView&>(*control.View()).Widget()) {}

  Form* Window() const override { return control_.Window(); }
  bool IsInReach() const override { return control_.IsInReach(); }
  void SetFocus() override {
    if (control_.TakesFocus()) widget_.setFocus(Qt::MouseFocusReason);
  }
  void Click() override { ClickAt(widget_.rect().center()); }
  void DoubleClick() override { DoubleClickAt(widget_.rect().center()); }

 protected:
  Control& Target() const { return control_; }
  QWidget& Widget() const { return widget_; }
  QWindow* TopWindow() const { return widget_.window()->windowHandle(); }
  QPoint InWindow(QPointF at) const { return widget_.mapTo(widget_.window(), at.toPoint()); }
  void ClickAt(QPointF at) const { QTest::mouseClick(TopWindow(), Qt::LeftButton, {}, InWindow(at)); }
  void DoubleClickAt(QPointF at) const { QTest::mouseDClick(TopWindow(), Qt::LeftButton, {}, InWindow(at)); }

 private:
  Control& control_;
  QWidget& widget_;
};

class QtGrid final : public QtObject {
 public:
  explicit QtGrid(BoxControl& box) : QtObject(box), box_(box) {}

  // On the cursor row; without one on a place that has no row.
  void Click() override { ClickAt(CursorPlace()); }
  void DoubleClick() override { DoubleClickAt(CursorPlace()); }

  void ClickTitle(std::string_view title) override {
    for (int column = 0; column < Grid().TotalColunas(); ++column) {
      if (Trim(Grid().Columns()[static_cast<std::size_t>(column)].titulo) != title) continue;
      ShowColumn(column);
      ClickAt({Middle(column), box_.TitleHeight() / 2.0});
    }
  }

  void ClickRow(int row) override {
    if (row >= Grid().LinVet()) return;
    ShowRow(row);
    ClickAt(CellAt(row, 0));
  }

  // A notch of the wheel after the other; a recorded one takes effect at once.
  void ScrollTo(int row) override {
    const QPointF at = CellAt(Grid().LinIniVet(), 0);
    for (int top = -1; std::exchange(top, Grid().LinIniVet()) != top && top < row;) {
      QWheelEvent wheel(at, Widget().mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
      QApplication::sendEvent(&Widget(), &wheel);
    }
  }

  void EditCell(int row, int column, std::string_view text) override {
    if (!Grid().AlteraCelula() || row >= Grid().LinVet() || column >= Grid().TotalColunas()) return;
    ShowRow(row);
    ShowColumn(column);
    ClickAt(CellAt(row, column));
    QTest::keyClick(TopWindow(), Qt::Key_Home);
    QTest::keyClick(TopWindow(), Qt::Key_End, Qt::ShiftModifier);
    if (text.empty()) QTest::keyClick(TopWindow(), Qt::Key_Delete);
    for (const char character : text) QTest::keyClick(TopWindow(), character);
  }

 private:
  const NovoBox& Grid() const { return box_.Grid(); }

  double Middle(int column) const {
    return box_.ColumnLeft(column) + PixelsOfTwips(Grid().ColumnWidth(column)) / 2;
  }

  QPointF CellAt(int row, int column) const {
    const double height = PixelsOfTwips(Grid().RowHeight());
    return {Middle(column), box_.TitleHeight() + (row - Grid().LinIniVet() + 0.5) * height};
  }

  QPointF CursorPlace() const {
    if (Grid().ListIndex() >= 0) return CellAt(Grid().LinVetRef(), 0);
    const ControlPlace bar = box_.VerticalBarPlace();
    return {bar.Left + bar.Width / 2, bar.Top / 2};
  }

  // One click on an arrow after the other.
  void ShowRow(int row) const {
    const int top = Grid().LinIniVet();
    if (row >= top && row < top + Grid().TotalLinhas()) return;
    const int wanted = std::clamp(row, 0, Grid().BarraVertical().Max());
    const ControlPlace bar = box_.VerticalBarPlace();
    const double x = bar.Left + bar.Width / 2;
    while (Grid().LinIniVet() < wanted) ClickAt({x, bar.Top + bar.Height - 3});
    while (Grid().LinIniVet() > wanted) ClickAt({x, bar.Top + 3});
  }

  void ShowColumn(int column) const {
    const ControlPlace bar = box_.HorizontalBarPlace();
    const double y = bar.Top + bar.Height / 2;
    while (Middle(column) > bar.Left + bar.Width && bar.Width > 0) ClickAt({bar.Left + bar.Width - 3, y});
    while (Middle(column) < 0) ClickAt({bar.Left + 3, y});
  }

  BoxControl& box_;
};

// An entry of one line, and what it drops down.
class QtEntry : public QtObject {
 public:
  explicit QtEntry(Control& entry) : QtObject(entry) {}

  void Click() override { ClickAt({10, Widget().height() / 2.0}); }
  void DoubleClick() override { DoubleClickAt({10, Widget().height() / 2.0}); }

  void ReplaceText(std::string_view text) override {
    QTest::keyClick(TopWindow(), Qt::Key_A, Qt::ControlModifier);
    if (text.empty()) QTest::keyClick(TopWindow(), Qt::Key_Delete);
    // Nobody types the group marks of a number.
    std::string typed(text);
    if (dynamic_cast<MoedaControl*>(&Target()) != nullptr && Contains(typed, ",")) std::erase(typed, '.');
    TypeCharacters(TopWindow(), typed);
  }
  void EnterValue(double value) override { ReplaceText(NumberText(value)); }

  // The entry's row of the open list, walked to by the wheel.
  void Choose(int entry) override {
    auto& combo = dynamic_cast<ComboControl&>(Target());
    if (entry >= static_cast<int>(combo.State().Entries().size())) return;
    if (!combo.State().ListIsOpen()) PressDropButton();
    auto& list = *Widget().findChild<ListView*>();
    while (list.EntryRect(entry).top() < 0 || list.EntryRect(entry).bottom() > list.height()) {
      QTest::keyClick(&list, Qt::Key_Down);
    }
    QTest::mouseClick(&list, Qt::LeftButton, {}, list.EntryRect(entry).center().toPoint());
  }

  // Month by month to the day.
  void PickDate(std::string_view date) override {
    const Calendario& calendar = dynamic_cast<CalendarioControl&>(Target()).State();
    const auto wanted = CalendarDay(*ReadDate(date));
    if (!calendar.ViewIsOpen()) PressDropButton();
    auto& view = *Widget().findChild<MonthView*>();
    const auto monthOf = [](std::chrono::year_month_day day) { return day.year() / day.month(); };
    // A recorded act takes effect later.
    for (auto before = wanted;
         monthOf(calendar.Marked()) != monthOf(wanted) && before != calendar.Marked();) {
      before = calendar.Marked();
      const QRectF button =
          monthOf(calendar.Marked()) < monthOf(wanted) ? view.NextRect() : view.PreviousRect();
      QTest::mouseClick(&view, Qt::LeftButton, {}, button.center().toPoint());
    }
    const auto days = calendar.View();
    for (std::size_t day = 0; day < days.size(); ++day) {
      if (days[day].date != wanted) continue;
      QTest::mouseClick(&view, Qt::LeftButton, {}, view.DayRect(day).center().toPoint());
      return;
    }
  }

  void PressDropButton() override { ClickAt(dynamic_cast<EntryLook&>(Widget()).ButtonRect().center()); }
};

class QtCheck final : public QtObject {
 public:
  explicit QtCheck(CheckControl& check) : QtObject(check), check_(check) {}

  void Click() override { ClickAt({8, Widget().height() / 2.0}); }
  void EnterValue(double value) override {
    const bool isOption = dynamic_cast<OpcaoControl*>(&check_) != nullptr;
    if (isOption || check_.Value() != (value != 0)) Click();
  }

 private:
  CheckControl& check_;
};

class QtBar final : public QtObject {
 public:
  explicit QtBar(BarraControl& bar) : QtObject(bar), bar_(bar) {}

  void PressArrow(bool up) override { ClickAt(At(up ? Length() - 3 : 3)); }

  // Drags the thumb as near as a pixel can, and goes the rest by the arrows.
  void EnterValue(double value) override {
    const ScrollBar& bar = bar_.State();
    const auto wanted = static_cast<std::int32_t>(std::clamp<double>(value, 0, bar.Max()));
    const int room = Length() - 2 * bar.ArrowLength() - bar.ThumbLength();
    const int to = bar.ArrowLength() + static_cast<int>(std::lround(double(room) * wanted / bar.Max()));
    const int grip = bar.ThumbLength() / 2;
    QTest::mousePress(TopWindow(), Qt::LeftButton, {}, InWindow(At(bar.ThumbPosition() + grip)));
    QTest::mouseMove(TopWindow(), InWindow(At(to + grip)));
    QTest::mouseRelease(TopWindow(), Qt::LeftButton, {}, InWindow(At(to + grip)));
    // A recorded act takes effect later.
    for (std::int32_t before = bar.Value() - 1; bar.Value() != wanted && bar.Value() != before;) {
      before = bar.Value();
      PressArrow(before < wanted);
    }
  }

 private:
  bool IsVertical() const { return bar_.Direction() == BarDirection::Vertical; }
  int Length() const { return IsVertical() ? Widget().height() : Widget().width(); }
  QPointF At(int along) const {
    return IsVertical() ? QPointF(Widget().width() / 2.0, along) : QPointF(along, Widget().height() / 2.0);
  }

  BarraControl& bar_;
};

// A tab of a window's menu bar, or an entry of the menu that it drops.
class QtMenuItem final : public PersonObject {
 public:
  explicit QtMenuItem(MenuItem& item) : item_(item) {}

  Form* Window() const override { return item_.Window(); }
  bool IsInReach() const override { return item_.IsInReach(); }

  void Click() override {
    for (std::size_t menu = 0; menu < GuiaControl::kMenus; ++menu) {
      if (&Bar().Guia(menu) == &item_) return ClickTab(menu);
      const auto& entries = Bar().MenuGuia(menu);
      for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        if (entries[entry].get() != &item_) continue;
        ClickTab(menu);
        auto& dropped = *Look().findChild<QMenu*>();
        const QRect place = dropped.actionGeometry(dropped.actions()[static_cast<qsizetype>(entry)]);
        return QTest::mouseClick(&dropped, Qt::LeftButton, {}, place.center());
      }
    }
  }

 private:
  GuiaControl& Bar() const {
    return dynamic_cast<GuiaControl&>(*item_.Window()->Controls().Element("Guia", 0));
  }
  GuiaLook& Look() const { return dynamic_cast<GuiaLook&>(static_cast<LookView&>(*Bar().View()).Widget()); }
  // An open menu is closed first, as by a person who looks elsewhere.
  void ClickTab(std::size_t menu) const {
    if (QWidget* open = QApplication::activePopupWidget()) open->close();
    QTest::mouseClick(&Look(), Qt::LeftButton, {}, Look().TabRect(menu).center().toPoint());
  }

  MenuItem& item_;
};

// The arrows of a preview share one name: each is found by its number.
class QtArrow final : public QtObject {
 public:
  explicit QtArrow(Control& arrow) : QtObject(arrow) {}

  void ClickTitle(std::string_view number) override {
    const int index = static_cast<int>(WholeNumber(number).value_or(0));
    QtObject(*Target().form().Controls().Element(reports::kImgSeta, index)).Click();
  }
};

}  // namespace

// Keys of the first 127 characters; others come composed, as those of dead keys do.
void TypeCharacters(QWindow* window, std::string_view text) {
  for (const char character : text) {
    if (static_cast<unsigned char>(character) < 128) {
      QTest::keyClick(window, character);
    } else {
      QInputMethodEvent composed;
      composed.setCommitString(ToQString({&character, 1}));
      QCoreApplication::sendEvent(QGuiApplication::focusObject(), &composed);
    }
  }
}

std::unique_ptr<PersonObject> RealEventsOn(PersonObject& object) {
  if (auto* item = dynamic_cast<MenuItem*>(&object)) return std::make_unique<QtMenuItem>(*item);
  auto* control = dynamic_cast<Control*>(&object);
  if (control == nullptr || control->View() == nullptr) return nullptr;
  if (auto* box = dynamic_cast<BoxControl*>(control)) return std::make_unique<QtGrid>(*box);
  if (auto* check = dynamic_cast<CheckControl*>(control)) return std::make_unique<QtCheck>(*check);
  if (auto* bar = dynamic_cast<BarraControl*>(control)) return std::make_unique<QtBar>(*bar);
  if (dynamic_cast<reports::SetaControl*>(control) != nullptr) return std::make_unique<QtArrow>(*control);
  const bool isEntry = dynamic_cast<EntryControl*>(control) != nullptr;
  if (isEntry || dynamic_cast<TextoControl*>(control) != nullptr) return std::make_unique<QtEntry>(*control);
  return std::make_unique<QtObject>(*control);
}

}  // namespace tessera::test

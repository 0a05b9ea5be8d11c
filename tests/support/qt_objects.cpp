#include "support/qt_objects.h"

#include <QTest>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "objects/box_control.h"
#include "qt/looks/look.h"
#include "text/one_based.h"
#include "windows/display.h"

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
  void Click() override { ClickAt(Target()); }
  void DoubleClick() override { DoubleClickAt(Target()); }

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

  QPointF Target() const {
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

}  // namespace

std::unique_ptr<PersonObject> RealEventsOn(PersonObject& object) {
  auto* control = dynamic_cast<Control*>(&object);
  if (control == nullptr || control->View() == nullptr) return nullptr;
  if (auto* box = dynamic_cast<BoxControl*>(control)) return std::make_unique<QtGrid>(*box);
  return std::make_unique<QtObject>(*control);
}

}  // namespace tessera::test

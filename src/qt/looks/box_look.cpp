#include "qt/looks/box_look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "controls/key_code.h"
#include "qt/colour.h"
#include "qt/looks/bar_painting.h"
#include "qt/looks/skin.h"
#include "qttext/fonts.h"
#include "qttext/text.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr QRgb kLine = 0xFFD9DFE5;
constexpr double kArrowMargin = 2;  // around the sort arrow, that it needs not
constexpr int kRowsPerNotch = 3;
constexpr int kNotch = 120;

// A title's colours from top to bottom, and its edge.
struct TitleColours {
  QRgb light;
  QRgb dark;
  QRgb edge;
};

TitleColours ColoursOf(NovoBox::TitleState state) {
  switch (state) {
    case NovoBox::TitleState::kLaranja:
      return {0xFFFEF3E2, 0xFFFADDB1, 0xFFE0AC5E};
    case NovoBox::TitleState::kLaranja2:
      return {0xFFF4C583, 0xFFF9D9A6, 0xFFC98A2E};
    case NovoBox::TitleState::kAzul:
      break;
  }
  return {0xFFF3F7FB, 0xFFD5E2EF, 0xFFAFC0D1};
}

Qt::Alignment ToQt(TextAlign align) {
  if (align == TextAlign::kRight) return Qt::AlignRight;
  return align == TextAlign::kCentre ? Qt::AlignHCenter : Qt::AlignLeft;
}

QFont FontOf(const CellAttributes& attributes) {
  return ToQFont({.name = attributes.font, .size = double(attributes.size), .bold = attributes.bold});
}

// The page was moved at once, for the eye; the script tells where it stands.
std::string ScrollLine(const BoxControl& box) {
  return ActLine({"rola", box.Name(), std::to_string(box.Grid().LinIniVet())});
}

QRectF ToQt(const ControlPlace& place) {
  return {place.Left, place.Top, place.Width, place.Height};
}

}  // namespace

BoxLook::BoxLook(BoxControl& control, LogicEntry& entry) : PaintedLook(control, entry) {
  timer_.setInterval(ScrollBar::kTickMs);
  timer_.callOnTimeout(this, [this] { Glance([](BoxControl& box) { box.Tick(); }); });
}

void BoxLook::FollowControl() {
  if (control().TimerRuns() != timer_.isActive()) {
    control().TimerRuns() ? timer_.start() : timer_.stop();
  }
  update();
}

// Painting

void BoxLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRectF frame = ToQt(control().FramePlace());
  painter.setClipRect(frame);
  painter.fillRect(frame, isEnabled() ? ToQColor(control().BackColor()) : QColor(skin::kFieldDisabled));
  PaintTitles(painter);
  PaintCells(painter);
  PaintEditor(painter);
  if (control().ShowsBars()) PaintBars(painter);
  painter.setPen(QPen(skin::EdgeOf(skin::StateOf(*this)), 1));
  painter.setBrush(Qt::NoBrush);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawRect(frame.adjusted(0.5, 0.5, -0.5, -0.5));
}

void BoxLook::PaintTitles(QPainter& painter) {
  const NovoBox& grid = control().Grid();
  const int height = control().TitleHeight();
  const auto paintGround = [&](const QRectF& title, const TitleColours& colours) {
    QLinearGradient light(title.topLeft(), title.bottomLeft());
    light.setColorAt(0, QColor(colours.light));
    light.setColorAt(1, QColor(colours.dark));
    painter.fillRect(title, light);
    painter.fillRect(QRectF(title.right() - 1, title.top(), 1, height), QColor(colours.edge));
    painter.fillRect(QRectF(title.left(), title.bottom() - 1, title.width(), 1), QColor(colours.edge));
  };
  paintGround(QRectF(0, 0, width(), height), ColoursOf(NovoBox::TitleState::kAzul));
  painter.setFont(FontOf(grid.Defaults()));
  for (int column = 0; column < grid.TotalColunas(); ++column) {
    const NovoBox::Column& title = grid.Columns()[static_cast<std::size_t>(column)];
    const QRectF area(control().ColumnLeft(column), 0, PixelsOfTwips(grid.ColumnWidth(column)), height);
    paintGround(area, ColoursOf(grid.TitleStateOf(column)));
    int room = grid.ColumnWidth(column);
    if (grid.SortColumn() == column) {
      room -= NovoBox::kSortArrowInset;
      const QRectF arrow(area.left() + PixelsOfTwips(room), 0, PixelsOfTwips(NovoBox::kSortArrowInset),
                         height);
      skin::PaintArrow(painter, arrow.adjusted(-kArrowMargin, 0, kArrowMargin, 0),
                       grid.SortDescending() ? skin::Direction::Down : skin::Direction::Up, skin::kAccent);
    }
    QRectF text = area;
    text.setWidth(PixelsOfTwips(room));
    painter.setPen(skin::TextColour(*this, Qt::black));
    painter.drawText(text.adjusted(BoxControl::kCellPadding, 0, -BoxControl::kCellPadding, 0),
                     static_cast<int>(ToQt(title.align) | Qt::AlignVCenter) | Qt::TextSingleLine,
                     ToQString(grid.FitText(title.titulo, room, grid.Defaults())));
  }
}

void BoxLook::PaintCells(QPainter& painter) {
  const NovoBox& grid = control().Grid();
  const double height = PixelsOfTwips(grid.RowHeight());
  const auto& pool = grid.Pool();
  const CellAttributes* shown = nullptr;  // whose font the painter has
  for (std::size_t cell = 0; cell < pool.size(); ++cell) {
    const NovoBox::Place at = grid.LeBoxCel(static_cast<int>(cell));
    const CellAttributes& attributes = pool[cell].attributes;
    const QRectF area(control().ColumnLeft(at.column), control().TitleHeight() + at.row * height,
                      PixelsOfTwips(grid.ColumnWidth(at.column)), height);
    painter.fillRect(area, isEnabled() ? ToQColor(attributes.back) : QColor(skin::kFieldDisabled));
    painter.fillRect(QRectF(area.right() - 1, area.top(), 1, height), QColor(kLine));
    painter.fillRect(QRectF(area.left(), area.bottom() - 1, area.width(), 1), QColor(kLine));
    if (pool[cell].text.empty()) continue;
    if (shown == nullptr || !shown->HasFontOf(attributes)) {
      painter.setFont(FontOf(attributes));
      shown = &attributes;
    }
    painter.setPen(skin::TextColour(*this, ToQColor(attributes.fore)));
    const auto align = ToQt(grid.Columns()[static_cast<std::size_t>(at.column)].align);
    painter.drawText(area.adjusted(BoxControl::kCellPadding, 0, -BoxControl::kCellPadding, -1),
                     static_cast<int>(align | Qt::AlignVCenter) | Qt::TextSingleLine,
                     ToQString(pool[cell].text));
  }
}

// The whole text of the cell, as far as it shows, with selection and caret.
void BoxLook::PaintEditor(QPainter& painter) {
  const auto place = control().EditorPlace();
  if (!place) return;
  const NovoBox& grid = control().Grid();
  const TextField& editor = grid.Editor();
  const QRectF cell = ToQt(*place).adjusted(0, 0, -1, -1);
  painter.save();
  painter.fillRect(cell, Qt::white);
  painter.setClipRect(cell.adjusted(2, 1, -2, -1));
  painter.setFont(FontOf(grid.AttributesOf(grid.EditingPlace()->row, grid.EditingPlace()->column)));
  const double left = control().EditorTextLeft();
  const auto paintText = [&](const QColor& colour) {
    painter.setPen(colour);
    painter.drawText(QRectF(left, cell.top(), control().EditorWidth(std::string::npos) + 2, cell.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ToQString(editor.Text()));
  };
  paintText(Qt::black);
  if (editor.SelLength() > 0) {
    const double from = left + control().EditorWidth(editor.SelStart());
    const double to = left + control().EditorWidth(editor.SelStart() + editor.SelLength());
    const QRectF selection(from, cell.top() + 1, to - from, cell.height() - 2);
    painter.setClipRect(selection, Qt::IntersectClip);
    painter.fillRect(selection, QColor(skin::kAccent));
    paintText(Qt::white);
    painter.setClipRect(cell);
  }
  const double caret = left + control().EditorWidth(editor.Caret());
  if (hasFocus()) painter.fillRect(QRectF(caret, cell.top() + 2, 1, cell.height() - 4), Qt::black);
  painter.restore();
  painter.setPen(QPen(QColor(skin::kAccent), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(cell.adjusted(0.5, 0.5, -0.5, -0.5));
}

void BoxLook::PaintBars(QPainter& painter) {
  const NovoBox& grid = control().Grid();
  const QRectF vertical = ToQt(control().VerticalBarPlace());
  skin::PaintBar(painter, vertical, Qt::Vertical, grid.BarraVertical(),
                 control().HoveredPart(grid.BarraVertical()));
  if (!grid.ShowsHorizontalBar()) return;
  const QRectF horizontal = ToQt(control().HorizontalBarPlace());
  skin::PaintBar(painter, horizontal, Qt::Horizontal, grid.BarraHorizontal(),
                 control().HoveredPart(grid.BarraHorizontal()));
  painter.fillRect(QRectF(vertical.left(), horizontal.top(), vertical.width(), horizontal.height()),
                   QColor(skin::kFieldDisabled));
}

// Events

void BoxLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Tell([at = event->position()](BoxControl& box) { box.PointerDown(at.x(), at.y()); },
       [at = event->position()](BoxControl& box) {
         std::string line = box.PressLine(at.x(), at.y());
         if (line.empty()) box.PointerDown(at.x(), at.y());
         return line;
       });
}

void BoxLook::mouseMoveEvent(QMouseEvent* event) {
  Glance([at = event->position()](BoxControl& box) { box.PointerMove(at.x(), at.y()); });
}

void BoxLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Tell([at = event->position()](BoxControl& box) { box.PointerUp(at.x(), at.y()); },
       [at = event->position()](BoxControl& box) {
         if (!box.HoldsBar()) return std::string();
         box.PointerUp(at.x(), at.y());
         return ScrollLine(box);
       });
}

void BoxLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Tell([at = event->position()](BoxControl& box) { box.PointerDownAgain(at.x(), at.y()); },
       [at = event->position()](BoxControl& box) {
         const std::string line = box.PressLine(at.x(), at.y());
         if (line.empty()) box.PointerDown(at.x(), at.y());
         return line.empty() ? line : ActLine({"duploclique", box.Name()});
       });
}

// A fine wheel turns less than a notch at a time.
void BoxLook::wheelEvent(QWheelEvent* event) {
  wheel_ += event->angleDelta().y() * kRowsPerNotch;
  const int rows = wheel_ / kNotch;
  wheel_ -= rows * kNotch;
  if (rows == 0) return;
  Tell([rows](BoxControl& box) { box.Scroll(-rows); },
       [rows](BoxControl& box) {
         box.Scroll(-rows);
         return ScrollLine(box);
       });
}

void BoxLook::leaveEvent(QEvent*) {
  Glance([](BoxControl& box) { box.PointerLeave(); });
}

// The clipboard belongs to the cell that is edited.
bool BoxLook::TakeShortcut(const QKeyEvent& event) {
  return control().Grid().EditingPlace() && ServeClipboardKey(event, *this);
}

void BoxLook::SelectAll() {
  Tell(
      [](BoxControl& box) {
        box.Change([](NovoBox& edited) { edited.PlaceEditorCaret(0, edited.Editor().Text().size()); });
      },
      [](const BoxControl&) {
        return std::vector<std::string>{KeyLine(key::kHome, {}), KeyLine(key::kEnd, {.shift = true})};
      });
}

std::string BoxLook::Selected() const {
  const TextField& editor = control().Grid().Editor();
  return editor.Text().substr(editor.SelStart(), editor.SelLength());
}

void BoxLook::DeleteSelected() {
  Tell([](BoxControl& box) { box.OnKeyDown(key::kDelete, {}); },
       [](const BoxControl&) { return KeyLine(key::kDelete, {}); });
}

void BoxLook::Paste(const std::string& text) {
  Tell(
      [text](BoxControl& box) {
        for (const char character : text) box.OnKeyPress(character);
      },
      [&](const BoxControl&) { return TypingLines(text.substr(0, text.find_first_of("\r\n"))); });
}

}  // namespace tessera

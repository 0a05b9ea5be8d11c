#include "qt/looks/texto_look.h"

#include <QAbstractTextDocumentLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/key_code.h"
#include "qt/colour.h"
#include "qt/looks/alignment.h"
#include "qt/looks/skin.h"
#include "qttext/fonts.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kMargin = 5;
constexpr double kTopMargin = 3;
constexpr double kMarkWidth = 4;
constexpr double kWheelStep = 120;  // eighths of a degree of one notch
constexpr double kPixelsPerNotch = 40;

QTextCharFormat ToQt(const CharFormat& format) {
  QTextCharFormat shown;
  QFont font =
      ToQFont({.name = format.font, .size = format.size, .bold = format.bold, .italic = format.italic});
  font.setUnderline(format.underline);
  shown.setFont(font);
  shown.setForeground(ToQColor(format.color));
  return shown;
}

}  // namespace

TextoLook::TextoLook(TextoControl& control, LogicEntry& entry) : TextLook(control, entry) {
  setCursor(Qt::IBeamCursor);
  document_.setDocumentMargin(0);
  document_.setUndoRedoEnabled(false);
}

// Layout

QRectF TextoLook::TextRect() const {
  const double top = control().State().MultiLine() ? kTopMargin : 1;
  return QRectF(rect()).adjusted(kMargin, top, -kMargin, -top);
}

void TextoLook::FollowControl() {
  LayOut();
  if (std::exchange(seenCaret_, control().State().Caret()) != control().State().Caret()) RestartBlinking();
  ScrollToCaret();
  update();
}

void TextoLook::LayOut() {
  const RichText& text = control().State();
  if (text.Content() != shown_ || document_.isEmpty()) FillDocument();
  QTextOption option(ToQAlignment(text.Alignment()));
  const double margin = text.RightMargin() > 0 ? text.RightMargin() : TextRect().width();
  option.setWrapMode(text.MultiLine() ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  document_.setDefaultTextOption(option);
  document_.setTextWidth(text.MultiLine() || text.Alignment() != TextAlign::kLeft ? margin : -1);
}

void TextoLook::FillDocument() {
  shown_ = control().State().Content();
  document_.clear();
  document_.setDefaultFont(ToQFont(control().Font()));
  QTextCursor cursor(&document_);
  std::size_t place = 0;
  for (const FormatRun& run : shown_.Runs()) {
    cursor.insertText(ToQString(std::string_view(shown_.Text()).substr(place, run.length)), ToQt(run.format));
    place += run.length;
  }
  if (place == 0) cursor.setBlockCharFormat(ToQt(control().State().Format()));
}

QRectF TextoLook::CaretRect(std::size_t caret) const {
  const QTextBlock block = document_.findBlock(static_cast<int>(caret));
  const QPointF corner = document_.documentLayout()->blockBoundingRect(block).topLeft();
  const int inBlock = static_cast<int>(caret) - block.position();
  const QTextLine line = block.layout()->lineForTextPosition(inBlock);
  if (!line.isValid()) return {corner, QSizeF(1, QFontMetricsF(ToQFont(control().Font())).height())};
  return {corner.x() + line.cursorToX(inBlock), corner.y() + line.y(), 1, line.height()};
}

double TextoLook::LastScroll() const {
  return std::max(0.0, document_.size().height() - TextRect().height());
}

void TextoLook::ScrollToCaret() {
  const QRectF area = TextRect();
  const QRectF caret = CaretRect(control().State().Caret());
  if (control().State().MultiLine()) {
    const double y = std::clamp(scrolled_.y(), caret.bottom() - area.height(), std::max(caret.top(), 0.0));
    scrolled_ = {0, std::clamp(y, 0.0, LastScroll())};
    return;
  }
  // A single line stands in the middle of its height.
  const double x = std::clamp(scrolled_.x(), caret.left() - area.width() + 2, caret.left());
  const double room = area.width() - document_.idealWidth();
  scrolled_ = {room >= 0 ? 0 : std::max(0.0, x),
               -std::round((area.height() - document_.size().height()) / 2)};
}

std::size_t TextoLook::PlaceAt(QPointF at) const {
  const QPointF inside = at - TextRect().topLeft() + scrolled_;
  const int place = document_.documentLayout()->hitTest(inside, Qt::FuzzyHit);
  return static_cast<std::size_t>(std::max(place, 0));
}

std::size_t TextoLook::MovedByLines(std::size_t caret, int lines) const {
  QTextCursor cursor(const_cast<QTextDocument*>(&document_));
  cursor.setPosition(static_cast<int>(std::min<std::size_t>(caret, shown_.Text().size())));
  cursor.movePosition(lines < 0 ? QTextCursor::Up : QTextCursor::Down, QTextCursor::MoveAnchor,
                      std::abs(lines));
  return static_cast<std::size_t>(cursor.position());
}

int TextoLook::PageLines() const {
  const double lineHeight = std::max(1.0, CaretRect(0).height());
  return std::max(1, static_cast<int>(TextRect().height() / lineHeight) - 1);
}

// Painting

void TextoLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ground = isEnabled() ? ToQColor(control().BackColor()) : QColor(skin::kFieldDisabled);
  skin::PaintFrame(painter, rect(), ground, skin::StateOf(*this));
  painter.save();
  const QRectF area = TextRect();
  painter.setClipRect(area.adjusted(-1, 0, 1, 0));
  painter.translate(area.topLeft() - scrolled_);
  QAbstractTextDocumentLayout::PaintContext context;
  const RichText& text = control().State();
  if (hasFocus() && text.SelLength() > 0) {
    QAbstractTextDocumentLayout::Selection selection;
    selection.cursor = QTextCursor(&document_);
    selection.cursor.setPosition(static_cast<int>(text.Anchor()));
    selection.cursor.setPosition(static_cast<int>(text.Caret()), QTextCursor::KeepAnchor);
    selection.format.setBackground(QColor(skin::kAccent));
    selection.format.setForeground(Qt::white);
    context.selections.append(selection);
  }
  if (!isEnabled()) painter.setOpacity(0.5);
  document_.documentLayout()->draw(&painter, context);
  if (hasFocus() && CaretIsLit()) {
    painter.fillRect(CaretRect(text.Caret())
                         .translated(-0.5, 0)
                         .toAlignedRect()
                         .intersected(QRect(0, 0, 1 << 14, 1 << 20)),
                     QColor(Qt::black));
  }
  painter.restore();
  PaintMark(painter);
}

// How much of a long text is in sight.
void TextoLook::PaintMark(QPainter& painter) {
  const double all = document_.size().height();
  const QRectF area = TextRect();
  if (!control().State().MultiLine() || all <= area.height()) return;
  const QRectF mark(width() - kMarkWidth - 2, area.top() + area.height() * scrolled_.y() / all, kMarkWidth,
                    area.height() * area.height() / all);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(skin::kEdge));
  painter.drawRoundedRect(mark, kMarkWidth / 2, kMarkWidth / 2);
}

void TextoLook::resizeEvent(QResizeEvent*) {
  LayOut();
  ScrollToCaret();
}

QVariant TextoLook::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return isEnabled();
  if (query == Qt::ImCursorRectangle) {
    return CaretRect(control().State().Caret()).translated(TextRect().topLeft() - scrolled_);
  }
  return QWidget::inputMethodQuery(query);
}

// Pointer and clipboard

void TextoLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  selects_ = true;
  anchor_ = PlaceAt(event->position());
  Select(anchor_, anchor_);
}

void TextoLook::mouseMoveEvent(QMouseEvent* event) {
  if (selects_) Select(anchor_, PlaceAt(event->position()));
}

void TextoLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(selects_, false)) return;
  if (!rect().contains(event->pos())) return;
  Tell([](TextoControl& text) { text.Click(); },
       [](const TextoControl& text) {
         return ActLine({"clique", text.Name()});
       });
}

// A double click selects the word.
void TextoLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  QTextCursor word(&document_);
  word.setPosition(static_cast<int>(PlaceAt(event->position())));
  word.select(QTextCursor::WordUnderCursor);
  Select(static_cast<std::size_t>(word.selectionStart()), static_cast<std::size_t>(word.selectionEnd()));
  Tell([](TextoControl& text) { text.DoubleClick(); },
       [](const TextoControl& text) {
         return ActLine({"duploclique", text.Name()});
       });
}

// In an empty text the caret has but one place.
void TextoLook::Select(std::size_t from, std::size_t to) {
  Tell([from, to](TextoControl& text) { text.PlaceCaret(from, to); },
       [from, to](const TextoControl& text) {
         return text.Text().empty() ? std::string() : CaretLine(text.Name(), from, to);
       });
}

void TextoLook::wheelEvent(QWheelEvent* event) {
  const double pixels = -event->angleDelta().y() / kWheelStep * kPixelsPerNotch;
  if (control().State().MultiLine()) scrolled_.setY(std::clamp(scrolled_.y() + pixels, 0.0, LastScroll()));
  update();
}

void TextoLook::SelectAll() {
  Select(0, control().State().Content().Text().size());
}

std::string TextoLook::Selected() const {
  return control().State().SelText();
}

void TextoLook::DeleteSelected() {
  Tell([](TextoControl& text) { text.OnKeyDown(key::kDelete, {}); },
       [](const TextoControl&) { return KeyLine(key::kDelete, {}); });
}

void TextoLook::Paste(const std::string& text) {
  Tell([text](TextoControl& entry) { entry.Paste(text); },
       [&](const TextoControl&) { return TypingLines(text); });
}

}  // namespace tessera

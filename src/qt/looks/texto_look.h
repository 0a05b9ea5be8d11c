// The look of `Texto`: a text whose parts have formats, folded at the control's width where it has several
// lines. The text is the control's; a document of the window system lays it out.
#pragma once

#include <QTextDocument>

#include "objects/texto.h"
#include "qt/looks/text_look.h"

namespace tessera {

class TextoLook final : public TextLook<TextoControl>, private TextLayout {
 public:
  TextoLook(TextoControl& control, LogicEntry& entry);

  void FollowControl() override;
  const TextLayout* Layout() const override { return this; }

 protected:
  void SelectAll() override;
  std::string Selected() const override;
  void DeleteSelected() override;
  void Paste(const std::string& text) override;

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 private:
  void Select(std::size_t from, std::size_t to);

  QRectF TextRect() const;
  void LayOut();
  void FillDocument();
  // The caret in the document's own coordinates.
  QRectF CaretRect(std::size_t caret) const;
  void ScrollToCaret();
  // How far the document may be scrolled.
  double LastScroll() const;
  std::size_t PlaceAt(QPointF at) const;
  std::size_t MovedByLines(std::size_t caret, int lines) const override;
  int PageLines() const override;
  void PaintMark(QPainter& painter);

  QTextDocument document_;
  StyledText shown_;  // what the document was filled with
  QPointF scrolled_;
  std::size_t seenCaret_ = 0;
  std::size_t anchor_ = 0;
  bool selects_ = false;
};

}  // namespace tessera

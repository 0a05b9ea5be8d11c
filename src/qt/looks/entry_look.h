// The look of an entry: one line of text with its caret and selection, and at its right end, where the kind
// of entry has one, a button that drops something down. The text belongs to the control; this widget shows it
// and hands over keys, the caret's place and the clipboard.
#pragma once

#include "objects/entry_control.h"
#include "qt/looks/text_look.h"

class QPainter;

namespace tessera {

class EntryLook : public TextLook<EntryControl> {
 public:
  EntryLook(EntryControl& control, LogicEntry& entry);

  void FollowControl() override;

  // Where the button is painted; empty for an entry without one.
  QRectF ButtonRect() const;

 protected:
  void SelectAll() override;
  std::string Selected() const override;
  void DeleteSelected() override;
  void Paste(const std::string& text) override;

  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  virtual bool HasButton() const { return false; }
  virtual bool IsRightAligned() const { return false; }
  // The picture of the button, and what it does.
  virtual void PaintButton(QPainter& /*painter*/, const QRectF& /*rect*/) {}
  virtual void PressButton() {}

 private:
  void Select(std::size_t from, std::size_t to);

  QRectF TextRect() const;
  // Left end of the text, so that the caret is in sight.
  double TextLeft() const;
  double AdvanceOf(std::size_t characters) const;
  QRectF CaretRect() const;
  std::size_t PlaceAt(double x) const;

  std::size_t anchor_ = 0;  // where a selection with the pointer began
  bool selects_ = false;
  mutable double scrolled_ = 0;
};

}  // namespace tessera

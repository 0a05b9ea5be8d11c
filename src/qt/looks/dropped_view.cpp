#include "qt/looks/dropped_view.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace tessera {

// The press that closes the view is not felt by what lies below: else the entry's button would open it again.
DroppedView::DroppedView(QWidget& entry, std::function<void()> closed)
    : QWidget(&entry, Qt::Popup), entry_(entry), closed_(std::move(closed)) {
  setAttribute(Qt::WA_NoMouseReplay);
  setMouseTracking(true);
}

void DroppedView::Open(QSize size) {
  const QRect screen = entry_.screen()->availableGeometry();
  const QPoint below = entry_.mapToGlobal(QPoint(0, entry_.height()));
  QRect place(below, size);
  if (place.bottom() > screen.bottom()) place.moveBottom(entry_.mapToGlobal(QPoint(0, -1)).y());
  place.moveLeft(std::max(screen.left(), std::min(place.left(), screen.right() - size.width())));
  setGeometry(place);
  if (!isVisible()) show();
}

void DroppedView::Close() {
  closesByItself_ = false;
  hide();
  closesByItself_ = true;
}

bool DroppedView::event(QEvent* event) {
  if (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease ||
      event->type() == QEvent::MouseButtonPress) {
    pointer_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
  }
  return QWidget::event(event);
}

// The window system tells the entry nothing of a pointer that has left it below the view.
void DroppedView::hideEvent(QHideEvent*) {
  if (pointer_) {
    entry_.setAttribute(Qt::WA_UnderMouse, entry_.rect().contains(entry_.mapFromGlobal(*pointer_)));
    entry_.update();
  }
  pointer_.reset();
  if (closesByItself_) closed_();
}

void DroppedView::keyPressEvent(QKeyEvent* event) {
  QCoreApplication::sendEvent(&entry_, event);
}

void DroppedView::keyReleaseEvent(QKeyEvent* event) {
  QCoreApplication::sendEvent(&entry_, event);
}

}  // namespace tessera

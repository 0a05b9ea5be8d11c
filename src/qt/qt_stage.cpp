#include "qt/qt_stage.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPixmap>
#include <QWidget>

#include "qt/form.h"
#include "qt/pictures.h"
#include "qt/qt_host.h"

namespace tessera {

namespace {

bool IsOfAPerson(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::ContextMenu:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

QtStage::QtStage(QtHost& host, Led by) : host_(host) {
  if (by == Led::ByScript) QCoreApplication::instance()->installEventFilter(this);
}

std::unique_ptr<Form> QtStage::NewForm(std::string_view name, const Placement& place, FormEvents& events,
                                       StageLead& lead) {
  return host_.NewLedForm(name, place, events, lead);
}

// The windows of this stage are all of this kind.
void QtStage::ResizeByPerson(Form& form, double width, double height) {
  static_cast<QtForm&>(form).ResizeByPerson(width, height);
}

Raster QtStage::Portrait(Form& form) {
  ShowChanges();
  return ToRaster(static_cast<QtForm&>(form).widget()->grab().toImage());
}

void QtStage::ShowChanges() {
  host_.ServePainting();
  QCoreApplication::processEvents();
}

// Who asks for a close hears that nothing has closed: the window toolkit, which would have a dropped view out
// of the way of a further window, asks as long as it hears otherwise.
bool QtStage::eventFilter(QObject*, QEvent* event) {
  const bool isShutOut = event->spontaneous() && IsOfAPerson(event->type());
  if (isShutOut && event->type() == QEvent::Close) event->ignore();
  return isShutOut;
}

}  // namespace tessera

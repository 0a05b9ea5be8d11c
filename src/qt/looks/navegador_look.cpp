#include "qt/looks/navegador_look.h"

#include <QApplication>

#include "windows/form.h"

namespace tessera {

// A click on a page gives the focus to a widget within the view, of which the logic is told here.
NavegadorLook::NavegadorLook(media::NavegadorControl& control, LogicEntry& entry)
    : PaintedLook(control, entry) {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now == nullptr || !isAncestorOf(now)) return;
    Tell([](media::NavegadorControl& browser) { browser.form().MoveFocus(&browser); });
  });
}

// The view is made when the control is activated.
void NavegadorLook::FollowControl() {
  if (view_ || control().viewEntry() == nullptr) return;
  view_.reset(reinterpret_cast<PageViewEntry>(control().viewEntry())(*this));
  if (!view_) return;
  view_->Widget().resize(size());
  setFocusProxy(&view_->Widget());
  control().pages = view_.get();
}

void NavegadorLook::resizeEvent(QResizeEvent*) {
  if (view_) view_->Widget().resize(size());
}

}  // namespace tessera

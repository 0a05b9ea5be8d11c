#include "qt/looks/text_look.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyleHints>

#include "qttext/text.h"

namespace tessera {

bool ServeClipboardKey(const QKeyEvent& event, ClipboardUser& text) {
  QClipboard& clipboard = *QGuiApplication::clipboard();
  const bool isCut = event.matches(QKeySequence::Cut);
  if (event.matches(QKeySequence::SelectAll)) {
    text.SelectAll();
  } else if (event.matches(QKeySequence::Paste)) {
    text.Paste(FromQString(clipboard.text()));
  } else if (isCut || event.matches(QKeySequence::Copy)) {
    const std::string selected = text.Selected();
    if (selected.empty()) return true;
    clipboard.setText(ToQLines(selected));
    if (isCut) text.DeleteSelected();
  } else {
    return false;
  }
  return true;
}

int BlinkInterval() {
  return QGuiApplication::styleHints()->cursorFlashTime() / 2;
}

}  // namespace tessera

// Programs of the desktop that do for a running program what the window system has no call for.
#pragma once

#include <QString>
#include <QStringList>

namespace tessera {

struct DesktopAnswer {
  bool isThere = false;  // the program could be started
  bool isDone = false;   // and ended well
  QString output;
};

// Runs it and waits for its end, though not for ever.
DesktopAnswer AskDesktop(const QString& program, const QStringList& arguments);

}  // namespace tessera

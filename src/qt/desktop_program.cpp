#include "qt/desktop_program.h"

#include <QProcess>

namespace tessera {

DesktopAnswer AskDesktop(const QString& program, const QStringList& arguments) {
  constexpr int kPatience = 5000;  // milliseconds
  QProcess process;
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(program, arguments, QIODevice::ReadOnly);
  if (!process.waitForStarted(kPatience)) return {};
  const bool hasEnded = process.waitForFinished(kPatience);
  return {.isThere = true,
          .isDone = hasEnded && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
          .output = QString::fromUtf8(process.readAllStandardOutput())};
}

}  // namespace tessera

#include "qtweb/sandbox.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>

namespace tessera::qtweb {

namespace {

// Whether this user may make a namespace of its own, tried in a process that does nothing else.
bool NamespacesAreAllowed() {
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
  int status = 1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

// The superuser's processes know no cage.
void PrepareSandbox() {
  if (geteuid() == 0 || !NamespacesAreAllowed()) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext*=false"));
  if (!qEnvironmentVariableIsSet("QTWEBENGINE_CHROMIUM_FLAGS"))
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-logging --lang=pt-BR");
}

}  // namespace tessera::qtweb

#include "runtime/services.h"

#include <cstdlib>

#include "platform/paths.h"
#include "runtime/own_folder.h"

namespace tessera {

Services UserServices(const Host& host, Display* display, reports::ReportHost& reportHost,
                      const ProgramStart& start) {
  return {.host = host,
          .display = display,
          .folders = FindUserFolders(std::getenv),
          .dataFolder = SystemDataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME")),
          .machine = MachineCommands::UserPlaces(start.isFinished),
          .partFolders = PartFolders(),
          .reportHost = &reportHost,
          .printer = start.printer,
          .startForm = TakeStartForm()};
}

}  // namespace tessera

#include "runtime/services.h"

#include <cstdlib>

#include "platform/paths.h"
#include "runtime/own_folder.h"

namespace tessera {

Services UserServices(const Host& host, Display* display, const Listeners& listeners,
                      const ProgramStart& start) {
  return {.host = host,
          .display = display,
          .folders = FindUserFolders(std::getenv),
          .dataFolder = SystemDataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME")),
          .machine = MachineCommands::UserPlaces(start.isFinished),
          .partFolders = PartFolders(),
          .findCodec = CodecOfPart(PartFolders()),
          .reportHost = &listeners.reports,
          .printer = start.printer,
          .mediaHost = &listeners.media,
          .microphone = start.microphone,
          .camera = start.camera,
          .startForm = TakeStartForm()};
}

}  // namespace tessera

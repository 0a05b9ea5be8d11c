#include "runtime/services.h"

#include <unistd.h>

#include <cstdlib>

#include "platform/descriptor_io.h"
#include "platform/paths.h"
#include "runtime/own_folder.h"

namespace tessera {

namespace {

std::function<void(std::string_view)> ProgressTeller() {
  if (isatty(STDERR_FILENO) == 0) return {};
  return [](std::string_view text) { WriteAll(STDERR_FILENO, text); };
}

}  // namespace

Services UserServices(const Host& host, Display* display, const Listeners& listeners,
                      const ProgramStart& start) {
  return {.host = host,
          .display = display,
          .folders = FindUserFolders(std::getenv),
          .dataFolder = SystemDataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME")),
          .machine = {.registry = RegistryFile(host.files, RegistryPath(std::getenv)),
                      .startList = StartList(host.files, UserConfigurationFolder(std::getenv) + "/autostart"),
                      .isFinished = start.isFinished},
          .partFolders = PartFolders(),
          .findCodec = CodecOfPart(PartFolders()),
          .findPainter = reports::PainterOfPart(PartFolders()),
          .reportHost = &listeners.reports,
          .printer = start.printer,
          .mediaHost = &listeners.media,
          .microphone = start.microphone,
          .camera = start.camera,
          .startForm = TakeStartForm(),
          .tellProgress = ProgressTeller(),
          .hiddenFailures = start.tellsHidden ? listeners.hiddenFailures : FailureListener()};
}

}  // namespace tessera

// The words of media: `Som`, `Video`, `GravaSom`, `WebCam` and `Navegador`.
#pragma once

#include "commands/command_table.h"
#include "media/gravador.h"
#include "media/media.h"
#include "media/navegador.h"
#include "media/web_cam.h"

namespace tessera {

class ObjectFrame;

}  // namespace tessera

namespace tessera::media {

class MediaCommands {
 public:
  // The run and the objects live as long as the table.
  MediaCommands(CommandTable& table, Run& run, ObjectFrame& objects, MediaServices services);

 private:
  Media media_;
  Gravador gravador_;
  WebCam webCam_;
  Navegador navegador_;
};

}  // namespace tessera::media

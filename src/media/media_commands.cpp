#include "media/media_commands.h"

#include "media/som.h"
#include "objects/object_frame.h"
#include "windows/window_model.h"

namespace tessera::media {

MediaCommands::MediaCommands(CommandTable& table, Run& run, ObjectFrame& objects, MediaServices services)
    : media_(run, objects.windows().pictures, std::move(services)),
      gravador_(table, run, media_),
      webCam_(table, run, objects.windows(), media_),
      navegador_(table, run, objects.windows(), media_) {
  objects.Add<Som>(table, media_).BindVideo(table);
}

}  // namespace tessera::media

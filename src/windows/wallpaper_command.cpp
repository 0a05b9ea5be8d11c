#include "windows/wallpaper_command.h"

#include "commands/arguments.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "platform/file_system.h"
#include "text/one_based.h"
#include "windows/picture_file.h"

namespace tessera {

namespace {

constexpr long kNoFile = 53;
constexpr long kNoPicture = 481;
constexpr std::size_t kExtension = 3;

PictureRef PictureAt(PictureCodec& codec, FileStore& files, const std::string& file) {
  PictureRef picture = LoadPicture(codec, files, file);
  if (!picture) Fail(IsFile(files, file) ? kNoPicture : kNoFile);
  return picture;
}

}  // namespace

WallpaperCommand::WallpaperCommand(CommandTable& table, Run& run, Desktop& desktop, SharedPictures& pictures)
    : run_(run), desktop_(desktop), pictures_(pictures) {
  constexpr MemberRow<WallpaperCommand> kRows[] = {{"MudaPapel", &WallpaperCommand::MudaPapel}};
  Bind(table, kRows, *this);
}

Value WallpaperCommand::MudaPapel(const WordCall& call) {
  const std::string path = Arguments(call).Text("arquivo");
  const std::string file = run_.paths.SystemPath(path);
  if (Upper(Right(path, kExtension)) == "BMP") {
    Change(file);
    return {};
  }
  const std::string copy = run_.paths.SystemPath(run_.RuntimeFolderText + "Temp.bmp");
  FileStore& files = run_.host.files;
  PictureCodec* const codec = pictures_.Codec();
  if (codec == nullptr) Fail(kNoPicture);
  const std::string bitmap = codec->EncodeBitmap(PictureAt(*codec, files, file)->raster);
  if (SavePicture(bitmap, files, copy) != 0) return {};
  run_.host.events.ProcessEvents();
  Change(copy);
  run_.host.events.ProcessEvents();
  return {};
}

void WallpaperCommand::Change(const std::string& bitmap) {
  outcome_ = desktop_.SetWallpaper(bitmap) ? "SUCESSO" : "ERRO";
}

}  // namespace tessera

#include "windows/wallpaper_command.h"

#include "commands/arguments.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/one_based.h"
#include "windows/picture_file.h"

namespace tessera {

namespace {

constexpr long kNoFile = 53;
constexpr long kNoPicture = 481;
constexpr std::size_t kExtension = 3;

PictureRef PictureAt(const std::string& file) {
  PictureRef picture = LoadPicture(file);
  if (!picture) Fail(IsFile(file) ? kNoPicture : kNoFile);
  return picture;
}

}  // namespace

void WallpaperCommand::MudaPapel(std::string_view arguments) {
  const std::string path = Arguments(run_, arguments, kTwoArguments).Text(0);
  const std::string file = run_.paths.SystemPath(path);
  if (Upper(Right(path, kExtension)) == "BMP") return Change(file);
  const std::string copy = run_.paths.SystemPath(run_.RuntimeFolderText + "Temp.bmp");
  if (!SaveBitmap(*PictureAt(file), copy)) return;
  run_.host.events.ProcessEvents();
  Change(copy);
  run_.host.events.ProcessEvents();
}

void WallpaperCommand::Change(const std::string& bitmap) {
  outcome_ = desktop_.SetWallpaper(bitmap) ? "SUCESSO" : "ERRO";
}

void WallpaperCommand::Register(CommandTable& table) {
  table.Add("MUDAPAPEL", [this](std::string_view, std::string_view arguments) {
    MudaPapel(arguments);
    return Value();
  });
}

}  // namespace tessera

// `MudaPapel`: a picture becomes the wallpaper of the desktop.
#pragma once

#include <string>

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/screen.h"
#include "windows/shared_pictures.h"

namespace tessera {

class WallpaperCommand {
 public:
  // All outlive the command, and the command lives as long as the table is used.
  WallpaperCommand(CommandTable& table, Run& run, Desktop& desktop, SharedPictures& pictures);
  WallpaperCommand(const WallpaperCommand&) = delete;
  WallpaperCommand& operator=(const WallpaperCommand&) = delete;

  // "SUCESSO" or "ERRO", as the last call of the desktop came out; empty before it.
  const std::string& Outcome() const { return outcome_; }

 private:
  Value MudaPapel(const WordCall& call);
  void Change(const std::string& bitmap);

  Run& run_;
  Desktop& desktop_;
  SharedPictures& pictures_;
  std::string outcome_;
};

}  // namespace tessera

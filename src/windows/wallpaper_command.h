// `MudaPapel`: a picture becomes the wallpaper of the desktop.
#pragma once

#include <string>

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/screen.h"

namespace tessera {

class WallpaperCommand {
 public:
  // Both outlive the command.
  WallpaperCommand(Run& run, Desktop& desktop) : run_(run), desktop_(desktop) {}

  void Register(CommandTable& table);

  // "SUCESSO" or "ERRO", as the last call of the desktop came out; empty before it.
  const std::string& Outcome() const { return outcome_; }

 private:
  void MudaPapel(std::string_view arguments);
  void Change(const std::string& bitmap);

  Run& run_;
  Desktop& desktop_;
  std::string outcome_;
};

}  // namespace tessera

// The screen that a program's windows stand on, and the desktop around them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "windows/input.h"
#include "windows/picture.h"
#include "windows/placement.h"

namespace tessera {

struct VideoMode {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t bits = 0;
};

class Screen {
 public:
  virtual ~Screen() = default;

  virtual ScreenSize ScreenExtent() = 0;
  virtual std::vector<std::string> FontNames() = 0;

  // Shows or hides the pointer over all windows of the program.
  virtual void ShowPointer(bool visible) = 0;
  virtual PointerPlace Pointer() = 0;

  // Changes the screen's mode. Empty, or the reason why it can't, in the user's language.
  virtual std::string SetVideoMode(const VideoMode& mode) = 0;
};

// What a person does with the program's icon in the tray. A call may end the program.
class TrayEvents {
 public:
  virtual ~TrayEvents() = default;
  // The entries of its menu.
  virtual void OnMenuAtivo() = 0;
  virtual void OnMenuSair() = 0;
  // The tray, and the icon in it, are there no more.
  virtual void OnTrayGone() = 0;
};

class Desktop {
 public:
  virtual ~Desktop() = default;

  // Puts a bitmap file, by the system's path, on the desktop. False where the desktop doesn't take it.
  virtual bool SetWallpaper(const std::string& /*bitmap*/) { return false; }

  // Puts the icon of a program into the tray, with its menu; `events` outlives it. False where there is no
  // tray.
  virtual bool ShowTrayIcon(const PictureRef& /*icon*/, std::string_view /*title*/, TrayEvents& /*events*/) {
    return false;
  }

  // Opens an address of the net, or a file, with the desktop's program for it. Where there is none, nothing.
  virtual void OpenAddress(std::string_view /*address*/) {}
};

}  // namespace tessera

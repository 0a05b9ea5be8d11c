// Where windows stand, how large they are, and how their frames look.
#pragma once

namespace tessera {

// Twips are the unit of a window's outer placement and of the screen, pixels that of everything inside.
inline constexpr double kTwipsPerPixel = 15;
// What a window's outer height has beyond that of its client area; the outer width has nothing.
inline constexpr double kFrameTwips = 600;

// Twips of a line and of a column by which windows are measured; `kFrameTwips` comes to the height.
inline constexpr double kWindowLineTwips = 220;
inline constexpr double kWindowColumnTwips = 120;

constexpr double PixelsOfTwips(double twips) {
  return twips / kTwipsPerPixel;
}
constexpr double TwipsOfPixels(double pixels) {
  return pixels * kTwipsPerPixel;
}

// Outer placement of a window, in twips of the screen.
struct Placement {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;
};

// Width and height in twips.
struct ScreenSize {
  double Width = 0;
  double Height = 0;
};

// A client area in pixels.
struct WindowSize {
  double width = 0;
  double height = 0;
};

// The client areas that windows start with.
inline constexpr WindowSize kMainWindowSize{640, 420};
inline constexpr WindowSize kWindowSize{480, 300};

// A window around that client area, in the middle of the screen.
constexpr Placement Centred(WindowSize client, ScreenSize screen) {
  const double width = TwipsOfPixels(client.width);
  const double height = TwipsOfPixels(client.height) + kFrameTwips;
  return {(screen.Width - width) / 2, (screen.Height - height) / 2, width, height};
}

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

// The frame of a window and how a person may handle it.
struct WindowStyle {
  bool Titlebar = true;
  bool ControlBox = true;  // the system menu and the closing button
  bool MinButton = true;
  bool MaxButton = true;
  bool Sizable = true;
  bool ToolWindow = false;  // a narrow title, and no place among the desktop's windows
  bool TopMost = false;
  bool AutoDrag = false;         // the window moves when it is dragged by its client area
  bool AutoSysMenu = true;       // the system menu follows the buttons
  bool WhatsThisButton = false;  // a help button, where the title has neither of the two size buttons
};

// Pixels of a line and of a column of the grid in which programs count.
struct Grid {
  double TamLin;
  double TamCol;
};

}  // namespace tessera

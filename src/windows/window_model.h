// The windows of a run: the table of slots, the current window, the placement grid, the text cursor, and what
// events left behind. Who opens and closes windows is told in janela.h and overlaid_windows.h; what prints on
// them in window_commands.h.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/event_state.h"
#include "windows/shared_pictures.h"
#include "windows/window_directory.h"
#include "windows/window_objects.h"

namespace tessera {

class ProgramWindow;
class Surface;

inline constexpr std::string_view kMainWindowName = "Pai";

struct WindowSlot {
  Form* window = nullptr;
  std::string name;  // as the program wrote it; an empty name is a free slot
  ProgramWindow* owner = nullptr;

  // The name without quotes.
  std::string BareName() const;
};

// The shown windows in the order in which they came to the front.
class ActivationOrder {
 public:
  // The window in front; none while all are hidden.
  ProgramWindow* Active() const { return order_.empty() ? nullptr : order_.back(); }
  void BringToFront(ProgramWindow& window);
  void Remove(const ProgramWindow& window);

 private:
  std::vector<ProgramWindow*> order_;
};

// What a person finds beside the objects of the program: the parts of a modal window of the system's own, and
// those of its menus.
class WindowParts {
 public:
  virtual ~WindowParts() = default;
  // By name, blind to case; nothing where it has none of that name.
  virtual PersonObject* FindPart(std::string_view name) = 0;
};

// What starts anew with the main window.
struct WindowTable {
  static constexpr std::size_t kSlots = 20;  // slot 0 is the main window's

  std::array<WindowSlot, kSlots> slots;
  Form* MainWindow = nullptr;
  // The window on which objects are made and prints go, and its name.
  Form* CurrentForm = nullptr;
  std::string CurrentWindowName;

  ActivationOrder activation;
  std::vector<Form*> modal;           // the modal windows, the one in hand last
  WindowParts* modalParts = nullptr;  // of the last one, where it is the system's own

  static constexpr std::int16_t kTamLin = 14;
  static constexpr std::int16_t kTamCol = 8;
  // Pixels of a line and of a column.
  std::int16_t TamLin = kTamLin;
  std::int16_t TamCol = kTamCol;
  // The text cursor.
  std::int16_t PrintColumnPixels = 0;
  std::int16_t PrintLinePixels = 0;

  EventState events;
  bool FixedWindow = false;  // the main window may not stay maximised

  // The surface that drawing commands use in place of the current window, as long as it lives.
  void UseSurface(std::weak_ptr<Surface> surface) { usedSurface_ = std::move(surface); }
  // What drawing commands draw on and read.
  std::shared_ptr<Surface> UsedSurface() const { return usedSurface_.lock(); }
  Surface& DrawingTarget() const;

 private:
  std::weak_ptr<Surface> usedSurface_;
};

struct WindowModel final : WindowTable, WindowDirectory {
  // The run outlives it.
  WindowModel(Run& run, PictureCodecFinder findCodec) : pictures(run, std::move(findCodec)) {}

  SharedPictures pictures;
  WindowObjects* objects = nullptr;  // none in a run without object commands
  WindowParts* trayParts = nullptr;  // the menu of the icon in the tray

  // Empties the table, puts the main window into slot 0 and makes it the current one; grid, cursor and events
  // start anew.
  void Reset(Form& mainWindow, ProgramWindow& owner);

  // By name, blind to case, from slot 0 on; nothing where the table lacks it.
  WindowSlot* FindSlot(std::string_view name);

  // The window that the current form belongs to; the main window where that is given up.
  ProgramWindow& CurrentOwner() const;

  Form* WindowInHand() const override;
  Form* FindWindow(std::string_view name) const override;
  std::string NameOf(const Form* form) const override;
  bool CanBeReached(const Form& form) const override;
  PersonObject* FindObject(std::string_view name) const override;
  void OnLineDone() const override;
  std::uint64_t Yields() const override { return yields_; }
  // At each yield of the program.
  void OnYield();

 private:
  std::uint64_t yields_ = 0;
};

}  // namespace tessera

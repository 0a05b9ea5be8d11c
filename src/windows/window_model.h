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
  std::string name;  // as the program wrote it; an empty name is a free slot
  ProgramWindow* owner = nullptr;

  // The name without quotes.
  std::string BareName() const;
  // Of a slot in use.
  Form& window() const;
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

// The modal windows, the one in hand last.
class ModalWindows {
 public:
  // None while no window is modal.
  Form* InHand() const { return open_.empty() ? nullptr : open_.back(); }
  bool Holds(const Form& window) const;
  void Open(Form& window) { open_.push_back(&window); }
  void Close(const Form& window) { std::erase(open_, &window); }

 private:
  std::vector<Form*> open_;
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
class WindowTable {
 public:
  static constexpr std::size_t kSlots = 20;  // slot 0 is the main window's

  // By name, blind to case, from slot 0 on; nothing where the table lacks it.
  WindowSlot* FindSlot(std::string_view name);
  // Nothing where all are in use.
  WindowSlot* FreeSlot();
  std::size_t NumberOf(const WindowSlot& slot) const {
    return static_cast<std::size_t>(&slot - slots_.data());
  }
  // Empty for one that is free.
  std::string NameOfSlot(std::size_t number) const { return slots_[number].BareName(); }

  ProgramWindow& Main() const { return *slots_[0].owner; }
  Form& MainWindow() const { return slots_[0].window(); }
  // Whether the window stands in the table, and is not given up.
  bool IsDefined(const ProgramWindow& window) const;

  // The window on which objects are made and prints go, and its name.
  Form& CurrentForm() const;
  ProgramWindow& Current() const { return *current_; }
  bool IsCurrent(const ProgramWindow& window) const { return current_ == &window; }
  const std::string& CurrentWindowName() const { return currentName_; }
  // The window itself; the main window where that is given up.
  ProgramWindow& CurrentOwner() const { return IsDefined(*current_) ? *current_ : Main(); }
  // Another window than the current one takes drawing commands back from their surface.
  void MakeCurrent(ProgramWindow& window, std::string_view name);

  ActivationOrder activation;
  ModalWindows modal;
  WindowParts* modalParts = nullptr;  // of the one in hand, where it is the system's own

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

 protected:
  // Puts the main window into slot 0 and makes it the current one.
  void Begin(ProgramWindow& main);
  const WindowSlot* SlotOf(std::string_view name) const;
  const WindowSlot* SlotOf(const Form* window) const;

 private:
  std::array<WindowSlot, kSlots> slots_;
  ProgramWindow* current_ = nullptr;
  std::string currentName_;
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
  void Reset(ProgramWindow& main);

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

// All families of objects of a run: what they share, and what opening and closing windows does to them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/command_table.h"
#include "objects/grd_lst_a.h"
#include "objects/object_family.h"
#include "values/run.h"
#include "windows/window_objects.h"

namespace tessera {

struct WindowModel;

class ObjectFrame final : public WindowObjects {
 public:
  // Both outlive the frame. The windows know the frame from now on.
  ObjectFrame(Run& run, WindowModel& windows);
  ~ObjectFrame() override;

  Run& run() const { return run_; }
  WindowModel& windows() const { return windows_; }

  // Binds the family's command.
  template <typename Family, typename... More>
  Family& Add(CommandTable& table, More&... more) {
    auto family = std::make_unique<Family>(*this, more...);
    Family& added = *family;
    AddFamily(table, std::move(family));
    return added;
  }

  // The place in the Tab order of the next new object. Failure 6 beyond 16 bits.
  int TakeTabIndex();

  // What a person may call by a name without its being an object of a table, on the window in hand.
  using Finder = std::function<PersonObject*(std::string_view name, const ProgramWindow& window)>;
  void AddFinder(Finder finder) { finders_.push_back(std::move(finder)); }

  // The object of the family that pictures belong to, by name blind to case; null where there is none.
  Control* FindPicture(std::string_view name) const;
  void SetPictures(ObjectFamily& family) { pictures_ = &family; }

  // Removes the objects that lie in the picture, which is about to go.
  void RemoveWithin(const Control& picture);

  void Reset() override;
  void LoadStanding(Form& form) override { grdLstA_.LoadOn(form); }
  void ClearWindow(const Form& window) override;
  void ClearMainWindow() override;
  PersonObject* Find(std::string_view name, const ProgramWindow& window) override;
  void CopyTexts() override;
  void WakeCopying() override;

 private:
  void AddFamily(CommandTable& table, std::unique_ptr<ObjectFamily> family);

  Run& run_;
  WindowModel& windows_;
  GrdLstA grdLstA_{*this};
  std::vector<std::unique_ptr<ObjectFamily>> families_;
  std::vector<Finder> finders_;
  ObjectFamily* pictures_ = nullptr;
  std::int16_t NextTabIndex_ = 0;
};

}  // namespace tessera

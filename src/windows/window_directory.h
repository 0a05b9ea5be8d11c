// How a host finds the windows and objects that a person's acts go to.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

class Form;
class PersonObject;

class WindowDirectory {
 public:
  virtual ~WindowDirectory() = default;
  // The window that feels what is done without a name: the modal one, else the current one.
  virtual Form* WindowInHand() const = 0;
  // By name, blind to case; nothing where there is none.
  virtual Form* FindWindow(std::string_view name) const = 0;
  // Its name; empty where it is no window any more.
  virtual std::string NameOf(const Form* form) const = 0;
  // False while a modal window keeps the person from it.
  virtual bool CanBeReached(const Form& form) const = 0;
  // By the name that the program gave it: that of the current window first, else the lowest row; nothing
  // where there is none. A tab or a menu entry goes by its text.
  virtual PersonObject* FindObject(std::string_view name) const = 0;
  // A line of an event script is done.
  virtual void OnLineDone() const = 0;
  // Counts the yields of the program. Between two events of one yield it has seen nothing of either.
  virtual std::uint64_t Yields() const = 0;
};

}  // namespace tessera

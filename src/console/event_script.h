// The lines of an event script, and the person whose acts they tell. Reading a line is one thing and doing it
// another: the console host is one such person, a test that moves real pointers and keys is another.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "windows/input.h"
#include "windows/person_object.h"

namespace tessera {

class Person {
 public:
  virtual ~Person() = default;

  // The object, tab or menu entry of that name; nothing where there is none.
  virtual PersonObject* FindObject(std::string_view name) = 0;
  // Moves to the object's window and gives it the focus, as a pointer would; false where it can't be reached.
  virtual bool TurnTo(PersonObject& object) = 0;

  // On the current window, at the pointer's place.
  virtual void Click() = 0;
  virtual void DoubleClick() = 0;
  virtual void PressButton(MouseButton button) = 0;
  virtual void ReleaseButton(MouseButton button) = 0;
  // Lines and columns of the window's grid.
  virtual void MovePointer(double line, double column) = 0;

  // Where the focus is. Key codes are those of `OnKeyDown`.
  virtual void TypeText(std::string_view text) = 0;
  virtual void PressKey(int keyCode, KeyShift shift) = 0;
  virtual void ReleaseKey(int keyCode, KeyShift shift) = 0;

  // In the lines and columns by which windows are measured.
  virtual void ResizeWindow(double lines, double columns) = 0;
  // Turns to the window of that name; false where there is none.
  virtual bool TurnToWindow(std::string_view name) = 0;
  // Closes the window of that name, or the current one for an empty name; false where there is none.
  virtual bool CloseWindow(std::string_view name) = 0;
  // Lets that time pass, again and again, each time as if by a line of its own.
  virtual void LetTimePass(std::chrono::milliseconds time, int times) = 0;
  // Writes what stands on the current window into a PNG file, by its path from the script's reader. Empty, or
  // why it can't.
  virtual std::string TakePortrait(std::string_view path) = 0;
  // Waits for the network's next event, at most that long in real time.
  virtual void LetNetworkAct(std::chrono::milliseconds time) = 0;
};

// Lets the person do what an event line says. The answer is empty, or tells in the user's language what is
// wrong with the line; then nothing was done.
std::string DoEventLine(std::string_view line, Person& person);

}  // namespace tessera

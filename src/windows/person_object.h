// What a person does with an object, each in one act: the object's side of an event script's lines.
#pragma once

#include <cstddef>
#include <string_view>

namespace tessera {

class Form;

// What a kind of object can't feel does nothing. Rows, columns and entries count from 0.
class PersonObject {
 public:
  virtual ~PersonObject() = default;
  // The window on which it lies, and whether it is shown and enabled there.
  virtual Form* Window() const { return nullptr; }
  virtual bool IsInReach() const { return false; }
  virtual void Click() {}
  virtual void DoubleClick() {}
  virtual void ClickTitle(std::string_view /*title*/) {}
  virtual void ReplaceText(std::string_view /*text*/) {}
  virtual void EnterValue(double /*value*/) {}
  virtual void PressArrow(bool /*up*/) {}
  virtual void Choose(int /*entry*/) {}
  virtual void PickDate(std::string_view /*date*/) {}
  virtual void ClickRow(int /*row*/) {}
  virtual void ClickCell(int row, int /*column*/) { ClickRow(row); }
  // The row becomes the first that is in sight.
  virtual void ScrollTo(int /*row*/) {}
  virtual void EditCell(int /*row*/, int /*column*/, std::string_view /*text*/) {}
  // Selects what lies between two places, the caret at the second one; places count the characters before.
  virtual void PlaceCaret(std::size_t /*anchor*/, std::size_t /*caret*/) {}
  // The button that shows and hides what an entry drops down.
  virtual void PressDropButton() {}
  virtual void SetFocus() {}
};

}  // namespace tessera

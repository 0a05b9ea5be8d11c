// `Calendario`: a masked date field, and the month view that its button drops down.
#pragma once

#include <array>
#include <cstddef>

#include "controls/mask_field.h"
#include "text/date.h"

namespace tessera {

class Calendario {
 public:
  static constexpr std::size_t kWeeks = 6;
  static constexpr std::size_t kDaysOfWeek = 7;

  // A day of the month view; those of the months beside it fill the first and the last week.
  struct Day {
    std::chrono::year_month_day date;
    bool inMonth = false;
    bool marked = false;
  };

  explicit Calendario(DateTime today);

  // A day; a time of day is left out.
  DateTime Value() const { return value_; }
  // The field: the date, or what has been typed of one, open places being "_".
  const MaskField& TxtData() const { return txtData_; }
  bool Enabled() const { return enabled_; }
  bool ViewIsOpen() const { return viewIsOpen_; }

  void SetValue(DateTime date);
  void SetEnabled(bool enabled);
  void PlaceCaret(std::size_t anchor, std::size_t caret) { txtData_.Select(anchor, caret); }

  // A typed character goes to the next open or taken digit place; anything but a digit is refused. A whole
  // date of the calendar becomes the value at once. Whether the text changed, told as the change event.
  bool KeyPress(char character);
  // In the field: Left, Right, Home, End, Backspace, Delete. In the open view: arrows, Page Up and Page Down
  // mark another day, Enter picks it, Escape closes. The answer is that of KeyPress.
  bool KeyDown(int code, bool shift);

  void ButtonClick();
  // Picks a day and closes the view; false for a disabled control.
  bool Pick(DateTime date);
  // Closes the view; text that is no date gives way to the value.
  void PerdeuFoco();

  // The month view, from Sunday to Saturday, and its two month buttons.
  std::array<Day, kWeeks * kDaysOfWeek> View() const;
  std::chrono::year_month_day Marked() const { return CalendarDay(marked_); }
  void ShowMonth(int monthsFromHere);

 private:
  bool ViewKey(int code);
  void MarkDay(std::chrono::days daysFromHere);
  bool Edited(bool changed);

  DateTime value_;
  MaskField txtData_;
  DateTime marked_;  // the view shows its month
  bool viewIsOpen_ = false;
  bool enabled_ = true;
};

}  // namespace tessera

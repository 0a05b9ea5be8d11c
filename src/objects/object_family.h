// A family of objects: one command of the language, the table of its objects, and what their controls' events
// write. The shape that all families share stands here: how an object comes into being on first use, how it
// is found, how its properties are set, how it goes. A family of its own adds its creation arguments, its
// suffixes and its control.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "commands/arguments.h"
#include "language/families.h"
#include "objects/suffix.h"
#include "values/run.h"
#include "values/value.h"
#include "windows/control.h"

namespace tessera {

class ObjectFrame;
class ProgramWindow;
struct WindowModel;

struct ObjectRow {
  std::string name;  // as evaluated at the creation; an empty name is a free row
  std::string windowName;
  std::string array;  // the control array that holds the row's element
  std::weak_ptr<Control> object;
};

class ObjectFamily : public ControlEvents {
 public:
  // `word` is the family's command. `shared` are the suffixes that the family has in common with others; both
  // tables together do all suffixes of the word, or the start stops.
  ObjectFamily(ObjectFrame& frame, std::string_view word, std::span<const SuffixRow> suffixes,
               std::span<const SuffixRow> shared = {});
  ~ObjectFamily() override = default;
  ObjectFamily(const ObjectFamily&) = delete;
  ObjectFamily& operator=(const ObjectFamily&) = delete;

  const Word& word() const { return word_; }

  // The family's command. Some suffixes give a value.
  Value Do(const WordCall& call);

  // The rows ever used; the count never goes down while the program runs.
  const std::deque<ObjectRow>& Rows() const { return rows_; }
  // The row of that name, the lowest of several; null where there is none. Case counts.
  ObjectRow* FindRow(std::string_view name);

  // The objects that a person calls by that name, the lowest row first.
  virtual std::vector<PersonObject*> Named(std::string_view name);

  // Removes the objects that lie in the picture.
  void RemoveWithin(const Control& picture);

  virtual void Reset();
  // The window closes: its rows are given up.
  void ClearWindow(const Form& window);
  // The main window closes: rows beyond the first two are given up, the others hidden.
  void ClearMainWindow();
  // Texts that were typed reach the companion variables.
  virtual void CopyTexts() {}
  virtual void WakeCopying() {}

  void OnGotFocus(Control& control) override;
  void OnLostFocus(Control& control) override;
  // `IndiceRef` takes the row.
  void OnClick(Control& control) override;

 protected:
  // The control array for a new object; some families have more than one.
  virtual std::string ArrayFor(const Arguments& /*arguments*/) { return std::string(family_.arrays[0]); }
  // The element in its own default state, not yet placed.
  virtual std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) = 0;
  // Sets the properties that the creation arguments name; the control is placed, shown and numbered by
  // `Place` and the frame.
  virtual void Create(Control& control, ObjectRow& row, const Arguments& arguments) = 0;
  // Whether a new object can be seen at once.
  virtual bool IsShownAtFirst(const Arguments& /*arguments*/) const { return true; }
  // The row's object is removed, or goes with its window.
  virtual void OnRemoved(Control& /*control*/) {}
  // What the family does with a suffix' whole first argument, before the suffix itself is looked at.
  virtual void BeforeSuffix(Control& /*control*/, const Arguments& /*arguments*/) {}
  // A suffix of an object that the family has not got, in upper case.
  virtual void TellMissing(std::string_view /*name*/, std::string_view /*suffix*/) {}
  // The object has gone; element 0 of its control array stays, hidden.
  virtual void Gone(Control& /*control*/) {}
  // The name of the object that a program has written so.
  virtual std::string LookupName(std::string_view written) { return std::string(written); }
  // The companion variables of a new object.
  virtual void CreateCompanions(const ObjectRow& row);

  Run& run() const;
  WindowModel& windows() const;
  ObjectFrame& frame() const { return frame_; }

  // The row of a control; null for one whose row was given up.
  ObjectRow* RowOf(const Control& control);
  // `Top` and `Left` in lines and columns of the grid, from "linha" and "coluna".
  void Place(Control& control, const ArgumentView& arguments) const;
  // `Width` in columns, `Height` in lines; an empty argument leaves the control's own.
  void SetWidth(Control& control, const ArgumentView& arguments, ArgumentName name = "largura") const;
  void SetHeight(Control& control, const ArgumentView& arguments, ArgumentName name = "altura") const;
  // Pixels of so many lines or columns.
  double Lines(const Value& count) const;
  double Columns(const Value& count) const;

  // Writes what an event tells; a variable that the program has removed is no failure.
  void Tell(std::string_view variable, const Value& value);
  // A companion variable of the object; nothing for a row just given up.
  void TellCompanion(const Control& control, std::string_view suffix, const Value& value);

 private:
  void CreateObject(const Arguments& arguments);
  // `point` is the place of the "." in the first argument, from 1.
  Value DoSuffix(const Arguments& arguments, ObjectRow& row, std::size_t point);
  void Remove(ObjectRow& row);
  void Unload(ObjectRow& row);
  void RemoveCompanions(const ObjectRow& row);
  void GiveUp(ObjectRow& row);
  Form& FormCarrying(std::string_view array) const;

  ObjectFrame& frame_;
  const Word& word_;
  const Family& family_;
  const SuffixTable suffixes_;
  // References to rows live across the evaluation of arguments, which may make further objects or end the
  // program: rows are added at the end and never taken out.
  std::deque<ObjectRow> rows_;
};

}  // namespace tessera

#include "objects/object_family.h"

#include <algorithm>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/program_window.h"
#include "windows/window_model.h"

namespace tessera {

ObjectFamily::ObjectFamily(ObjectFrame& frame, std::string_view word, std::span<const SuffixRow> suffixes,
                           std::span<const SuffixRow> shared)
    : frame_(frame),
      word_(*FindWord(word)),
      family_(*FamilyOf(word)),
      suffixes_(word_.more.suffixes, {suffixes, shared}) {}

Run& ObjectFamily::run() const {
  return frame_.run();
}

WindowModel& ObjectFamily::windows() const {
  return frame_.windows();
}

ObjectRow* ObjectFamily::FindRow(std::string_view name) {
  if (name.empty()) return nullptr;
  const auto row =
      std::find_if(rows_.begin(), rows_.end(), [name](const ObjectRow& r) { return r.name == name; });
  return row == rows_.end() ? nullptr : &*row;
}

ObjectRow* ObjectFamily::RowOf(const Control& control) {
  const auto index = static_cast<std::size_t>(control.Index());
  return index < rows_.size() && !rows_[index].name.empty() ? &rows_[index] : nullptr;
}

std::vector<PersonObject*> ObjectFamily::Named(std::string_view name) {
  std::vector<PersonObject*> found;
  for (const ObjectRow& row : rows_) {
    const auto control = row.object.lock();
    if (control && row.name == name) found.push_back(control.get());
  }
  return found;
}

namespace {

// From the "." to the first blank.
std::string SuffixWord(std::string_view first, Position point) {
  const Position blank = Find(first, " ", point);
  return Upper(Mid(first, point, blank == 0 ? std::string_view::npos : blank - point));
}

}  // namespace

// Decision

// KEPT: "Remove" counts wherever it stands in the first argument, in an object's name too
// (programs.objects_come_and_go_by_rows).
Value ObjectFamily::Do(const WordCall& call) {
  const Arguments arguments(call);
  const std::string& first = arguments.Raw("nome");
  const Position point = Find(first, ".");
  if (point == 0) {
    CreateObject(arguments);
    return {};
  }
  const std::string name = LookupName(Left(first, point - 1));
  ObjectRow* row = FindRow(name);
  if (row == nullptr) {
    TellMissing(name, SuffixWord(first, point));
    return {};
  }
  if (Contains(first, "Remove")) {
    Remove(*row);
    return {};
  }
  return DoSuffix(arguments, *row, point);
}

Value ObjectFamily::DoSuffix(const Arguments& arguments, ObjectRow& row, Position point) {
  const auto control = row.object.lock();
  // The control went down with its window.
  if (!control) Fail(91);
  const std::string& first = arguments.Raw("nome");
  BeforeSuffix(*control, arguments);
  const SuffixTable::Bound* suffix = suffixes_.Find(SuffixWord(first, point));
  if (suffix == nullptr) return {};
  return suffix->act({run(), frame_, *this, row, *control, arguments, *suffix->form});
}

// Creation

// On a window that has no such array the late access to it fails.
Form& ObjectFamily::FormCarrying(std::string_view array) const {
  if (!windows().CurrentOwner().Carries(array)) {
    throw RunFailure(438, "A janela não tem esta família de objetos"_w);
  }
  return windows().CurrentForm();
}

void ObjectFamily::CreateObject(const Arguments& arguments) {
  const std::string name = LookupName(arguments.Text("nome"));
  // OPEN: an object without a name could never be spoken of, and its row would count as free: none is made.
  if (name.empty()) return;
  const std::string array = ArrayFor(arguments);
  Form& form = FormCarrying(array);
  const auto free =
      std::find_if(rows_.begin(), rows_.end(), [](const ObjectRow& row) { return row.name.empty(); });
  const auto index = static_cast<std::size_t>(free - rows_.begin());
  // Element 0 stands on each window from the start.
  // OPEN: so it keeps what an object before has set.
  std::shared_ptr<Control> control = form.Controls().Element(array, static_cast<int>(index));
  if (index > 0 || !control) {
    control = NewControl(form, array, static_cast<int>(index));
    form.LoadControl(array, control);
  }
  if (free == rows_.end()) rows_.emplace_back();
  rows_[index] = {name, windows().CurrentWindowName(), array, control};
  control->SetName(name);
  CreateCompanions(rows_[index]);
  Create(*control, rows_[index], arguments);
  control->SetVisible(IsShownAtFirst(arguments));
  control->SetTabIndex(frame_.TakeTabIndex());
}

void ObjectFamily::CreateCompanions(const ObjectRow& row) {
  for (const Companion& companion : family_.Companions()) {
    run().variables.VarCreateScalar(row.name + std::string(companion.suffix), companion.type);
  }
}

double ObjectFamily::Lines(const Value& count) const {
  return count.ToDouble() * windows().TamLin;
}

double ObjectFamily::Columns(const Value& count) const {
  return count.ToDouble() * windows().TamCol;
}

void ObjectFamily::Place(Control& control, const ArgumentView& arguments) const {
  ControlPlace to = control.Place();
  to.Top = Lines(arguments.Number("linha"));
  to.Left = Columns(arguments.Number("coluna"));
  control.Move(to);
}

void ObjectFamily::SetWidth(Control& control, const ArgumentView& arguments, ArgumentName name) const {
  if (arguments.IsEmpty(name)) return;
  ControlPlace to = control.Place();
  to.Width = Columns(arguments.Number(name));
  control.Move(to);
}

void ObjectFamily::SetHeight(Control& control, const ArgumentView& arguments, ArgumentName name) const {
  if (arguments.IsEmpty(name)) return;
  ControlPlace to = control.Place();
  to.Height = Lines(arguments.Number(name));
  control.Move(to);
}

// Removal

void ObjectFamily::Remove(ObjectRow& row) {
  Unload(row);
  GiveUp(row);
}

void ObjectFamily::RemoveWithin(const Control& picture) {
  for (ObjectRow& row : rows_) {
    const auto control = row.object.lock();
    if (control && !row.name.empty() && control->Parent() == &picture) Remove(row);
  }
}

void ObjectFamily::Unload(ObjectRow& row) {
  const auto control = row.object.lock();
  if (!control) return;
  frame_.RemoveWithin(*control);
  Gone(*control);
  if (control->Index() == 0) {
    control->SetVisible(false);
    control->LeaveParent();
  } else {
    control->form().UnloadControl(row.array, control->Index());
  }
}

void ObjectFamily::GiveUp(ObjectRow& row) {
  if (const auto control = row.object.lock()) OnRemoved(*control);
  RemoveCompanions(row);
  row.name.clear();
  row.windowName.clear();
}

void ObjectFamily::RemoveCompanions(const ObjectRow& row) {
  for (const Companion& companion : family_.Companions()) {
    run().variables.VarRemove(row.name + std::string(companion.suffix), true);
  }
}

void ObjectFamily::Reset() {
  rows_.clear();
}

// OPEN: a caption that the program has changed names no row, so those whose objects stand on the window go as
// well; else nothing that it makes when it is opened again could be spoken of.
void ObjectFamily::ClearWindow(const Form& window) {
  for (auto row = rows_.rbegin(); row != rows_.rend(); ++row) {
    const auto control = row->object.lock();
    const bool stands = control && &control->form() == &window;
    const bool isNamed = row->windowName == window.Caption() && row->windowName != kMainWindowName;
    if (!row->name.empty() && (stands || isNamed)) GiveUp(*row);
  }
}

void ObjectFamily::ClearMainWindow() {
  constexpr std::size_t kKept = 2;
  for (std::size_t index = rows_.size(); index > kKept; --index) Remove(rows_[index - 1]);
  for (std::size_t index = 0; index < std::min(rows_.size(), kKept); ++index) {
    RemoveCompanions(rows_[index]);
    if (const auto control = rows_[index].object.lock()) control->SetVisible(false);
  }
}

// Events

void ObjectFamily::OnGotFocus(Control& control) {
  if (const ObjectRow* row = RowOf(control)) Tell("GanhouFoco", row->name);
}

void ObjectFamily::OnLostFocus(Control& control) {
  if (const ObjectRow* row = RowOf(control)) Tell("PerdeuFoco", row->name);
}

void ObjectFamily::OnClick(Control& control) {
  Tell("IndiceRef", std::int32_t{control.Index()});
}

void ObjectFamily::Tell(std::string_view variable, const Value& value) {
  Guard([&] { run().variables.VarWrite(variable, value, true); });
}

void ObjectFamily::TellCompanion(const Control& control, std::string_view suffix, const Value& value) {
  const ObjectRow* row = RowOf(control);
  if (row == nullptr) return;
  Guard([&] { run().variables.VarWrite(row->name + std::string(suffix), value, false); });
}

}  // namespace tessera

#include "checker/names.h"

#include <algorithm>

#include "language/builtins.h"
#include "language/families.h"
#include "language/types.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

template <typename Map>
auto* FindIn(const Map& map, std::string_view key) {
  const auto found = map.find(key);
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace

Names::Names(std::vector<Editor> editors) : editors_(std::move(editors)) {
  for (const Builtin& builtin : Builtins())
    Add({.name = builtin.name, .type = builtin.type, .origin = Origin::Builtin});
  for (std::size_t i = 0; i < editors_.size(); ++i) AddEditor(i);
  AddCompanions();
}

void Names::Add(Variable variable) {
  const auto [row, isNew] = byName_.emplace(Upper(variable.name), variables_.size());
  if (isNew) {
    variables_.push_back(variable);
  } else if (variable.origin == Origin::Declared) {
    repeated_.push_back(variable);
  }
}

void Names::AddEditor(std::size_t editor) {
  const Outline& outline = *editors_[editor].outline;
  for (const Declared& declared : outline.variables) {
    Add({.name = declared.name,
         .type = declared.type,
         .isArray = declared.isArray,
         .count = declared.count,
         .editor = editor,
         .token = declared.token,
         .statement = declared.statement});
  }
  for (const Database& database : outline.databases) {
    databases_.push_back({editor, &database});
    for (const DatabaseField& field : database.fields) {
      const bool isNumber = field.type == "Inteiro" || field.type == "AutoInc";
      Add({.name = Keep(std::string(database.name) + "." + std::string(field.name)),
           .type = isNumber ? kTypeInteiro : field.type,
           .origin = Origin::Field,
           .editor = editor,
           .token = field.token,
           .statement = field.statement,
           .fieldSize = static_cast<std::size_t>(std::max<std::int64_t>(field.size, 0))});
    }
  }
  for (const Routine& routine : outline.routines) {
    auto& rows = routine.isFunction ? functions_ : subs_;
    auto& byName = routine.isFunction ? functionsByName_ : subsByName_;
    auto& byUpper = routine.isFunction ? functionsByUpper_ : subsByUpper_;
    byName.emplace(routine.name, rows.size());
    byUpper.emplace(Upper(routine.name), rows.size());
    rows.push_back({editor, &routine});
  }
  for (const MadeObject& object : outline.objects) {
    objects_.push_back({editor, &object});
    objectsByName_[Upper(object.name)].push_back({editor, &object});
  }
}

void Names::AddCompanions() {
  for (const ObjectRef& made : objects_) {
    const Variable* named = made.object->isLiteral ? nullptr : FindVariable(Upper(made.object->name));
    if (named != nullptr && named->origin == Origin::Declared) objectsAreNamedByVariables_ = true;
    for (const Companion& companion : FamilyOf(made.object->family)->Companions()) {
      Add({.name = Keep(std::string(made.object->name) + std::string(companion.suffix)),
           .type = companion.type,
           .origin = Origin::Companion,
           .count = -1,
           .editor = made.editor,
           .token = made.object->token,
           .statement = made.object->statement});
    }
  }
}

std::string_view Names::Keep(std::string text) {
  return *kept_.emplace_back(std::make_unique<const std::string>(std::move(text)));
}

const Variable* Names::FindVariable(std::string_view upper) const {
  const std::size_t* row = FindIn(byName_, upper);
  return row == nullptr ? nullptr : &variables_[*row];
}

const RoutineRef* Names::FindFunction(std::string_view name) const {
  const std::size_t* row = FindIn(functionsByName_, name);
  return row == nullptr ? nullptr : &functions_[*row];
}

const RoutineRef* Names::FindFunctionAnyCase(std::string_view upper) const {
  const std::size_t* row = FindIn(functionsByUpper_, upper);
  return row == nullptr ? nullptr : &functions_[*row];
}

const RoutineRef* Names::FindSub(std::string_view name) const {
  const std::size_t* row = FindIn(subsByName_, name);
  return row == nullptr ? nullptr : &subs_[*row];
}

const RoutineRef* Names::FindSubAnyCase(std::string_view upper) const {
  const std::size_t* row = FindIn(subsByUpper_, upper);
  return row == nullptr ? nullptr : &subs_[*row];
}

std::span<const ObjectRef> Names::FindObjects(std::string_view upper) const {
  const auto found = objectsByName_.find(upper);
  if (found == objectsByName_.end()) return {};
  return found->second;
}

const DatabaseRef* Names::FindDatabase(std::string_view upper) const {
  for (const DatabaseRef& row : databases_) {
    if (EqualsIgnoringCase(row.database->name, upper)) return &row;
  }
  return nullptr;
}

}  // namespace tessera::check

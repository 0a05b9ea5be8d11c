// All names of a program: what its editors declare, what the language declares for it, and what its objects
// and databases bring along.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "checker/outline.h"

namespace tessera::check {

struct Editor {
  const Source* source;
  const Outline* outline;
};

enum class Origin : std::uint8_t { Declared, Builtin, Companion, Field };

struct Variable {
  std::string_view name;
  std::string_view type;
  Origin origin = Origin::Declared;
  bool isArray = false;
  std::int64_t count = 1;  // of its elements; -1 where that isn't known
  std::size_t editor = 0;
  const Token* token = nullptr;  // where it was declared; null for a built-in
  std::size_t statement = 0;
  std::size_t fieldSize = 0;  // of a field of texts
};

struct RoutineRef {
  std::size_t editor;
  const Routine* routine;
};

struct ObjectRef {
  std::size_t editor;
  const MadeObject* object;
};

struct DatabaseRef {
  std::size_t editor;
  const Database* database;
};

// Finds by a view, without a text of its own.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

class Names {
 public:
  explicit Names(std::vector<Editor> editors);

  const std::vector<Editor>& editors() const { return editors_; }

  // By a name in upper case; null for none.
  const Variable* FindVariable(std::string_view upper) const;
  // The function or sub of just that name; then one whose name differs by case.
  const RoutineRef* FindFunction(std::string_view name) const;
  const RoutineRef* FindFunctionAnyCase(std::string_view upper) const;
  const RoutineRef* FindSub(std::string_view name) const;
  const RoutineRef* FindSubAnyCase(std::string_view upper) const;
  // The objects of that name, in upper case.
  std::span<const ObjectRef> FindObjects(std::string_view upper) const;
  const DatabaseRef* FindDatabase(std::string_view upper) const;

  const std::vector<RoutineRef>& functions() const { return functions_; }
  const std::vector<RoutineRef>& subs() const { return subs_; }
  const std::vector<Variable>& variables() const { return variables_; }
  const std::vector<ObjectRef>& objects() const { return objects_; }
  const std::vector<DatabaseRef>& databases() const { return databases_; }
  // Declarations of a name that was there already.
  const std::vector<Variable>& repeated() const { return repeated_; }
  // An object takes its name from a variable, so its companions can't be known.
  bool objectsAreNamedByVariables() const { return objectsAreNamedByVariables_; }

  Span PlaceOf(std::size_t editor, const Token& token) const {
    return editors_[editor].source->SpanOf(token);
  }

 private:
  using Rows = std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>>;

  void Add(Variable variable);
  void AddEditor(std::size_t editor);
  void AddCompanions();
  std::string_view Keep(std::string text);

  std::vector<Editor> editors_;
  std::vector<Variable> variables_;
  std::vector<Variable> repeated_;
  Rows byName_;
  std::vector<RoutineRef> functions_;
  std::vector<RoutineRef> subs_;
  std::vector<ObjectRef> objects_;
  std::vector<DatabaseRef> databases_;
  std::map<std::string, std::vector<ObjectRef>, std::less<>> objectsByName_;
  Rows functionsByUpper_;
  Rows functionsByName_;
  Rows subsByUpper_;
  Rows subsByName_;
  std::vector<std::unique_ptr<const std::string>> kept_;
  bool objectsAreNamedByVariables_ = false;
};

}  // namespace tessera::check

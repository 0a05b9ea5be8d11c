#include "engine/routines.h"

#include "platform/failure.h"

namespace tessera {

namespace {

std::vector<Position> OccurrencesOf(std::string_view text, std::string_view sought) {
  std::vector<Position> positions;
  for (Position at = tessera::Find(text, sought); at != 0; at = tessera::Find(text, sought, at + 1)) {
    positions.push_back(at);
  }
  return positions;
}

// The routine that opens at `hit`, to the first closing word that stands at the start of a statement.
std::string_view BodyFrom(std::string_view text, Position hit, std::string_view closing) {
  Position end = tessera::Find(text, closing, hit);
  while (end != 0 && CharAt(text, end - 4) != '#') end = tessera::Find(text, closing, end + closing.size());
  if (end == 0) FailArgument();
  return Mid(text, hit, end + closing.size() + kCrLf.size() - hit);
}

}  // namespace

std::string_view Engine::Routines::Find(Kind& kind, std::string_view name) {
  if (const auto known = kind.found.find(std::string(name)); known != kind.found.end()) return known->second;
  const std::string_view text = run_.program.ProgramText->text();
  if (!kind.openings) kind.openings = OccurrencesOf(text, kind.opening);
  for (const Position at : *kind.openings) {
    if (Mid(text, at + kind.opening.size(), name.size()) != name) continue;
    return kind.found.emplace(name, BodyFrom(text, at, kind.closing)).first->second;
  }
  return {};
}

std::string_view Engine::Routines::FindFunction(std::string_view name) {
  return Find(functions_, name);
}

std::string_view Engine::Routines::FindSub(std::string_view name) {
  return Find(subs_, name);
}

const RunnableText* Engine::Routines::Sub(std::string_view name) {
  auto& runnable = runnable_[std::string(name)];
  if (!runnable) {
    const std::string_view body = FindSub(name);
    if (body.empty()) return nullptr;
    runnable =
        std::make_unique<const RunnableText>(run_, std::make_shared<const PreparedText>(std::string(body)));
  }
  return runnable.get();
}

}  // namespace tessera

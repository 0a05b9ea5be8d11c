#include "console/script_input.h"

#include <poll.h>

#include <array>
#include <vector>

#include "platform/termination.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

pollfd ToRead(int descriptor) {
  return {.fd = descriptor, .events = POLLIN, .revents = 0};
}

}  // namespace

std::optional<std::string> ScriptInput::NextLine() {
  std::string line;
  if (!AwaitInput() || !std::getline(in_, line)) return std::nullopt;
  ++lineNumber_;
  if (line.ends_with('\r')) line.pop_back();
  auto text = FromUtf8(line);
  // Bytes that are no UTF-8 are taken for the code page's own.
  if (const auto* problem = std::get_if<Utf8Problem>(&text)) {
    return problem->malformed ? line : FromUtf8Lossy(line);
  }
  return std::get<std::string>(std::move(text));
}

std::optional<std::string> ScriptInput::NextEventLine() {
  while (auto line = NextLine()) {
    const std::string_view event = Trim(*line);
    if (!event.empty() && event.front() != '\'') return line;
  }
  return std::nullopt;
}

bool ScriptInput::LineWithin(std::optional<std::chrono::milliseconds> time,
                             std::span<const int> wakes) const {
  std::vector<pollfd> waits = {ToRead(*descriptor_), ToRead(termination::Descriptor())};
  for (const int wake : wakes) waits.push_back(ToRead(wake));
  poll(waits.data(), waits.size(), time ? static_cast<int>(time->count()) : -1);
  return waits[0].revents != 0 || waits[1].revents != 0;
}

bool ScriptInput::AwaitInput() const {
  constexpr int kBetweenActs = 20;  // milliseconds
  if (!descriptor_ || in_.rdbuf()->in_avail() > 0) return true;
  while (!termination::IsAsked()) {
    std::array<pollfd, 3> waits = {ToRead(*descriptor_), ToRead(termination::Descriptor()),
                                   ToRead(source_ == nullptr ? -1 : source_->SendDescriptor())};
    if (poll(waits.data(), waits.size(), meanwhile_ ? kBetweenActs : -1) <= 0) {
      if (meanwhile_) meanwhile_();
      continue;
    }
    if (waits[0].revents != 0) return true;
    if (waits[2].revents != 0) source_->SendWaiting();
  }
  return false;
}

}  // namespace tessera

#include "console/recording.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/descriptor_io.h"
#include "text/code_page.h"
#include "windows/act_line.h"

namespace tessera {

namespace {

using std::chrono::milliseconds;

// Lines that may still become one with what follows.
constexpr std::size_t kMostOpen = 8;
// A time that the script stays behind by is told once it is worth a line of its own, and forgotten where the
// program has computed for longer than a person would call waiting.
constexpr milliseconds kWorthALine{100};
constexpr milliseconds kForgotten{1000};

constexpr std::string_view kTime = "espera";
constexpr std::string_view kMove = "mouse";
constexpr std::string_view kPress = "pressiona";
constexpr std::string_view kRelease = "libera";
constexpr std::string_view kBlankKey = "tecla 32";

std::string_view FirstWord(std::string_view line) {
  return line.substr(0, line.find(' '));
}

std::string_view BehindFirst(std::string_view line) {
  const std::size_t blank = line.find(' ');
  return blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
}

std::string_view SecondWord(std::string_view line) {
  return FirstWord(BehindFirst(line));
}

// A later act on the same object, or of the same kind, leaves nothing of the one before.
bool TakesThePlaceOf(std::string_view before, std::string_view line) {
  const std::string_view word = FirstWord(line);
  if (word != FirstWord(before)) return false;
  if (word == kMove || word == "redim") return true;
  return (word == "cursor" || word == "valor" || word == "rola" || word == "foco") &&
         SecondWord(before) == SecondWord(line);
}

// The focus goes to the object with the next act anyway, and a list opens by itself for a choice.
bool IsPartOf(std::string_view before, std::string_view line) {
  const std::string_view word = FirstWord(line);
  if (SecondWord(before).empty() || SecondWord(before) != SecondWord(line)) return false;
  if (FirstWord(before) == "foco") {
    constexpr std::string_view kOnObjects[] = {"clique", "duploclique", "valor", "seta", "escolhe",
                                               "data",   "linha",       "rola",  "abre", "cursor"};
    return std::find(std::begin(kOnObjects), std::end(kOnObjects), word) != std::end(kOnObjects);
  }
  if (FirstWord(before) == "abre") return word == "escolhe" || word == "data";
  return before.starts_with("clique") && line == "duplo" + std::string(before);
}

// A line that means both; empty where there is none.
std::string Both(std::string_view before, std::string_view line) {
  if (FirstWord(before) == "aperta" && FirstWord(line) == "solta" && SecondWord(before) == SecondWord(line))
    return ActLine({"tecla", SecondWord(line)});
  if (before == "pressiona 1" && line == "libera 1") return "clique";
  if (before == "clique" && line == "duploclique") return "duploclique";
  return {};
}

// Joins what is typed on, across the blanks that had to be keys at the end of a line.
bool TypesOn(std::vector<std::string>& lines, std::string_view line) {
  if (FirstWord(line) != "digita") return false;
  const auto text = std::find_if(lines.rbegin(), lines.rend(),
                                 [](const std::string& before) { return before != kBlankKey; });
  if (text == lines.rend() || FirstWord(*text) != "digita") return false;
  text->append(static_cast<std::size_t>(text - lines.rbegin()), ' ').append(BehindFirst(line));
  lines.erase(text.base(), lines.end());
  return true;
}

// The same time once more.
bool WaitsOn(std::vector<std::string>& lines, std::string_view line) {
  if (lines.empty() || FirstWord(line) != kTime || FirstWord(lines.back()) != kTime) return false;
  const std::string_view before = BehindFirst(lines.back());
  if (FirstWord(before) != BehindFirst(line)) return false;
  int times = 1;
  const std::string_view counted = BehindFirst(before);  // as "x20"
  if (!counted.empty()) std::from_chars(counted.data() + 1, counted.data() + counted.size(), times);
  lines.back() = ActLine({line, "x" + std::to_string(times + 1)});
  return true;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes.append(ToUtf8(line)).append("\n");
  return bytes;
}

}  // namespace

std::vector<std::string> WithLine(std::vector<std::string> lines, std::string line, bool withinWait) {
  if (WaitsOn(lines, line) || (withinWait && TypesOn(lines, line))) return lines;
  if (withinWait && !lines.empty()) {
    if (std::string both = Both(lines.back(), line); !both.empty()) {
      lines.pop_back();
      return WithLine(std::move(lines), std::move(both), withinWait);
    }
    if (TakesThePlaceOf(lines.back(), line) || IsPartOf(lines.back(), line)) lines.pop_back();
  }
  lines.push_back(std::move(line));
  return lines;
}

milliseconds Recording::Behind() const {
  return std::chrono::floor<milliseconds>(Clock::now() - scriptTime_);
}

PersonAct Recording::TimeLine(milliseconds time) {
  scriptTime_ += time;
  if (Behind() > kForgotten) scriptTime_ = Clock::now();
  return {.line = ActLine({kTime, std::to_string(time.count())})};
}

std::optional<PersonAct> Recording::NextAct(std::optional<milliseconds> untilTick,
                                            std::span<const int> wakes) {
  if (held_) return std::exchange(held_, std::nullopt);
  const auto wait = untilTick ? std::optional(std::max(*untilTick - Behind(), milliseconds(0))) : untilTick;
  if (auto act = author_.NextAct(wait, wakes)) return act;
  if (untilTick && Behind() >= *untilTick) return TimeLine(*untilTick);
  return std::nullopt;
}

PersonAct Recording::ActOrTime(milliseconds time) {
  if (held_) return *std::exchange(held_, std::nullopt);
  if (auto act = author_.NextAct(milliseconds(0), {})) return *act;
  return TimeLine(Behind() > time + kWorthALine ? Behind() : time);
}

void Recording::Keep(std::string line, std::uint64_t yields) {
  const std::string_view word = FirstWord(line);
  // What is drawn with a button down is drawn along the way.
  const bool withinWait = yields == std::exchange(yields_, yields) && !(isPressed_ && word == kMove);
  if (word == kPress) isPressed_ = true;
  if (word == kRelease) isPressed_ = false;
  Settle(withinWait ? kMostOpen : 1);
  before_ = open_;
  Write(WithLine(open_, std::move(line), withinWait));
}

void Recording::TakeBack() {
  Write(before_);
}

void Recording::KeepAnswer(const std::string& answer) {
  Settle(0);
  Write({answer});
  Settle(0);
  before_.clear();
  scriptTime_ = Clock::now();
}

void Recording::Settle(std::size_t most) {
  if (open_.size() <= most) return;
  const auto end = open_.end() - static_cast<std::ptrdiff_t>(most);
  settled_ += Joined({open_.begin(), end}).size();
  open_.erase(open_.begin(), end);
}

// One call of the system takes the new lines into the place of the old ones: what is left of those is blank
// until it is cut off.
void Recording::Write(std::vector<std::string> lines) {
  const std::size_t size = Joined(lines).size();
  std::string bytes = Joined(lines);
  bytes.resize(std::max(size, Joined(open_).size()), '\n');
  std::string_view rest = bytes;
  isWhole_ = WriteAllAt(file_.number(), settled_, rest) == 0 && isWhole_;
  if (bytes.size() > size)
    isWhole_ = ftruncate(file_.number(), static_cast<off_t>(settled_ + size)) == 0 && isWhole_;
  open_ = std::move(lines);
}

}  // namespace tessera

// Where in the sources the problems of preparation lie, for whoever mends them. The running system only tells
// that some block is open; this looks for the place. It reads the linked text and changes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

// A line of an editor's source, counted from 1.
struct SourcePlace {
  std::int32_t editor = 0;
  std::int32_t line = 1;

  auto operator<=>(const SourcePlace&) const =
      default;  // NOLINT(modernize-use-nullptr): it takes the 0 for one
};

// A problem at its place; the message in the code page.
struct PlacedProblem {
  SourcePlace place;
  std::string message;
};

// What makes the block check fail on the linked `text`, in the order of the text: blocks opened and never
// closed, ends without a block, and texts that the check takes for a block word. Empty where it passes.
std::vector<PlacedProblem> ReportBlocks(std::string_view text);

}  // namespace tessera

#include "reports/page.h"

#include <algorithm>
#include <limits>

#include "windows/colours.h"

namespace tessera::reports {

namespace {

// The place of a thing in a list, put there where it is missing.
template <typename T>
std::uint32_t PlaceIn(std::vector<T>& list, const T& thing) {
  // The one used last is most often used again.
  const auto found = std::find(list.rbegin(), list.rend(), thing);
  if (found != list.rend()) return static_cast<std::uint32_t>(list.rend() - found - 1);
  list.push_back(thing);
  return static_cast<std::uint32_t>(list.size() - 1);
}

}  // namespace

Page::Operation& Page::Add(Kind kind, PagePlace from, PagePlace to, Colour colour) {
  operations_.push_back({.kind = kind,
                         .x1 = static_cast<float>(from.x),
                         .y1 = static_cast<float>(from.y),
                         .x2 = static_cast<float>(to.x),
                         .y2 = static_cast<float>(to.y),
                         .colour = ResolveColour(colour)});
  return operations_.back();
}

// A text that no line of paper holds is cut.
void Page::AddText(PagePlace at, std::string_view text, const FontFace& face, Colour colour) {
  const auto length = std::min<std::size_t>(text.size(), std::numeric_limits<std::uint16_t>::max());
  Operation& operation = Add(Kind::Text, at, {}, colour);
  operation.length = static_cast<std::uint16_t>(length);
  operation.text = static_cast<std::uint32_t>(texts_.size());
  operation.item = PlaceIn(faces_, face);
  texts_.append(text.substr(0, length));
}

void Page::AddLine(PagePlace from, PagePlace to, Colour colour) {
  Add(Kind::Line, from, to, colour);
}

void Page::AddBox(PagePlace corner, PagePlace opposite, Colour colour) {
  Add(Kind::Box, corner, opposite, colour);
}

void Page::AddPicture(PagePlace corner, const PictureRef& picture) {
  Add(Kind::Picture, corner, {}, 0).item = PlaceIn(pictures_, picture);
}

void Page::Close() {
  operations_.shrink_to_fit();
  texts_.shrink_to_fit();
}

}  // namespace tessera::reports

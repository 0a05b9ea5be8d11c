// Rich text as the format that word processors share (RTF 1.9.1): what `TextRTF` gives and takes. Of a
// document it knows the characters, their fonts, sizes, colours, weight, slant and underline, and how the
// first paragraph stands; all else is passed over.
#pragma once

#include <string>
#include <string_view>

#include "controls/styled_text.h"

namespace tessera {

// Groups within groups beyond so many are read as one.
inline constexpr std::size_t kMaxRtfNesting = 500;

// Whether the text calls itself a document of this format; any other text is plain.
bool IsRtf(std::string_view text);

// The text of a document. A damaged one gives what can be read. A font or colour that the document does not
// tell is the base's.
StyledText ReadRtf(std::string_view rtf, const CharFormat& base);

// Sizes are kept in halves of a point. A colour that is no plain red, green and blue is left to the reader.
std::string WriteRtf(const StyledText& text);

}  // namespace tessera

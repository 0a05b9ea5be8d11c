// The form in which `Procure` compares texts: blanks at both ends gone, upper case, accents gone from the
// letters that the table names, 131 characters at most.
#pragma once

#include <string_view>

namespace tessera {

// A character in upper case and without the accents that the table names.
unsigned char Folded(char character);

// Order of two texts by the bytes of their folded characters: negative, 0 or positive.
int CompareFolded(std::string_view a, std::string_view b);

// The same for two texts in the form of `Procure`.
int CompareComparable(std::string_view a, std::string_view b);

}  // namespace tessera

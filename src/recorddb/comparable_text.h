// The form in which `Procure` compares texts: blanks at both ends gone, upper case, accents gone from the
// letters that the table names, 131 characters at most.
#pragma once

#include <string_view>

namespace tessera {

// Order of two texts in that form, by bytes: negative, 0 or positive.
int CompareComparable(std::string_view a, std::string_view b);

}  // namespace tessera

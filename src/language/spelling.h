// Keywords and suffixes as programs write them: the tables have them in capitals, since case doesn't count
// there.
#pragma once

#include <string>
#include <string_view>

namespace tessera {

// ".MOVEFOCO" as ".MoveFoco", "TAMANHO" as "Tamanho", each part between points by itself. A word that is not
// in capitals counts as it stands.
std::string Spelled(std::string_view word);

}  // namespace tessera

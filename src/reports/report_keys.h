// The keys in a configuration text of a report, as in "SAIDA:VIDEO, MARGEMESQ:600".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessera::reports {

// The value behind a key: the text from behind the first ":" to before the first ",", ";" or blank. `text`
// begins with the key.
std::string PegaValor(std::string_view text);

// The value of a key that stands anywhere in the text; its first place counts. Nothing where it stands
// nowhere. Text and key are in upper case, the key with its ":".
std::optional<std::string> ValueOfKey(std::string_view text, std::string_view key);

}  // namespace tessera::reports

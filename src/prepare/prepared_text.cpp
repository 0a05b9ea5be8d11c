#include "prepare/prepared_text.h"

namespace tessera {

PreparedText::PreparedText(std::string text) : text_(std::move(text)) {}

}  // namespace tessera

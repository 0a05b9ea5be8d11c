// The pointer's events as the logic knows them.
#pragma once

#include <QMouseEvent>
#include <optional>

#include "windows/input.h"

namespace tessera {

// Nothing for a button that the language lacks.
inline std::optional<MouseButton> ButtonOf(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) return MouseButton::Left;
  if (event.button() == Qt::RightButton) return MouseButton::Right;
  return std::nullopt;
}

inline PointerPlace PlaceOf(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

}  // namespace tessera

// The controls of the system without their looks: state, keys, pointer and what they tell their owner.
// Nothing here paints or knows a window; lengths are pixels. Read scroll_bar.h first. This header: the
// platform's key codes that controls answer to.
#pragma once

namespace tessera::key {

inline constexpr int kBackspace = 8;
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kDelete = 46;

}  // namespace tessera::key

// The libraries on which windows stand, and the packages of Debian that bring them.
#pragma once

#include <array>
#include <string_view>

namespace tessera {

struct NeededPackage {
  std::string_view package;
  std::string_view library;  // by which a machine is seen to have it
  std::string_view purpose;  // for a person, in Portuguese
};

inline constexpr std::array kWindowsLibraries = {
    NeededPackage{"libqt6widgets6", "libQt6Widgets.so.6", "janelas"},
    NeededPackage{"libqt6gui6", "libQt6Gui.so.6", "desenho"},
    NeededPackage{"libqt6core6", "libQt6Core.so.6", "janelas"},
    NeededPackage{"libqt6printsupport6", "libQt6PrintSupport.so.6", "impressão"},
    NeededPackage{"libqt6svg6", "libQt6Svg.so.6", "figuras"},
};

}  // namespace tessera

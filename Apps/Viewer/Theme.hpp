// The look of the viewer: colors, sizes of text and distances.
#pragma once

#include "Platform/Graphics/Color.hpp"

namespace orivanta::viewer::theme {

using graphics::Color;

inline constexpr Color accent{0.122F, 0.302F, 0.655F};
inline constexpr Color accentTint{0.914F, 0.937F, 0.980F};  ///< behind selected items
inline constexpr Color amber{0.984F, 0.675F, 0.094F};
inline constexpr Color ink{0.125F, 0.157F, 0.216F};
inline constexpr Color faint{0.408F, 0.447F, 0.506F};
inline constexpr Color hairline{0.863F, 0.882F, 0.910F};
inline constexpr Color pressed{0.945F, 0.957F, 0.976F};
inline constexpr Color paper = graphics::colors::white;
inline constexpr Color backdrop{0.945F, 0.953F, 0.961F};
inline constexpr Color warning{0.741F, 0.196F, 0.153F};
inline constexpr Color positive{0.078F, 0.412F, 0.290F};  ///< text about what is open

// In points.
inline constexpr double margin = 16;       ///< around panels
inline constexpr double padding = 16;      ///< inside them
inline constexpr double radius = 14;       ///< of their corners
inline constexpr double controlSize = 44;  ///< side of what can be tapped
inline constexpr double titleSize = 19;
inline constexpr double textSize = 15;
inline constexpr double smallSize = 12.5;
inline constexpr double leastWideWidth = 720;  ///< of a view with a column of panels beside the map

}  // namespace orivanta::viewer::theme

// The colors of marks on a map.
#pragma once

#include "Platform/Graphics/Color.hpp"

namespace orivanta::markColors {

inline constexpr graphics::Color start{0.18F, 0.55F, 0.34F};    ///< start of a route
inline constexpr graphics::Color end{0.80F, 0.22F, 0.20F};      ///< end of a route
inline constexpr graphics::Color ride{0.122F, 0.302F, 0.655F};  ///< floor change of a route
inline constexpr graphics::Color place{0.80F, 0.47F, 0.02F};    ///< a place, or a stop of a route

}  // namespace orivanta::markColors

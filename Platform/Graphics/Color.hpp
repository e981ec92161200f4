// sRGB colors and named colors.
// Public header.
#pragma once

#include <optional>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::graphics {

/// An sRGB color with components from 0 to 1, not premultiplied.
struct Color {
  float red = 0.0F;    ///< from 0 to 1
  float green = 0.0F;  ///< from 0 to 1
  float blue = 0.0F;   ///< from 0 to 1
  float alpha = 1.0F;  ///< from 0, transparent, to 1, opaque

  /// Returns a gray: 0 is black, 1 is white.
  static constexpr Color fromWhite(float level, float alpha = 1.0F) {
    return {level, level, level, alpha};
  }

  /// Parses "#rgb", "#rrggbb", "#rrggbbaa" or the name of one of the colors below, ignoring case.
  /// Returns nothing for any other text.
  ORIVANTA_API static std::optional<Color> parse(std::string_view text);

  friend bool operator==(const Color&, const Color&) = default;
};

namespace colors {
inline constexpr Color black{0, 0, 0, 1};                           ///< "black"
inline constexpr Color darkGray{1.0F / 3, 1.0F / 3, 1.0F / 3, 1};   ///< "darkGray"
inline constexpr Color lightGray{2.0F / 3, 2.0F / 3, 2.0F / 3, 1};  ///< "lightGray"
inline constexpr Color gray{0.5F, 0.5F, 0.5F, 1};                   ///< "gray"
inline constexpr Color white{1, 1, 1, 1};                           ///< "white"
inline constexpr Color red{1, 0, 0, 1};                             ///< "red"
inline constexpr Color green{0, 1, 0, 1};                           ///< "green"
inline constexpr Color blue{0, 0, 1, 1};                            ///< "blue"
inline constexpr Color cyan{0, 1, 1, 1};                            ///< "cyan"
inline constexpr Color yellow{1, 1, 0, 1};                          ///< "yellow"
inline constexpr Color magenta{1, 0, 1, 1};                         ///< "magenta"
inline constexpr Color orange{1, 0.5F, 0, 1};                       ///< "orange"
inline constexpr Color purple{0.5F, 0, 0.5F, 1};                    ///< "purple"
inline constexpr Color brown{0.6F, 0.4F, 0.2F, 1};                  ///< "brown"
inline constexpr Color clear{0, 0, 0, 0};                           ///< "clear": transparent black
}  // namespace colors

}  // namespace orivanta::graphics

// The look of the interface: colors, sizes of text and distances.
#pragma once

#include <optional>

#include "Platform/Graphics/Color.hpp"

namespace orivanta::viewer::theme {

using graphics::Color;

/// The colors of an interface. Text has a contrast of at least 4.5 on everything behind it, symbols
/// and the borders of controls at least 3.
struct Colors {
  Color accent;      ///< texts and symbols of controls, and filled controls
  Color accentTint;  ///< behind selected items and on controls
  Color ink;         ///< text
  Color faint;       ///< less important text
  Color hairline;    ///< between items; carries no meaning
  Color border;      ///< of panels and controls
  Color pressed;     ///< behind items while they are pressed
  Color paper;       ///< of panels, and texts and symbols on filled controls and marks
  Color backdrop;    ///< behind the map and the panels
  Color warning;     ///< text about problems
  Color positive;    ///< text about what is open
  Color start;       ///< mark of the start of a route
  Color end;         ///< mark of its end
  Color stop;        ///< mark of a stop in between
};

/// What the user chooses about the look of the interface.
struct Look {
  bool isDark = false;
  bool hasHighContrast = false;
  double textScale = 1;  ///< of all texts; 1 for the usual size

  friend bool operator==(const Look&, const Look&) = default;
};

/// Returns the colors of a look.
const Colors& colorsOf(const Look& look);

/// Sets the look of all views of the interface. They use it from the next frame on, but must be
/// arranged again if the size of the text has changed. Main thread.
void use(const Look& look);

/// Returns the current look. The light one is set at the start.
const Look& look();

/// Returns a number that changes with the look, so that views can drop images of the former one.
unsigned generation();

/// A color of the current look.
class Tone {
 public:
  constexpr explicit Tone(Color Colors::*member) : member_(member) {}
  operator Color() const;  // NOLINT(google-explicit-constructor): it is used in place of a color

 private:
  Color Colors::*member_;
};

/// A color of the current look or a fixed one. Unlike `Color`, a stored tone follows the look.
class Paint {
 public:
  Paint(Tone tone) : tone_(tone) {}             // NOLINT(google-explicit-constructor)
  Paint(const Color& color) : color_(color) {}  // NOLINT(google-explicit-constructor)
  operator Color() const {                      // NOLINT(google-explicit-constructor)
    return tone_ ? static_cast<Color>(*tone_) : color_;
  }

 private:
  std::optional<Tone> tone_;
  Color color_;
};

inline constexpr Tone accent{&Colors::accent};
inline constexpr Tone accentTint{&Colors::accentTint};
inline constexpr Tone ink{&Colors::ink};
inline constexpr Tone faint{&Colors::faint};
inline constexpr Tone hairline{&Colors::hairline};
inline constexpr Tone border{&Colors::border};
inline constexpr Tone pressed{&Colors::pressed};
inline constexpr Tone paper{&Colors::paper};
inline constexpr Tone backdrop{&Colors::backdrop};
inline constexpr Tone warning{&Colors::warning};
inline constexpr Tone positive{&Colors::positive};
inline constexpr Tone start{&Colors::start};
inline constexpr Tone end{&Colors::end};
inline constexpr Tone stop{&Colors::stop};

/// Of areas that are highlighted on a map without a style. Not for the interface.
inline constexpr Color amber{0.984F, 0.675F, 0.094F};

// In points. Sizes of text are multiplied by `Look::textScale` when the text is laid out.
inline constexpr double margin = 16;       ///< around panels
inline constexpr double padding = 16;      ///< inside them
inline constexpr double radius = 14;       ///< of their corners
inline constexpr double controlSize = 44;  ///< least side of what can be tapped
inline constexpr double titleSize = 19;
inline constexpr double textSize = 15;
inline constexpr double smallSize = 12.5;
inline constexpr double leastWideWidth = 720;  ///< of a view with a column of panels beside the map

/// Returns a length that grows with the text, such as the height of a line.
double withText(double points);

/// Returns a length that grows half as much as the text, such as the side of an icon.
double withIcons(double points);

/// Returns the side of a control with a symbol or a short text. It grows half as much as the text.
double control();

}  // namespace orivanta::viewer::theme

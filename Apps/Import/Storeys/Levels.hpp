// Reads the texts that name the levels of a thing, such as "0", "-1;0" or "0-3".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::importer {

/// What a text says about levels.
struct Levels {
  std::vector<double> values;  ///< ordinals, ascending, each once; see `roundedLevel`
  std::string unreadable;      ///< the parts that are no levels, separated by ";"; or empty
  bool isRange = false;        ///< some values come from a range such as "0-3", not from the text
};

/// Reads a list, separated by semicolons, of numbers ("2", "-1", "+1", "0.5") and ranges ("0-3",
/// "-1-3", "-3--1") in either order. Ranges count by ones from their lower end.
///
/// A single comma before one or two digits is a decimal point ("0,5"), except before the next
/// integer: "0,1" lists two neighboring levels, as no storey lies a tenth above another. Other
/// commas separate.
///
/// Numbers beyond 500 and ranges over more than 200 levels are unreadable, so that a hostile text
/// cannot make millions of storeys.
Levels parseLevels(std::string_view text);

/// The level rounded to a thousandth, so that equal levels compare equal. Never negative zero.
double roundedLevel(double level);

/// The shortest text of a level, such as "-1" or "0.5".
std::string levelText(double level);

}  // namespace orivanta::importer

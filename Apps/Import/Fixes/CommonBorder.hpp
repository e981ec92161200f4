// The border that two areas share.
#pragma once

#include <optional>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// A point near the middle of the outer border that `area` shares with `other`, with a tolerance of
/// 0.4 m. Nothing if they share none. The shapes need not be valid.
std::optional<Point> commonBorder(const Area& area, const Area& other);

}  // namespace orivanta::importer

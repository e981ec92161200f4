// Reads recorded touches from a file and replays them on a view.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "Platform/View/Touch.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::command {

/// Reads one touch per line, as a JSON object:
///
///     {"time": 0.25, "finger": 1, "phase": "moved", "x": 400, "y": 310}
///
/// "time" is in seconds and not less than in the line before. "finger" is a whole number that
/// identifies the finger. "phase" is "began", "moved", "ended" or "canceled". "x" and "y" are
/// points from the upper left corner. Empty lines and lines that begin with # are skipped. Throws
/// `CommandError` with the number of the line for any other line; `name` is the file name in the
/// message.
std::vector<view::Touch> readTouches(std::istream& file, const std::string& name);

/// Replays the touches on the root view. Touches with the same time are dispatched together.
void replay(const std::vector<view::Touch>& touches, const std::shared_ptr<view::View>& root);

}  // namespace orivanta::command

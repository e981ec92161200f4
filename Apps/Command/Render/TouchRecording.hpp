// Recorded touches: read from a file, replayed on a view.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "Platform/View/Touch.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::command {

/// One touch a line, as a JSON object:
///
///     {"time": 0.25, "finger": 1, "phase": "moved", "x": 400, "y": 310}
///
/// "time" in seconds, not before that of the line above; "finger" a whole number that tells fingers
/// apart; "phase" one of "began", "moved", "ended", "cancelled"; "x" and "y" points from the upper
/// left corner. Empty lines and lines that begin with # are passed over. Throws `CommandError` with
/// the line's number for anything else; `name` is the file's, for the error.
std::vector<view::Touch> readTouches(std::istream& file, const std::string& name);

/// Plays the touches on the topmost view.
void replay(const std::vector<view::Touch>& touches, const std::shared_ptr<view::View>& root);

}  // namespace orivanta::command

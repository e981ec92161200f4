#include "Apps/Command/Render/TouchRecording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "Apps/Command/CommandError.hpp"
#include "Platform/View/TouchDispatcher.hpp"
#include "Source/RawData.hpp"

namespace orivanta::command {

namespace {

using view::TouchPhase;

std::optional<TouchPhase> phaseNamed(const std::optional<std::string>& name) {
  if (name == "began") return TouchPhase::began;
  if (name == "moved") return TouchPhase::moved;
  if (name == "ended") return TouchPhase::ended;
  if (name == "canceled") return TouchPhase::canceled;
  return std::nullopt;
}

std::optional<view::Touch> parseTouch(std::string_view line) {
  const auto json = RawData::parse(line);
  if (!json) return std::nullopt;
  const auto time = (*json)["time"].double_();
  const auto finger = (*json)["finger"].double_();
  const auto phase = phaseNamed((*json)["phase"].string());
  const auto x = (*json)["x"].double_();
  const auto y = (*json)["y"].double_();
  constexpr double largestFinger = 1e9;
  if (!time || !finger || !phase || !x || !y || *finger != std::floor(*finger) || *finger < 0 ||
      *finger > largestFinger)
    return std::nullopt;
  return view::Touch{static_cast<std::uint64_t>(*finger), *phase, {*x, *y}, *time};
}

}  // namespace

std::vector<view::Touch> readTouches(std::istream& file, const std::string& name) {
  std::vector<view::Touch> touches;
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    if (line.find_first_not_of(" \t\r") == std::string::npos || line.front() == '#') continue;
    const auto touch = parseTouch(line);
    if (!touch)
      throw CommandError(
          ExitCode::wrongUse,
          fmt::format("{}:{}: not a touch with time, finger, phase, x and y", name, number));
    if (!touches.empty() && touch->time < touches.back().time)
      throw CommandError(
          ExitCode::wrongUse,
          fmt::format("{}:{}: the time is before that of the previous touch", name, number));
    touches.push_back(*touch);
  }
  return touches;
}

void replay(const std::vector<view::Touch>& touches, const std::shared_ptr<view::View>& root) {
  view::TouchDispatcher fingers(root);
  for (auto moment = touches.begin(); moment != touches.end();) {
    const auto next = std::find_if(
        moment, touches.end(), [&](const view::Touch& touch) { return touch.time > moment->time; });
    fingers.dispatch({moment, next});
    moment = next;
  }
}

}  // namespace orivanta::command

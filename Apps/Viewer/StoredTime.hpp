// When a venue was stored, as text.
#pragma once

#include <chrono>
#include <string>

#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/LocalTime.hpp"

namespace orivanta::viewer {

/// Returns a date and time of day such as "21 November, 14:05", with the year if it is not that of
/// `now`.
std::string dateText(const guidance::LocalTime& time, const guidance::LocalTime& now,
                     const guidance::InterfaceTexts& texts);

/// Returns a time in the time zone of this computer.
guidance::LocalTime localTime(std::chrono::system_clock::time_point time);

}  // namespace orivanta::viewer

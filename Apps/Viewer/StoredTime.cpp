#include "Apps/Viewer/StoredTime.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>

namespace orivanta::viewer {

namespace {

constexpr std::array months{
    "interface.month.january", "interface.month.february", "interface.month.march",
    "interface.month.april",   "interface.month.may",      "interface.month.june",
    "interface.month.july",    "interface.month.august",   "interface.month.september",
    "interface.month.october", "interface.month.november", "interface.month.december"};

}  // namespace

std::string dateText(const guidance::LocalTime& time, const guidance::LocalTime& now,
                     const guidance::InterfaceTexts& texts) {
  const auto index = static_cast<std::size_t>(std::clamp(time.month, 1, 12) - 1);
  const std::string day = fmt::to_string(time.day);
  const std::string month = texts.text(months[index]);
  const std::string year = fmt::to_string(time.year);
  const std::string clock = fmt::format("{:02}:{:02}", time.hour, time.minute);
  if (time.year == now.year)
    return texts.text("interface.date", {{"day", day}, {"month", month}, {"time", clock}});
  return texts.text("interface.date.year",
                    {{"day", day}, {"month", month}, {"year", year}, {"time", clock}});
}

guidance::LocalTime localTime(std::chrono::system_clock::time_point time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm local{};
  localtime_r(&seconds, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min};
}

}  // namespace orivanta::viewer

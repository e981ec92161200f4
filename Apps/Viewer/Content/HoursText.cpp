#include "Apps/Viewer/Content/HoursText.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

namespace orivanta::viewer {

namespace {

using guidance::InterfaceTexts;
using guidance::LocalTime;
using guidance::OpeningHours;
using guidance::OpenState;

constexpr long long minutesPerDay = 1440;
constexpr int daysBefore = 2;  // from which times may extend into the first day
constexpr int daysPerWeek = 7;

// A time in which the state stays the same. Without an end, it lasts.
struct Span {
  OpenState state;
  LocalTime from;
  std::optional<LocalTime> to;

  bool isLongerThanDay() const { return !to || from.plusMinutes(minutesPerDay) < *to; }
};

std::vector<Span> spansBetween(const OpeningHours& hours, LocalTime from, const LocalTime& end) {
  std::vector<Span> spans;
  while (from < end) {
    const auto next = hours.nextChange(from);
    spans.push_back({hours.at(from), from, next});
    if (!next) break;
    from = *next;
  }
  return spans;
}

LocalTime dayOf(const LocalTime& time) { return {time.year, time.month, time.day, 0, 0}; }

std::string clockText(const LocalTime& time) {
  return fmt::format("{:02}:{:02}", time.hour, time.minute);
}

// Midnight ends a day.
std::string endText(const LocalTime& time) {
  return time.hour == 0 && time.minute == 0 ? "24:00" : clockText(time);
}

std::string dayName(const LocalTime& time, const InterfaceTexts& texts) {
  static constexpr std::array keys{"interface.day.monday",    "interface.day.tuesday",
                                   "interface.day.wednesday", "interface.day.thursday",
                                   "interface.day.friday",    "interface.day.saturday",
                                   "interface.day.sunday"};
  return texts.text(keys.at(static_cast<std::size_t>(time.weekday())));
}

// Spans of more than a day are cut at midnight. Others are shown on the day on which they begin.
std::string hoursOn(const LocalTime& day, const std::vector<Span>& spans,
                    const InterfaceTexts& texts) {
  const LocalTime dayEnd = day.plusMinutes(minutesPerDay);
  std::string text;
  bool isUnknown = false;
  for (const Span& span : spans) {
    if (!(span.from < dayEnd) || (span.to && !(day < *span.to))) continue;
    isUnknown = isUnknown || span.state == OpenState::unknown;
    if (span.state != OpenState::open) continue;
    LocalTime from = span.from;
    LocalTime end = span.to.value_or(dayEnd);
    if (span.isLongerThanDay()) {
      from = std::max(from, day);
      end = std::min(end, dayEnd);
    }
    if (from < day) continue;
    if (from == day && end == dayEnd) return texts.text("interface.hours.always");
    text += fmt::format("{}{}\u2013{}", text.empty() ? "" : ", ", clockText(from), endText(end));
  }
  if (!text.empty()) return text;
  return texts.text(isUnknown ? "interface.hours.unknown" : "interface.hours.none");
}

std::string openText(const OpeningHours& hours, const LocalTime& now, const InterfaceTexts& texts) {
  const auto end = hours.nextChange(now);
  if (!end) return texts.text("interface.hours.always");
  if (now.plusMinutes(minutesPerDay) < *end) return texts.text("interface.hours.open");
  return texts.text("interface.hours.until", {{"time", texts.name(endText(*end))}});
}

std::string closedText(const OpeningHours& hours, const LocalTime& now,
                       const InterfaceTexts& texts) {
  const LocalTime today = dayOf(now);
  const LocalTime end = today.plusMinutes(daysPerWeek * minutesPerDay);
  for (const Span& span : spansBetween(hours, now, end)) {
    if (span.state != OpenState::open) continue;
    const LocalTime day = dayOf(span.from);
    const std::string time = texts.name(clockText(span.from));
    if (day == today) return texts.text("interface.hours.opens", {{"time", time}});
    if (day == today.plusMinutes(minutesPerDay))
      return texts.text("interface.hours.opens.tomorrow", {{"time", time}});
    return texts.text("interface.hours.opens.day", {{"day", dayName(day, texts)}, {"time", time}});
  }
  return texts.text("interface.place.closed");
}

}  // namespace

std::string stateText(const OpeningHours& hours, const LocalTime& now,
                      const InterfaceTexts& texts) {
  switch (hours.at(now)) {
    case OpenState::open:
      return openText(hours, now, texts);
    case OpenState::closed:
      return closedText(hours, now, texts);
    case OpenState::unknown:
      break;
  }
  return {};
}

std::vector<DayHours> weekOf(const OpeningHours& hours, const LocalTime& now,
                             const InterfaceTexts& texts) {
  const LocalTime first = dayOf(now);
  const auto spans = spansBetween(hours, first.plusMinutes(-daysBefore * minutesPerDay),
                                  first.plusMinutes(daysPerWeek * minutesPerDay));
  std::vector<DayHours> week;
  week.reserve(daysPerWeek);
  for (int i = 0; i < daysPerWeek; ++i) {
    const LocalTime day = first.plusMinutes(i * minutesPerDay);
    week.push_back({dayName(day, texts), hoursOn(day, spans, texts)});
  }
  return week;
}

}  // namespace orivanta::viewer

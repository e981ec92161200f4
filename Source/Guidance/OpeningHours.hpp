// Opening hours, in a subset of the grammar of OpenStreetMap's `opening_hours`.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/LocalTime.hpp"
#include "Source/Guidance/OpenState.hpp"

namespace orivanta::guidance {

namespace hours {
struct Schedule;
}

/// When a place is open. Immutable; copies share their data. Thread-safe.
///
/// A text is a list of rules. A rule consists of days, times, a state and comments, all optional:
/// "Mo-Fr 09:00-18:00", "Dec 24-26 off". A rule without days applies to every day, one without
/// times to the whole day. The state is open, off (or closed), or unknown. Without one it is open,
/// or unknown if there is a comment: "Sa "by appointment"".
///
/// - After `;`, a rule replaces the earlier rules on its days. After `,`, it is added to them.
/// After
///   `||`, it applies where they state nothing. A rule with times and `off` closes only these
///   times.
/// - Days are years, months, dates, Easter, weeks and days of the week: "2026 Dec 24-2027 Jan 02",
///   "Mar Su[-1]-Oct Su[-1]", "easter -2 days", "week 2-52/2", "Fr-Mo", "Sa[1,-1]".
/// - Times may extend past midnight, "22:00-02:00" or "20:00-26:00". They belong to the day on
/// which
///   they begin: "Su off" does not close what began on Saturday evening.
/// - "18:00+" is open for one hour and then unknown until 04:00. "17:00-23:00+" is unknown from
/// 23:00.
/// - Public and school holidays (PH, SH) are passed over: every day counts as an ordinary day.
/// - If no rule opens, as in "Dec 25 off", the state at other times is unknown, otherwise closed.
/// - Case, white space, kinds of dashes, English names of days and months, "9.00", "9h30", "9-17"
/// and
///   "9am-5pm" are accepted.
///
/// Times that depend on the sun, points in time, names in other languages and texts of more than
/// 2000 bytes are not in the subset.
class ORIVANTA_API OpeningHours {
 public:
  /// Parses a text. Returns nothing if the text is not in the subset.
  static std::optional<OpeningHours> parse(std::string_view text);

  /// Returns the state in the minute that begins at this time.
  OpenState at(const LocalTime& time) const;

  /// Returns the first minute after this time with another state, at most 14 days later. Returns
  /// nothing if there is none.
  std::optional<LocalTime> nextChange(const LocalTime& time) const;

 private:
  explicit OpeningHours(std::shared_ptr<const hours::Schedule> schedule);

  std::shared_ptr<const hours::Schedule> schedule_;
};

}  // namespace orivanta::guidance

#include "Source/Guidance/OpeningHours.hpp"

#include <chrono>
#include <utility>

#include "Source/Guidance/Hours/Rule.hpp"
#include "Source/Guidance/Hours/RuleParser.hpp"

namespace orivanta::guidance {

namespace {

namespace chrono = std::chrono;
using hours::minutesPerDay;
using hours::Rule;

constexpr int longestChange = 14 * minutesPerDay;
constexpr chrono::sys_days lastDay = chrono::year(9999) / chrono::December / chrono::day(31);

// The rules that apply to a day and to the day before, whose spans may extend past midnight.
class Day {
 public:
  Day(const hours::Schedule& schedule, chrono::sys_days day) : otherwise_(schedule.otherwise) {
    for (const Rule& rule : schedule.rules) {
      if (rule.appliesTo(day)) own_.push_back(&rule);
      if (rule.appliesTo(day - chrono::days(1))) before_.push_back(&rule);
    }
  }

  OpenState at(int minute) const {
    const Statement own = state(own_, minute);
    const Statement before = state(before_, minute + minutesPerDay);
    for (const OpenState state : {OpenState::open, OpenState::unknown, OpenState::closed}) {
      // "Su off" does not close what began on Saturday evening; "Su 00:00-03:00 off" does.
      if (own.state == OpenState::closed && own.timed) break;
      if (own.state == state || before.state == state) return state;
    }
    return own.state.value_or(otherwise_);
  }

 private:
  struct Statement {
    std::optional<OpenState> state;
    bool timed = false;  // whether the rule has times
  };

  static Statement state(const std::vector<const Rule*>& rules, int minute) {
    Statement statement;
    for (const Rule* rule : rules) {
      if (rule->replacesDays()) statement = {};
      const auto state = rule->at(minute);
      if (!state || (statement.state && rule->kind == hours::RuleKind::fallback)) continue;
      statement = {state, !rule->spans.empty()};
    }
    return statement;
  }

  std::vector<const Rule*> own_;
  std::vector<const Rule*> before_;
  OpenState otherwise_;
};

chrono::sys_days dayOf(const LocalTime& time) {
  return chrono::year(time.year) / chrono::month(static_cast<unsigned>(time.month)) /
         chrono::day(static_cast<unsigned>(time.day));
}

}  // namespace

OpeningHours::OpeningHours(std::shared_ptr<const hours::Schedule> schedule)
    : schedule_(std::move(schedule)) {}

std::optional<OpeningHours> OpeningHours::parse(std::string_view text) {
  auto schedule = hours::parseRules(text);
  if (!schedule) return std::nullopt;
  return OpeningHours(std::make_shared<const hours::Schedule>(std::move(*schedule)));
}

OpenState OpeningHours::at(const LocalTime& time) const {
  const LocalTime valid = time.plusMinutes(0);
  return Day(*schedule_, dayOf(valid)).at(valid.hour * 60 + valid.minute);
}

std::optional<LocalTime> OpeningHours::nextChange(const LocalTime& time) const {
  const LocalTime valid = time.plusMinutes(0);
  const int start = valid.hour * 60 + valid.minute;
  std::optional<OpenState> state;
  for (int days = 0; days <= longestChange / minutesPerDay; ++days) {
    const chrono::sys_days date = dayOf(valid) + chrono::days(days);
    if (date > lastDay) return std::nullopt;
    const Day day(*schedule_, date);
    if (!state) state = day.at(start);
    for (const int edge : schedule_->edges) {
      const int later = days * minutesPerDay + edge - start;
      if (later <= 0 || later > longestChange || day.at(edge) == *state) continue;
      return valid.plusMinutes(later);
    }
  }
  return std::nullopt;
}

}  // namespace orivanta::guidance

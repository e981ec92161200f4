// Reads the input as a plural rule and as a compiled message file. Writes texts with the messages.
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzz/Fuzzer.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Guidance/Words/PluralRule.hpp"

namespace orivanta::guidance {
namespace {

void evaluate(std::string_view field) {
  const auto rule = PluralRule::parse(field);
  if (!rule) return;
  for (const std::uint64_t number : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{11},
                                     std::numeric_limits<std::uint64_t>::max()})
    ORIVANTA_REQUIRE(rule->form(number) < rule->forms());
}

// Steps of each kind, without records.
std::vector<Step> stepsOfAllKinds() {
  std::vector<Step> steps;
  for (int kind = 0; kind < 5; ++kind) {
    for (const double degrees : {-90.0, 0.0, 90.0}) {
      Step step;
      step.kind = static_cast<Step::Kind>(kind);
      step.turnDegrees = degrees;
      step.metersToNext = 1234;
      steps.push_back(step);
    }
  }
  return steps;
}

void readMessages(std::string_view input) {
  evaluate(input);
  const auto narrator = Narrator::fromMessages(input, "xx");
  if (!narrator) return;
  Itinerary itinerary;
  itinerary.hasScale = true;
  itinerary.legs.resize(1);
  static const std::vector<Step> steps = stepsOfAllKinds();
  ORIVANTA_REQUIRE(narrator->texts(itinerary, steps).size() == steps.size());
  for (const double number : {0.0, 60.0, 600.0, 12345.0}) {
    narrator->length(number);
    narrator->time(number);
  }
  narrator->summary(itinerary);
  narrator->text(Problem(), "{place}");
}

}  // namespace
}  // namespace orivanta::guidance

ORIVANTA_FUZZER(Messages, orivanta::guidance::readMessages)

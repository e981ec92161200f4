#include "Source/Guidance/Words/StepWriter.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/KindWords.hpp"
#include "Source/Guidance/Words/MessageKeys.hpp"
#include "Source/Guidance/Words/RideWriter.hpp"
#include "Source/Guidance/Words/WalkWriter.hpp"

namespace orivanta::guidance {

namespace {

using ReferencePosition = Direction::Turn::ReferencePosition;

// Returns the part of a message's key for the turn of a step, such as "turn.left", or an empty text
// if there is none.
std::string turnKey(const Step& step) {
  if (!(step.turnDegrees > 0.0 || step.turnDegrees < 0.0)) return {};
  const bool isLeft = step.turnDegrees > 0.0;
  const char* const side = isLeft ? "left" : "right";
  const double second = step.secondTurnDegrees.value_or(0.0);
  if (isLeft ? second < 0.0 : second > 0.0) return std::string("twice.") + side;
  switch (step.sharpness) {
    case Sharpness::bear:
      return std::string("bear.") + side;
    case Sharpness::turn:
      return std::string("turn.") + side;
    case Sharpness::sharp:
      return std::string("sharp.") + side;
    case Sharpness::around:
      break;
  }
  return "around";
}

std::string positionKey(ReferencePosition position) {
  if (position == ReferencePosition::Past) return ".after";
  return position == ReferencePosition::Before ? ".before" : ".at";
}

}  // namespace

std::string StepWriter::text() const {
  const std::string walk = WalkWriter(messages_, itinerary_, step_).text();
  switch (step_.kind) {
    case Step::Kind::depart:
      return messages_.sentences(depart(), walk);
    case Step::Kind::turn:
      return messages_.sentences(turn(), walk);
    case Step::Kind::ride:
      return RideWriter(messages_, itinerary_, step_).text();
    case Step::Kind::leave:
      return messages_.sentences(leave(), walk);
    case Step::Kind::arrive:
      break;
  }
  return arrive();
}

std::string StepWriter::depart() const {
  const std::string place = messages_.name(step_.name);
  const std::string within = turnWithin();
  if (!place.empty() && !within.empty())
    return messages_.format("depart.place.turn", {{"place", place}, {"turn", within}});
  const bool turns = !turnKey(step_).empty();
  if (!place.empty())
    return messages_.sentences(messages_.format("depart.place", {{"place", place}}),
                               turns ? turn() : std::string());
  return turns ? turn() : messages_.format(step_.leg == 0 ? "depart.start" : "depart.stop");
}

std::string StepWriter::turn() const {
  const std::string key = turnKey(step_);
  if (key.empty()) return messages_.format("turn.straight");
  if (step_.landmark) {
    const std::string place = placeName(messages_, step_.landmark->place, step_.landmark->category);
    if (!place.empty())
      return messages_.format("turn." + key + positionKey(step_.landmark->position),
                              {{"place", place}});
  }
  return messages_.format("turn." + key);
}

std::string StepWriter::leave() const {
  const std::string key = "leave." + wordOf(kindLeft(itinerary_, step_));
  const std::string within = turnWithin();
  const std::string begin = sideWithin(within);
  const std::string text =
      begin.empty() ? messages_.format(key) : messages_.format(key + ".turn", {{"turn", begin}});
  const bool turnsLater = within.empty() && !turnKey(step_).empty();
  return messages_.sentences(text, turnsLater ? turn() : std::string());
}

std::string StepWriter::arrive() const {
  const bool isStop =
      std::any_of(steps_.begin() + static_cast<std::ptrdiff_t>(index_) + 1, steps_.end(),
                  [](const Step& later) { return later.kind == Step::Kind::arrive; });
  const std::string place = messages_.name(step_.name);
  const std::string opposite = placeName(messages_, step_.opposite);
  const bool mayBeOpposite = step_.side != Side::ahead && step_.side != Side::behind;
  std::string key = isStop ? "arrive.stop" : "arrive.destination";
  if (!place.empty()) key += ".place";
  key += sideKey(step_.side);
  if (!opposite.empty() && mayBeOpposite) key += ".opposite";
  return messages_.format(key, {{"place", place}, {"opposite", opposite}});
}

// The turn as a part of another sentence, which has no room for a landmark. Empty without a turn or
// with a landmark.
std::string StepWriter::turnWithin() const {
  const std::string key = turnKey(step_);
  const bool hasLandmark =
      step_.landmark &&
      !placeName(messages_, step_.landmark->place, step_.landmark->category).empty();
  return key.empty() || hasLandmark ? std::string() : messages_.format("turn.within." + key);
}

// Where the walk begins after a ride, and then the turn, which may be empty, as a part of another
// sentence.
std::string StepWriter::sideWithin(const std::string& turn) const {
  if (step_.side == Side::none || step_.side == Side::ahead) return turn;
  if (!turn.empty())
    return messages_.format("turn.within.then" + sideKey(step_.side), {{"turn", turn}});
  if (step_.side == Side::behind) return messages_.format("turn.within.around");
  return messages_.format("turn.within.turn" + sideKey(step_.side));
}

}  // namespace orivanta::guidance

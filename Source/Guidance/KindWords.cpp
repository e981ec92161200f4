#include "Source/Guidance/KindWords.hpp"

namespace orivanta::guidance {

std::string wordOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::lift:
      return "lift";
    case ConnectorKind::escalator:
      return "escalator";
    case ConnectorKind::stairs:
      return "stairs";
    case ConnectorKind::ramp:
      return "ramp";
    case ConnectorKind::other:
      break;
  }
  return "other";
}

std::string wordOf(Problem::Kind kind) {
  switch (kind) {
    case Problem::Kind::tooFewStops:
      return "tooFewStops";
    case Problem::Kind::tooManyStops:
      return "tooManyStops";
    case Problem::Kind::unknownPlace:
      return "unknownPlace";
    case Problem::Kind::noNodes:
      return "noNodes";
    case Problem::Kind::unreachable:
      break;
    case Problem::Kind::onlyWithSteps:
      return "onlyWithSteps";
    case Problem::Kind::closed:
      return "closed";
    case Problem::Kind::closesBeforeArrival:
      return "closesBeforeArrival";
  }
  return "unreachable";
}

std::string wordOf(Step::Kind kind) {
  switch (kind) {
    case Step::Kind::depart:
      return "depart";
    case Step::Kind::turn:
      return "turn";
    case Step::Kind::ride:
      return "ride";
    case Step::Kind::leave:
      return "leave";
    case Step::Kind::arrive:
      break;
  }
  return "arrive";
}

std::string wordOf(Side side) {
  switch (side) {
    case Side::left:
      return "left";
    case Side::right:
      return "right";
    case Side::ahead:
      return "ahead";
    case Side::behind:
      return "behind";
    case Side::none:
      break;
  }
  return {};
}

}  // namespace orivanta::guidance

#include "Source/Guidance/Profile.hpp"

namespace orivanta::guidance {

ConnectorKind connectorKindOf(std::string_view type) {
  if (type == "elevator" || type == "lift") return ConnectorKind::lift;
  if (type == "escalator") return ConnectorKind::escalator;
  if (type == "stairs") return ConnectorKind::stairs;
  if (type == "ramp") return ConnectorKind::ramp;
  return ConnectorKind::other;
}

Profile Profile::stepFree() {
  Profile profile;
  profile.walkingMetersPerSecond = 1.0;
  profile.stairs = Use::forbidden;
  profile.escalators = Use::forbidden;
  profile.onlyAccessible = true;
  return profile;
}

Profile Profile::preferLift() {
  Profile profile;
  profile.stairs = Use::avoided;
  profile.escalators = Use::avoided;
  return profile;
}

Profile Profile::noEscalator() {
  Profile profile;
  profile.escalators = Use::forbidden;
  return profile;
}

Use Profile::use(ConnectorKind kind) const {
  switch (kind) {
    case ConnectorKind::lift:
      return lifts;
    case ConnectorKind::escalator:
      return escalators;
    case ConnectorKind::stairs:
      return stairs;
    case ConnectorKind::ramp:
      return ramps;
    case ConnectorKind::other:
      break;
  }
  return others;
}

}  // namespace orivanta::guidance

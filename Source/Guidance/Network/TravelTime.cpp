#include "Source/Guidance/Network/TravelTime.hpp"

#include <cmath>

namespace orivanta::guidance {

namespace {

constexpr double leastSeconds = 3.0;
constexpr double liftWaitSeconds = 25.0;
constexpr double liftSecondsPerMeter = 1.5;
constexpr double escalatorClimb = 0.25;  // meters of height per second
constexpr double escalatorSpeed = 0.6;
constexpr double stairsUp = 0.28;  // meters of height per second
constexpr double stairsDown = 0.36;
constexpr double rampMetersPerRise = 8.0;

}  // namespace

double speedOf(const Profile& profile) {
  const double speed = profile.walkingMetersPerSecond;
  return std::isfinite(speed) && speed > 0.0 ? speed : Profile().walkingMetersPerSecond;
}

double rideSeconds(ConnectorKind kind, double plan, double rise, double speed) {
  const double height = std::abs(rise);
  const double walk = plan / speed;
  switch (kind) {
    case ConnectorKind::lift:
      return std::max(liftWaitSeconds + liftSecondsPerMeter * height, walk);
    case ConnectorKind::escalator:
      return std::max({height / escalatorClimb, plan / escalatorSpeed, leastSeconds});
    case ConnectorKind::ramp:
      return std::max(walk, rampMetersPerRise * height / speed);
    case ConnectorKind::stairs:
    case ConnectorKind::other:
      break;
  }
  return std::max({height / (rise > 0.0 ? stairsUp : stairsDown), walk, leastSeconds});
}

}  // namespace orivanta::guidance

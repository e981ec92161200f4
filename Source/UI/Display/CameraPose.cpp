#include "Source/UI/Display/CameraPose.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Source/UI/Display/Turned.hpp"

namespace orivanta {

namespace {

constexpr double pi = std::numbers::pi;

}  // namespace

double Lens::slopePerPoint() const {
  const double shorter = std::max(1.0, std::min(size.width, size.height));
  return std::tan(fieldOfView * std::numbers::pi / 360) * 2 / shorter;
}

double depthOf(const graphics::Vector3& point, const CameraPose& pose) {
  const graphics::Point seen = turned({point.x - pose.x, point.y - pose.y}, -pose.turn);
  return pose.distance + seen.y * std::sin(pose.tilt) - (point.z - pose.z) * std::cos(pose.tilt);
}

CameraPose CameraLimits::clamped(CameraPose pose) const {
  pose.distance = std::clamp(pose.distance, nearest, std::max(nearest, farthest));
  pose.tilt = std::clamp(pose.tilt, 0.0, steepest);
  pose.turn = std::remainder(pose.turn, 2 * pi);
  if (floor.isEmpty()) return pose;
  pose.x = std::clamp<double>(pose.x, floor.min.x, floor.max.x);
  pose.y = std::clamp<double>(pose.y, floor.min.y, floor.max.y);
  return pose;
}

std::optional<graphics::Point> groundUnder(const CameraPose& pose, const Lens& lens,
                                           graphics::Point point) {
  const double slope = lens.slopePerPoint();
  const double right = (point.x - lens.size.width / 2) * slope;
  const double up = (lens.size.height / 2 - point.y) * slope;
  const double sine = std::sin(pose.tilt);
  const double cosine = std::cos(pose.tilt);
  // The tilted ray (right, up, -1), and its multiple that reaches the ground.
  const double along = up * cosine + sine;
  const double down = cosine - up * sine;
  constexpr double horizon = 0.02;
  if (down < horizon) return std::nullopt;
  const double length = pose.distance * cosine / down;
  const graphics::Point flat =
      turned({right * length, along * length - pose.distance * sine}, pose.turn);
  return graphics::Point{pose.x + flat.x, pose.y + flat.y};
}

CameraPose dragged(const CameraPose& pose, const Lens& lens, graphics::Point from,
                   graphics::Point to) {
  const auto start = groundUnder(pose, lens, from);
  const auto end = groundUnder(pose, lens, to);
  if (!start || !end) return pose;
  CameraPose moved = pose;
  moved.x += start->x - end->x;
  moved.y += start->y - end->y;
  return moved;
}

CameraPose zoomed(const CameraPose& pose, const Lens& lens, const CameraLimits& limits,
                  double factor, graphics::Point about) {
  CameraPose closer = pose;
  closer.distance /= factor;
  closer = limits.clamped(closer);
  const auto before = groundUnder(pose, lens, about);
  const auto after = groundUnder(closer, lens, about);
  if (!before || !after) return closer;
  closer.x += before->x - after->x;
  closer.y += before->y - after->y;
  return limits.clamped(closer);
}

std::optional<graphics::Point> shownAt(const CameraPose& pose, const Lens& lens,
                                       graphics::Point ground) {
  const graphics::Point seen = turned({ground.x - pose.x, ground.y - pose.y}, -pose.turn);
  const double depth = pose.distance + seen.y * std::sin(pose.tilt);
  if (depth < pose.distance * 0.05) return std::nullopt;  // behind or almost behind the camera
  const double pointsPerUnit = 1 / (lens.slopePerPoint() * depth);
  return graphics::Point{lens.size.width / 2 + seen.x * pointsPerUnit,
                         lens.size.height / 2 - seen.y * std::cos(pose.tilt) * pointsPerUnit};
}

CameraPose atHeight(CameraPose pose, double z) {
  const double rise = pose.z - z;
  if (rise == 0) return pose;
  const graphics::Point shift = turned({0, rise * std::tan(pose.tilt)}, pose.turn);
  pose.x += shift.x;
  pose.y += shift.y;
  pose.distance += rise / std::cos(pose.tilt);
  pose.z = z;
  return pose;
}

double eased(double share) { return 1 - std::pow(1 - share, 3); }

CameraPose between(const CameraPose& from, const CameraPose& to, double share) {
  const auto mix = [&](double a, double b) { return a + (b - a) * share; };
  CameraPose pose;
  pose.x = mix(from.x, to.x);
  pose.y = mix(from.y, to.y);
  pose.distance = from.distance * std::pow(to.distance / from.distance, share);
  pose.tilt = mix(from.tilt, to.tilt);
  pose.z = mix(from.z, to.z);
  pose.turn = from.turn + std::remainder(to.turn - from.turn, 2 * pi) * share;
  return pose;
}

}  // namespace orivanta

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Source/Map.hpp"
#include "Source/UI/Display/CameraRig.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

constexpr double glideSeconds = 0.28;
constexpr double lensSeconds = 0.35;

double halfSlope(double fieldOfView) { return std::tan(fieldOfView * std::numbers::pi / 360); }

}  // namespace

CameraPose MapCamera::startOf(CameraMotion motion) const {
  return motion == CameraMotion::glide ? target() : pose();
}

void MapCamera::setReducedMotion(bool isReduced) {
  isReduced_ = isReduced;
  if (isReduced_ && glide_) moveTo(glide_->to, glide_->fovTo);
}

void MapCamera::setPose(const CameraPose& pose) {
  stop();
  if (isReady()) write(limited(pose));
}

// Keeps what the middle of the view shows.
void MapCamera::stop() {
  if (!glide_) return;
  const double fieldOfView = glide_->fovTo;
  const double former = rig_.fieldOfView();
  glide_.reset();
  if (fieldOfView == former || !rig_.isBuilt()) return;
  CameraPose pose = rig_.pose();
  pose.distance *= halfSlope(former) / halfSlope(fieldOfView);
  rig_.setFieldOfView(fieldOfView);
  write(pose);
}

void MapCamera::moveTo(const CameraPose& pose, double fieldOfView, CameraMotion motion) {
  stop();
  if (!isReady()) return;
  const double former = rig_.fieldOfView();
  glide_ = Glide{rig_.pose(), pose, former, fieldOfView, lensSeconds, std::nullopt};
  glide_->to = limited(pose);
  if (motion == CameraMotion::glide && !isReduced_) return;
  const CameraPose end = glide_->to;
  glide_.reset();
  rig_.setFieldOfView(fieldOfView);
  write(end);
}

void MapCamera::glideTo(const CameraPose& pose) {
  if (!isReady()) return;
  if (isReduced_) return setPose(pose);
  const double fieldOfView = rig_.fieldOfView();
  Glide glide{rig_.pose(), limited(pose), fieldOfView, fieldOfView, glideSeconds, std::nullopt};
  if (glide_) {
    glide.fovTo = glide_->fovTo;
    if (glide.fovTo != fieldOfView) glide.seconds = lensSeconds;
    // Continue the time of a running glide, so that the camera moves between rapid calls.
    if (glide_->start) glide.start = glide_->now;
  }
  glide_ = glide;
}

void MapCamera::advance(double time) {
  advanceGlide(time);
  if (const auto style = view_.style()) style->styled_->advance(time);
}

// The size of what the middle of the view shows changes by equal factors, whatever the field of
// view is.
void MapCamera::advanceGlide(double time) {
  if (!glide_) return;
  if (!isReady()) return glide_.reset();
  if (!glide_->start) glide_->start = time;
  glide_->now = time;
  const double share = std::clamp((time - *glide_->start) / glide_->seconds, 0.0, 1.0);
  CameraPose from = glide_->from;
  CameraPose to = glide_->to;
  const double fieldOfView = glide_->fovFrom + (glide_->fovTo - glide_->fovFrom) * eased(share);
  from.distance *= halfSlope(glide_->fovFrom) / halfSlope(fieldOfView);
  to.distance *= halfSlope(glide_->fovTo) / halfSlope(fieldOfView);
  if (glide_->fovFrom != glide_->fovTo) rig_.setFieldOfView(fieldOfView);
  write(between(from, to, eased(share)));
  if (share >= 1) glide_.reset();
}

}  // namespace orivanta

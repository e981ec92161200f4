#include "Platform/Scene/KeyframeAnimation.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::scene {

using graphics::Matrix4;

namespace {

bool isPlayable(const KeyframeAnimation& animation) {
  return animation.duration > 0 && !animation.values.empty() &&
         animation.values.size() == animation.keyTimes.size();
}

/// A reverse run counts as a separate run.
double totalRuns(const KeyframeAnimation& animation) {
  return std::max(animation.repeatCount, 0.0) * (animation.autoreverses ? 2 : 1);
}

/// The position from 0 to 1 after a number of runs.
double progress(const KeyframeAnimation& animation, double runs) {
  const double wholeRuns = std::floor(runs);
  const bool isBack = animation.autoreverses && std::fmod(wholeRuns, 2.0) == 1.0;
  return isBack ? 1 - (runs - wholeRuns) : runs - wholeRuns;
}

/// The last run stops at its end instead of restarting.
double finalProgress(const KeyframeAnimation& animation) {
  const double runs = totalRuns(animation);
  const bool endsForwards = runs > 0 && runs == std::floor(runs) && !animation.autoreverses;
  return endsForwards ? 1.0 : progress(animation, runs);
}

Matrix4 valueAt(const KeyframeAnimation& animation, double progress) {
  const auto& times = animation.keyTimes;
  const auto next = std::upper_bound(times.begin(), times.end(), progress);
  if (next == times.begin()) return animation.values.front();
  if (next == times.end()) return animation.values.back();
  const auto after = static_cast<std::size_t>(next - times.begin());
  const double share = (progress - times[after - 1]) / (*next - times[after - 1]);
  const Matrix4& from = animation.values[after - 1];
  return from + (animation.values[after] - from) * static_cast<float>(share);
}

}  // namespace

Matrix4 KeyframeAnimation::value(double elapsed, const Matrix4& base) const {
  if (!isPlayable(*this)) return base;
  const double runs = std::max(elapsed, 0.0) / duration;
  const bool hasEnded = runs >= totalRuns(*this);
  const Matrix4 frame = valueAt(*this, hasEnded ? finalProgress(*this) : progress(*this, runs));
  return isAdditive ? base + frame : frame;
}

bool KeyframeAnimation::isRunning(double elapsed) const {
  return isPlayable(*this) && elapsed / duration < totalRuns(*this);
}

}  // namespace orivanta::scene

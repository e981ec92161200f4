#include "Source/Guidance/Follower.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Guidance/RouteTrack.hpp"

namespace orivanta::guidance {

namespace {

bool isWalk(const Leg& leg) { return leg.kind == Leg::Kind::walk; }

}  // namespace

Follower::Follower(const Guide& guide, Itinerary itinerary)
    : Follower(guide, std::move(itinerary), Limits()) {}

Follower::Follower(const Guide& guide, Itinerary itinerary, Limits limits)
    : itinerary_(std::move(itinerary)),
      limits_(limits),
      steps_(guide.steps(itinerary_)),
      track_(std::make_unique<RouteTrack>(itinerary_, guide.unitsPerMeter())) {
  if (itinerary_.isUsable()) show(0.0);
}

Follower::~Follower() = default;
Follower::Follower(Follower&&) noexcept = default;
Follower& Follower::operator=(Follower&&) noexcept = default;

const Progress& Follower::update(const Position& position, double seconds) {
  if (!position.map || !std::isfinite(position.x) || !std::isfinite(position.y)) return progress_;
  if (std::isfinite(seconds) && (!started_ || seconds > seconds_)) {
    seconds_ = seconds;
    if (!std::exchange(started_, true)) lastOnRoute_ = seconds_;
  }
  const auto found = track_->nearest(position, along_, limits_.meters);
  if (found.distance <= limits_.meters) {
    lastOnRoute_ = seconds_;
    progress_.offRoute = false;
    show(found.along);
  } else if (seconds_ - lastOnRoute_ >= limits_.seconds) {
    progress_.offRoute = true;
  }
  return progress_;
}

// Sets the progress to a position along the track.
void Follower::show(double along) {
  along_ = along;
  showLeg(along);
  showRest(along);
  showStep(along);
}

void Follower::showLeg(double along) {
  progress_.leg = 0;
  while (progress_.leg + 1 < track_->legs() && along >= track_->at(progress_.leg + 1, 0))
    ++progress_.leg;
}

void Follower::showRest(double along) {
  const Leg& current = itinerary_.legs[progress_.leg];
  const double start = track_->at(progress_.leg, 0);
  const double length = track_->at(progress_.leg, current.nodes.size() - 1) - start;
  const double left = length > 0.0 ? 1.0 - (along - start) / length : 0.0;
  progress_.legMeters = (1.0 - left) * current.meters;
  progress_.metersLeft = left * current.meters;
  progress_.secondsLeft = left * current.seconds;
  for (std::size_t i = progress_.leg + 1; i < itinerary_.legs.size(); ++i) {
    progress_.metersLeft += itinerary_.legs[i].meters;
    progress_.secondsLeft += itinerary_.legs[i].seconds;
  }
  const bool isLast = progress_.leg + 1 == itinerary_.legs.size();
  progress_.arrived = isLast && (isWalk(current) ? progress_.metersLeft <= limits_.arrivalMeters
                                                 : along >= track_->length());
}

void Follower::showStep(double along) {
  progress_.step = 0;
  while (progress_.step + 1 < steps_.size() && isCarriedOut(steps_[progress_.step], along))
    ++progress_.step;
  progress_.metersToStep = progress_.step < steps_.size() ? metersTo(steps_[progress_.step]) : 0.0;
  progress_.announced = progress_.step;
  if (progress_.step > 0 && !isNear(steps_[progress_.step])) --progress_.announced;
}

// Returns the walk to an instruction.
double Follower::metersTo(const Step& step) const {
  if (step.leg < progress_.leg) return 0.0;
  double meters = 0.0;
  for (std::size_t i = progress_.leg; i < step.leg; ++i) meters += itinerary_.legs[i].meters;
  if (isWalk(itinerary_.legs[step.leg]))
    meters += track_->at(step.leg, step.first) - track_->at(step.leg, 0);
  return std::max(0.0, meters - progress_.legMeters);
}

// A ride has been carried out at its end, departing or arriving there without a walk immediately,
// any other instruction one meter after its end.
bool Follower::isCarriedOut(const Step& step, double along) const {
  if (step.kind == Step::Kind::ride) return track_->at(step.lastLeg + 1, 0) <= along;
  const double end = track_->at(step.leg, step.last);
  return end + (isWalk(itinerary_.legs[step.leg]) ? 1.0 : 0.0) <= along;
}

// Returns whether the next instruction is to be announced.
bool Follower::isNear(const Step& step) const {
  if (step.kind == Step::Kind::arrive) return progress_.metersToStep <= limits_.arrivalMeters;
  const Leg& leg = itinerary_.legs[progress_.leg];
  const double speed = leg.seconds > 0.0 ? leg.meters / leg.seconds : 0.0;
  return progress_.metersToStep <=
         std::max(limits_.announceMeters, speed * limits_.announceSeconds);
}

}  // namespace orivanta::guidance

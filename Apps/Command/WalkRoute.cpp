#include "Apps/Command/WalkRoute.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/object.hpp>
#include <chrono>
#include <cmath>
#include <thread>
#include <utility>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Guidance/Follower.hpp"
#include "Source/Guidance/SimulatedWalk.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

using guidance::Follower;
using guidance::Itinerary;
using guidance::Position;
using guidance::Progress;
using guidance::SimulatedWalk;

namespace {

// The seconds between two positions. A route that would have more positions has longer ones.
constexpr double shortestTick = 1.0;
constexpr double mostTicks = 10000.0;

// How far a visitor who leaves the route goes to the side.
constexpr double metersAside = 25.0;

class Walk {
 public:
  Walk(const guidance::Guide& guide, const guidance::Narrator& narrator, const WalkOptions& options,
       guidance::Request request, const Itinerary& itinerary)
      : guide_(guide),
        narrator_(narrator),
        options_(options),
        request_(std::move(request)),
        leaveAt_(options.offRoute),
        next_(std::chrono::steady_clock::now()) {
    follow(itinerary);
  }

  ExitCode run() {
    const Position start = walk_->at(0.0).position;
    report(follower_->update(start, time_), start);
    while (elapsed_ < walk_->seconds()) {
      advance();
      Position position = walk_->at(elapsed_).position;
      const bool aside = leaveAt_ && time_ >= *leaveAt_;
      if (aside) position.x += metersAside * guide_.unitsPerMeter();
      const Progress& progress = follower_->update(position, time_);
      report(progress, position);
      if (!aside || !progress.offRoute) continue;
      leaveAt_.reset();
      const guidance::Plan plan = guide_.plan(requestFrom(position));
      if (plan.problem) return complainAbout(guide_, *plan.problem, request_, narrator_);
      if (!options_.json) writeLine("Off the route. The new route:");
      follow(plan.itineraries.front());
      report(follower_->update(position, time_), position);
    }
    return ExitCode::success;
  }

 private:
  void follow(const Itinerary& itinerary) {
    follower_.emplace(guide_, itinerary);
    walk_.emplace(itinerary);
    texts_ = narrator_.texts(follower_->itinerary(), follower_->steps());
    tick_ = std::max(shortestTick, walk_->seconds() / mostTicks);
    elapsed_ = 0.0;
    shown_.reset();
  }

  void advance() {
    const double before = elapsed_;
    elapsed_ = std::min(elapsed_ + tick_, walk_->seconds());
    time_ += elapsed_ - before;
    if (options_.instant) return;
    next_ += std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::chrono::duration<double>((elapsed_ - before) / options_.speedUp));
    std::this_thread::sleep_until(next_);
  }

  // Returns the request for the rest of the route.
  guidance::Request requestFrom(const Position& position) const {
    guidance::Request request = request_;
    request.stops = {position};
    for (const guidance::Visit& visit : follower_->itinerary().visits)
      if (visit.leg > follower_->progress().leg)
        request.stops.push_back(request_.stops[visit.stop]);
    if (request.stops.size() < 2) request.stops.push_back(request_.stops.back());
    return request;
  }

  void report(const Progress& progress, const Position& position) {
    if (options_.json) return writeOutput(lineOf(progress, position) + '\n');
    if (shown_ == progress.step || progress.step >= texts_.size()) return;
    shown_ = progress.step;
    const bool known = follower_->itinerary().hasScale;
    writeLine(texts_[progress.step] +
              (known ? fmt::format("  ({:.0f} m left)", progress.metersLeft) : std::string()));
  }

  void writeLine(const std::string& text) const {
    const auto seconds = static_cast<long long>(time_);
    writeOutput(fmt::format("{:3}:{:02}  {}\n", seconds / 60, seconds % 60, text));
  }

  std::string lineOf(const Progress& progress, const Position& position) const {
    const auto rounded = [](double value) { return std::round(value * 100.0) / 100.0; };
    const bool known = follower_->itinerary().hasScale;
    boost::json::value left = nullptr;
    if (known) left = rounded(progress.metersLeft);
    return text::jsonText(
        boost::json::object{{"time", rounded(time_)},
                            {"map", position.map ? boost::json::value(*position.map->id) : nullptr},
                            {"x", rounded(position.x)},
                            {"y", rounded(position.y)},
                            {"leg", progress.leg},
                            {"step", progress.step},
                            {"metersLeft", left},
                            {"offRoute", progress.offRoute},
                            {"arrived", progress.arrived}});
  }

  const guidance::Guide& guide_;
  const guidance::Narrator& narrator_;
  const WalkOptions& options_;
  const guidance::Request request_;
  std::optional<double> leaveAt_;
  std::chrono::steady_clock::time_point next_;

  std::optional<Follower> follower_;
  std::optional<SimulatedWalk> walk_;
  std::vector<std::string> texts_;
  double tick_ = shortestTick;
  double time_ = 0.0;     // since the start of the program's walk
  double elapsed_ = 0.0;  // since the start of the current itinerary
  std::optional<std::size_t> shown_;
};

}  // namespace

ExitCode walkRoute(const WalkOptions& options) try {
  preferLanguage(options.guidance.language);
  const auto venue =
      Session(options.connection)
          .loadVenue(options.slug, false, {"location", "map", "node", "vortex", "polygon"});
  const auto guide = guideFor(*venue);
  const guidance::Request request =
      planning::requestOf(*venue, options.guidance.queryFor(options.from, options.to));
  const guidance::Narrator narrator(preferredLanguageList());
  const guidance::Plan plan = guide->plan(request);
  if (plan.problem) return complainAbout(*guide, *plan.problem, request, narrator);
  return Walk(*guide, narrator, options, request, plan.itineraries.front()).run();
} catch (const planning::QueryError& error) {
  throw commandError(error);
}

}  // namespace orivanta::command

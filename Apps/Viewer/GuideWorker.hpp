// Plans and describes routes, see `LatestRequest`.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::viewer {

/// Makes the guide of a loaded venue and plans routes with it. If a request for two stops ends at a
/// category, the alternatives are routes to other places of the category. A stop that is a place is
/// reached even if it is closed at the arrival according to its opening hours; the route then has a
/// warning. An empty list of nodes as a stop counts as closed.
class GuideWorker {
 public:
  using Request = guidance::Request;
  using Answer = GuidedPlan;

  GuideWorker(std::shared_ptr<Venue> venue, guidance::InterfaceTexts texts);

  /// Makes the guide, reads the opening hours and releases the venue.
  void prepare(const foundation::CancellationToken& end);

  GuidedPlan answer(const Request& request, const foundation::CancellationToken& token) const;

 private:
  guidance::Plan search(const Request& request, const foundation::CancellationToken& token) const;
  guidance::Plan searchOnce(const Request& request,
                            const foundation::CancellationToken& token) const;
  Request withClosedStops(Request request) const;
  GuidedRoute describe(guidance::Itinerary itinerary, const Request& request,
                       const foundation::CancellationToken& token) const;
  std::string warning(const guidance::Itinerary& itinerary, const guidance::LocalTime& at) const;

  std::shared_ptr<Venue> venue_;  // null after the guide is made
  std::vector<std::shared_ptr<Vortex>> connectors_;
  std::map<std::shared_ptr<Location>, guidance::OpeningHours> hours_;  // of places that have them
  guidance::InterfaceTexts texts_;
  guidance::Narrator narrator_;
  std::shared_ptr<const guidance::Guide> guide_;  // null before the first request
};

}  // namespace orivanta::viewer

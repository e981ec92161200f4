// Plans and describes routes, see `LatestRequest`.
#pragma once

#include <memory>
#include <string>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Narrator.hpp"

namespace orivanta::viewer {

/// Makes the guide of a loaded venue and plans routes with it. If a request for two stops ends at
/// several places or a category, the alternatives are routes to other ones of these places. If a
/// stop is a single place that its opening hours close at the arrival, the route has a warning.
class GuideWorker {
 public:
  using Request = guidance::Request;
  using Answer = GuidedPlan;

  GuideWorker(std::shared_ptr<Venue> venue, guidance::InterfaceTexts texts);

  /// Makes the guide and releases the venue.
  void prepare(const foundation::CancellationToken& end);

  GuidedPlan answer(const Request& request, const foundation::CancellationToken& token) const;

 private:
  guidance::Plan search(Request request, const foundation::CancellationToken& token) const;
  GuidedRoute describe(guidance::Itinerary itinerary,
                       const foundation::CancellationToken& token) const;
  std::string warning(const guidance::Itinerary& itinerary) const;

  std::shared_ptr<Venue> venue_;  // null after the guide is made
  guidance::InterfaceTexts texts_;
  guidance::Narrator narrator_;
  std::shared_ptr<const guidance::Guide> guide_;  // null before the first request
};

}  // namespace orivanta::viewer

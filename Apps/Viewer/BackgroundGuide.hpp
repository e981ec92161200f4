// Plans routes without blocking the main thread.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/SerialQueue.hpp"

namespace orivanta::viewer {

/// Makes the guide of a venue and plans routes on a background thread. The venue must be loaded.
/// Main thread only.
class BackgroundGuide {
 public:
  /// Called from the main queue once for each request that is neither replaced nor canceled. Not
  /// called after this object is destroyed.
  using Planned = std::function<void(GuidedPlan)>;

  /// `language` is the language of the instructions, see `guidance::Narrator`.
  BackgroundGuide(std::shared_ptr<Venue> venue, std::string_view language, Planned planned);
  ~BackgroundGuide();
  BackgroundGuide(const BackgroundGuide&) = delete;
  BackgroundGuide& operator=(const BackgroundGuide&) = delete;

  /// Makes the guide before it is first needed.
  void prepare();

  /// Starts a request, which replaces the current one, if any. If a request for two stops ends at a
  /// category, the alternatives are routes to other places of the category.
  void start(guidance::Request request);

  /// Cancels the current request, if any.
  void cancel();

  bool isBusy() const { return isBusy_; }

 private:
  struct Work;

  const std::shared_ptr<foundation::SerialQueue> queue_ = foundation::SerialQueue::make();
  const std::shared_ptr<Work> work_;  // shared with the queue
  const std::shared_ptr<Planned> planned_;
  foundation::CancellationSource request_;  // the latest one
  bool isBusy_ = false;
};

}  // namespace orivanta::viewer

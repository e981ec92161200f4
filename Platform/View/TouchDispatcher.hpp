// Brings fingers to the views under them and to their gesture recognisers.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

/// One for each topmost view; a host, or who replays a recording, feeds it. Main thread. A finger
/// belongs to the view that it landed on, and to the recognisers of that view and of those above
/// it, until it leaves. The first recogniser to begin or end makes the others, that are still
/// possible, fail until all fingers are gone, unless a view above both allows them both
/// (`View::allowSimultaneous`). Touches that make no sense (an unknown finger moves, a known one
/// lands) are passed over.
class ORIVANTA_API TouchDispatcher {
 public:
  /// Keeps the view.
  explicit TouchDispatcher(std::shared_ptr<View> root);
  ~TouchDispatcher();

  void dispatch(const Touch& touch);

  /// Ends every finger as cancelled, as when a window loses the input.
  void cancelAll(double time);

 private:
  struct Session;
  std::unique_ptr<Session> session_;
};

}  // namespace orivanta::view

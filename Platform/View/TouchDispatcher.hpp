// Delivers touches to the views under the fingers and to their gesture recognizers.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

/// Dispatches the touches of one topmost view. A host calls it, or code that replays a recording.
/// Main thread.
///
/// A finger belongs to the view that it landed on, and to the recognizers of that view and of its
/// ancestors, until it leaves. If one of these views is removed from the tree, the finger is
/// canceled for that view's recognizers. Recognizers receive a touch before the view does, those of
/// descendants first.
///
/// Recognizers that share a finger exclude one another. The first one to begin, or to end
/// immediately as a tap does, makes the others that are still possible fail, unless a common
/// ancestor view allows the two to run simultaneously (`View::allowSimultaneous`). A pan for one
/// finger ends when a second finger lands. As no recognizer is running then, pans, pinches and
/// rotations start over with the fingers that are down, and the first one that detects enough
/// movement begins. The same happens when one of two fingers leaves. A tap that has failed remains
/// failed until all of its fingers have left.
///
/// Invalid touches are ignored: an unknown finger that moves or leaves, a known finger that lands,
/// and a position that is not finite or is more than a million points away from the upper left
/// corner. Time never decreases.
class ORIVANTA_API TouchDispatcher {
 public:
  /// Creates a dispatcher that shares ownership of the view.
  explicit TouchDispatcher(std::shared_ptr<View> root);

  /// Cancels all fingers.
  ~TouchDispatcher();
  TouchDispatcher(const TouchDispatcher&) = delete;
  TouchDispatcher& operator=(const TouchDispatcher&) = delete;

  /// Dispatches touches that are treated as simultaneous, such as all touches that a host has
  /// received between two frames. Consecutive movements are combined, so that two fingers moving in
  /// parallel do not appear to move apart. If it is called by an action or a view during the
  /// delivery of a touch, the new touches are dispatched after that delivery.
  void dispatch(std::span<const Touch> touches);

  /// Dispatches a single touch.
  void dispatch(const Touch& touch) { dispatch({&touch, 1}); }

  /// Cancels all fingers, for example because a window loses the input.
  void cancelAll(double time);

 private:
  friend class GestureRecognizer;
  struct Session;

  /// Returns whether the recognizer may begin, or end immediately. If it may, makes the recognizers
  /// that it excludes fail.
  bool claim(const GestureRecognizer& recognizer);

  void deliver(std::span<const Touch> touches);
  void hand(std::span<const Touch> touches);
  void tellView(const Touch& touch);
  void startOver();

  std::unique_ptr<Session> session_;
};

}  // namespace orivanta::view

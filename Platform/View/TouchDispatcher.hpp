// Brings fingers to the views under them and to their gesture recognizers.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

/// One for each topmost view; a host, or whoever replays a recording, feeds it. Main thread.
///
/// A finger belongs to the view that it landed on, and to the recognizers of that view and of those
/// above it, until it leaves; when one of these views leaves the tree, the finger counts as
/// canceled for its recognizers. Recognizers are told before the view, those of lower views first.
///
/// Recognizers that share a finger exclude one another: the first to begin, or to end at once as a
/// tap does, makes those that are still possible fail, unless a view above both allows the two to
/// run at once (`View::allowSimultaneous`). A pan for one finger ends when a second one lands. As
/// nothing is running then, pans, pinches and rotations start over with the fingers that are down,
/// and the first of them to see enough movement begins; likewise when one of two fingers leaves. A
/// tap that failed stays so until all of its fingers have left.
///
/// What makes no sense is passed over: an unknown finger that moves or leaves, a known one that
/// lands, a place that is not finite or lies more than a million points from the upper left corner.
/// Time never runs backwards.
class ORIVANTA_API TouchDispatcher {
 public:
  /// Keeps the view.
  explicit TouchDispatcher(std::shared_ptr<View> root);

  /// Cancels all fingers.
  ~TouchDispatcher();
  TouchDispatcher(const TouchDispatcher&) = delete;
  TouchDispatcher& operator=(const TouchDispatcher&) = delete;

  /// Touches of one moment, such as all that a host has received between two frames. Movements that
  /// follow one another count as one, so that two fingers moving side by side never seem to move
  /// apart. Called by an action or a view that is being told of a touch, it waits until that is
  /// done.
  void dispatch(std::span<const Touch> touches);

  /// A single touch.
  void dispatch(const Touch& touch) { dispatch({&touch, 1}); }

  /// Ends every finger as canceled, as when a window loses the input.
  void cancelAll(double time);

 private:
  friend class GestureRecognizer;
  struct Session;

  /// Whether the recognizer may begin, or end at once; if so, makes those fail that it excludes.
  bool claim(const GestureRecognizer& recognizer);

  void deliver(std::span<const Touch> touches);
  void hand(std::span<const Touch> touches);
  void tellView(const Touch& touch);
  void startOver();

  std::unique_ptr<Session> session_;
};

}  // namespace orivanta::view

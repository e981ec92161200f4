#include "Platform/View/TouchDispatcher.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <utility>
#include <vector>

#include "Platform/View/GestureRecognizer.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

namespace {

// Points; larger than any screen, and small enough for finite results.
constexpr double farthestPlace = 1e6;

using Recognizers = std::vector<std::shared_ptr<GestureRecognizer>>;

struct Finger {
  std::uint64_t identifier;
  graphics::Point position;
  std::weak_ptr<View> view;
  std::vector<std::weak_ptr<GestureRecognizer>> recognizers;  // from the touched view up

  // The recognizers that still exist and belong to a view.
  Recognizers presentRecognizers() const {
    Recognizers present;
    for (const auto& held : recognizers)
      if (auto recognizer = held.lock(); recognizer && recognizer->view() != nullptr)
        present.push_back(std::move(recognizer));
    return present;
  }
};

bool isWithin(const View& view, const View& above) {
  for (const View* at = &view; at != nullptr; at = at->superview())
    if (at == &above) return true;
  return false;
}

bool mayRunTogether(const GestureRecognizer& one, const GestureRecognizer& other) {
  for (const View* above = one.view(); above != nullptr; above = above->superview()) {
    const SimultaneousRule& rule = above->simultaneousRule();
    if (rule && isWithin(*other.view(), *above) && (rule(one, other) || rule(other, one)))
      return true;
  }
  return false;
}

void addNew(Recognizers& to, const Recognizers& from) {
  for (const auto& recognizer : from)
    if (std::find(to.begin(), to.end(), recognizer) == to.end()) to.push_back(recognizer);
}

}  // namespace

struct TouchDispatcher::Session {
  std::shared_ptr<View> root;
  std::vector<Finger> fingers;
  std::deque<std::vector<Touch>> waiting;
  bool delivering = false;
  double time = 0.0;

  std::vector<Finger>::iterator find(std::uint64_t identifier) {
    return std::find_if(fingers.begin(), fingers.end(),
                        [&](const Finger& finger) { return finger.identifier == identifier; });
  }

  Recognizers recognizers() const {
    Recognizers all;
    for (const Finger& finger : fingers) addNew(all, finger.presentRecognizers());
    return all;
  }

  // Other recognizers that share a finger with `of` and must not run at the same time.
  Recognizers rivals(const GestureRecognizer& of) const {
    Recognizers rivals;
    for (const Finger& finger : fingers) {
      const Recognizers present = finger.presentRecognizers();
      const bool shares = std::any_of(present.begin(), present.end(),
                                      [&](const auto& each) { return each.get() == &of; });
      if (shares) addNew(rivals, present);
    }
    std::erase_if(rivals,
                  [&](const auto& each) { return each.get() == &of || mayRunTogether(of, *each); });
    return rivals;
  }

  // Corrects a touch for the current state. Returns false if it must be ignored.
  bool normalize(Touch& touch) {
    time = std::max(time, touch.time);  // NaN has no effect
    touch.time = time;
    const auto finger = find(touch.identifier);
    const bool isSomewhere =
        std::abs(touch.position.x) <= farthestPlace && std::abs(touch.position.y) <= farthestPlace;
    if (touch.phase == TouchPhase::began) return isSomewhere && finger == fingers.end();
    if (finger == fingers.end()) return false;
    if (touch.phase == TouchPhase::moved) return isSomewhere;
    if (touch.phase == TouchPhase::canceled || !isSomewhere) touch.position = finger->position;
    return true;
  }

  // A new finger belongs to the recognizers that exist at this time.
  void land(const Touch& touch) {
    const std::shared_ptr<View> view = root->viewAt(touch.position);
    if (!view) return;
    Finger finger{touch.identifier, touch.position, view, {}};
    for (const View* at = view.get(); at != nullptr; at = at->superview())
      for (const auto& recognizer : at->gestureRecognizers())
        finger.recognizers.emplace_back(recognizer);
    fingers.push_back(std::move(finger));
  }
};

TouchDispatcher::TouchDispatcher(std::shared_ptr<View> root)
    : session_(std::make_unique<Session>()) {
  session_->root = std::move(root);
}

TouchDispatcher::~TouchDispatcher() { cancelAll(session_->time); }

void TouchDispatcher::dispatch(std::span<const Touch> touches) {
  session_->waiting.emplace_back(touches.begin(), touches.end());
  if (session_->delivering) return;
  session_->delivering = true;
  while (!session_->waiting.empty()) {
    const std::vector<Touch> next = std::move(session_->waiting.front());
    session_->waiting.pop_front();
    deliver(next);
  }
  session_->delivering = false;
}

void TouchDispatcher::cancelAll(double time) {
  std::vector<Touch> touches;
  for (const Finger& finger : session_->fingers)
    touches.push_back({finger.identifier, TouchPhase::canceled, finger.position, time});
  dispatch(touches);
}

void TouchDispatcher::deliver(std::span<const Touch> touches) {
  std::vector<Touch> moves;
  const auto handMoves = [&] {
    if (!moves.empty()) hand(moves);
    moves.clear();
  };
  for (Touch touch : touches) {
    if (!session_->normalize(touch)) continue;
    const auto finger = session_->find(touch.identifier);
    const bool leaves = touch.phase == TouchPhase::ended || touch.phase == TouchPhase::canceled;
    if (touch.phase == TouchPhase::moved || (leaves && touch.position != finger->position))
      moves.push_back({touch.identifier, TouchPhase::moved, touch.position, touch.time});
    if (touch.phase == TouchPhase::moved) continue;
    handMoves();
    if (touch.phase == TouchPhase::began) session_->land(touch);
    hand({&touch, 1});
    if (leaves) session_->fingers.erase(session_->find(touch.identifier));
  }
  handMoves();
}

// The touches have the same phase; only moves may contain several fingers.
void TouchDispatcher::hand(std::span<const Touch> touches) {
  Recognizers recognizers;
  for (const Touch& touch : touches) {
    const auto finger = session_->find(touch.identifier);
    if (finger == session_->fingers.end()) return;  // did not begin on a view
    finger->position = touch.position;
    addNew(recognizers, finger->presentRecognizers());
  }
  for (const auto& recognizer : recognizers) {
    if (recognizer->view() == nullptr) continue;  // removed by an action
    if (isWithin(*recognizer->view(), *session_->root)) {
      recognizer->receive(touches, *this);
    } else {
      recognizer->cancel();
    }
  }
  if (touches.front().phase != TouchPhase::moved) startOver();
  for (const Touch& touch : touches) tellView(touch);
}

void TouchDispatcher::tellView(const Touch& touch) {
  const std::shared_ptr<View> view = session_->find(touch.identifier)->view.lock();
  if (!view || !isWithin(*view, *session_->root)) return;
  if (touch.phase == TouchPhase::began)
    view->touchesBegan({&touch, 1});
  else if (touch.phase == TouchPhase::moved)
    view->touchesMoved({&touch, 1});
  else
    view->touchesEnded({&touch, 1});
}

bool TouchDispatcher::claim(const GestureRecognizer& recognizer) {
  const Recognizers rivals = session_->rivals(recognizer);
  for (const auto& rival : rivals)
    if (rival->isRunning()) return false;
  for (const auto& rival : rivals)
    if (rival->state() == GestureState::possible) rival->setState(GestureState::failed);
  return true;
}

void TouchDispatcher::startOver() {
  for (const auto& recognizer : session_->recognizers()) {
    const bool isOver = recognizer->state() != GestureState::possible && !recognizer->isRunning();
    if (!isOver || recognizer->numberOfTouches() == 0 || !recognizer->canStartOver()) continue;
    const Recognizers rivals = session_->rivals(*recognizer);
    if (std::none_of(rivals.begin(), rivals.end(),
                     [](const auto& rival) { return rival->isRunning(); }))
      recognizer->startOver();
  }
}

}  // namespace orivanta::view

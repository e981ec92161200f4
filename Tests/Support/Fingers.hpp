// Simulates fingers on a view tree and records the states of gesture recognizers.
#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Platform/View/GestureRecognizer.hpp"
#include "Platform/View/TouchDispatcher.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::test {

/// Positions are in points of the root view, times in seconds.
class Fingers {
 public:
  using Place = std::pair<std::uint64_t, graphics::Point>;

  explicit Fingers(std::shared_ptr<view::View> root) : dispatcher_(std::move(root)) {}

  void down(std::uint64_t finger, graphics::Point position, double time) {
    send(finger, view::TouchPhase::began, position, time);
  }
  void move(std::uint64_t finger, graphics::Point position, double time) {
    send(finger, view::TouchPhase::moved, position, time);
  }

  /// Moves several fingers at the same time.
  void move(std::initializer_list<Place> places, double time) {
    moveAll({places.begin(), places.size()}, time);
  }

  /// Lifts the finger where it was last.
  void up(std::uint64_t finger, double time) {
    send(finger, view::TouchPhase::ended, last_[finger], time);
  }
  void cancel(std::uint64_t finger, double time) {
    send(finger, view::TouchPhase::canceled, last_[finger], time);
  }

  void tap(std::uint64_t finger, graphics::Point position, double time) {
    down(finger, position, time);
    up(finger, time + 0.1);
  }

  /// Plays steps such as "down 0 1 50 50 2 90 50; move 0.1 1 56 58; up 0.2 1 2; cancelAll 0.3": the
  /// action, the time, and the fingers, with positions for down and move.
  void play(const std::string& script) {
    std::istringstream steps(script);
    for (std::string step; std::getline(steps, step, ';');) {
      std::istringstream words(step);
      std::string verb;
      double time = 0;
      std::vector<Place> places;
      words >> verb >> time;
      for (std::uint64_t finger = 0; words >> finger;) {
        graphics::Point at = last_[finger];
        if (verb != "up" && verb != "cancel") words >> at.x >> at.y;
        places.emplace_back(finger, at);
      }
      if (verb == "move") moveAll(places, time);
      if (verb == "cancelAll") dispatcher_.cancelAll(time);
      for (const auto& [finger, at] : places) {
        if (verb == "down") down(finger, at, time);
        if (verb == "tap") tap(finger, at, time);
        if (verb == "up") up(finger, time);
        if (verb == "cancel") cancel(finger, time);
      }
    }
  }

  view::TouchDispatcher& dispatcher() { return dispatcher_; }

 private:
  void moveAll(std::span<const Place> places, double time) {
    std::vector<view::Touch> touches;
    for (const auto& [finger, position] : places) {
      touches.push_back({finger, view::TouchPhase::moved, position, time});
      last_[finger] = position;
    }
    dispatcher_.dispatch(touches);
  }

  void send(std::uint64_t finger, view::TouchPhase phase, graphics::Point position, double time) {
    last_[finger] = position;
    dispatcher_.dispatch({finger, phase, position, time});
  }

  view::TouchDispatcher dispatcher_;
  std::map<std::uint64_t, graphics::Point> last_;
};

/// Records the states of recognizers, such as "pan began, pan changed, pan ended". Consecutive
/// equal states are recorded once.
class GestureLog {
 public:
  /// Adds a recognizer to a view. The log must outlive it.
  template <class Recognizer>
  std::shared_ptr<Recognizer> add(view::View& view, std::string name) {
    auto recognizer = std::make_shared<Recognizer>();
    recognizer->addTarget("log", [this, name = std::move(name)](view::GestureRecognizer& of) {
      static constexpr const char* states[] = {"possible", "began",    "changed",
                                               "ended",    "canceled", "failed"};
      std::string entry = name;
      entry.append(" ").append(states[static_cast<std::size_t>(of.state())]);
      if (entries_.empty() || entries_.back() != entry) entries_.push_back(std::move(entry));
    });
    view.addGestureRecognizer(recognizer);
    return recognizer;
  }

  /// Returns what was recorded since the last call.
  std::string take() {
    std::string all;
    for (const std::string& entry : entries_) all.append(all.empty() ? "" : ", ").append(entry);
    entries_.clear();
    return all;
  }

 private:
  std::vector<std::string> entries_;
};

}  // namespace orivanta::test

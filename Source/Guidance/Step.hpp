// One instruction of a route, as data. A Narrator makes it a text.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Directions.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Itinerary.hpp"

namespace orivanta::guidance {

/// A side, seen in the direction of walking.
enum class Side {
  none,   ///< not known, or of no use
  left,   ///< on the left
  right,  ///< on the right
  ahead,  ///< straight ahead
  behind  ///< behind
};

/// How sharp a turn is. The side is the sign of `Step::turnDegrees`.
enum class Sharpness {
  bear,   ///< 45 to 60 degrees
  turn,   ///< up to 120 degrees
  sharp,  ///< up to 150 degrees
  around  ///< more: the way back
};

/// A place by which a traveler recognizes a point of the route.
struct Landmark {
  std::shared_ptr<Location> place;     ///< never null
  std::shared_ptr<Category> category;  ///< if not null, the place is named by this category
  /// Where the turn is, seen from the place.
  Direction::Turn::ReferencePosition position = Direction::Turn::ReferencePosition::At;
};

/// A place that the route passes.
struct Passed {
  std::shared_ptr<Location> place;     ///< never null
  std::shared_ptr<Category> category;  ///< if not null, the place is named by this category
  Side side = Side::none;              ///< left or right
};

/// One instruction. Owns its records.
struct Step {
  /// The kinds of instructions.
  enum class Kind {
    depart,  ///< leave the first place, or a stop in between
    turn,    ///< turn while walking
    ride,    ///< take a connector
    leave,   ///< leave the connector
    arrive   ///< arrive at the destination or a stop in between
  };

  Kind kind = Kind::turn;   ///< the kind of instruction
  std::size_t leg = 0;      ///< the index of the leg in the itinerary
  std::size_t lastLeg = 0;  ///< `ride`: the last leg of several flights told as one; else `leg`
  std::size_t first = 0;    ///< where the instruction begins: an index into the leg's nodes
  std::size_t last = 0;     ///< where it ends, inclusive

  /// `turn`, and `depart` and `leave` with a turn at once: the angle, left positive. 0 if straight.
  double turnDegrees = 0.0;
  Sharpness sharpness = Sharpness::turn;    ///< of the turn
  std::optional<double> secondTurnDegrees;  ///< an opposite turn immediately after it
  std::optional<Landmark> landmark;         ///< where to turn
  /// `ride`, `arrive`: where the target is. `leave`: where the walk begins, seen in the direction
  /// of the ride, if it does not lead on; a turn comes after that.
  Side side = Side::none;
  std::shared_ptr<Location> place;     ///< `depart`, `arrive`: the place; may be null
  std::string name;                    ///< the name of `place` on signs; empty if there is none
  std::shared_ptr<Location> opposite;  ///< `arrive`: the place on the other side
  std::vector<Passed> passed;          ///< places on the walk to the next step
  /// Rooms that the walk to the next step enters, in order. It leaves them by another door. A room
  /// that it enters again is listed again. Rooms at stops and rooms without a name on signs are
  /// omitted.
  std::vector<std::shared_ptr<Location>> through;
  double metersToNext = 0.0;   ///< the walk to the next step
  double secondsToNext = 0.0;  ///< the time until the next step
};

/// Returns the same instructions in the form of `Directions`: turns become `Turn`, rides
/// `TakeVortex`; sharp turns and turning around become `Left` and `Right`, bearing becomes
/// `SlightLeft` and `SlightRight`. Leaving a connector becomes a turn to the side where the walk
/// begins, which is `Left` if that is behind. `texts` are the texts of the steps; a missing one is
/// empty. Steps that refer to missing legs or nodes are omitted. Returns null if the itinerary is
/// not usable.
ORIVANTA_API std::shared_ptr<Directions> asDirections(const Itinerary& itinerary,
                                                      const std::vector<Step>& steps,
                                                      const std::vector<std::string>& texts);

}  // namespace orivanta::guidance

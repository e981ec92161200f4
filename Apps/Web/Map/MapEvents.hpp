// What a map reports to the page.
#pragma once

#include <boost/json/object.hpp>

namespace orivanta::web {

/// Reports events of one map: JSON objects with `type`, which is one of these.
///
/// - "tap": `place` (an identifier or null), `floor`, `x`, `y` (points of the canvas) and
/// `position`
///   (scene units, or null above the horizon)
/// - "floor": `floor`, the one that is shown now
/// - "camera": the camera has moved; the page asks for its pose
/// - "load": `floor`, `state` (the name of an enumerator of `FloorState`), `filesDone`, `fileCount`
/// - "problem": `kind` ("floor", "noFloor" or "context"), `floor` (or null) and `text`
/// - "loaded": the first floor is shown
/// - "ready": the shown floor is drawn completely
///
/// Floors are indices in the venue's list; -1 for none.
class MapEvents {
 public:
  /// `map`: the map's number.
  explicit MapEvents(int map) : map_(map) {}

  void report(const char* type, boost::json::object event = {}) const;

 private:
  const int map_;
};

}  // namespace orivanta::web

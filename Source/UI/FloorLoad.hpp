// The progress of loading a venue's floors into a map view, for applications.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The progress of a floor.
enum class FloorState {
  waiting,       ///< not started
  fetching,      ///< its files are being fetched
  reading,       ///< its model is being read and prepared
  ready,         ///< it can be shown
  withoutModel,  ///< its record names no model
  failed         ///< see `problem`
};

/// One floor of a load.
struct FloorProgress {
  std::shared_ptr<Map> map;                ///< the floor
  FloorState state = FloorState::waiting;  ///< its progress
  std::size_t filesDone = 0;               ///< files that were fetched or have failed
  std::size_t fileCount = 0;               ///< known files of the floor

  /// Why the floor failed or, if it is ready, which of its files are missing. A readable text with
  /// the URL, without a final period. Empty if there is no problem.
  std::string problem;

  /// The number of files that come from an earlier load because the server does not deliver them
  /// now.
  std::size_t earlierFiles = 0;

  /// Further information about a ready floor: why each of the earlier files is used, and which
  /// pictures were reduced because they are too large. Has the form of `problem`.
  std::string remark = {};
};

/// The callbacks of a load. They are called on the main queue.
struct FloorLoadHandlers {
  /// Called after each change of a floor's progress.
  std::function<void(const FloorProgress& floor)> floorChanged;

  /// Called once, when every floor is ready or has failed. Not called after `cancel`.
  std::function<void(const std::vector<FloorProgress>& floors)> ended;
};

/// A load started by `MapView::loadFloors`. Main thread. Releasing the handle does not end the
/// load. Each load has a separate memory limit for its pictures.
class ORIVANTA_API FloorLoad {
 public:
  virtual ~FloorLoad() = default;

  /// Cancels the load. Floors that are ready stay available; the others are not loaded, and no
  /// handler is called any more. Does nothing if the load has ended.
  virtual void cancel() = 0;

  /// Returns all floors, in the venue's order.
  virtual std::vector<FloorProgress> floors() const = 0;
};

}  // namespace orivanta

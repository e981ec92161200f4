// The floors of a venue on their way into a map view, for applications.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// How far a floor is.
enum class FloorState {
  waiting,       ///< nothing has begun
  fetching,      ///< its files are on their way
  reading,       ///< its model is being read and prepared
  ready,         ///< it can be shown
  withoutModel,  ///< its record names no model
  failed         ///< see `problem`
};

/// One floor of a load.
struct FloorProgress {
  std::shared_ptr<Map> map;                ///< the floor
  FloorState state = FloorState::waiting;  ///< how far it is
  std::size_t filesDone = 0;               ///< files fetched or given up
  std::size_t fileCount = 0;               ///< files of the floor, as far as they are known

  /// Why it failed or, when it is ready nonetheless, which of its files it is shown without: with
  /// the URL, for people, without a full stop. Empty when all is well.
  std::string problem;

  /// The number of its files that an earlier load left and that are used since the server does not
  /// give them now.
  std::size_t earlierFiles = 0;

  /// What else there is to say about a floor that is ready: why each of these files is used, and
  /// which pictures are too large and were made smaller. In the form of `problem`.
  std::string remark = {};
};

/// Called on the main queue.
struct FloorLoadHandlers {
  /// After each step of a floor.
  std::function<void(const FloorProgress& floor)> floorChanged;

  /// Once, after the last floor is ready or has failed; not after `cancel`.
  std::function<void(const std::vector<FloorProgress>& floors)> ended;
};

/// Begun by `MapView::loadFloors`. Main thread. Letting go of the handle does not end the load.
/// Each load has a limit of its own for the memory that its pictures take.
class ORIVANTA_API FloorLoad {
 public:
  virtual ~FloorLoad() = default;

  /// Floors that are ready stay; the others never come, and no handler is called any more. Nothing
  /// happens when the load is over.
  virtual void cancel() = 0;

  /// In the venue's order.
  virtual std::vector<FloorProgress> floors() const = 0;
};

}  // namespace orivanta

// A connector between maps: an elevator, an escalator, stairs or a ramp.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Location.hpp"

namespace orivanta {

/// A location whose `nodes` lie on several maps. Owns its maps.
class ORIVANTA_API Vortex : public Location {
 public:
  /// Returns null if the members that a location needs are missing.
  static std::shared_ptr<Vortex> make(const RawData& data);
  Vortex(RecordToken, const RawData& data);  ///< for `make`

  bool accessible;                         ///< true unless the API specifies otherwise
  double constantWeight;                   ///< added to the cost of every ride
  double multiplierWeight;                 ///< multiplies the difference in elevation of every ride
  std::vector<std::shared_ptr<Map>> maps;  ///< the distinct maps of its nodes
};

}  // namespace orivanta

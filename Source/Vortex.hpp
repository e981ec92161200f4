// A connector between maps: a lift, an escalator, stairs, a ramp.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Location.hpp"

namespace orivanta {

/// A location whose `nodes` lie on several maps. Owns its maps.
class ORIVANTA_API Vortex : public Location {
 public:
  /// Needs what a location needs; null without it.
  static std::shared_ptr<Vortex> make(const RawData& data);
  Vortex(RecordToken, const RawData& data);  ///< for `make`

  bool accessible;                         ///< unless the API says otherwise
  double constantWeight;                   ///< added to the cost of every ride
  double multiplierWeight;                 ///< multiplies the difference of elevation of every ride
  std::vector<std::shared_ptr<Map>> maps;  ///< the distinct maps of its nodes
};

}  // namespace orivanta

// The two weights that the "weight" member of a node or a vortex specifies.
// Private header.
#pragma once

#include "Source/RawData.hpp"

namespace orivanta {

/// Added to the cost of every edge: the weight, or 0 when it is negative or missing.
inline double constantWeightOf(const RawData& data) {
  const double weight = data["weight"].doubleValue();
  return weight >= 0.0 ? weight : 0.0;
}

/// Multiplies the length of every edge: the weight, or 1 when it is 0, negative or missing.
inline double multiplierWeightOf(const RawData& data) {
  const double weight = data["weight"].doubleValue();
  return weight > 0.0 ? weight : 1.0;
}

}  // namespace orivanta

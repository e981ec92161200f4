// Writes the instructions to take connectors.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {

/// Returns the kind of the connector that a step of kind `leave` leaves. The step may belong to the
/// ride or to the walk after it.
ConnectorKind kindLeft(const Itinerary& itinerary, const Step& step);

/// Writes one instruction of kind `ride`: one ride, or several consecutive ones that belong
/// together. Used once; refers to its arguments.
class RideWriter {
 public:
  RideWriter(const Messages& messages, const Itinerary& itinerary, const Step& step);

  /// Returns the text.
  std::string text() const;

 private:
  std::string connector() const;
  std::string floor() const;

  const Messages& messages_;
  const Step& step_;
  const Leg* first_ = nullptr;        // null if the step belongs to no leg
  std::shared_ptr<Map> destination_;  // null if the ride remains on one floor
  long long floors_ = 0;              // up, negative if down
};

}  // namespace orivanta::guidance

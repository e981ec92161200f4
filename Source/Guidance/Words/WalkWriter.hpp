// Writes the sentences about the walk to the next instruction.
#pragma once

#include <string>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {

/// Writes the length of the walk after an instruction, what it passes, and the rooms that it leads
/// through. Used once; refers to its arguments.
class WalkWriter {
 public:
  WalkWriter(const Messages& messages, const Itinerary& itinerary, const Step& step)
      : messages_(messages), itinerary_(itinerary), step_(step) {}

  /// Returns the text, which is empty if there is nothing to tell.
  std::string text() const;

 private:
  std::string through(const std::string& key, const std::string& length) const;

  const Messages& messages_;
  const Itinerary& itinerary_;
  const Step& step_;
};

}  // namespace orivanta::guidance

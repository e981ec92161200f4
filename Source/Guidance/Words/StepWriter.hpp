// Writes the text of one instruction.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {

/// Writes one instruction of a list. Used once; refers to its arguments.
class StepWriter {
 public:
  /// `steps[index]` must exist.
  StepWriter(const Messages& messages, const Itinerary& itinerary, const std::vector<Step>& steps,
             std::size_t index)
      : messages_(messages),
        itinerary_(itinerary),
        steps_(steps),
        index_(index),
        step_(steps[index]) {}

  /// Returns the text.
  std::string text() const;

 private:
  std::string depart() const;
  std::string turn() const;
  std::string leave() const;
  std::string arrive() const;
  std::string turnWithin() const;
  std::string sideWithin(const std::string& turn) const;

  const Messages& messages_;
  const Itinerary& itinerary_;
  const std::vector<Step>& steps_;
  std::size_t index_;
  const Step& step_;
};

}  // namespace orivanta::guidance

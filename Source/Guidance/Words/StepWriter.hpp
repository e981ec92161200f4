// Writes the text of one instruction.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Source/Category.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Words/Messages.hpp"
#include "Source/Location.hpp"

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
  std::string walk() const;
  std::string through(const std::string& key, const std::string& length) const;
  std::string turnWithin() const;
  std::string sideWithin(const std::string& turn) const;
  std::string placeName(const std::shared_ptr<Location>& place,
                        const std::shared_ptr<Category>& category = nullptr) const;

  const Messages& messages_;
  const Itinerary& itinerary_;
  const std::vector<Step>& steps_;
  std::size_t index_;
  const Step& step_;
};

}  // namespace orivanta::guidance

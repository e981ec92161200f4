// The keys of messages for the values of a step, and the names that may be spoken.
#pragma once

#include <memory>
#include <string>

#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {

/// Returns the name of a place for use in a message, or a quotation of the name of its category if
/// that is given. Empty if the place is null, has no name or has a name that a converter invented
/// (`nameGenerated`).
std::string placeName(const Messages& messages, const std::shared_ptr<Location>& place,
                      const std::shared_ptr<Category>& category = nullptr);

/// Returns the part of a message's key for a side: empty if the side is not known, or else a dot
/// and the name of the side.
std::string sideKey(Side side);

}  // namespace orivanta::guidance

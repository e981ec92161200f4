#include "Source/Guidance/Steps/Surroundings.hpp"

namespace orivanta::guidance {

Surroundings::Surroundings(const Venue&) {}

}  // namespace orivanta::guidance

#include "Source/ActiveVenue.hpp"

namespace orivanta {

std::shared_ptr<Venue>& activeVenue = *new std::shared_ptr<Venue>;

}  // namespace orivanta

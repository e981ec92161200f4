#include "Apps/Web/VenueTable.hpp"

#include <utility>

#include "Platform/Foundation/Fatal.hpp"

namespace orivanta::web {

VenueTable& VenueTable::shared() {
  static auto& instance = *new VenueTable;
  return instance;
}

int VenueTable::add(std::shared_ptr<Venue> venue) {
  venues_.try_emplace(++last_, std::move(venue));
  return last_;
}

LoadedVenue& VenueTable::at(int number) {
  const auto found = venues_.find(number);
  if (found == venues_.end()) foundation::fatalError("the venue was removed");
  return found->second;
}

void VenueTable::remove(int number) { venues_.erase(number); }

}  // namespace orivanta::web

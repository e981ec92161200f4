// The venues that the page uses, by number.
#pragma once

#include <memory>
#include <unordered_map>

#include "Apps/Web/LoadedVenue.hpp"

namespace orivanta::web {

/// Owns the loaded venues. One thread.
class VenueTable {
 public:
  /// Returns the table of the module. Never destroyed.
  static VenueTable& shared();

  /// Adds a loaded venue and returns its number, which is above 0 and never used again.
  int add(std::shared_ptr<Venue> venue);

  /// Returns the venue with this number. Stops the program if there is none: the package does not
  /// use the number of a venue that it has removed.
  LoadedVenue& at(int number);

  /// Removes a venue. Does nothing if there is none with this number.
  void remove(int number);

 private:
  std::unordered_map<int, LoadedVenue> venues_;
  int last_ = 0;
};

}  // namespace orivanta::web

#include "Source/VenueComparison.hpp"

#include <algorithm>
#include <boost/json/value.hpp>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

bool isSameRecord(const RawData& left, const RawData& right) {
  if (!left.data() || !right.data()) return left.data() == right.data();
  return *left.data() == *right.data();
}

template <class Records>
bool areSame(const Records& left, const Records& right) {
  if (!left || !right) return !left && !right;
  return std::equal(left->begin(), left->end(), right->begin(), right->end(),
                    [](const auto& record, const auto& other) {
                      return isSameRecord(record->_data, other->_data);
                    });
}

}  // namespace

bool haveSameRecords(const Venue& left, const Venue& right) {
  return isSameRecord(left._data, right._data) && areSame(left.maps, right.maps) &&
         areSame(left.locations, right.locations) && areSame(left.categories, right.categories) &&
         areSame(left.nodes, right.nodes) && areSame(left.vortices, right.vortices) &&
         areSame(left.polygons, right.polygons);
}

}  // namespace orivanta

// Finds a member of a JSON object, optimized for the small objects of records.
#pragma once

#include <boost/json/value.hpp>
#include <cstring>
#include <string_view>

namespace orivanta {

/// Returns the value under this exact key, or null if there is none or if the value is not an
/// object.
inline const boost::json::value* jsonMember(const boost::json::value* value, std::string_view key) {
  if (value == nullptr || !value->is_object()) return nullptr;
  const boost::json::object& object = value->get_object();
  constexpr std::size_t largestToScan = 16;
  if (object.size() > largestToScan) return object.if_contains({key.data(), key.size()});
  for (const boost::json::key_value_pair& member : object)
    if (member.key().size() == key.size() &&
        std::memcmp(member.key().data(), key.data(), key.size()) == 0)
      return &member.value();
  return nullptr;
}

}  // namespace orivanta

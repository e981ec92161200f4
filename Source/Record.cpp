#include "Source/Record.hpp"

#include <algorithm>

#include "Source/Json/JsonMember.hpp"

namespace orivanta {

namespace json = boost::json;

bool hasTexts(const RawData& data, RecordKeys keys) {
  return std::all_of(keys.begin(), keys.end(), [&](std::string_view key) {
    const json::value* member = jsonMember(data.data().get(), key);
    return member != nullptr && member->is_string();
  });
}

bool hasNumbers(const RawData& data, RecordKeys keys) {
  return std::all_of(keys.begin(), keys.end(), [&](std::string_view key) {
    const json::value* member = jsonMember(data.data().get(), key);
    return member != nullptr && (member->is_number() || member->is_bool());
  });
}

}  // namespace orivanta

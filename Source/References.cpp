#include "Source/References.hpp"

#include <algorithm>

#include "Source/JsonMember.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

const json::array* arrayOf(const RawData& data, std::string_view key) {
  const json::value* member = jsonMember(data.data().get(), key);
  return member == nullptr ? nullptr : member->if_array();
}

void visitText(const json::value* value, const ReferenceVisitor& visit) {
  if (value == nullptr || !value->is_string()) return;
  const json::string& text = value->get_string();
  visit({text.data(), text.size()});
}

}  // namespace

std::optional<std::string_view> referenceIn(const RawData& data, std::string_view key) {
  std::optional<std::string_view> reference;
  visitText(jsonMember(data.data().get(), key), [&](std::string_view id) { reference = id; });
  return reference;
}

void forEachReference(const RawData& data, std::string_view key, ReferenceVisitor visit) {
  const json::array* elements = arrayOf(data, key);
  if (elements == nullptr) return;
  for (const json::value& element : *elements) visitText(&element, visit);
}

void forEachReference(const RawData& data, std::string_view key, std::string_view member,
                      ReferenceVisitor visit) {
  const json::array* elements = arrayOf(data, key);
  if (elements == nullptr) return;
  for (const json::value& element : *elements) visitText(jsonMember(&element, member), visit);
}

void prefetchMembers(const RawData& data) {
  if (!data.data() || !data.data()->is_object()) return;
  const json::object& object = data.data()->get_object();
  constexpr std::size_t cacheLine = 64;
  const char* members = reinterpret_cast<const char*>(object.begin());
  const std::size_t bytes = std::min<std::size_t>(object.size() * sizeof(*object.begin()), 512);
  for (std::size_t at = 0; at < bytes; at += cacheLine) __builtin_prefetch(members + at);
}

}  // namespace orivanta

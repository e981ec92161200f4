#include "Source/References.hpp"

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

}  // namespace orivanta

#include "Source/References.hpp"

#include <boost/json/value.hpp>

namespace orivanta {

namespace json = boost::json;

namespace {

const json::value* memberOf(const json::value* value, std::string_view key) {
  if (value == nullptr || !value->is_object()) return nullptr;
  return value->get_object().if_contains({key.data(), key.size()});
}

const json::array* arrayOf(const RawData& data, std::string_view key) {
  const json::value* member = memberOf(data.data().get(), key);
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
  visitText(memberOf(data.data().get(), key), [&](std::string_view id) { reference = id; });
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
  for (const json::value& element : *elements) visitText(memberOf(&element, member), visit);
}

std::size_t countOfReferences(const RawData& data, std::string_view key) {
  const json::array* elements = arrayOf(data, key);
  return elements == nullptr ? 0 : elements->size();
}

}  // namespace orivanta

#include "Source/Json/References.hpp"

#include <algorithm>

#include "Source/Json/JsonMember.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

const json::array* arrayOf(const json::value* object, std::string_view key) {
  const json::value* member = jsonMember(object, key);
  return member == nullptr ? nullptr : member->if_array();
}

constexpr std::size_t bytesPerElement = 64;

void visitText(const json::value* value, const ReferenceVisitor& visit) {
  if (value == nullptr || !value->is_string()) return;
  const json::string& text = value->get_string();
  visit({text.data(), text.size()});
}

void visitTexts(const json::array& elements, std::string_view member,
                const ReferenceVisitor& visit) {
  for (const json::value& element : elements)
    visitText(member.empty() ? &element : jsonMember(&element, member), visit);
}

void prefetchMembers(const json::object& object) {
  constexpr std::size_t cacheLine = 64;
  const char* members = reinterpret_cast<const char*>(object.begin());
  const std::size_t bytes = std::min<std::size_t>(object.size() * sizeof(*object.begin()), 512);
  for (std::size_t at = 0; at < bytes; at += cacheLine) __builtin_prefetch(members + at);
}

}  // namespace

std::optional<std::string_view> referenceIn(const json::value* object, std::string_view key) {
  std::optional<std::string_view> reference;
  visitText(jsonMember(object, key), [&](std::string_view id) { reference = id; });
  return reference;
}

void forEachReference(const json::value* object, std::string_view key, std::string_view member,
                      ReferenceVisitor visit) {
  if (const json::array* elements = arrayOf(object, key)) visitTexts(*elements, member, visit);
}

// Each loop reads what the previous one has prefetched: the members, the arrays and their elements.
References referencesOf(std::span<const JsonHandle* const> objects, std::string_view key,
                        std::string_view member, foundation::BudgetShare& share) {
  for (const JsonHandle* object : objects) __builtin_prefetch(object);
  for (const JsonHandle* object : objects) __builtin_prefetch(object->get());
  for (const JsonHandle* object : objects)
    if (*object && (*object)->is_object()) prefetchMembers((*object)->get_object());
  std::vector<const json::array*> arrays;
  arrays.reserve(objects.size());
  for (const JsonHandle* object : objects) {
    arrays.push_back(arrayOf(object->get(), key));
    if (arrays.back() != nullptr) __builtin_prefetch(arrays.back()->begin());
  }
  std::size_t elementCount = 0;
  for (const json::array* array : arrays) {
    if (array == nullptr || array->empty()) continue;
    elementCount += array->size();
    if (array->begin()->is_object()) __builtin_prefetch(array->begin()->get_object().begin());
  }
  share.take(elementCount * bytesPerElement);
  References references;
  references.ids.reserve(4 * objects.size());
  references.ends.reserve(objects.size());
  auto add = [&](std::string_view id) { references.ids.push_back(id); };
  for (const json::array* array : arrays) {
    if (array != nullptr) visitTexts(*array, member, add);
    references.ends.push_back(references.ids.size());
  }
  return references;
}

}  // namespace orivanta

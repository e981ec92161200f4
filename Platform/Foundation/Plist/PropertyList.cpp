#include "Platform/Foundation/PropertyList.hpp"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Plist/BinaryPropertyList.hpp"

namespace orivanta::foundation {

namespace {

constexpr std::size_t largestFileBytes = 16U << 20U;
constexpr std::size_t mostContainers = 10'000;

using PlistHandle = std::unique_ptr<void, decltype(&plist_free)>;
using PlistText = std::unique_ptr<char, decltype(&std::free)>;

// The library frees a list recursively, so the number of containers, and with it the nesting, is
// limited first. It also aborts on a string with a NUL, which XML cannot contain.
bool safeToParse(std::string_view xml) {
  if (xml.find('\0') != std::string_view::npos) return false;
  std::size_t containers = 0;
  for (const std::string_view tag : {"<array", "<dict"})
    for (std::size_t at = xml.find(tag); at != std::string_view::npos; at = xml.find(tag, at + 1))
      ++containers;
  return containers <= mostContainers;
}

PlistHandle parseXml(const std::string& xml) {
  plist_t root = nullptr;
  if (safeToParse(xml)) plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
  return {root, plist_free};
}

std::optional<std::string> textOf(plist_t node) {
  if (node == nullptr || plist_get_node_type(node) != PLIST_STRING) return std::nullopt;
  char* text = nullptr;
  plist_get_string_val(node, &text);
  const PlistText owner(text, std::free);
  return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

}  // namespace

std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& file) {
  const auto bytes = readFile(file, largestFileBytes);
  if (!bytes) return std::nullopt;
  if (std::string_view(*bytes).starts_with("bplist")) return readBinaryPropertyList(*bytes);
  const PlistHandle root = parseXml(*bytes);
  if (!root || plist_get_node_type(root.get()) != PLIST_DICT) return std::nullopt;

  PropertyListDictionary entries;
  plist_dict_iter walker = nullptr;
  plist_dict_new_iter(root.get(), &walker);
  const std::unique_ptr<void, decltype(&std::free)> walkerOwner(walker, std::free);
  for (;;) {
    char* key = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(root.get(), walker, &key, &value);
    if (key == nullptr) break;
    const PlistText keyOwner(key, std::free);
    entries[key] = textOf(value);
  }
  return entries;
}

}  // namespace orivanta::foundation

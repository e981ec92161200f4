#include "Apps/Import/Read/IndoorGml/GmlNodes.hpp"

#include <algorithm>
#include <cmath>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Platform/Foundation/DecimalNumbers.hpp"

namespace orivanta::importer {

namespace {

constexpr double largestCoordinate = 1e8;
constexpr std::string_view separators = " \t\r\n,";

// Numbers separated by whitespace or commas; false if there is anything else.
bool readNumbers(std::string_view text, std::vector<double>& numbers) {
  for (std::size_t at = text.find_first_not_of(separators); at != text.npos;
       at = text.find_first_not_of(separators, at)) {
    double number = 0.0;
    const std::size_t length = foundation::readNumber(text.substr(at), number);
    if (length == 0 || !(std::abs(number) <= largestCoordinate)) return false;
    numbers.push_back(number);
    at += length;
    if (at < text.size() && separators.find(text[at]) == separators.npos) return false;
  }
  return true;
}

// Three if the list says so, or if it closes a ring in three dimensions.
std::size_t dimensionOf(pugi::xml_node list, const std::vector<double>& numbers) {
  constexpr int farthestAncestor = 8;
  pugi::xml_node node = list;
  for (int each = 0; each < farthestAncestor && node; ++each, node = node.parent()) {
    const std::string stated = attributeOf(node, "srsDimension");
    if (stated == "2" || stated == "3") return stated == "2" ? 2 : 3;
  }
  const bool closed = numbers.size() % 3 == 0 && numbers.size() >= 6 &&
                      std::equal(numbers.begin(), numbers.begin() + 3, numbers.end() - 3);
  return closed || numbers.size() % 2 != 0 ? 3 : 2;
}

bool addPositions(const std::vector<double>& numbers, std::size_t dimension,
                  std::vector<GmlPosition>& positions) {
  if (numbers.size() % dimension != 0) return false;
  for (std::size_t at = 0; at < numbers.size(); at += dimension)
    positions.push_back({numbers[at], numbers[at + 1], dimension == 3 ? numbers[at + 2] : 0.0});
  return true;
}

}  // namespace

std::string_view localName(const char* name) {
  const std::string_view text(name);
  return text.substr(text.find(':') + 1);
}

// Elements of GML have a few attributes. Those of a hostile document, which many other elements may
// be in, are not all looked at.
std::string attributeOf(pugi::xml_node node, std::string_view name) {
  constexpr int mostAttributes = 64;
  int count = 0;
  for (const pugi::xml_attribute attribute : node.attributes()) {
    if (localName(attribute.name()) == name) return std::string(trimmed(attribute.value()));
    if (++count == mostAttributes) break;
  }
  return {};
}

std::string childText(pugi::xml_node node, std::string_view name) {
  for (const pugi::xml_node child : node.children())
    if (localName(child.name()) == name) return std::string(trimmed(child.child_value()));
  return {};
}

std::string referencedId(pugi::xml_node node) {
  std::string reference = attributeOf(node, "href");
  const std::size_t hash = reference.find('#');
  if (hash != reference.npos) return reference.substr(hash + 1);
  // Some programs leave out the number sign.
  return reference.find("://") == reference.npos ? reference : std::string();
}

std::string dualityOf(pugi::xml_node node) {
  for (const pugi::xml_node child : node.children())
    if (localName(child.name()) == "duality") {
      if (std::string id = referencedId(child); !id.empty()) return id;
      for (const pugi::xml_node inner : child.children())
        if (std::string id = attributeOf(inner, "id"); !id.empty()) return id;
    }
  return {};
}

bool readPositions(pugi::xml_node node, std::vector<GmlPosition>& positions) {
  bool valid = true;
  forElementsIn(node, [&](pugi::xml_node element) {
    const std::string_view name = localName(element.name());
    const bool single = name == "pos";
    if (!single && name != "posList" && name != "coordinates") return true;
    std::vector<double> numbers;
    valid = valid && readNumbers(element.child_value(), numbers);
    if (single && numbers.size() != 2 && numbers.size() != 3) valid = false;
    if (valid && !numbers.empty())
      valid =
          addPositions(numbers, single ? numbers.size() : dimensionOf(element, numbers), positions);
    return false;
  });
  return valid;
}

}  // namespace orivanta::importer

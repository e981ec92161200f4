#include "Benchmarks/SurveyedPackage.hpp"

#include <boost/json.hpp>
#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orivanta::benchmarks {

namespace {

namespace json = boost::json;

json::value read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  std::ostringstream text;
  text << file.rdbuf();
  return json::parse(text.str());
}

std::string textOf(const json::value& record, const char* member) {
  const json::value* value = record.as_object().if_contains(member);
  return value != nullptr && value->is_string() ? std::string(value->as_string()) : "";
}

const json::array& arrayOf(const json::value& record, const char* member) {
  static const json::array none;
  const json::value* value = record.as_object().if_contains(member);
  return value != nullptr && value->is_array() ? value->as_array() : none;
}

}  // namespace

// Identifiers without a number in the style of OpenStreetMap stay as they are.
std::string plainIdentifier(const std::string& id) {
  const std::size_t end = id.find('@');
  const std::string base = id.substr(0, end);
  std::size_t digits = base.find_first_of("0123456789");
  if (digits == std::string::npos) return id;
  std::size_t last = digits;
  while (last < base.size() && std::isdigit(static_cast<unsigned char>(base[last])) != 0) ++last;
  const std::string word = base.substr(0, digits);
  const bool isMap = word == "way/" || word == "node/" || word == "relation/" || word == "w" ||
                     word == "n" || word == "r";
  if (!isMap || last - digits < 4) return base;
  return base.substr(0, 1) + base.substr(digits, last - digits);
}

SurveyedPackage readSurveyedPackage(const std::filesystem::path& folder) {
  SurveyedPackage package;
  const json::value venue = read(folder / "venue.json");
  const double units = venue.at("unitsPerMetre").to_number<double>();
  std::map<std::string, std::size_t> index;
  const json::value nodes = read(folder / "node.json");
  for (const json::value& node : nodes.as_array()) {
    index.emplace(textOf(node, "id"), package.network.nodes.size());
    package.network.nodes.push_back(
        {textOf(node, "id"),
         package::Point{node.at("x").to_number<double>(), node.at("y").to_number<double>()} *
             (1.0 / units),
         textOf(node, "map")});
  }
  package.network.neighbors.resize(package.network.nodes.size());
  for (const json::value& node : nodes.as_array())
    for (const json::value& path : arrayOf(node, "paths")) {
      const auto to = index.find(textOf(path, "node"));
      if (to == index.end()) continue;
      package.network.neighbors[index.at(textOf(node, "id"))].push_back(to->second);
      ++package.network.edges;
    }
  package.network.edges /= 2;
  const json::value polygons = read(folder / "polygon.json");
  for (const json::value& polygon : polygons.as_array())
    for (const json::value& entrance : arrayOf(polygon, "entrances"))
      if (const auto node = index.find(textOf(entrance, "id")); node != index.end())
        package.entrances[textOf(polygon, "id")].push_back(node->second);
  const json::value connectors = read(folder / "vortex.json");
  for (const json::value& record : connectors.as_array()) {
    PlainConnector connector{textOf(record, "id"), textOf(record, "type"), {}};
    for (const json::value& node : arrayOf(record, "nodes"))
      if (node.is_string())
        if (const auto found = index.find(std::string(node.as_string())); found != index.end())
          connector.nodes.push_back(found->second);
    package.connectors.push_back(std::move(connector));
  }
  return package;
}

}  // namespace orivanta::benchmarks

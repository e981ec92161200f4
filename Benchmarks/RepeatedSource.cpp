#include "Benchmarks/RepeatedSource.hpp"

#include <algorithm>
#include <boost/json.hpp>
#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Platform/Foundation/Files.hpp"

namespace orivanta::benchmarks {

namespace json = boost::json;
namespace fs = std::filesystem;

namespace {

using Position = std::pair<double, double>;

// Calls `visit` with each position of a geometry's coordinates.
template <class Visit>
void eachPosition(json::value& coordinates, const Visit& visit) {
  json::array* list = coordinates.if_array();
  if (list == nullptr || list->empty()) return;
  if (list->size() >= 2 && list->front().is_number()) return visit(*list);
  for (json::value& part : *list) eachPosition(part, visit);
}

template <class Visit>
void eachPositionOf(json::value& feature, const Visit& visit) {
  json::object* geometry = feature.at("geometry").if_object();
  if (geometry != nullptr) eachPosition(geometry->at("coordinates"), visit);
}

bool isIdentifier(std::string_view key) {
  return key == "id" || key.ends_with("_id") || key.ends_with("ID");
}

json::value copied(const json::value& feature, std::size_t copy, Position offset,
                   std::size_t& positions) {
  json::value result = feature;
  for (auto& member : result.at("properties").as_object())
    if (copy > 0 && isIdentifier(member.key()) && member.value().is_string())
      member.value() = std::string(member.value().get_string()) + "-" + std::to_string(copy);
  eachPositionOf(result, [&](json::array& position) {
    position[0] = position[0].to_number<double>() + offset.first;
    position[1] = position[1].to_number<double>() + offset.second;
    ++positions;
  });
  return result;
}

std::map<fs::path, json::value> layersIn(const fs::path& folder) {
  std::map<fs::path, json::value> layers;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".geojson") continue;
    const auto text = foundation::readFile(entry.path(), std::size_t{1} << 30U);
    if (!text) throw std::runtime_error(text.error().description);
    layers[entry.path().filename()] = json::parse(*text);
  }
  if (layers.empty()) throw std::runtime_error(folder.string() + ": no .geojson files");
  return layers;
}

// Width and height of everything.
Position sizeOf(std::map<fs::path, json::value>& layers) {
  Position least = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  Position most = {-least.first, -least.second};
  for (auto& [name, layer] : layers)
    for (json::value& feature : layer.at("features").as_array())
      eachPositionOf(feature, [&](const json::array& position) {
        const Position at = {position[0].to_number<double>(), position[1].to_number<double>()};
        least = {std::min(least.first, at.first), std::min(least.second, at.second)};
        most = {std::max(most.first, at.first), std::max(most.second, at.second)};
      });
  return {most.first - least.first, most.second - least.second};
}

}  // namespace

std::size_t repeatSource(const fs::path& folder, std::size_t copies, const fs::path& target) {
  auto layers = layersIn(folder);
  const auto [width, height] = sizeOf(layers);
  const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(copies)));
  std::size_t positions = 0;
  fs::create_directories(target);
  for (auto& [name, layer] : layers) {
    json::array features;
    for (std::size_t copy = 0; copy < copies; ++copy)
      for (const json::value& feature : layer.at("features").as_array())
        features.push_back(copied(feature, copy,
                                  {static_cast<double>(copy % columns) * width * 1.05,
                                   static_cast<double>(copy / columns) * height * 1.05},
                                  positions));
    layer.at("features") = std::move(features);
    if (const auto written = foundation::writeFileAtomically(target / name, json::serialize(layer));
        !written)
      throw std::runtime_error(written.error().description);
  }
  return positions;
}

}  // namespace orivanta::benchmarks

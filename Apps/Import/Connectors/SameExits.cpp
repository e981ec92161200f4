#include "Apps/Import/Connectors/SameExits.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>

#include "Apps/Import/Places/Categories.hpp"

namespace orivanta::importer {

namespace {

constexpr double farthest = 40.0;  // meters
constexpr std::size_t mostNamesakes = 64;

struct Exit {
  Spot spot;
  std::size_t height = 0;
};

struct Candidate {
  double distance = 0.0;
  std::size_t lower = 0;
  std::size_t upper = 0;
};

std::vector<ExitPair> pairsAmong(const std::vector<Exit>& exits) {
  std::vector<Candidate> candidates;
  for (std::size_t lower = 0; lower < exits.size(); ++lower)
    for (std::size_t upper = 0; upper < exits.size(); ++upper) {
      if (exits[lower].height >= exits[upper].height) continue;
      const double distance =
          package::distance(exits[lower].spot.position, exits[upper].spot.position);
      if (distance < farthest) candidates.push_back({distance, lower, upper});
    }
  std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
    return std::tie(a.distance, a.lower, a.upper) < std::tie(b.distance, b.lower, b.upper);
  });
  std::vector<bool> isTaken(exits.size());
  std::vector<ExitPair> pairs;
  for (const Candidate& candidate : candidates) {
    if (isTaken[candidate.lower] || isTaken[candidate.upper]) continue;
    isTaken[candidate.lower] = isTaken[candidate.upper] = true;
    pairs.push_back({exits[candidate.lower].spot, exits[candidate.upper].spot});
  }
  return pairs;
}

}  // namespace

std::vector<ExitPair> pairsOfExits(const Building& building, const Heights& heights) {
  std::map<double, std::size_t> heightOf;
  for (std::size_t i = 0; i < heights.size(); ++i)
    for (const double level : heights[i]) heightOf[level] = i;
  std::map<std::string, std::vector<Exit>> byName;
  for (const Place& place : building.places) {
    if (place.names.name.empty() || place.names.generated || place.spots.empty()) continue;
    const std::string_view category = matchCategory(place.category).category->id;
    if (category != "exits" && category != "entrances") continue;
    std::vector<Exit>& exits = byName[place.names.name];
    for (const Spot& spot : place.spots)
      if (const auto height = heightOf.find(spot.level);
          height != heightOf.end() && exits.size() < mostNamesakes)
        exits.push_back({spot, height->second});
  }
  std::vector<ExitPair> pairs;
  for (const auto& [name, exits] : byName) {
    const std::vector<ExitPair> found = pairsAmong(exits);
    pairs.insert(pairs.end(), found.begin(), found.end());
  }
  return pairs;
}

}  // namespace orivanta::importer

// Reads what is compared from a venue package whose walking network was surveyed or drawn by hand.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "Apps/Package/Geometry.hpp"

namespace orivanta::benchmarks {

/// A walking network in meters. The coordinates of two networks of one building may differ by a
/// constant vector.
struct PlainNetwork {
  struct Node {
    std::string id;
    package::Point position;
    std::string floor;
  };
  std::vector<Node> nodes;
  std::vector<std::vector<std::size_t>> neighbors;  ///< without the rides of connectors
  std::size_t edges = 0;
};

struct PlainConnector {
  std::string id;
  std::string type;
  std::vector<std::size_t> nodes;
};

struct SurveyedPackage {
  PlainNetwork network;
  /// The entrances of each polygon.
  std::map<std::string, std::vector<std::size_t>> entrances;
  std::vector<PlainConnector> connectors;
};

/// Throws `std::runtime_error` if a file is missing or is not JSON.
SurveyedPackage readSurveyedPackage(const std::filesystem::path& folder);

/// "way/12@0", "w12" and "w12-0" name the same thing: the first letter and all digits.
std::string plainIdentifier(const std::string& id);

}  // namespace orivanta::benchmarks

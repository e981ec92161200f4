// What a person can choose about an import.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::importer {

enum class Format { imdf, osmXml, osmPbf, overpassJson, osmGeoJson, indoorGml, stations };

enum class NetworkChoice {
  automatic,  ///< the source's own network where it has one
  source,     ///< only the source's own network
  derive      ///< always from the drawn areas
};

enum class DoorChoice {
  guess,  ///< a room without a door gets one at its longest straight common wall with a walkway
  strict  ///< only the doors of the source
};

/// South, west, north, east in degrees.
using Bounds = std::array<double, 4>;

/// Bounds of what is read, so that a hostile or damaged source cannot use up the machine.
struct Limits {
  std::size_t bytes = 512U << 20U;   ///< of all files, unpacked
  std::size_t vertices = 5'000'000;  ///< of all shapes
  double extentMeters = 20'000.0;    ///< of the building
};

/// Called during long work with the name of the stage and its share done, from 0 to 1.
using Progress = std::function<void(std::string_view stage, double share)>;

struct Options {
  std::vector<std::filesystem::path> sources;
  std::optional<Format> format;               ///< recognized from the files if absent
  std::string building;                       ///< only this building of the source; empty: all
  std::optional<Bounds> bounds;               ///< only what lies within
  std::vector<std::string> languages;         ///< for names, best first; lower case
  std::map<std::string, double> levelShifts;  ///< by building: added to its ordinals
  double storeyHeight = 4.0;                  ///< meters, where the source states none
  NetworkChoice network = NetworkChoice::automatic;
  DoorChoice doors = DoorChoice::guess;
  std::string attribution;      ///< added to that of the source
  std::string license;          ///< added to that of the source
  std::filesystem::path fixes;  ///< a file of corrections, see Fixes.hpp; empty: none
  Limits limits;
  Progress progress;  ///< may be empty
};

}  // namespace orivanta::importer

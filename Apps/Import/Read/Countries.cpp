#include "Apps/Import/Read/Countries.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

// Degrees, without remote territories.
struct Country {
  std::string_view code;
  double south, west, north, east;

  bool contains(double latitude, double longitude) const {
    return south <= latitude && latitude <= north && west <= longitude && longitude <= east;
  }
};

constexpr Country countries[] = {
    {"AE", 22.6, 51.5, 26.1, 56.4},     {"AT", 46.3, 9.5, 49.1, 17.2},
    {"AU", -44.0, 112.0, -10.0, 154.0}, {"BE", 49.4, 2.5, 51.6, 6.5},
    {"BR", -34.0, -74.0, 5.3, -34.0},   {"CA", 41.6, -141.0, 83.2, -52.6},
    {"CH", 45.7, 5.9, 47.9, 10.6},      {"CN", 18.0, 73.5, 53.6, 134.8},
    {"CZ", 48.5, 12.0, 51.1, 18.9},     {"DE", 47.2, 5.8, 55.1, 15.1},
    {"DK", 54.5, 8.0, 57.8, 15.2},      {"EG", 22.0, 24.6, 31.8, 37.0},
    {"ES", 27.6, -18.2, 43.9, 4.4},     {"FI", 59.7, 19.0, 70.1, 31.6},
    {"FR", 41.3, -5.2, 51.1, 9.7},      {"GB", 49.8, -8.7, 60.9, 1.8},
    {"GR", 34.8, 19.3, 41.8, 29.7},     {"HK", 22.1, 113.8, 22.6, 114.5},
    {"HU", 45.7, 16.1, 48.6, 22.9},     {"IE", 51.4, -10.7, 55.4, -6.0},
    {"IL", 29.4, 34.2, 33.4, 35.9},     {"IN", 6.7, 68.1, 35.6, 97.4},
    {"IT", 35.4, 6.6, 47.1, 18.6},      {"JP", 24.0, 122.9, 45.6, 146.0},
    {"KR", 33.0, 124.6, 38.7, 131.0},   {"MX", 14.5, -118.5, 32.8, -86.7},
    {"NL", 50.7, 3.3, 53.6, 7.3},       {"NO", 57.9, 4.5, 71.2, 31.2},
    {"NZ", -47.4, 166.3, -34.3, 178.7}, {"PL", 49.0, 14.1, 54.9, 24.2},
    {"PT", 32.6, -31.3, 42.2, -6.2},    {"RO", 43.6, 20.2, 48.3, 29.8},
    {"SA", 16.3, 34.5, 32.2, 55.7},     {"SE", 55.3, 11.0, 69.1, 24.2},
    {"SG", 1.1, 103.6, 1.5, 104.1},     {"TR", 35.8, 25.7, 42.2, 44.8},
    {"TW", 21.8, 119.3, 25.4, 122.1},   {"UA", 44.3, 22.1, 52.4, 40.3},
    {"US", 18.9, -179.2, 71.5, -66.9},  {"ZA", -34.9, 16.4, -22.1, 32.9},
};

}  // namespace

void reportIfSwapped(Georeference position, std::string_view country, const std::string& file,
                     Findings& findings) {
  const auto* known = std::find_if(std::begin(countries), std::end(countries),
                                   [&](const Country& each) { return each.code == country; });
  if (known == std::end(countries) || known->contains(position.latitude, position.longitude) ||
      !known->contains(position.longitude, position.latitude))
    return;
  Finding finding = makeFinding(
      Severity::warning, "coordinates-swapped", "",
      {fmt::format("The building has an address in {}, but lies at {:.3f} degrees north, {:.3f} "
                   "degrees east. It would lie there if the latitude came before the longitude.",
                   country, position.latitude, position.longitude),
       "If they are swapped, the building is distorted and at the wrong place.",
       "Export the file with the longitude first."});
  finding.file = file;
  findings.add(std::move(finding));
}

}  // namespace orivanta::importer

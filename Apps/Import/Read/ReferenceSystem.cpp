#include "Apps/Import/Read/ReferenceSystem.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

struct Codes {
  int first;
  int last;
};

// WGS 84, JGD2000, JGD2011, ETRS89, NAD83, GDA94, GDA2020.
constexpr std::array degreeCodes = {Codes{4326, 4326}, Codes{4979, 4979}, Codes{4612, 4612},
                                    Codes{6668, 6668}, Codes{6697, 6697}, Codes{4258, 4258},
                                    Codes{4269, 4269}, Codes{4283, 4283}, Codes{7844, 7844}};

// Japanese planes of JGD2000 and JGD2011, and UTM of WGS 84, JGD2000, JGD2011 and ETRS89.
constexpr std::array meterCodes = {Codes{2443, 2461},   Codes{6669, 6687}, Codes{32601, 32660},
                                   Codes{32701, 32760}, Codes{3097, 3101}, Codes{6688, 6692},
                                   Codes{25828, 25838}};

template <class Ranges>
bool contains(const Ranges& ranges, int code) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [&](const Codes& each) { return each.first <= code && code <= each.last; });
}

bool has(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

// The number at the end of a name such as "urn:ogc:def:crs:EPSG::6677".
std::optional<int> epsgCode(const std::string& name) {
  if (!has(name, "epsg")) return std::nullopt;
  const std::size_t start = name.find_last_not_of("0123456789") + 1;
  if (start >= name.size() || name.size() - start > 6) return std::nullopt;
  return std::stoi(name.substr(start));
}

CoordinateUnit unitOfText(const std::string& text) {
  const bool projected = has(text, "projcs") || has(text, "projcrs");
  if (projected) {
    const bool trueScale =
        has(text, "transverse_mercator") || has(text, "transverse mercator") || has(text, "gauss");
    const bool meters = !has(text, "foot") && !has(text, "feet") && has(text, "met");
    return trueScale && meters ? CoordinateUnit::meters : CoordinateUnit::unknown;
  }
  const bool geographic = has(text, "geogcs") || has(text, "geogcrs") || has(text, "geodcrs");
  return geographic && !has(text, "tokyo") ? CoordinateUnit::degrees : CoordinateUnit::unknown;
}

}  // namespace

CoordinateUnit supportedUnitOf(const std::string& crs) {
  const std::string name = lowerCase(trimmed(crs));
  if (const std::optional<int> code = epsgCode(name)) {
    if (contains(degreeCodes, *code)) return CoordinateUnit::degrees;
    return contains(meterCodes, *code) ? CoordinateUnit::meters : CoordinateUnit::unknown;
  }
  return has(name, "crs84") ? CoordinateUnit::degrees : unitOfText(name);
}

CoordinateUnit unitOf(const std::string& crs, const std::string& file) {
  if (trimmed(crs).empty()) return CoordinateUnit::unknown;
  const CoordinateUnit unit = supportedUnitOf(crs);
  if (unit != CoordinateUnit::unknown) return unit;
  throw SourceError(file + ": the reference system \"" + crs.substr(0, 80) +
                    "\" is not supported; convert the file with: ogr2ogr -t_srs EPSG:4326 "
                    "-f GeoJSON NEW.geojson \"" +
                    file + '"');
}

}  // namespace orivanta::importer

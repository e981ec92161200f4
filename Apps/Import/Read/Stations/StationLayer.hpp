// The layers of a station network: what a GeoJSON file and a Shapefile have in common.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/ReferenceSystem.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/TextPool.hpp"

namespace orivanta::importer {

/// A record with the fields that the importer uses.
class StationFeature {
 public:
  GeoGeometry geometry;

  /// The value; empty if there is none. The name is in lower case.
  std::string_view operator[](std::string_view name) const;

  /// How well a name of a field is known. Names in other words are used where the usual one is
  /// missing.
  enum class Known { no, inOtherWords, yes };
  struct UsedName {
    std::string_view name;  ///< the usual one, in lower case
    Known known = Known::no;
  };

  /// What the importer calls a field with this name, in lower case.
  static UsedName usedName(std::string_view name);

  /// Adds a trimmed value, which must be valid as long as the feature. Does nothing if there is a
  /// value, or if the field is not used.
  void add(std::string_view name, std::string_view value);

  /// Prepares for so many values.
  void reserve(std::size_t values) { fields_.reserve(values); }

  /// Replaces all values.
  template <class Change>
  void changeValues(const Change& change) {
    for (Field& field : fields_) field.set(change(field.value()));
  }

 private:
  // There are millions of them.
  struct Field {
    const char* text = nullptr;
    std::uint32_t size = 0;
    std::uint8_t name = 0;

    std::string_view value() const { return {text, size}; }
    void set(std::string_view value) {
      text = value.data();
      size = static_cast<std::uint32_t>(value.size());
    }
  };

  std::vector<Field> fields_;
};

enum class LayerKind { other, floor, space, opening, facility, fixture, drawing, node, link };

struct StationLayer {
  LayerKind kind = LayerKind::other;
  std::string file;
  std::string area;               ///< the first part of the file's name, such as "Shinjuku"
  std::optional<double> ordinal;  ///< as in the file's name: "B1" is -1
  CoordinateUnit unit = CoordinateUnit::unknown;
  std::vector<StationFeature> features;
};

/// The ordinal of "-1", "B1", "2F" or "2out".
std::optional<double> stationOrdinal(std::string_view text);

/// How many features the layers of a kind have.
std::size_t countOf(const std::vector<StationLayer>& layers, LayerKind kind);

/// Reads all GeoJSON files and Shapefiles, and releases the contents of the files. Layers that the
/// importer does not use are left out. The values of the features are kept in `texts`. Throws
/// `SourceError` as `readGeoJson` and `unitOf` do.
std::vector<StationLayer> readStationLayers(std::vector<SourceFile>& files, const Limits& limits,
                                            TextPool& texts, Findings& findings);

/// Throws `SourceError` if the values of all features take too much memory.
void requireMemory(const TextPool& texts, const Limits& limits, const std::string& file);

}  // namespace orivanta::importer

// The features of an IMDF archive, before they are understood.
#pragma once

#include <boost/json/object.hpp>
#include <boost/json/storage_ptr.hpp>
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/TextPool.hpp"

namespace orivanta::importer {

struct ImdfFeature {
  std::string id;         ///< unique in the archive: that of a second feature has "#2" at its end
  std::string_view type;  ///< member "feature_type", or else the name of the file
  std::string_view file;
  boost::json::object properties;  ///< of the standard, without those that are null
  GeoGeometry geometry;            ///< in meters

  /// The trimmed text of a property; empty if there is none.
  std::string text(std::string_view key) const;
  /// The property "category" in lower case.
  std::string category() const;
};

struct ImdfArchive {
  TextPool texts;                   ///< of the types and files of features
  boost::json::storage_ptr memory;  ///< of the properties of features
  std::string file;                 ///< for messages about the whole archive
  boost::json::object manifest;
  bool hasManifest = false;
  std::string language;  ///< of the manifest, in lower case
  Georeference origin;
  std::deque<ImdfFeature> features;                        ///< in the order of the files
  std::map<std::string, std::vector<std::size_t>> byType;  ///< indices of features
  /// Indices by the identifiers of features.
  boost::unordered_flat_map<std::string_view, std::uint32_t> byId;

  /// The feature with an identifier; null if there is none, or if it has another type. An empty
  /// type is any.
  const ImdfFeature* find(const std::string& id, std::string_view type = {}) const;

  /// The features of a type, in order.
  std::vector<const ImdfFeature*> ofType(const std::string& type) const;

  /// The ordinal of the level with an identifier.
  std::optional<double> ordinal(const std::string& levelId) const;

  /// The ordinal of the level that a feature names, itself or by its unit.
  std::optional<double> levelOf(const ImdfFeature& feature) const;

  /// The labels of a property in all languages. The name is that in the archive's language, or else
  /// in English, or else the first one.
  Names names(const boost::json::object& properties, std::string_view key) const;
};

/// The identifiers that a relationship names, in order: origin, intermediary, destination.
std::vector<std::string> imdfMembers(const ImdfFeature& relationship);

/// Writes references like the identifiers that they mean, if they differ in upper and lower case.
void matchImdfReferences(ImdfArchive& archive);

/// The part of the reading's progress that is made when all files are read.
constexpr double imdfFilesShare = 0.6;

/// Reads all files, and releases the contents of each. Breaches of the rules for files, identifiers
/// and types become findings. Throws `SourceError` if there are too many positions or properties.
ImdfArchive readImdfArchive(std::vector<SourceFile> files, const Options& options,
                            Findings& findings);

}  // namespace orivanta::importer

#include <fmt/format.h>

#include <array>
#include <string>
#include <utility>

#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"
#include "Apps/Import/Read/Imdf/ImdfRules.hpp"
#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"

namespace orivanta::importer {

namespace {

enum class ExpectedShape { none, point, line, polygon };

// What the features of a type must have.
struct TypeRules {
  std::string_view type;
  std::string_view title;  ///< the beginning of the names of its rules
  ExpectedShape shape;
  bool namedShape;     ///< the standard has a rule of its own for the shape
  bool category;       ///< there must be one
  bool namedCategory;  ///< the standard has a rule for it
  bool validCategory;  ///< the standard has a rule for its value
  bool level;          ///< level_id must name a level
};

constexpr std::array typeRules = {
    TypeRules{"venue", "Venue", ExpectedShape::polygon, true, true, false, false, false},
    TypeRules{"building", "Building", ExpectedShape::none, false, true, true, true, false},
    TypeRules{"footprint", "Footprint", ExpectedShape::polygon, true, true, false, true, false},
    TypeRules{"level", "Level", ExpectedShape::polygon, true, true, true, false, false},
    TypeRules{"unit", "Unit", ExpectedShape::polygon, false, true, false, false, false},
    TypeRules{"fixture", "Fixture", ExpectedShape::polygon, true, true, true, false, true},
    TypeRules{"section", "Section", ExpectedShape::polygon, true, true, true, false, true},
    TypeRules{"geofence", "Geofence", ExpectedShape::polygon, true, true, true, false, false},
    TypeRules{"kiosk", "Kiosk", ExpectedShape::polygon, true, false, false, false, true},
    TypeRules{"opening", "Opening", ExpectedShape::line, true, true, true, false, true},
    TypeRules{"amenity", "Amenity", ExpectedShape::point, false, true, false, false, false},
    TypeRules{"anchor", "Anchor", ExpectedShape::point, false, false, false, false, false},
    TypeRules{"occupant", "Occupant", ExpectedShape::none, false, true, true, false, false},
    TypeRules{"detail", "Detail", ExpectedShape::line, true, false, false, false, true},
    TypeRules{"relationship", "Relationship", ExpectedShape::none, false, true, true, true, false},
};

class TypeChecker {
 public:
  TypeChecker(const ImdfArchive& archive, Findings& findings)
      : archive_(archive), findings_(findings) {}

  void checkFeature(const TypeRules& rules, const ImdfFeature& feature) {
    const std::string title(rules.title);
    checkShape(rules, feature);
    const std::string category = feature.text("category");
    if (rules.category && category.empty()) {
      report(feature, {Severity::violation,
                       rules.namedCategory ? title + "MustHaveCategory" : "category-missing",
                       "category", "The " + std::string(rules.type) + " has no category.",
                       "It is shown without one.", "Add a category of the standard."});
    } else if (rules.category && hasKnownCategories(rules.type) &&
               !isImdfCategory(rules.type, category)) {
      report(feature, {rules.validCategory ? Severity::violation : Severity::info,
                       rules.validCategory ? title + "CategoryMustBeValid" : "category-unknown",
                       "category", "The category \"" + category + "\" is not one of the standard.",
                       "It is not understood.", "Use a category of the standard."});
    }
    if (rules.level && !archive_.ordinal(feature.text("level_id")))
      report(feature,
             {Severity::violation, title + "MustReferenceLevel", "level_id",
              "The level \"" + feature.text("level_id") + "\" does not exist or has no ordinal.",
              "The feature is left out.", "Correct level_id."});
  }

 private:
  void report(const ImdfFeature& feature, ImdfBreach breach) {
    findings_.add(findingFor(archive_, feature, std::move(breach)));
  }

  void checkShape(const TypeRules& rules, const ImdfFeature& feature) {
    const GeoGeometry& geometry = feature.geometry;
    const bool fits =
        rules.shape == ExpectedShape::none ||
        (rules.shape == ExpectedShape::polygon && !geometry.polygons.empty()) ||
        (rules.shape == ExpectedShape::point && geometry.points.size() == 1) ||
        (rules.shape == ExpectedShape::line &&
         (geometry.lines.size() == 1 || (rules.type == "detail" && !geometry.lines.empty())));
    if (fits) return;
    const std::string_view ending = rules.shape == ExpectedShape::polygon
                                        ? "MustHavePolygonalGeometry"
                                    : rules.type == "detail" ? "MustHaveLinealGeometry"
                                                             : "MustHaveLineStringGeometry";
    report(
        feature,
        {Severity::violation,
         rules.namedShape ? std::string(rules.title).append(ending) : "geometry-missing",
         "geometry",
         fmt::format("The {} is not drawn as {}.", rules.type,
                     rules.shape == ExpectedShape::polygon ? "a polygon"
                     : rules.shape == ExpectedShape::point ? "a point"
                                                           : "a line"),
         feature.type == "level"                                         ? "Its outline is unknown."
         : feature.type == "opening" && !feature.geometry.points.empty() ? "Its width is unknown."
                                                                         : "It is left out.",
         "Draw it, or delete it."});
  }

  const ImdfArchive& archive_;
  Findings& findings_;
};

}  // namespace

void checkImdfTypes(const ImdfArchive& archive, Findings& findings) {
  TypeChecker checker(archive, findings);
  for (const TypeRules& rules : typeRules)
    for (const ImdfFeature* feature : archive.ofType(std::string(rules.type)))
      checker.checkFeature(rules, *feature);
}

}  // namespace orivanta::importer

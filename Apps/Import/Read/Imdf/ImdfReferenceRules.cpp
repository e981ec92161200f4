#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"
#include "Apps/Import/Read/Imdf/ImdfRules.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

class ReferenceChecker {
 public:
  ReferenceChecker(const ImdfArchive& archive, Findings& findings)
      : archive_(archive), findings_(findings) {}

  // References that have no rule of their own.
  void checkReferences(const ImdfFeature& feature) {
    struct Reference {
      std::string_view type, key, target;
    };
    static constexpr std::array references = {Reference{"unit", "level_id", "level"},
                                              Reference{"amenity", "unit_ids", "unit"},
                                              Reference{"anchor", "unit_id", "unit"},
                                              Reference{"building", "address_id", "address"},
                                              Reference{"level", "address_id", "address"},
                                              Reference{"level", "building_ids", "building"},
                                              Reference{"fixture", "anchor_id", "anchor"},
                                              Reference{"kiosk", "anchor_id", "anchor"},
                                              Reference{"section", "parents", "section"},
                                              Reference{"section", "address_id", "address"},
                                              Reference{"geofence", "parents", "geofence"},
                                              Reference{"anchor", "address_id", "address"},
                                              Reference{"amenity", "address_id", "address"}};
    for (const Reference& each : references)
      if (each.type == feature.type)
        for (const std::string& id : memberTexts(feature.properties, each.key))
          if (archive_.find(id, each.target) == nullptr)
            reportReference(feature, std::string(each.key), id, std::string(each.target));
    if (feature.type == "unit" && feature.text("level_id").empty())
      reportReference(feature, "level_id", {}, "level");
    if (feature.type != "relationship") return;
    for (const std::string& id : imdfMembers(feature))
      if (archive_.find(id) == nullptr) reportReference(feature, "origin", id, "feature");
  }

 private:
  void reportReference(const ImdfFeature& feature, const std::string& key, const std::string& id,
                       const std::string& target) {
    findings_.add(
        findingFor(archive_, feature,
                   {Severity::violation, "ReferencedFeatureIDMustBeResolvable", key,
                    id.empty() ? "The feature names no " + target + "."
                               : "There is no " + target + " with the identifier \"" + id + "\".",
                    "What depends on it is left out.", "Correct the identifier."}));
  }

  const ImdfArchive& archive_;
  Findings& findings_;
};

}  // namespace

void checkImdfReferences(const ImdfArchive& archive, const ImdfFeature& feature,
                         Findings& findings) {
  ReferenceChecker(archive, findings).checkReferences(feature);
}

}  // namespace orivanta::importer

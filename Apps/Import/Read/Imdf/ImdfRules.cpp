#include "Apps/Import/Read/Imdf/ImdfRules.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

class Checker {
 public:
  Checker(const ImdfArchive& archive, Findings& findings)
      : archive_(archive), findings_(findings) {}

  void check() {
    checkManifest();
    checkCounts();
    collectReferences();
    checkImdfTypes(archive_, findings_);
    for (const ImdfFeature& feature : archive_.features) {
      checkLabels(feature);
      checkImdfReferences(archive_, feature, findings_);
    }
    each("venue", &Checker::checkVenue);
    each("building", &Checker::checkBuilding);
    each("footprint", &Checker::checkFootprint);
    each("level", &Checker::checkLevel);
    each("occupant", &Checker::checkOccupant);
    each("geofence", &Checker::checkGeofence);
    each("relationship", &Checker::checkRelationship);
  }

 private:
  void each(const char* type, void (Checker::*rule)(const ImdfFeature&)) {
    for (const ImdfFeature* feature : archive_.ofType(type)) (this->*rule)(*feature);
  }

  void report(const ImdfFeature& feature, ImdfBreach breach) {
    findings_.add(findingFor(archive_, feature, std::move(breach)));
  }

  void reportArchive(Severity severity, const char* rule, std::string message, const char* effect,
                     const char* advice) {
    Finding finding;
    finding.severity = severity;
    finding.rule = rule;
    finding.file = archive_.file;
    finding.message = std::move(message);
    finding.effect = effect;
    finding.advice = advice;
    findings_.add(std::move(finding));
  }

  void checkManifest() {
    if (!archive_.hasManifest)
      return reportArchive(Severity::violation, "ManifestFileMustBePresent",
                           "There is no manifest.json.", "The language of names is not known.",
                           "Add it, with version, created and language.");
    const std::string version = memberText(archive_.manifest, "version");
    if (version != "1.0.0")
      reportArchive(Severity::violation, "ManifestVersionMustBeValid",
                    "The version in manifest.json is \"" + version + "\".",
                    "The archive is read as IMDF 1.0.0.", "Write \"1.0.0\".");
  }

  void checkCounts() {
    const std::size_t venues = archive_.ofType("venue").size();
    if (venues != 1)
      reportArchive(Severity::violation, "VenueCountMustBeExactlyOne",
                    fmt::format("There are {} venues.", venues),
                    venues == 0 ? "The building has no name." : "The first one is used.",
                    "Keep exactly one feature in venue.geojson.");
    const std::vector<const ImdfFeature*> addresses = archive_.ofType("address");
    if (std::all_of(addresses.begin(), addresses.end(),
                    [](const ImdfFeature* address) { return address->text("unit").empty(); }))
      reportArchive(Severity::info, "ZeroCountOfUnitQualifiedAddresses",
                    "No address has the property \"unit\".", "",
                    "If occupants have suite numbers, add addresses with them.");
  }

  void collectReferences() {
    for (const ImdfFeature* unit : archive_.ofType("unit"))
      levelsWithUnits_.insert(unit->text("level_id"));
    for (const ImdfFeature* footprint : archive_.ofType("footprint"))
      for (const std::string& id : memberTexts(footprint->properties, "building_ids"))
        buildingsWithFootprint_.insert(id);
  }

  void checkLabels(const ImdfFeature& feature) {
    for (const char* key : {"name", "alt_name", "short_name"}) {
      const json::value* value = memberOf(feature.properties, key);
      if (value == nullptr) continue;
      const json::object* labels = value->if_object();
      if (labels != nullptr && std::all_of(labels->begin(), labels->end(), [](const auto& label) {
            return label.value().is_string();
          }))
        continue;
      report(feature, {Severity::warning, "NameMustBeString", key,
                       "The labels are not an object of languages and texts.",
                       "Labels that are not texts are ignored.", R"(Write it as {"en": "Name"}.)"});
    }
  }

  void checkVenue(const ImdfFeature& venue) {
    if (archive_.find(venue.text("address_id"), "address") == nullptr)
      report(venue, {Severity::violation, "VenueMustHaveAddress", "address_id",
                     "The venue has no address.", "", "Add it to address.geojson."});
    if (archive_.ofType("building").empty())
      report(venue, {Severity::violation, "VenueMustHaveAtLeastOneBuilding", "",
                     "The archive has no building.", "The levels belong to one building.",
                     "Add it to building.geojson."});
  }

  void checkBuilding(const ImdfFeature& building) {
    if (!buildingsWithFootprint_.contains(building.id))
      report(building,
             {Severity::violation, "BuildingMustHaveAtLeastOneFootprint", "",
              "No footprint belongs to the building.", "", "Add it to footprint.geojson."});
  }

  void checkFootprint(const ImdfFeature& footprint) {
    const auto ids = memberTexts(footprint.properties, "building_ids");
    if (std::none_of(ids.begin(), ids.end(), [&](const std::string& id) {
          return archive_.find(id, "building") != nullptr;
        }))
      report(footprint, {Severity::violation, "FootprintMustReferenceBuilding", "building_ids",
                         "The footprint belongs to no building.", "", "Correct building_ids."});
  }

  void checkLevel(const ImdfFeature& level) {
    const json::object& properties = level.properties;
    if (archive_.names(properties, "name").name.empty())
      report(level, {Severity::violation, "LevelMustHaveName", "name", "The level has no name.",
                     "It is named by its ordinal.", "Add a name."});
    if (archive_.names(properties, "short_name").name.empty())
      report(level, {Severity::violation, "LevelMustHaveShortName", "short_name",
                     "The level has no short name.", "It is named by its ordinal.",
                     "Add a short name such as \"L1\"."});
    const std::optional<double> ordinal = memberNumber(properties, "ordinal");
    if (!ordinal || *ordinal != std::floor(*ordinal))
      report(level, {Severity::violation, "LevelMustHaveOrdinal", "ordinal",
                     "The ordinal of the level is not a whole number.",
                     ordinal ? "It is used as it is." : "The level is left out with all its parts.",
                     "Add the ordinal: 0 for the ground floor."});
    if (!levelsWithUnits_.contains(level.id))
      report(level,
             {Severity::warning, "LevelMustBeReferencedByUnit", "", "No unit lies on the level.",
              "Nobody can walk there.", "Draw its units, or delete the level."});
  }

  void checkOccupant(const ImdfFeature& occupant) {
    if (archive_.find(occupant.text("anchor_id"), "anchor") == nullptr)
      report(occupant,
             {Severity::violation, "OccupantMustReferenceAnchor", "anchor_id",
              "The anchor \"" + occupant.text("anchor_id") + "\" does not exist.",
              "Nobody knows where the occupant is, so it is left out.", "Correct anchor_id."});
    if (archive_.names(occupant.properties, "name").name.empty())
      report(occupant,
             {Severity::violation, "OccupantMustHaveName", "name", "The occupant has no name.",
              "It is named by its category.", "Add a name."});
  }

  void checkGeofence(const ImdfFeature& geofence) {
    const json::object& properties = geofence.properties;
    const auto resolves = [&](const char* key, const char* type) {
      const auto ids = memberTexts(properties, key);
      return std::any_of(ids.begin(), ids.end(),
                         [&](const std::string& id) { return archive_.find(id, type) != nullptr; });
    };
    if (!resolves("level_ids", "level") && !resolves("building_ids", "building"))
      report(geofence, {Severity::violation, "GeofenceMustHaveLevelOrBuildingReference",
                        "level_ids", "The geofence names neither a level nor a building.", "",
                        "Add level_ids or building_ids."});
  }

  void checkRelationship(const ImdfFeature& relationship) {
    const std::string direction = relationship.text("direction");
    if (direction != "directed" && direction != "undirected")
      report(relationship, {Severity::violation, "RelationshipDirectionMustBeValid", "direction",
                            "The direction is \"" + direction + "\".", "It is taken as not known.",
                            "Write \"directed\" or \"undirected\"."});
  }

  const ImdfArchive& archive_;
  Findings& findings_;
  std::set<std::string> levelsWithUnits_;
  std::set<std::string> buildingsWithFootprint_;
};

}  // namespace

void checkImdf(const ImdfArchive& archive, Findings& findings) {
  Checker(archive, findings).check();
  checkImdfShapes(archive, findings);
}

}  // namespace orivanta::importer

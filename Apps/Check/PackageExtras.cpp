#include "Apps/Check/PackageExtras.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>

#include "Platform/Foundation/Files.hpp"
#include "Source/Guidance/OpeningHours.hpp"
#include "Source/RawData.hpp"

namespace orivanta::check {

namespace {

constexpr std::size_t largestClosureFile = 16U << 20U;  // that the server reads

void checkHours(const PackageRecords& records, const Record& place, Findings& findings) {
  const auto hours = place.text("hours");
  if (!hours || guidance::OpeningHours::parse(*hours)) return;
  Finding finding = records.findingAbout(place, Severity::warning, "hours-unreadable", "hours");
  finding.message = fmt::format("The opening hours \"{}\" cannot be read.", *hours);
  finding.effect = "The place counts as open at any time.";
  finding.advice = "Write them as in OpenStreetMap: \"Mo-Sa 10:00-20:00; Su off\".";
  findings.add(std::move(finding));
}

void checkUnit(const PackageRecords& records, const Record& venue, Findings& findings) {
  const auto unit = venue.numberIn("unitsPerMetre");
  if (unit && *unit >= 1e-6 && *unit <= 1e9) return;
  Finding finding = records.findingAbout(venue, Severity::info, "no-unit", "unitsPerMetre");
  finding.message = unit ? fmt::format("The venue has {} units per meter.", *unit)
                         : "It is not stated how many of the venue's units are a meter.";
  finding.effect = "Instructions contain no lengths and no times.";
  finding.advice = "Add it, such as \"unitsPerMetre\": 1 for coordinates in meters.";
  findings.add(std::move(finding));
}

void addClosureFault(Findings& findings, std::string id, Severity severity, std::string message,
                     std::string effect, std::string advice) {
  Finding finding;
  finding.severity = severity;
  finding.rule = severity == Severity::info ? "closure-of-nothing" : "closures-unreadable";
  finding.source = std::move(id);
  finding.file = "closure.json";
  finding.message = std::move(message);
  finding.effect = std::move(effect);
  finding.advice = std::move(advice);
  findings.add(std::move(finding));
}

void checkClosures(const PackageRecords& records, Findings& findings) {
  const auto file = records.folder() / "closure.json";
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return;
  const auto contents = foundation::readFile(file, largestClosureFile);
  const auto data = contents ? RawData::parse(*contents) : std::nullopt;
  const auto fail = [&] {
    addClosureFault(findings, {}, Severity::violation,
                    "The file closure.json is not an array of objects with a string \"id\".",
                    "Nothing is closed.", "Write it as [{\"id\": \"lift-north\"}].");
  };
  if (!data || !data->data()->is_array()) return fail();
  for (const RawData& record : data->arrayValue()) {
    const auto id = record["id"].string();
    if (!id) return fail();
    if (records.find(RecordKind::vortex, *id) || records.find(RecordKind::location, *id) ||
        records.find(RecordKind::node, *id))
      continue;
    addClosureFault(findings, *id, Severity::info,
                    fmt::format("There is no connector, place or node \"{}\".", *id),
                    "The closure has no effect.", "Correct the identifier, or remove it.");
  }
}

}  // namespace

void checkExtras(const PackageRecords& records, Findings& findings) {
  for (const Record& venue : records[RecordKind::venue].records)
    if (venue.kept) checkUnit(records, venue, findings);
  for (const RecordKind kind : {RecordKind::location, RecordKind::vortex})
    for (const Record& place : records[kind].records)
      if (place.kept) checkHours(records, place, findings);
  if (records.complete()) checkClosures(records, findings);
}

}  // namespace orivanta::check

#include "Apps/Check/RecordMembers.hpp"

#include <fmt/format.h>

#include <array>

namespace orivanta::check {

namespace json = boost::json;

namespace {

using enum ValueKind;

constexpr Member venueMembers[] = {
    {"id", text, true},           {"slug", text, true},     {"name", text, true},
    {"names", object, false},     {"logo", picture, false}, {"cover-image", picture, false},
    {"attribution", text, false}, {"license", text, false}, {"unitsPerMetre", number, false}};
constexpr Member mapMembers[] = {{"id", text, true},           {"name", text, false},
                                 {"names", object, false},     {"shortName", text, false},
                                 {"elevation", number, false}, {"scene", object, false},
                                 {"outdoor", boolean, false},  {"venue", text, false}};
constexpr Member locationMembers[] = {
    {"id", text, true},           {"name", text, true},
    {"type", text, true},         {"names", object, false},
    {"description", text, false}, {"logo", picture, false},
    {"picture", picture, false},  {"categories", list, false},
    {"nodes", list, false},       {"polygons", list, false},
    {"hours", text, false},       {"phone", text, false},
    {"website", text, false},     {"nameGenerated", boolean, false}};
constexpr Member categoryMembers[] = {{"id", text, true},
                                      {"name", text, true},
                                      {"names", object, false},
                                      {"parents", list, false},
                                      {"general", boolean, false}};
constexpr Member nodeMembers[] = {
    {"id", text, true},   {"map", text, true},       {"x", number, true},   {"y", number, true},
    {"z", number, false}, {"weight", number, false}, {"paths", list, false}};
constexpr Member vortexMembers[] = {{"id", text, true},
                                    {"name", text, true},
                                    {"type", text, true},
                                    {"names", object, false},
                                    {"description", text, false},
                                    {"logo", picture, false},
                                    {"picture", picture, false},
                                    {"categories", list, false},
                                    {"nodes", list, false},
                                    {"polygons", list, false},
                                    {"accessible", boolean, false},
                                    {"weight", number, false},
                                    {"hours", text, false},
                                    {"nameGenerated", boolean, false}};
constexpr Member polygonMembers[] = {
    {"id", text, true}, {"map", text, true}, {"entrances", list, false}};

constexpr std::array<std::span<const Member>, recordKindCount> tables = {
    venueMembers, mapMembers,    locationMembers, categoryMembers,
    nodeMembers,  vortexMembers, polygonMembers};

std::string exampleOf(const Member& member) {
  if (member.name == "type") return R"("type": "shop")";
  if (member.kind == number) return fmt::format("\"{}\": 12.5", member.name);
  if (member.kind == boolean) return fmt::format("\"{}\": true", member.name);
  if (member.kind == list) return fmt::format("\"{}\": []", member.name);
  if (member.kind == object) return fmt::format("\"{}\": {{}}", member.name);
  return fmt::format("\"{}\": \"...\"", member.name);
}

std::string effectOfLoss(RecordKind kind) {
  switch (kind) {
    case RecordKind::venue:
      return "The venue is not listed and cannot be loaded.";
    case RecordKind::map:
      return "The floor is left out, with its nodes and polygons.";
    case RecordKind::node:
      return "The node is left out of the walking network, with its paths.";
    case RecordKind::polygon:
      return "The polygon is left out: it cannot be tapped or highlighted.";
    default:
      return fmt::format("The {} is left out of the venue.", wordFor(kind));
  }
}

void addLoss(const PackageRecords& records, Findings& findings, Record& record,
             const Member& member) {
  const json::value* value = record.member(member.name);
  record.kept = false;
  Finding finding = records.findingAbout(
      record, Severity::violation, value == nullptr ? "member-missing" : "member-of-wrong-kind",
      std::string(member.name));
  finding.message = value == nullptr
                        ? fmt::format("The {} has no \"{}\".", wordFor(record.kind), member.name)
                        : fmt::format("The \"{}\" of the {} is not {}.", member.name,
                                      wordFor(record.kind), wordFor(member.kind));
  finding.effect = effectOfLoss(record.kind);
  finding.advice = fmt::format("Write {}, such as {}.", wordFor(member.kind), exampleOf(member));
  findings.add(std::move(finding));
}

void addIgnored(const PackageRecords& records, Findings& findings, const Record& record,
                const Member& member) {
  Finding finding =
      records.findingAbout(record, Severity::warning, "member-ignored", std::string(member.name));
  finding.message = fmt::format("The \"{}\" of the {} is not {}.", member.name,
                                wordFor(record.kind), wordFor(member.kind));
  finding.effect = "It is ignored, as if it were missing.";
  finding.advice = fmt::format("Write {}, such as {}.", wordFor(member.kind), exampleOf(member));
  findings.add(std::move(finding));
}

void checkRecord(const PackageRecords& records, Record& record, Findings& findings) {
  if (record.members == nullptr) {
    Finding finding = records.findingAbout(record, Severity::violation, "record-not-an-object");
    finding.message = fmt::format("The {} is not an object.", record.label());
    finding.effect = effectOfLoss(record.kind);
    finding.advice = "Write an object: {\"id\": \"...\"}.";
    findings.add(std::move(finding));
    return;
  }
  for (const Member& member : membersOf(record.kind)) {
    const json::value* value = record.member(member.name);
    if (value != nullptr && isOfKind(*value, member.kind)) continue;
    if (member.required) {
      addLoss(records, findings, record, member);
    } else if (value != nullptr) {
      addIgnored(records, findings, record, member);
    }
  }
}

// A venue whose slug cannot be part of a URL is refused by the server.
void checkSlug(const PackageRecords& records, Record& venue, Findings& findings) {
  const auto slug = venue.text("slug");
  if (!slug || (!slug->empty() && *slug != "." && *slug != "..")) return;
  venue.kept = false;
  Finding finding = records.findingAbout(venue, Severity::violation, "slug-unusable", "slug");
  finding.message = fmt::format("The slug \"{}\" cannot be part of a URL.", *slug);
  finding.effect = "The package cannot be served.";
  finding.advice = "Write a short name in lower case, such as \"town-hall\".";
  findings.add(std::move(finding));
}

void checkFloor(const PackageRecords& records, Record& record, Findings& findings) {
  const auto map = record.text("map");
  if (!map || records.find(RecordKind::map, *map) != nullptr) return;
  record.kept = false;
  Finding finding = records.findingAbout(record, Severity::violation, "unknown-map", "map");
  finding.message = fmt::format("The {} is on the floor \"{}\", which does not exist.",
                                wordFor(record.kind), *map);
  finding.effect = effectOfLoss(record.kind);
  finding.advice = "Write the identifier of a floor in map.json.";
  findings.add(std::move(finding));
}

}  // namespace

std::span<const Member> membersOf(RecordKind kind) {
  return tables[static_cast<std::size_t>(kind)];
}

bool isOfKind(const json::value& value, ValueKind kind) {
  switch (kind) {
    case text:
      return value.is_string();
    case number:
    case boolean:
      return value.is_number() || value.is_bool();
    case list:
      return value.is_array();
    case object:
      return value.is_object();
    case picture:
      return value.is_string() || value.is_object();
  }
  return false;
}

std::string_view wordFor(ValueKind kind) {
  static constexpr std::array<std::string_view, 6> words = {
      "a string", "a number",  "true or false",
      "an array", "an object", "a reference to an image, or an object of them"};
  return words[static_cast<std::size_t>(kind)];
}

void checkMembers(PackageRecords& records, Findings& findings) {
  for (std::size_t index = 0; index < recordKindCount; ++index) {
    const auto kind = static_cast<RecordKind>(index);
    for (Record& record : records[kind].records) {
      checkRecord(records, record, findings);
      if (kind == RecordKind::venue) checkSlug(records, record, findings);
      if ((kind == RecordKind::node || kind == RecordKind::polygon) &&
          records[RecordKind::map].document)
        checkFloor(records, record, findings);
    }
  }
}

void checkIdentifiers(const PackageRecords& records, Findings& findings) {
  for (std::size_t index = 0; index < recordKindCount; ++index) {
    const RecordFile& file = records[static_cast<RecordKind>(index)];
    for (const Record& record : file.records) {
      const auto id = record.text("id");
      if (!id) continue;
      const Record& last = *file.byId.at(*id);
      if (&last == &record) continue;
      Finding finding = records.findingAbout(record, Severity::violation, "duplicate-id", "id");
      finding.message =
          fmt::format("The identifier \"{}\" is used again in line {}.", *id, last.line);
      finding.effect =
          fmt::format("The {} is left out; the last one is used.", wordFor(record.kind));
      finding.advice = "Give each record of the file an identifier of its own.";
      findings.add(std::move(finding));
    }
  }
}

}  // namespace orivanta::check

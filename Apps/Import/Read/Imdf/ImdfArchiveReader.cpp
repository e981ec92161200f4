#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <filesystem>
#include <new>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/CoordinateCheck.hpp"
#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/JsonText.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::string fileName(const SourceFile& file) {
  return lowerCase(std::filesystem::path(file.name).filename().string());
}

class Reader {
 public:
  Reader(const Options& options, Findings& findings) : options_(options), findings_(findings) {}

  ImdfArchive read(std::vector<SourceFile> files) {
    archive_.memory = json::make_shared_resource<json::monotonic_resource>(
        1U << 16U, boundedMemory(options_.limits.bytes));
    if (!files.empty())
      archive_.file = std::filesystem::path(files.front().name).parent_path().string();
    for (const SourceFile& file : files)
      if (fileName(file) == "manifest.json") readManifest(file);
    double done = 0.0;
    for (SourceFile& file : files) {
      if (options_.progress)
        options_.progress("reading", imdfFilesShare * done++ / static_cast<double>(files.size()));
      const std::string name = fileName(file);
      if (name.ends_with(".geojson") || (name.ends_with(".json") && name != "manifest.json"))
        readFeatures(file);
      file.release();
    }
    reportUnknownTypes();
    matchImdfReferences(archive_);
    place();
    return std::move(archive_);
  }

 private:
  void report(Severity severity, const char* rule, const std::string& file, const std::string& id,
              std::string message, const char* effect, const char* advice) {
    Finding finding;
    finding.severity = severity;
    finding.rule = rule;
    finding.source = id;
    finding.file = file;
    finding.message = std::move(message);
    finding.effect = effect;
    finding.advice = advice;
    findings_.add(std::move(finding));
  }

  void readManifest(const SourceFile& file) {
    const ParsedJson parsed =
        parseJson(withoutByteOrderMark(file.bytes), boundedMemory(options_.limits.bytes / 64));
    const json::object* manifest = parsed.value.if_object();
    if (manifest == nullptr)
      return report(Severity::violation, "FileMustBeValidGeoJSON", file.name, {},
                    "The manifest is no valid JSON object.", "Its language is not known.",
                    "Check the file with a JSON validator.");
    archive_.manifest = *manifest;
    archive_.hasManifest = true;
    archive_.language = lowerCase(memberText(archive_.manifest, "language"));
  }

  void readFeatures(const SourceFile& file) {
    GeoFrame collection;
    try {
      collection = readGeoJsonInDegrees(file, options_.limits, vertices_, findings_,
                                        [&](GeoFeature& feature) { addFeature(file, feature); });
    } catch (const std::bad_alloc&) {
      throw SourceError(file.name + ": its properties take too much memory; import a part of it");
    } catch (const CoordinateError&) {
      throw;
    } catch (const SourceError& error) {
      if (vertices_ > options_.limits.vertices) throw;
      return report(Severity::violation, "FileMustBeValidGeoJSON", file.name, {}, error.what(),
                    "The file is left out.", "Export the archive again.");
    }
    if (collection.type != "FeatureCollection")
      report(Severity::warning, "FileMustContainFeatureCollection", file.name, {},
             "The file does not contain an object with the type \"FeatureCollection\".",
             "It is read nevertheless.", "Put the features into a FeatureCollection.");
  }

  void addFeature(const SourceFile& file, GeoFeature& data) {
    ImdfFeature feature;
    feature.file = archive_.texts.keep(file.name);
    feature.type = archive_.texts.keep(typeOf(file, data));
    feature.id = idOf(file, data);
    feature.properties = standardProperties(data.properties);
    feature.geometry = std::move(data.geometry);
    const std::size_t index = archive_.features.size();
    archive_.byType[std::string(feature.type)].push_back(index);
    archive_.features.push_back(std::move(feature));
    archive_.byId.emplace(archive_.features.back().id, static_cast<std::uint32_t>(index));
  }

  // Extensions may be larger than everything else.
  json::object standardProperties(const json::object& properties) const {
    const auto isKept = [](const json::key_value_pair& member) {
      return !member.value().is_null() &&
             isImdfProperty({member.key().data(), member.key().size()});
    };
    json::object kept(archive_.memory);
    kept.reserve(
        static_cast<std::size_t>(std::count_if(properties.begin(), properties.end(), isKept)));
    for (const auto& member : properties)
      if (isKept(member)) kept.emplace(member.key(), unpacked(member.value()));
    return kept;
  }

  // Converters that know only texts and numbers make texts of objects and arrays.
  json::value unpacked(const json::value& value) const {
    if (value.is_string()) {
      constexpr std::size_t longest = 65536;  // what fails is freed only with the archive's memory
      const std::string_view text(value.get_string());
      if (text.size() <= longest && (text.starts_with('{') || text.starts_with('[')))
        if (const ParsedJson parsed = parseJson(text, {}); parsed.error.empty())
          return json::value(parsed.value, archive_.memory);
    }
    return json::value(value, archive_.memory);
  }

  // Converters keep only the properties, so that the type and the identifier may be among them.
  std::string typeOf(const SourceFile& file, const GeoFeature& data) {
    const json::value* type = data.members.if_contains("feature_type");
    if (type != nullptr && type->is_string()) {
      if (std::string text = memberText(data.members, "feature_type"); !text.empty()) return text;
    }
    const char* rule = type == nullptr     ? "FeatureMustHaveFeatureType"
                       : type->is_string() ? "FeatureTypeMustNotBeEmpty"
                                           : "FeatureTypeMustBeString";
    std::string property = memberText(data.properties, "feature_type");
    const bool isProperty = isImdfType(property);
    report(Severity::violation, rule, file.name, data.id,
           "The feature has no text in \"feature_type\".",
           isProperty ? "That of its properties is taken."
                      : "The name of the file is taken as its type.",
           "Add the type, such as \"unit\".");
    return isProperty ? property : std::filesystem::path(fileName(file)).stem().string();
  }

  std::string idOf(const SourceFile& file, const GeoFeature& data) {
    const json::value* member = data.members.if_contains("id");
    std::string id = data.id;
    if (member == nullptr || !member->is_string() || id.empty()) {
      const char* rule = member == nullptr      ? "FeatureMustHaveId"
                         : !member->is_string() ? "FeatureIdMustBeString"
                                                : "FeatureIdMustNotBeEmpty";
      if (id.empty()) id = memberText(data.properties, "id");
      report(Severity::violation, rule, file.name, id, "The feature has no text in \"id\".",
             id.empty() ? "No other feature can refer to it." : "What refers to it may be lost.",
             "Give it a UUID.");
    }
    if (id.empty()) return fmt::format("{}:{}", file.name, archive_.features.size());
    if (!archive_.byId.contains(id)) return id;
    report(Severity::violation, "FeatureIdMustBeUnique", file.name, id,
           "There are two features with this identifier.",
           "What refers to it refers to the first one.", "Give each feature a UUID of its own.");
    const std::string source = std::move(id);
    int& count = copies_.emplace(source, 1).first->second;
    do id = fmt::format("{}#{}", source, ++count);
    while (archive_.byId.contains(id));
    return id;
  }

  void reportUnknownTypes() {
    for (const auto& [type, indices] : archive_.byType)
      if (!isImdfType(type))
        report(Severity::info, "feature-type-unknown",
               std::string(archive_.features[indices.front()].file),
               archive_.features[indices.front()].id,
               fmt::format("{} features have the type \"{}\", which is not part of IMDF 1.0.",
                           indices.size(), type),
               "They are left out.", "If it is an extension, nothing has to be done.");
  }

  // Chooses the origin, and makes all positions meters.
  void place() {
    PlaneOrigin middle;
    for (const ImdfFeature& feature : archive_.features) middle.add(feature.geometry);
    const Point rounded = middle.rounded(0.001);
    archive_.origin = {rounded.y, rounded.x};
    const Projection projection(archive_.origin);
    for (ImdfFeature& feature : archive_.features)
      changePositions(feature.geometry,
                      [&](Point point) { return projection.toPlane(point.x, point.y); });
  }

  const Options& options_;
  Findings& findings_;
  ImdfArchive archive_;
  std::size_t vertices_ = 0;
  std::unordered_map<std::string, int> copies_;
};

}  // namespace

ImdfArchive readImdfArchive(std::vector<SourceFile> files, const Options& options,
                            Findings& findings) {
  return Reader(options, findings).read(std::move(files));
}

}  // namespace orivanta::importer

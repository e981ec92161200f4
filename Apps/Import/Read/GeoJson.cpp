#include "Apps/Import/Read/GeoJson.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/serialize.hpp>
#include <string_view>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/CoordinateCheck.hpp"
#include "Apps/Import/Read/FeatureTexts.hpp"
#include "Apps/Import/Read/GeoJsonGeometry.hpp"
#include "Apps/Import/Read/JsonText.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
#include "Apps/Import/Read/TextEncoding.hpp"
#include "Apps/Import/Read/TextLines.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::string textOf(const json::value* value) {
  if (value == nullptr) return {};
  if (value->is_string()) return {value->get_string().data(), value->get_string().size()};
  return value->is_number() ? json::serialize(*value) : std::string();
}

const json::object* objectOf(const json::object& object, std::string_view key) {
  const json::value* member = object.if_contains({key.data(), key.size()});
  return member == nullptr ? nullptr : member->if_object();
}

constexpr std::size_t bufferBytes = 64U << 10U;

class Reader {
 public:
  Reader(const SourceFile& file, const Limits& limits, std::size_t& vertices, Findings& findings,
         const UseFeature& use)
      : file_(file),
        limits_(limits),
        vertices_(vertices),
        findings_(findings),
        use_(use),
        text_(withoutByteOrderMark(file.bytes)),
        lines_(text_),
        memory_(boundedMemory(limits.bytes / 4)),
        buffer_(bufferBytes) {}

  GeoFrame read(bool inDegrees) {
    if (text_.substr(0, 2) == "\xFF\xFE" || text_.substr(0, 2) == "\xFE\xFF")
      fail("the text is UTF-16; save it as UTF-8");
    const FeatureTexts texts = splitFeatures(text_, limits_.vertices);
    if (texts.cut)
      fail(
          fmt::format("the file ends within the array of features, after feature {}; it is cut "
                      "off, so fetch or export it again",
                      texts.features.size()));
    if (texts.tooMany) failForSize();
    if (texts.found) {
      readFrame(texts);
      if (inDegrees) checkCoordinates(texts.features);
      for (const std::string_view feature : texts.features) readFeature(feature);
    } else {
      readSingle();
    }
    return result_;
  }

 private:
  [[noreturn]] void fail(const std::string& cause) const {
    throw SourceError(file_.name + ": " + cause);
  }

  [[noreturn]] void failForSize() const {
    fail(fmt::format("there are more than {} positions and features; import a part of it",
                     limits_.vertices));
  }

  // Looks at a part of the features, from all over the file.
  void checkCoordinates(const std::vector<std::string_view>& features) {
    constexpr std::size_t mostSamples = 2000;
    requireDegrees(result_.crs, file_.name);
    CoordinateCheck check;
    const std::size_t step = features.size() / mostSamples + 1;
    for (std::size_t i = 0; i < features.size(); i += step) {
      json::monotonic_resource pieces(buffer_.data(), buffer_.size(), memory_);
      const ParsedJson parsed = parseJson(features[i], &pieces);
      const json::object* object = parsed.value.if_object();
      const json::value* shape = object == nullptr ? nullptr : object->if_contains("geometry");
      GeoGeometry geometry;
      std::size_t positions = 0;
      if (shape != nullptr && readGeometry(*shape, geometry, positions).empty())
        check.add(geometry);
    }
    isSwapped_ = check.areSwapped(file_.name, findings_);
  }

  [[noreturn]] void failForSyntax(std::size_t offset, const std::string& error) {
    fail(fmt::format("line {} is no valid JSON ({}); check the file with a JSON validator",
                     lines_.at(offset), error));
  }

  // What is around the features.
  void readFrame(const FeatureTexts& texts) {
    const ParsedJson parsed = parseJson(texts.frame, memory_);
    if (!parsed.error.empty())
      failForSyntax(parsed.offset < texts.frameStart
                        ? parsed.offset
                        : text_.size() - (texts.frame.size() - parsed.offset),
                    parsed.error);
    const json::object* root = parsed.value.if_object();
    if (root == nullptr) return;
    result_.type = textOf(root->if_contains("type"));
    result_.name = textOf(root->if_contains("name"));
    if (const json::object* crs = objectOf(*root, "crs"))
      if (const json::object* properties = objectOf(*crs, "properties"))
        result_.crs = textOf(properties->if_contains("name"));
  }

  void readSingle() {
    ParsedJson parsed = parseJson(text_, memory_);
    if (!parsed.error.empty()) failForSyntax(parsed.offset, parsed.error);
    const json::object* root = parsed.value.if_object();
    if (root == nullptr || textOf(root->if_contains("type")) != "Feature")
      fail("this is JSON, but not GeoJSON: it has no array \"features\"");
    result_.type = "Feature";
    addFeature(parsed.value, 0);
  }

  void readFeature(std::string_view text) {
    const auto offset = static_cast<std::size_t>(text.data() - text_.data());
    json::monotonic_resource pieces(buffer_.data(), buffer_.size(), memory_);
    ParsedJson parsed = parseJson(text, &pieces);
    if (!parsed.error.empty() && !isUtf8(text)) {
      parsed = parseJson(toUtf8(text, "CP1252"), &pieces);
      if (parsed.error.empty()) reportEncoding();
    }
    if (parsed.error.empty()) {
      addFeature(parsed.value, offset);
    } else {
      report({}, offset + parsed.offset, "The feature is no valid JSON: " + parsed.error + '.');
      count(1);
    }
  }

  void addFeature(json::value& value, std::size_t offset) {
    json::object* object = value.if_object();
    if (object == nullptr) return report({}, offset, "An element of the array is no feature.");
    // Objects keep the memory of the value only if they are constructed from it.
    const json::storage_ptr& memory = value.storage();
    GeoFeature feature{{}, json::object(memory), json::object(memory), {}};
    feature.id = textOf(object->if_contains("id"));
    std::size_t positions = 1;
    if (const json::value* geometry = object->if_contains("geometry")) {
      const std::string wrong = readGeometry(*geometry, feature.geometry, positions);
      count(positions);
      if (!wrong.empty())
        return report(feature.id, offset, "The geometry cannot be read: " + wrong + '.');
    } else {
      count(positions);
    }
    if (json::value* properties = object->if_contains("properties"))
      if (properties->is_object()) feature.properties = std::move(properties->get_object());
    for (const char* each : {"type", "geometry", "properties"}) object->erase(each);
    feature.members = std::move(*object);
    if (isSwapped_)
      changePositions(feature.geometry, [](Point point) { return Point{point.y, point.x}; });
    use_(feature);
  }

  void count(std::size_t positions) {
    vertices_ += positions;
    if (vertices_ > limits_.vertices) failForSize();
  }

  void reportEncoding() {
    if (std::exchange(isEncodingReported_, true)) return;
    Finding finding = makeFinding(
        Severity::warning, "text-not-utf8", "",
        {"The text is not in UTF-8.", "It is taken as Windows-1252, so letters may be wrong.",
         "Export the file in UTF-8."});
    finding.file = file_.name;
    findings_.add(std::move(finding));
  }

  void report(const std::string& id, std::size_t offset, const std::string& message) {
    Finding finding;
    finding.rule = "feature-unreadable";
    finding.source = id;
    finding.file = file_.name;
    finding.message = fmt::format("Line {}: {}", lines_.at(offset), message);
    finding.effect = "The feature is left out.";
    finding.advice = "Correct the line, or export the file again.";
    findings_.add(std::move(finding));
  }

  const SourceFile& file_;
  const Limits& limits_;
  std::size_t& vertices_;
  Findings& findings_;
  const UseFeature& use_;
  std::string_view text_;
  TextLines lines_;
  json::storage_ptr memory_;
  std::vector<unsigned char> buffer_;  // enough for most features
  bool isSwapped_ = false;
  bool isEncodingReported_ = false;
  GeoFrame result_;
};

}  // namespace

GeoFrame readGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                     Findings& findings, const UseFeature& use) {
  return Reader(file, limits, vertices, findings, use).read(false);
}

GeoFrame readGeoJsonInDegrees(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                              Findings& findings, const UseFeature& use) {
  return Reader(file, limits, vertices, findings, use).read(true);
}

GeoFeatures readGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                        Findings& findings) {
  GeoFeatures result;
  const UseFeature keep = [&](GeoFeature& feature) {
    result.features.push_back({std::move(feature.id), json::object(feature.properties, {}),
                               json::object(feature.members, {}), std::move(feature.geometry)});
  };
  static_cast<GeoFrame&>(result) = readGeoJson(file, limits, vertices, findings, keep);
  return result;
}

}  // namespace orivanta::importer

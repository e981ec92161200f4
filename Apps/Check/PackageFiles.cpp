#include "Apps/Check/PackageFiles.hpp"

#include <fmt/format.h>

#include <array>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/value.hpp>

#include "Apps/Server/PackageFile.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta::check {

namespace json = boost::json;

namespace {

std::optional<std::string_view> textOf(const json::value* value) {
  if (value == nullptr || !value->is_string()) return std::nullopt;
  return std::string_view(value->get_string().data(), value->get_string().size());
}

// Decides where a reference leads, as the server does.
enum class Target { elsewhere, file, nothing };

struct Resolved {
  Target target = Target::nothing;
  std::filesystem::path path;
};

Resolved resolve(const std::filesystem::path& folder, std::string_view reference) {
  if (reference.find("://") != std::string_view::npos || reference.starts_with("//"))
    return {Target::elsewhere, {}};
  const auto inside = server::pathInPackage(reference);
  const auto target = inside ? server::parseTarget("/" + *inside) : std::nullopt;
  if (!target) return {};
  std::error_code ignored;
  const auto root = std::filesystem::canonical(folder, ignored);
  if (!server::PackageFile::open(root, target->path, ignored)) return {};
  std::filesystem::path path = root;
  for (const std::string& segment : target->path) path /= segment;
  return {Target::file, path};
}

struct Reference {
  std::string_view field;
  std::string_view value;
  Severity severity;
  std::string_view rule;
  std::string_view effect;
};

class FileCheck {
 public:
  FileCheck(const PackageRecords& records, Findings& findings)
      : records_(records), findings_(findings) {}

  void checkPictures(const Record& record) {
    for (const std::string_view name : {"logo", "picture", "cover-image"}) {
      const json::value* picture = record.member(name);
      if (picture == nullptr) continue;
      if (const auto reference = textOf(picture)) checkPicture(record, name, *reference);
      if (!picture->is_object()) continue;
      for (const auto& [key, value] : picture->get_object())
        if (const auto reference = textOf(&value)) checkPicture(record, name, *reference);
    }
  }

  void checkScene(const Record& map) {
    const json::value* scene = map.member("scene");
    const json::object* members = scene != nullptr ? scene->if_object() : nullptr;
    const auto model = members != nullptr ? textOf(members->if_contains("obj")) : std::nullopt;
    if (!model) return addNoModel(map);
    check(map, {"scene", *model, Severity::violation, "model-missing",
                "The floor is not shown, and nothing on it can be tapped."});
    if (const auto library = textOf(members->if_contains("mtl")))
      check(map, {"scene", *library, Severity::warning, "materials-missing",
                  "All parts of the floor are white."});
    const json::value* images = members->if_contains("images");
    if (images == nullptr || !images->is_array()) return;
    for (const json::value& image : images->get_array())
      if (const auto url = identifierIn(image, "url"))
        check(map, {"scene", *url, Severity::warning, "texture-missing",
                    "Surfaces with this texture are drawn in one color."});
  }

 private:
  void checkPicture(const Record& record, std::string_view field, std::string_view reference) {
    check(record,
          {field, reference, Severity::warning, "picture-missing", "The picture is not shown."});
  }

  void check(const Record& record, const Reference& reference) {
    if (resolve(records_.folder(), reference.value).target != Target::nothing) return;
    Finding finding = records_.findingAbout(record, reference.severity, std::string(reference.rule),
                                            std::string(reference.field));
    finding.message =
        fmt::format("The file \"{}\" does not exist in the package.", reference.value);
    finding.effect = reference.effect;
    finding.advice =
        "Correct the path, which is relative to the folder of the package, or add the file.";
    findings_.add(std::move(finding));
  }

  void addNoModel(const Record& map) {
    Finding finding = records_.findingAbout(map, Severity::warning, "no-model", "scene");
    finding.message = "The floor has no model: no \"obj\" in \"scene\".";
    finding.effect = "The floor is not shown, and nothing on it can be tapped.";
    finding.advice =
        R"(Add a model: "scene": {"obj": "maps/ground.obj", "mtl": "maps/ground.mtl"}.)";
    findings_.add(std::move(finding));
  }

  const PackageRecords& records_;
  Findings& findings_;
};

}  // namespace

void checkFiles(const PackageRecords& records, Findings& findings) {
  FileCheck check(records, findings);
  for (const RecordKind kind : {RecordKind::venue, RecordKind::location, RecordKind::vortex})
    for (const Record& record : records[kind].records)
      if (record.kept) check.checkPictures(record);
  for (const Record& map : records[RecordKind::map].records)
    if (map.kept) check.checkScene(map);
}

std::optional<std::filesystem::path> modelOf(const PackageRecords& records, const Record& map) {
  const json::value* scene = map.member("scene");
  const auto reference = scene != nullptr ? identifierIn(*scene, "obj") : std::nullopt;
  if (!reference) return std::nullopt;
  Resolved resolved = resolve(records.folder(), *reference);
  if (resolved.target != Target::file) return std::nullopt;
  return std::move(resolved.path);
}

}  // namespace orivanta::check

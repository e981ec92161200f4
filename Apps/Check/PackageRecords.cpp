#include "Apps/Check/PackageRecords.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <utility>

#include "Apps/Server/JsonText.hpp"
#include "Apps/Text/JsonFault.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Source/RawData.hpp"

namespace orivanta::check {

namespace json = boost::json;

namespace {

constexpr std::size_t largestFile = 512U << 20U;
constexpr std::array<std::string_view, recordKindCount> fileNames = {
    "venue", "map", "location", "category", "node", "vortex", "polygon"};
constexpr std::array<std::string_view, recordKindCount> words = {
    "venue", "floor", "place", "category", "node", "connector", "polygon"};

// Numbers the lines of ascending positions in a text.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : text_(text) {}

  std::size_t lineAt(std::size_t position) {
    line_ += static_cast<std::size_t>(
        std::count(text_.begin() + static_cast<std::ptrdiff_t>(counted_),
                   text_.begin() + static_cast<std::ptrdiff_t>(position), '\n'));
    counted_ = position;
    return line_;
  }

 private:
  std::string_view text_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
};

void addFault(Findings& findings, RecordKind kind, std::string rule, std::string message,
              std::string advice, std::optional<std::size_t> line = std::nullopt) {
  Finding finding;
  finding.severity = Severity::violation;
  finding.rule = std::move(rule);
  finding.file = fmt::format("{}.json", nameOf(kind));
  finding.message = std::move(message);
  finding.effect = "The package cannot be served.";
  finding.advice = std::move(advice);
  finding.line = line;
  findings.add(std::move(finding));
}

void addFileFault(Findings& findings, RecordKind kind, const std::filesystem::path& file,
                  const std::string& reason) {
  const std::string name = fmt::format("{}.json", nameOf(kind));
  if (!std::filesystem::exists(file))
    return addFault(findings, kind, "file-missing", fmt::format("The file {} is missing.", name),
                    kind == RecordKind::venue
                        ? "Write it with the venue's \"id\", \"slug\" and \"name\"."
                        : "Write it; an empty list is [].");
  addFault(findings, kind, "file-unreadable",
           fmt::format("The file {} cannot be read: {}.", name, reason),
           "Check the file's type, permissions and size.");
}

void addJsonFault(Findings& findings, RecordKind kind, std::string_view text) {
  const text::JsonFault fault = text::jsonFault(text);
  const bool isComma = fault.reason.starts_with("a comma");
  addFault(findings, kind, isComma ? "trailing-comma" : "not-json",
           fmt::format("The file {}.json is not JSON: {}.", nameOf(kind), fault.description()),
           isComma ? "Remove this comma." : "Correct the text at this place.", fault.line);
}

bool hasShape(RecordKind kind, const json::value& value) {
  return kind == RecordKind::venue ? value.is_object() : value.is_array();
}

void addRecords(RecordKind kind, std::string_view text, RecordFile& file) {
  LineCounter lines(text);
  const auto add = [&](const json::value& value, std::size_t position) {
    file.records.push_back({kind, value.if_object(), file.records.size() + 1,
                            lines.lineAt(position), value.is_object()});
  };
  if (kind == RecordKind::venue) return add(*file.document, text.find('{'));
  const auto elements = server::jsonElements(text);
  const json::array& values = file.document->get_array();
  file.records.reserve(values.size());
  for (std::size_t index = 0; index < values.size(); ++index)
    add(values[index], static_cast<std::size_t>(elements[index].data() - text.data()));
}

}  // namespace

std::string_view nameOf(RecordKind kind) { return fileNames[static_cast<std::size_t>(kind)]; }

std::string_view wordFor(RecordKind kind) { return words[static_cast<std::size_t>(kind)]; }

const json::value* Record::member(std::string_view name) const {
  if (members == nullptr) return nullptr;
  const json::value* value = members->if_contains(json::string_view(name.data(), name.size()));
  return value == nullptr || value->is_null() ? nullptr : value;
}

std::optional<std::string_view> Record::text(std::string_view name) const {
  const json::value* value = member(name);
  if (value == nullptr || !value->is_string()) return std::nullopt;
  return std::string_view(value->get_string().data(), value->get_string().size());
}

std::optional<double> Record::numberIn(std::string_view name) const {
  const json::value* value = member(name);
  if (value == nullptr) return std::nullopt;
  if (value->is_bool()) return value->get_bool() ? 1.0 : 0.0;
  if (!value->is_number()) return std::nullopt;
  return value->to_number<double>();
}

std::string Record::label() const {
  if (const auto id = text("id"); id && !id->empty()) return std::string(*id);
  return fmt::format("record {}", number);
}

PackageRecords::PackageRecords(std::filesystem::path folder, Findings& findings)
    : folder_(std::move(folder)) {
  for (std::size_t index = 0; index < recordKindCount; ++index)
    read(static_cast<RecordKind>(index), findings);
}

const Record* PackageRecords::find(RecordKind kind, std::string_view id) const {
  const auto& byId = (*this)[kind].byId;
  const auto found = byId.find(id);
  return found == byId.end() ? nullptr : found->second;
}

void PackageRecords::read(RecordKind kind, Findings& findings) {
  RecordFile& file = (*this)[kind];
  const std::filesystem::path path = folder_ / fmt::format("{}.json", nameOf(kind));
  const auto contents = foundation::readFile(path, largestFile);
  if (!contents) {
    complete_ = false;
    return addFileFault(findings, kind, path, contents.error().description);
  }
  if (const auto data = RawData::parse(*contents)) file.document = data->data();
  if (!file.document) {
    complete_ = false;
    return addJsonFault(findings, kind, *contents);
  }
  if (!hasShape(kind, *file.document)) {
    complete_ = false;
    return addFault(findings, kind, "wrong-shape",
                    fmt::format("The file {}.json is not an {}.", nameOf(kind),
                                kind == RecordKind::venue ? "object" : "array"),
                    kind == RecordKind::venue ? "Write one object: {...}."
                                              : "Write an array of objects: [{...}, {...}].");
  }
  addRecords(kind, *contents, file);
  for (const Record& record : file.records)
    if (const auto id = record.text("id")) file.byId[*id] = &record;
}

const json::array& elementsOf(const Record& record, std::string_view member) {
  static const json::array none;
  const json::value* value = record.member(member);
  return value != nullptr && value->is_array() ? value->get_array() : none;
}

std::optional<std::string_view> identifierIn(const json::value& element, std::string_view key) {
  const json::value* value = &element;
  if (!key.empty()) {
    if (!element.is_object()) return std::nullopt;
    value = element.get_object().if_contains(json::string_view(key.data(), key.size()));
  }
  if (value == nullptr || !value->is_string()) return std::nullopt;
  return std::string_view(value->get_string().data(), value->get_string().size());
}

Finding PackageRecords::findingAbout(const Record& record, Severity severity, std::string rule,
                                     std::string field) const {
  Finding finding;
  finding.severity = severity;
  finding.rule = std::move(rule);
  finding.source = record.label();
  finding.file = fmt::format("{}.json", nameOf(record.kind));
  finding.field = std::move(field);
  finding.line = record.line;
  if (record.kind == RecordKind::map) finding.map = record.text("id").value_or("");
  if (record.kind == RecordKind::polygon) finding.map = record.text("map").value_or("");
  if (const Record* node = nodeOf(record)) {
    finding.map = node->text("map").value_or("");
    const auto x = node->numberIn("x");
    const auto y = node->numberIn("y");
    if (x && y) finding.position = Point{*x, *y};
  }
  return finding;
}

// Returns the record itself if it is a node, or the first known node that it refers to, or null.
const Record* PackageRecords::nodeOf(const Record& record) const {
  struct Reference {
    std::string_view member;
    std::string_view key;
  };
  if (record.kind == RecordKind::node) return &record;
  const Reference reference = record.kind == RecordKind::location  ? Reference{"nodes", "node"}
                              : record.kind == RecordKind::vortex  ? Reference{"nodes", ""}
                              : record.kind == RecordKind::polygon ? Reference{"entrances", "id"}
                                                                   : Reference{};
  for (const json::value& element : elementsOf(record, reference.member))
    if (const auto id = identifierIn(element, reference.key))
      if (const Record* node = find(RecordKind::node, *id)) return node;
  return nullptr;
}

}  // namespace orivanta::check

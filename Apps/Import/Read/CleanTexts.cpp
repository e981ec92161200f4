#include "Apps/Import/Read/CleanTexts.hpp"

#include <fmt/format.h>
#include <utf8proc.h>

#include <algorithm>
#include <map>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

bool isControl(unsigned char character) {
  return (character < 0x20 && character != '\t' && character != '\n' && character != '\r') ||
         character == 0x7F;
}

// Calls `replace(byte)` for each byte that is not part of a character or is a control character,
// and appends the result instead of it. Returns whether there was any.
template <class Replace>
bool replaceBytes(std::string& text, const Replace& replace) {
  if (std::all_of(text.begin(), text.end(), [](char character) {
        return static_cast<signed char>(character) >= 0 &&
               !isControl(static_cast<unsigned char>(character));
      }))
    return false;
  std::string clean;
  bool isChanged = false;
  for (std::size_t at = 0; at < text.size();) {
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at;
    utf8proc_int32_t character = 0;
    const auto length =
        utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &character);
    if (length > 0 && !isControl(*bytes)) {
      clean.append(text, at, static_cast<std::size_t>(length));
      at += static_cast<std::size_t>(length);
      continue;
    }
    isChanged = true;
    clean += replace(*bytes);
    ++at;
  }
  text = std::move(clean);
  return isChanged;
}

// Cleans the texts of one record after another.
class Cleaner {
 public:
  explicit Cleaner(Findings& findings) : findings_(findings) {}

  template <class Record>
  void cleanAll(std::vector<Record>& records) {
    for (Record& record : records) {
      example_.reset();
      clean(record);
      if (example_) report(record);
    }
  }

  void clean(Building& building) {
    example_.reset();
    id(building.id);
    names(building.names);
    for (std::string* each : {&building.language, &building.attribution, &building.license})
      text(*each);
    if (example_) report(Storey{building.id, {}, {}, {}, {}, {}, {}, {}});
  }

 private:
  void id(std::string& id) {
    if (replaceBytes(id, [](unsigned byte) { return fmt::format("%{:02X}", byte); })) note(id);
  }
  void ids(std::vector<std::string>& all) {
    for (std::string& each : all) id(each);
  }
  void text(std::string& text) {
    if (cleanText(text)) note(text);
  }
  void note(const std::string& text) {
    if (!example_) example_ = text;
  }

  void texts(std::map<std::string, std::string>& all) {
    std::map<std::string, std::string> clean;
    for (auto& [key, value] : all) {
      std::string own = key;
      text(own);
      text(value);
      clean.emplace(std::move(own), std::move(value));
    }
    all = std::move(clean);
  }
  void names(Names& names) {
    text(names.name);
    texts(names.byLanguage);
  }

  void clean(Storey& storey) {
    id(storey.id);
    names(storey.names);
    text(storey.shortName);
    text(storey.building);
  }
  void clean(Area& area) {
    for (std::string* each : {&area.id, &area.source, &area.place, &area.connector}) id(*each);
    names(area.names);
    text(area.category);
  }
  void clean(Door& door) {
    id(door.id);
    id(door.source);
    names(door.names);
    ids(door.areas);
  }
  void clean(Line& line) {
    id(line.id);
    id(line.source);
    ids(line.pointIds);
    names(line.names);
  }
  void clean(Place& place) {
    id(place.id);
    id(place.source);
    names(place.names);
    ids(place.areas);
    texts(place.description);
    for (std::string* each : {&place.category, &place.hours, &place.phone, &place.website})
      text(*each);
  }
  void clean(ConnectorHint& hint) {
    id(hint.id);
    id(hint.source);
    names(hint.names);
    ids(hint.areas);
    ids(hint.doors);
  }
  void clean(SourceNode& node) { id(node.id); }
  void clean(SourceLink& link) {
    for (std::string* each : {&link.id, &link.from, &link.to}) id(*each);
  }

  template <class Record>
  void report(const Record& record) {
    findings_.add(makeFinding(
        Severity::warning, "text-not-utf8", record.id,
        {fmt::format("The text \"{}\" contains bytes that are not UTF-8, or control characters.",
                     *example_),
         "They are replaced, so the text may be hard to read.",
         "Save the file in UTF-8, or write the text anew."}));
  }

  Findings& findings_;
  std::optional<std::string> example_;  // of the record that is being cleaned
};

}  // namespace

bool cleanText(std::string& text) {
  return replaceBytes(text, [](unsigned char byte) { return byte < 0x80 ? " " : "\xEF\xBF\xBD"; });
}

void cleanTexts(Building& building, Findings& findings) {
  Cleaner cleaner(findings);
  cleaner.clean(building);
  cleaner.cleanAll(building.storeys);
  cleaner.cleanAll(building.areas);
  cleaner.cleanAll(building.doors);
  cleaner.cleanAll(building.lines);
  cleaner.cleanAll(building.places);
  cleaner.cleanAll(building.connectorHints);
  cleaner.cleanAll(building.sourceNodes);
  cleaner.cleanAll(building.sourceLinks);
}

}  // namespace orivanta::importer

#include "Apps/Server/RecordCollection.hpp"

#include <algorithm>
#include <array>

#include "Apps/Server/JsonText.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Platform/Foundation/AsciiCase.hpp"

namespace orivanta::server {

namespace {

constexpr std::array<std::string_view, 8> renditions = {"xxsmall", "xsmall", "small",   "medium",
                                                        "large",   "xlarge", "xxlarge", "original"};

bool isRendition(std::string_view key) {
  return std::find(renditions.begin(), renditions.end(), key) != renditions.end();
}

bool isPicture(std::string_view key) {
  return key == "logo" || key == "picture" || key == "cover-image";
}

}  // namespace

// Appends one record and records its gaps.
class RecordCollection::Writer {
 public:
  Writer(RecordCollection& collection, std::string_view filesPath)
      : collection_(collection), text_(collection.text_), filesPath_(filesPath) {}

  void writeRecord(std::string_view record) {
    if (jsonKind(record) != JsonKind::object) return appendCompactJson(text_, record);
    const std::vector<JsonMember> members = jsonMembers(record);
    const std::vector<Name> names = namesOf(members);
    bool named = names.empty();
    writeMembers(members, [&](const JsonMember& member) {
      if (isPicture(member.key)) return writePicture(member.value);
      if (member.key == "scene") return writeScene(member.value);
      const std::size_t start = text_.size();
      appendCompactJson(text_, member.value);
      if (member.key != "name" || names.empty()) return;
      collection_.gaps_.push_back({start, text_.size() - start, names});
      named = true;
    });
    if (!named) addMissingName(names);
  }

 private:
  template <class WriteValue>
  void writeMembers(const std::vector<JsonMember>& members, const WriteValue& writeValue) {
    text_ += '{';
    for (const JsonMember& member : members) {
      if (&member != &members.front()) text_ += ',';
      text_ += member.keyText;
      text_ += ':';
      writeValue(member);
    }
    text_ += '}';
  }

  // The value is a string, or an object with a string for each size.
  void writePicture(std::string_view picture) {
    if (jsonKind(picture) != JsonKind::object) return writeReference(picture);
    writeMembers(jsonMembers(picture), [this](const JsonMember& member) {
      if (isRendition(member.key)) return writeReference(member.value);
      appendCompactJson(text_, member.value);
    });
  }

  void writeScene(std::string_view scene) {
    if (jsonKind(scene) != JsonKind::object) return appendCompactJson(text_, scene);
    writeMembers(jsonMembers(scene), [this](const JsonMember& member) {
      if (member.key == "obj" || member.key == "mtl") return writeReference(member.value);
      if (member.key == "images") return writeTextures(member.value);
      appendCompactJson(text_, member.value);
    });
  }

  void writeTextures(std::string_view textures) {
    if (jsonKind(textures) != JsonKind::array) return appendCompactJson(text_, textures);
    text_ += '[';
    const std::vector<std::string_view> elements = jsonElements(textures);
    for (const std::string_view& element : elements) {
      if (&element != &elements.front()) text_ += ',';
      writeTexture(element);
    }
    text_ += ']';
  }

  void writeTexture(std::string_view texture) {
    if (jsonKind(texture) != JsonKind::object) return appendCompactJson(text_, texture);
    writeMembers(jsonMembers(texture), [this](const JsonMember& member) {
      if (member.key == "url") return writeReference(member.value);
      appendCompactJson(text_, member.value);
    });
  }

  void writeReference(std::string_view value) {
    const bool isText = jsonKind(value) == JsonKind::text;
    const auto path = isText ? pathInPackage(jsonTextContent(value)) : std::nullopt;
    if (!path) return appendCompactJson(text_, value);
    text_ += '"';
    collection_.gaps_.push_back({text_.size(), 0, {}});
    collection_.dependsOnOrigin_ = true;
    text_ += filesPath_;
    text_ += *path;
    text_ += '"';
  }

  std::vector<Name> namesOf(const std::vector<JsonMember>& members) {
    std::vector<Name> names;
    for (const JsonMember& member : members) {
      if (member.key != "names") continue;
      names.clear();  // the last occurrence of a repeated key counts
      if (jsonKind(member.value) != JsonKind::object) continue;
      for (const JsonMember& name : jsonMembers(member.value))
        if (jsonKind(name.value) == JsonKind::text)
          names.push_back({collection_.languageNumber(name.key), std::string(name.value)});
    }
    return names;
  }

  // Adds a gap at the end of a record without a default name; it is filled if a language matches.
  void addMissingName(std::vector<Name> names) {
    for (Name& name : names) name.text.insert(0, R"(,"name":)");
    collection_.gaps_.push_back({text_.size() - 1, 0, std::move(names)});
  }

  RecordCollection& collection_;
  std::string& text_;
  std::string_view filesPath_;
};

void RecordCollection::append(std::string_view record, std::string_view filesPath) {
  starts_.push_back(text_.size());
  Writer(*this, filesPath).writeRecord(record);
  text_ += ',';
}

RecordCollection::Language RecordCollection::languageNumber(std::string_view tag) {
  std::string lower = foundation::asciiLowercased(std::string(tag));
  const auto [entry, isNew] = languageNumbers_.try_emplace(lower, languages_.size());
  if (isNew) languages_.push_back(std::move(lower));
  return entry->second;
}

std::vector<RecordCollection::Language> RecordCollection::languagesAmong(
    const std::vector<std::string>& tags) const {
  std::vector<Language> among;
  for (const std::string& tag : tags)
    if (const auto known = languageNumbers_.find(tag); known != languageNumbers_.end())
      among.push_back(known->second);
  return among;
}

std::string RecordCollection::page(std::size_t first, std::size_t count, std::string_view origin,
                                   const std::vector<Language>& preferred) const {
  if (first >= size() || count == 0) return "[]";
  const bool toTheEnd = count >= size() - first;
  const std::size_t end = (toTheEnd ? text_.size() : starts_[first + count]) - 1;
  std::size_t position = starts_[first];
  std::string page = "[";
  page.reserve(end - position + 2);
  auto gap = std::partition_point(gaps_.begin(), gaps_.end(), [&](const Gap& candidate) {
    return candidate.position < position;
  });
  for (; gap != gaps_.end() && gap->position < end; ++gap) {
    page.append(text_, position, gap->position - position);
    position = gap->position;
    std::string_view content = gap->names.empty() ? origin : std::string_view();
    for (const Language language : preferred) {
      const auto named = [&](const Name& name) { return name.language == language; };
      const auto name = std::find_if(gap->names.begin(), gap->names.end(), named);
      if (name == gap->names.end()) continue;
      content = name->text;
      break;
    }
    if (content.empty()) continue;
    page += content;
    position += gap->length;
  }
  page.append(text_, position, end - position);
  return page += ']';
}

}  // namespace orivanta::server

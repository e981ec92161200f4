// The records of a package for the check: read file by file, so that a fault in one of them does
// not hide those in the others.
#pragma once

#include <array>
#include <boost/json/object.hpp>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Apps/Import/Findings.hpp"

namespace orivanta::check {

using importer::Finding;
using importer::Findings;
using importer::Point;
using importer::Severity;

/// The files of a package that contain records.
enum class RecordKind { venue, map, location, category, node, vortex, polygon };

inline constexpr std::size_t recordKindCount = 7;

/// "venue", "map", ...: the name of the file without its ending.
std::string_view nameOf(RecordKind kind);

/// The word for one record in messages, such as "place".
std::string_view wordFor(RecordKind kind);

struct Record {
  RecordKind kind = RecordKind::venue;
  const boost::json::object* members = nullptr;  ///< null if the value is not an object
  std::size_t number = 0;                        ///< in its file, from 1
  std::size_t line = 0;                          ///< in its file, from 1
  bool kept = true;                              ///< clients keep the record

  /// The member, or null if it is missing or null.
  const boost::json::value* member(std::string_view name) const;
  /// The member if it is a string.
  std::optional<std::string_view> text(std::string_view name) const;
  /// The member as the loader reads numbers: true is 1 and false is 0.
  std::optional<double> numberIn(std::string_view name) const;
  /// The identifier, or "record 3" for one without.
  std::string label() const;
};

/// One file of records. The records point into `document`.
struct RecordFile {
  std::shared_ptr<const boost::json::value> document;  ///< null if it cannot be read
  std::vector<Record> records;
  /// The last record with each identifier, as in clients, kept or not.
  std::unordered_map<std::string_view, const Record*> byId;
};

class PackageRecords {
 public:
  /// Reads all files. Files that are missing or cannot be used are reported.
  PackageRecords(std::filesystem::path folder, Findings& findings);
  PackageRecords(const PackageRecords&) = delete;
  PackageRecords& operator=(const PackageRecords&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  RecordFile& operator[](RecordKind kind) { return files_[static_cast<std::size_t>(kind)]; }
  const RecordFile& operator[](RecordKind kind) const {
    return files_[static_cast<std::size_t>(kind)];
  }
  /// The last record with the identifier, or null.
  const Record* find(RecordKind kind, std::string_view id) const;
  /// A finding about a record, with its file, line and identifier. It has the position and the
  /// floor of the node, or of the first node of a place, a connector or a polygon.
  Finding findingAbout(const Record& record, Severity severity, std::string rule,
                       std::string field = {}) const;
  /// Whether all files could be read, so that references between them can be judged.
  bool complete() const { return complete_; }

 private:
  void read(RecordKind kind, Findings& findings);
  const Record* nodeOf(const Record& record) const;

  std::filesystem::path folder_;
  std::array<RecordFile, recordKindCount> files_;
  bool complete_ = true;
};

/// The elements of a member that is an array; empty for any other value.
const boost::json::array& elementsOf(const Record& record, std::string_view member);

/// The identifier in an element of a list: the element itself, or its member if `key` is not empty.
/// Nothing if it is not a string.
std::optional<std::string_view> identifierIn(const boost::json::value& element,
                                             std::string_view key);

}  // namespace orivanta::check

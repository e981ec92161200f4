// The members of records that the loader reads, with the kinds of their values.
#pragma once

#include <boost/json/value.hpp>
#include <span>
#include <string_view>

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

enum class ValueKind { text, number, boolean, list, object, picture };

struct Member {
  std::string_view name;
  ValueKind kind;
  bool required;
};

/// The members of records of this kind. Docs/package.schema.json has the same.
std::span<const Member> membersOf(RecordKind kind);

/// Whether the loader accepts the value as one of this kind. It accepts numbers as booleans and
/// booleans as numbers.
bool isOfKind(const boost::json::value& value, ValueKind kind);

/// The kind with an article, such as "a string".
std::string_view wordFor(ValueKind kind);

/// Reports members that are missing or of another kind, and sets `Record::kept` of records that
/// clients ignore because of it.
void checkMembers(PackageRecords& records, Findings& findings);

/// Reports identifiers that occur several times in a file.
void checkIdentifiers(const PackageRecords& records, Findings& findings);

}  // namespace orivanta::check

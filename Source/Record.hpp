// The common properties of all records: they are created by `make`, held by shared pointers and
// compared by identity.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Source/RawData.hpp"

namespace orivanta {

/// Keys of the members of a JSON object.
using RecordKeys = std::initializer_list<std::string_view>;

/// Restricts the constructors of records to `makeRecord`, the only function that can create a
/// token.
class RecordToken {
  RecordToken() = default;
  template <class Record>
  friend std::shared_ptr<Record> makeRecord(const RawData& data, RecordKeys texts,
                                            RecordKeys numbers);
};

/// Returns whether there is a string under each of the keys.
ORIVANTA_API bool hasTexts(const RawData& data, RecordKeys keys);

/// Returns whether there is a number under each of the keys.
ORIVANTA_API bool hasNumbers(const RawData& data, RecordKeys keys);

/// Creates a record. Returns null if a required string or number is missing or of the wrong kind.
/// These are checked first because exceptions for a million invalid elements would take seconds.
template <class Record>
std::shared_ptr<Record> makeRecord(const RawData& data, RecordKeys texts, RecordKeys numbers) {
  if (!hasTexts(data, texts) || !hasNumbers(data, numbers)) return nullptr;
  return std::make_shared<Record>(RecordToken(), data);
}

/// Returns a number that is unique among the existing records.
using IdentityHash = std::uintptr_t;

/// Returns the hash of a record's address.
inline IdentityHash identityHash(const void* record) {
  return reinterpret_cast<IdentityHash>(record);
}

}  // namespace orivanta

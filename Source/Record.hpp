// What all records have in common: they are built by `make`, held by shared handles and compared
// by identity.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>

#include "Source/RawData.hpp"

namespace orivanta {

/// Keys of members of a JSON object.
using RecordKeys = std::initializer_list<std::string_view>;

/// Proof that a record is being built by `makeRecord`, the only one who can create it.
class RecordToken {
  RecordToken() = default;
  template <class Record>
  friend std::shared_ptr<Record> makeRecord(const RawData& data, RecordKeys texts,
                                            RecordKeys numbers);
};

/// Whether there is a text under each of the keys.
bool hasTexts(const RawData& data, RecordKeys keys);

/// Whether there is a number under each of the keys.
bool hasNumbers(const RawData& data, RecordKeys keys);

/// The record, or null if a text or a number that it cannot do without is missing or of the wrong
/// kind. They are looked for first, because a million elements that form no record would take
/// seconds if each of them threw an exception.
template <class Record>
std::shared_ptr<Record> makeRecord(const RawData& data, RecordKeys texts, RecordKeys numbers) {
  if (!hasTexts(data, texts) || !hasNumbers(data, numbers)) return nullptr;
  return std::make_shared<Record>(RecordToken(), data);
}

/// A number that no other living record shares.
using IdentityHash = std::uintptr_t;

/// The hash of a record, of its address.
inline IdentityHash identityHash(const void* record) {
  return reinterpret_cast<IdentityHash>(record);
}

}  // namespace orivanta

// What all records have in common: they are built by `make`, held by shared handles and compared
// by identity.
#pragma once

#include <cstdint>
#include <memory>

#include "Source/RawData.hpp"

namespace orivanta {

/// Proof that a record is being built by `makeRecord`, the only one who can create it.
class RecordToken {
  RecordToken() = default;
  template <class Record>
  friend std::shared_ptr<Record> makeRecord(const RawData& data);
};

/// The record, or null when a field that it cannot do without is missing or of the wrong kind.
template <class Record>
std::shared_ptr<Record> makeRecord(const RawData& data) {
  try {
    return std::make_shared<Record>(RecordToken(), data);
  } catch (const RawDataError&) {
    return nullptr;
  }
}

/// A number that no other living record shares.
using IdentityHash = std::uintptr_t;

inline IdentityHash identityHash(const void* record) {
  return reinterpret_cast<IdentityHash>(record);
}

}  // namespace orivanta

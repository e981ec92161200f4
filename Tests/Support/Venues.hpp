// Real buildings to test on. They lie beside the project, not in it, and may be missing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Loading/VenueJoin.hpp"
#include "Source/RawData.hpp"

namespace orivanta::test {

/// The folder of venue packages: the variable ORIVANTA_VENUES of the environment, else
/// `../shared/venues` beside the project; nothing when there is none.
std::optional<std::filesystem::path> venuesFolder();

/// The names of the packages in the folder, sorted; empty without a folder.
std::vector<std::string> venueNames();

/// The whole file; "" when it cannot be read.
std::string contentsOf(const std::filesystem::path& file);

/// The records of a JSON list by identifier, as the web API would give them; empty when the text is
/// no JSON.
template <class Record>
Collection<Record> recordsIn(std::string_view json) {
  Collection<Record> records;
  const auto data = RawData::parse(json);
  if (!data) return records;
  for (const RawData& element : data->arrayValue())
    if (auto record = Record::make(element)) records.insert_or_assign(*record->id, record);
  return records;
}

/// The records of a package as the web API would give them, in the order of its files, not joined.
CollectionDictionary readPackage(const std::filesystem::path& package);

}  // namespace orivanta::test

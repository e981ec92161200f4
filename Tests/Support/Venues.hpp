// Real buildings to test with. They are stored next to the project and may be missing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Loading/VenueJoin.hpp"
#include "Source/RawData.hpp"

namespace orivanta::test {

/// The folder of venue packages: the environment variable ORIVANTA_VENUES, or else
/// `../shared/venues` next to the project. Returns nothing if there is none.
std::optional<std::filesystem::path> venuesFolder();

/// The sorted names of the packages in the folder; empty if there is no folder.
std::vector<std::string> venueNames();

/// The contents of a file; "" if it cannot be read.
std::string contentsOf(const std::filesystem::path& file);

/// The records of a JSON list by identifier, as from the web API; empty if the text is not JSON.
template <class Record>
Collection<Record> recordsIn(std::string_view json) {
  Collection<Record> records;
  const auto data = RawData::parse(json);
  if (!data) return records;
  for (const RawData& element : data->arrayValue())
    if (auto record = Record::make(element)) records.insert_or_assign(*record->id, record);
  return records;
}

/// The records of a package as from the web API, in the order of its files, without joining them.
CollectionDictionary readPackage(const std::filesystem::path& package);

}  // namespace orivanta::test

// The approximate memory of a record and its entry in a collection, without its JSON.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Source/Category.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

/// The bytes that a collection adds per record: the pair of key and handle, twice while the
/// collection grows, a bucket, and the reference counts.
constexpr std::size_t collectionEntryBytes = 160;

/// Returns the bytes that a text uses outside its object.
inline std::size_t memoryOf(const std::string& text) {
  constexpr std::size_t kept = 15;  // characters stored inside the object
  constexpr std::size_t heapBytes = 24;
  return text.size() <= kept ? 0 : text.size() + heapBytes;
}

inline std::size_t memoryOf(const std::optional<std::string>& text) {
  return text ? memoryOf(*text) : 0;
}

inline std::size_t memoryOf(const std::optional<foundation::Url>& url) {
  return url ? memoryOf(url->absoluteString()) : 0;
}

inline std::size_t memoryOf(const std::shared_ptr<const ImageCollection>& images) {
  return images ? images->memory() : 0;
}

// The bytes that a record uses in addition to its object and its identifiers.

inline std::size_t contentsOf(const Node&) { return 0; }
inline std::size_t contentsOf(const Polygon&) { return 0; }
inline std::size_t contentsOf(const Category& category) { return memoryOf(category.name); }
inline std::size_t contentsOf(const Map& map) {
  return memoryOf(map.name) + memoryOf(map.shortName) + memoryOf(map.obj) + memoryOf(map.mtl);
}
inline std::size_t contentsOf(const Location& location) {
  return memoryOf(location.name) + memoryOf(location.type) + memoryOf(location.description) +
         memoryOf(location.logo) + memoryOf(location.picture);
}
inline std::size_t contentsOf(const Venue& venue) {
  return memoryOf(venue.slug) + memoryOf(venue.name) + memoryOf(venue.logo) +
         memoryOf(venue.coverImage);
}

template <class Record>
std::size_t memoryOfRecord(const Record& record) {
  return sizeof(Record) + collectionEntryBytes + 2 * memoryOf(record.id) + contentsOf(record);
}

}  // namespace orivanta

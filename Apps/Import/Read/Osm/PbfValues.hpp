// The values that the objects in blocks of .osm.pbf files are made of. Private to the reader of
// blocks.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <protozero/pbf_reader.hpp>
#include <string_view>
#include <vector>

#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer::pbf {

inline std::string_view viewOf(protozero::data_view data) { return {data.data(), data.size()}; }

// Readers of values require their type, which a damaged block may not have.
inline bool isBytes(const protozero::pbf_reader& reader, protozero::pbf_tag_type tag) {
  return reader.tag() == tag && reader.has_wire_type(protozero::pbf_wire_type::length_delimited);
}

inline bool isNumber(const protozero::pbf_reader& reader, protozero::pbf_tag_type tag) {
  return reader.tag() == tag && reader.has_wire_type(protozero::pbf_wire_type::varint);
}

// What all objects of a block share.
struct Block {
  std::vector<std::string_view> strings;
  std::int64_t granularity = 100;
  std::int64_t latitudeOffset = 0;
  std::int64_t longitudeOffset = 0;

  std::string_view string(std::size_t index) const {
    return index < strings.size() ? strings[index] : std::string_view();
  }
  // Degrees of a position as a block stores it. Doubles hold it exactly enough, and cannot
  // overflow.
  double latitude(std::int64_t stored) const {
    return 1e-9 * (static_cast<double>(latitudeOffset) +
                   static_cast<double>(granularity) * static_cast<double>(stored));
  }
  double longitude(std::int64_t stored) const {
    return 1e-9 * (static_cast<double>(longitudeOffset) +
                   static_cast<double>(granularity) * static_cast<double>(stored));
  }
};

// Adds up differences; hostile ones wrap around.
class Sum {
 public:
  std::int64_t add(std::int64_t difference) {
    sum_ += static_cast<std::uint64_t>(difference);
    return static_cast<std::int64_t>(sum_);
  }

 private:
  std::uint64_t sum_ = 0;
};

template <class Range>
std::vector<std::int64_t> sums(const Range& differences) {
  std::vector<std::int64_t> result;
  Sum sum;
  for (const auto difference : differences) result.push_back(sum.add(difference));
  return result;
}

template <class Range>
auto takeFirst(Range& range) {
  if (range.empty()) throw protozero::end_of_buffer_exception();
  const auto value = *range.begin();
  range.drop_front();
  return value;
}

// The members that nodes, ways and relations have in common. Returns false for a member of another
// kind.
struct Common {
  std::int64_t id = 0;
  std::vector<std::size_t> keys;
  std::vector<std::size_t> values;
  bool isVisible = true;

  bool read(protozero::pbf_reader& reader, bool isNode) {
    if (isNumber(reader, 1)) {
      id = isNode ? reader.get_sint64() : reader.get_int64();
    } else if (isBytes(reader, 2)) {
      for (const auto key : reader.get_packed_uint32()) keys.push_back(key);
    } else if (isBytes(reader, 3)) {
      for (const auto value : reader.get_packed_uint32()) values.push_back(value);
    } else if (isBytes(reader, 4)) {
      protozero::pbf_reader info = reader.get_message();
      while (info.next(6, protozero::pbf_wire_type::varint)) isVisible = info.get_int32() != 0;
    } else {
      return false;
    }
    return true;
  }

  OsmTags tags(const Block& block) const {
    OsmTags tags;
    for (std::size_t i = 0; i < std::min(keys.size(), values.size()); ++i)
      tags.add(block.string(keys[i]), block.string(values[i]));
    return tags;
  }
};

}  // namespace orivanta::importer::pbf

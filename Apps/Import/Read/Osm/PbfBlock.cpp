#include "Apps/Import/Read/Osm/PbfBlock.hpp"

#include <algorithm>
#include <cstdint>
#include <protozero/pbf_reader.hpp>
#include <utility>
#include <vector>

#include "Apps/Import/Read/Osm/PbfValues.hpp"

namespace orivanta::importer {

namespace {

using pbf::Block;
using pbf::Common;
using pbf::isBytes;
using pbf::isNumber;
using pbf::Sum;
using pbf::sums;
using pbf::takeFirst;
using protozero::pbf_reader;

void addNode(pbf_reader reader, const Block& block, OsmData& data) {
  Common common;
  std::int64_t latitude = 0;
  std::int64_t longitude = 0;
  while (reader.next()) {
    if (common.read(reader, true)) continue;
    if (isNumber(reader, 8))
      latitude = reader.get_sint64();
    else if (isNumber(reader, 9))
      longitude = reader.get_sint64();
    else
      reader.skip();
  }
  if (common.isVisible)
    data.addNode(common.id, block.longitude(longitude), block.latitude(latitude),
                 common.tags(block));
}

void addDenseNodes(pbf_reader reader, const Block& block, OsmData& data) {
  protozero::iterator_range<pbf_reader::const_sint64_iterator> ids;
  protozero::iterator_range<pbf_reader::const_sint64_iterator> latitudes;
  protozero::iterator_range<pbf_reader::const_sint64_iterator> longitudes;
  protozero::iterator_range<pbf_reader::const_int32_iterator> strings;
  protozero::iterator_range<pbf_reader::const_bool_iterator> visible;
  while (reader.next()) {
    if (isBytes(reader, 1)) {
      ids = reader.get_packed_sint64();
    } else if (isBytes(reader, 5)) {
      pbf_reader info = reader.get_message();
      while (info.next(6, protozero::pbf_wire_type::length_delimited))
        visible = info.get_packed_bool();
    } else if (isBytes(reader, 8)) {
      latitudes = reader.get_packed_sint64();
    } else if (isBytes(reader, 9)) {
      longitudes = reader.get_packed_sint64();
    } else if (isBytes(reader, 10)) {
      strings = reader.get_packed_int32();
    } else {
      reader.skip();
    }
  }
  Sum id;
  Sum latitude;
  Sum longitude;
  while (!ids.empty()) {
    const std::int64_t number = id.add(takeFirst(ids));
    const std::int64_t south = latitude.add(takeFirst(latitudes));
    const std::int64_t east = longitude.add(takeFirst(longitudes));
    const bool isVisible = visible.empty() || takeFirst(visible) != 0;
    OsmTags tags;
    // The keys and values of all nodes follow each other; a zero ends those of one node.
    while (!strings.empty()) {
      const auto key = static_cast<std::size_t>(takeFirst(strings));
      if (key == 0) break;
      tags.add(block.string(key), block.string(static_cast<std::size_t>(takeFirst(strings))));
    }
    if (isVisible)
      data.addNode(number, block.longitude(east), block.latitude(south), std::move(tags));
  }
}

void addWay(pbf_reader reader, const Block& block, OsmData& data) {
  Common common;
  OsmWay way;
  std::vector<std::int64_t> latitudes;
  std::vector<std::int64_t> longitudes;
  while (reader.next()) {
    if (common.read(reader, false)) continue;
    if (isBytes(reader, 8))
      way.nodes = sums(reader.get_packed_sint64());
    else if (isBytes(reader, 9))
      latitudes = sums(reader.get_packed_sint64());
    else if (isBytes(reader, 10))
      longitudes = sums(reader.get_packed_sint64());
    else
      reader.skip();
  }
  // Files without untagged nodes carry the positions here.
  for (std::size_t i = 0; i < std::min({way.nodes.size(), latitudes.size(), longitudes.size()});
       ++i)
    data.addNode(way.nodes[i], block.longitude(longitudes[i]), block.latitude(latitudes[i]), {});
  way.id = common.id;
  way.tags = common.tags(block);
  if (common.isVisible) data.addWay(std::move(way));
}

void addRelation(pbf_reader reader, const Block& block, OsmData& data) {
  Common common;
  std::vector<std::size_t> roles;
  std::vector<std::int64_t> ids;
  std::vector<OsmType> types;
  while (reader.next()) {
    if (common.read(reader, false)) continue;
    if (isBytes(reader, 8))
      for (const auto role : reader.get_packed_int32())
        roles.push_back(static_cast<std::size_t>(role));
    else if (isBytes(reader, 9))
      ids = sums(reader.get_packed_sint64());
    else if (isBytes(reader, 10))
      for (const auto type : reader.get_packed_enum())
        types.push_back(type == 0 ? OsmType::node : type == 1 ? OsmType::way : OsmType::relation);
    else
      reader.skip();
  }
  OsmRelation relation{common.id, {}, common.tags(block)};
  for (std::size_t i = 0; i < std::min({roles.size(), ids.size(), types.size()}); ++i)
    relation.members.push_back({ids[i], types[i], block.string(roles[i]) == "inner"});
  if (common.isVisible) data.addRelation(std::move(relation));
}

void addGroup(pbf_reader reader, const Block& block, OsmData& data) {
  while (reader.next()) {
    if (isBytes(reader, 1))
      addNode(reader.get_message(), block, data);
    else if (isBytes(reader, 2))
      addDenseNodes(reader.get_message(), block, data);
    else if (isBytes(reader, 3))
      addWay(reader.get_message(), block, data);
    else if (isBytes(reader, 4))
      addRelation(reader.get_message(), block, data);
    else
      reader.skip();
  }
}

}  // namespace

void addPbfBlock(std::string_view bytes, OsmData& data) {
  Block block;
  std::vector<pbf_reader> groups;
  pbf_reader reader(bytes.data(), bytes.size());
  while (reader.next()) {
    if (isBytes(reader, 1)) {
      pbf_reader table = reader.get_message();
      while (table.next(1, protozero::pbf_wire_type::length_delimited))
        block.strings.push_back(pbf::viewOf(table.get_view()));
    } else if (isBytes(reader, 2)) {
      groups.push_back(reader.get_message());
    } else if (isNumber(reader, 17)) {
      block.granularity = reader.get_int32();
    } else if (isNumber(reader, 19)) {
      block.latitudeOffset = reader.get_int64();
    } else if (isNumber(reader, 20)) {
      block.longitudeOffset = reader.get_int64();
    } else {
      reader.skip();
    }
  }
  for (const pbf_reader& group : groups) addGroup(group, block, data);
}

}  // namespace orivanta::importer

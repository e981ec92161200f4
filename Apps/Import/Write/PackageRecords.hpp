// The records of an imported building, as in the files of its package.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include "Apps/Import/PackageLayout.hpp"

namespace orivanta::importer {

/// See Docs/PackageFormat.md for the members.
struct PackageRecords {
  boost::json::object venue;
  boost::json::array maps;
  boost::json::array categories;
  boost::json::array locations;
  boost::json::array nodes;
  boost::json::array vortices;
  boost::json::array polygons;
};

PackageRecords makeRecords(const PackageLayout& layout);

}  // namespace orivanta::importer

// The records of an imported building, as in the files of its package.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <functional>
#include <string_view>

#include "Apps/Import/PackageLayout.hpp"

namespace orivanta::importer {

/// Takes the contents of a file such as "node.json": an array of records, or a single record.
using UseRecords = std::function<void(std::string_view file, const boost::json::value& records)>;

/// Makes the records that Docs/PackageFormat.md describes and passes them to `use`, one file after
/// another, so that those of all files are not in memory together. Returns those of the categories.
boost::json::array makeRecords(const PackageLayout& layout, const UseRecords& use);

}  // namespace orivanta::importer

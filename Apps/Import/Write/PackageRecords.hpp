// The records of an imported building, as in the files of its package.
#pragma once

#include <boost/json/array.hpp>
#include <functional>
#include <string_view>

#include "Apps/Import/PackageLayout.hpp"

namespace orivanta::importer {

/// Takes the contents of a file such as "node.json".
using UseRecords = std::function<void(std::string_view file, std::string_view text)>;

/// Makes the records that Docs/PackageFormat.md describes and passes them to `use`, one file after
/// another. Only the text of one file is in memory at a time. Returns those of the categories.
boost::json::array makeRecords(const PackageLayout& layout, const UseRecords& use);

}  // namespace orivanta::importer

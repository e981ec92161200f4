// Writes the records of a venue package as JSON.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <string>

namespace orivanta::package {

/// Returns the value on one line. Numbers are in short decimal form and read back as the same
/// double. Members keep their order.
std::string jsonLine(const boost::json::value& value);

/// Returns an array with one record per line.
std::string jsonLines(const boost::json::array& records);

}  // namespace orivanta::package

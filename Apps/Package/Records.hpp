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

/// Makes the same text of one record after another, which need not be in memory together.
class RecordLines {
 public:
  void add(const boost::json::value& record);

  /// Returns the text. Call it once, after the last record.
  std::string finish();

 private:
  std::string text_ = "[\n";
  bool isEmpty_ = true;
};

}  // namespace orivanta::package

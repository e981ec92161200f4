// The error of a source that cannot be read at all.
#pragma once

#include <stdexcept>

namespace orivanta::importer {

/// The message names the file, the place in it, the cause and the next step, such as
/// "mall.zip: no level.geojson; is this an IMDF archive?".
class SourceError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace orivanta::importer

// Describes why a text is not the JSON that the loader reads, and where.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orivanta::text {

struct JsonFault {
  std::string reason;                 ///< without a final period
  std::optional<std::size_t> line;    ///< from 1; missing if the fault has no position
  std::optional<std::size_t> column;  ///< in bytes, from 1

  /// The reason with the position, such as "a comma before a closing bracket at line 3, column 5".
  std::string description() const;
};

/// Describes the fault of a text that `RawData::parse` has rejected.
JsonFault jsonFault(std::string_view text);

}  // namespace orivanta::text

// The page of a collection that a request selects, and links to other pages.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Apps/Server/UrlText.hpp"

namespace orivanta::server {

/// Pages are counted from 1. An empty collection has one page without records.
struct Paging {
  std::size_t page = 1;  ///< may be beyond the last page
  std::size_t pageSize = 1;
  std::size_t pageCount = 1;

  /// Reads the query parameters `page` and `per-page`, which default to 1 and `defaultSize`. The
  /// page size is limited to the larger of `largestSize` and `defaultSize`. Returns nothing if a
  /// parameter is not a number or is 0.
  static std::optional<Paging> parse(const Target& target, std::size_t recordCount,
                                     std::size_t defaultSize, std::size_t largestSize);

  /// The index of the first record of the page.
  std::size_t firstRecord() const { return (page - 1) * pageSize; }
};

/// The value of a Link header (RFC 8288) with absolute URLs of the next, previous, first and last
/// page at the target's path. Their queries consist of `query` (encoded, without "?"), the page
/// size if the target has one, and the page. Other query parameters are dropped, because they could
/// make the header too long. No URL contains a comma or a semicolon if `query` contains none.
std::string linkHeader(std::string_view origin, const Target& target, std::string_view query,
                       const Paging& paging);

}  // namespace orivanta::server

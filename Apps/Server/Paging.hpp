// Which page of a collection a request asks for, and the way to the others.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Apps/Server/UrlText.hpp"

namespace orivanta::server {

/// Pages are counted from 1. An empty collection has one page, without records.
struct Paging {
  std::size_t page = 1;  ///< may lie beyond the last
  std::size_t pageSize = 1;
  std::size_t pageCount = 1;

  /// From the query items `page` and `per-page`, which default to 1 and `defaultSize`; a size
  /// beyond `largestSize` and the default counts as the larger of these. Nothing when one of them
  /// is no number or 0.
  static std::optional<Paging> parse(const Target& target, std::size_t recordCount,
                                     std::size_t defaultSize, std::size_t largestSize);

  /// The index of the first record of the page.
  std::size_t firstRecord() const { return (page - 1) * pageSize; }
};

/// The value of a Link header (RFC 8288) with absolute URLs of the next, previous, first and last
/// page at the target's path. Their query is `query`, encoded and without "?", the page size if the
/// target names one, and the page: what else a client sends could make the header too long. No URL
/// holds a comma or a semicolon if `query` holds none.
std::string linkHeader(std::string_view origin, const Target& target, std::string_view query,
                       const Paging& paging);

}  // namespace orivanta::server

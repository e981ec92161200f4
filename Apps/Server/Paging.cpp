#include "Apps/Server/Paging.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace orivanta::server {

namespace {

// Parses a positive decimal number. A number that is too large becomes the maximum.
std::optional<std::size_t> parsePositive(std::string_view text) {
  constexpr std::size_t largest = std::numeric_limits<std::size_t>::max();
  std::size_t number = 0;
  for (const char character : text) {
    if (character < '0' || character > '9') return std::nullopt;
    const auto digit = static_cast<std::size_t>(character - '0');
    number = number > (largest - digit) / 10 ? largest : number * 10 + digit;
  }
  return number == 0 ? std::nullopt : std::optional<std::size_t>(number);
}

}  // namespace

std::optional<Paging> Paging::parse(const Target& target, std::size_t recordCount,
                                    std::size_t defaultSize, std::size_t largestSize) {
  const auto page = parsePositive(target.queryValue("page").value_or("1"));
  const auto size =
      parsePositive(target.queryValue("per-page").value_or(std::to_string(defaultSize)));
  if (!page || !size) return std::nullopt;
  Paging paging{*page, std::min(*size, std::max(defaultSize, largestSize))};
  const std::size_t started = recordCount % paging.pageSize == 0 ? 0 : 1;
  paging.pageCount = std::max<std::size_t>(1, recordCount / paging.pageSize + started);
  return paging;
}

std::string linkHeader(std::string_view origin, const Target& target, std::string_view query,
                       const Paging& paging) {
  std::string url(origin);
  for (const std::string& segment : target.path) url += '/' + percentEncoded(segment);
  url += '?';
  if (!query.empty()) url += fmt::format("{}&", query);
  if (target.queryValue("per-page")) url += fmt::format("per-page={}&", paging.pageSize);
  std::string header;
  const auto add = [&](std::size_t page, std::string_view relation) {
    if (!header.empty()) header += ", ";
    header += fmt::format("<{}page={}>; rel=\"{}\"", url, page, relation);
  };
  if (paging.page < paging.pageCount) add(paging.page + 1, "next");
  if (paging.page > 1) add(paging.page - 1, "prev");
  add(1, "first");
  add(paging.pageCount, "last");
  return header;
}

}  // namespace orivanta::server

#include "Platform/Foundation/UriResolution.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Ip6.hpp"
#include "Platform/Foundation/UriText.hpp"

namespace orivanta::foundation {

namespace {

// The segments of a path. The first one of an absolute path follows its first slash.
std::vector<std::string_view> segmentsWithoutDots(std::string_view path) {
  std::vector<std::string_view> segments;
  for (bool isLast = false; !isLast;) {
    isLast = !uriText::contains(path, '/');
    const std::string_view segment = uriText::takeUpTo('/', path);
    if (segment != "." && segment != "..") {
      segments.push_back(segment);
    } else if (!segments.empty()) {
      if (segment == "..") segments.pop_back();
      if (isLast) segments.emplace_back();  // the path ends with a slash
    }
  }
  return segments;
}

std::string withoutDots(std::string_view path) {
  const std::string_view start = path.substr(0, path.starts_with('/') ? 1 : 0);
  path.remove_prefix(start.size());
  return fmt::format("{}{}", start, fmt::join(segmentsWithoutDots(path), "/"));
}

// Returns the path that the relative path of a reference leads to.
std::string merged(const UriParts& base, std::string_view path) {
  std::string whole(base.path.substr(0, base.path.rfind('/') + 1));
  if (base.authority && whole.empty()) whole = "/";
  whole += path;
  const std::string_view start(whole.starts_with('/') ? "/" : "");
  auto segments = segmentsWithoutDots(std::string_view(whole).substr(start.size()));
  // Would otherwise begin with "//" or, after a scheme and an absolute path, with an empty segment.
  const std::size_t emptyOnes = base.authority || start.empty() ? 2 : 1;
  if (segments.size() >= emptyOnes &&
      std::all_of(segments.begin(), segments.begin() + static_cast<std::ptrdiff_t>(emptyOnes),
                  [](std::string_view segment) { return segment.empty(); }))
    segments.insert(segments.begin(), ".");
  return fmt::format("{}{}", start, fmt::join(segments, "/"));
}

std::string authorityText(const UriParts& parts) {
  const std::string_view text = *parts.authority;
  const auto groups = readIp6(parts.host);
  if (!groups) return std::string(text);
  const std::size_t start = text.find('[') + 1;
  return fmt::format("{}{:04x}{}", text.substr(0, start), fmt::join(*groups, ":"),
                     text.substr(start + parts.host.size()));
}

}  // namespace

std::string resolveUri(const UriParts& reference, const UriParts& base) {
  const bool hasOwnPath = reference.authority || !reference.path.empty();
  const UriParts& host = reference.authority ? reference : base;
  const auto query = hasOwnPath || reference.query ? reference.query : base.query;
  std::string result = std::string(base.scheme) + ':';
  if (host.authority) result += "//" + authorityText(host);
  if (!hasOwnPath)
    result += base.path;
  else if (reference.authority || reference.path.starts_with('/'))
    result += withoutDots(reference.path);
  else
    result += merged(base, reference.path);
  if (query) result += '?' + std::string(*query);
  if (reference.fragment) result += '#' + std::string(*reference.fragment);
  return result;
}

}  // namespace orivanta::foundation

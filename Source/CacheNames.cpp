#include "Source/CacheNames.hpp"

#include <fmt/format.h>

#include "Platform/Foundation/AsciiCase.hpp"
#include "Platform/Foundation/Fnv.hpp"

namespace orivanta {

using foundation::asciiLowercased;
using foundation::Fnv;

namespace {

constexpr std::size_t longestName = 255;

}  // namespace

std::string cacheFileName(const std::string& name) {
  const bool proper = !name.empty() && name != "." && name != ".." && name.size() <= longestName &&
                      name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
  return proper ? name : fmt::format("%{:016x}", Fnv::of(name));
}

std::string visibleCacheName(const std::string& name) {
  return name.starts_with('.') ? fmt::format("%{:016x}", Fnv::of(name)) : cacheFileName(name);
}

std::string defaultPort(const foundation::Url& url) {
  const std::string scheme = asciiLowercased(url.scheme());
  if (scheme == "http") return "80";
  return scheme == "https" ? "443" : "";
}

std::string cacheServerName(const foundation::Url& url) {
  const std::string port = url.port();
  return fmt::format("{}-{}-{}", asciiLowercased(url.scheme()), asciiLowercased(url.host()),
                     port.empty() ? defaultPort(url) : port);
}

std::string cacheFolder(const foundation::Url& url, std::string_view slug) {
  return cacheFileName(cacheServerName(url)) + '/' + visibleCacheName(std::string(slug));
}

}  // namespace orivanta

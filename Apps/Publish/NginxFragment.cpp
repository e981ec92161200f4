#include "Apps/Publish/NginxFragment.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <string_view>

#include "Apps/Server/ContentPolicies.hpp"

namespace orivanta::publish {

namespace {

std::string escapedForRegex(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (character == '.' || character == '-') result += '\\';
    result += character;
  }
  return result;
}

// The longest first, so that "de-at" is found before "de".
std::vector<std::string> longestFirst(std::vector<std::string> languages) {
  std::stable_sort(languages.begin(), languages.end(), [](const auto& first, const auto& second) {
    return first.size() > second.size();
  });
  return languages;
}

// A map from the Accept-Language header to one of the languages. Each pattern skips the elements of
// the header that name no available language or have the weight 0.
std::string languageMap(std::string_view variable, const std::vector<std::string>& languages) {
  std::string text =
      fmt::format("map $http_accept_language ${} {{\n  default default;\n", variable);
  const std::vector<std::string> ordered = longestFirst(languages);
  // What follows a language in its element: subtags, and no weight of 0.
  static constexpr std::string_view rest =
      R"((?:-[a-z0-9-]*)?\s*(?:,|$|;(?!\s*q=0(?:\.0*)?\s*(?:,|$))))";
  for (const std::string& language : ordered)
    text += fmt::format("  \"~*^(?:\\s*+(?!(?:{0}){1})[^,]*,)*\\s*+{2}{1}\" {2};\n",
                        fmt::join(ordered, "|"), rest, language);
  return text + "}\n";
}

bool allowsAny(const server::CrossOrigin& crossOrigin) {
  return crossOrigin.allowsAll() || !crossOrigin.origins().empty();
}

// The variables for `crossOriginHeaders`. They are empty for an origin that is not allowed, and
// nginx omits headers without a value.
std::string crossOriginMaps(const server::CrossOrigin& crossOrigin) {
  if (!allowsAny(crossOrigin)) return {};
  std::string text = "map $http_origin $orivanta_allowed_origin {\n";
  if (crossOrigin.allowsAll()) {
    text += "  default *;\n";
  } else {
    for (const std::string& origin : crossOrigin.origins())
      text += fmt::format("  \"{0}\" \"{0}\";\n", origin);
  }
  return text + fmt::format(R"(}}
map $orivanta_allowed_origin $orivanta_exposed_headers {{
  default "{}";
  "" "";
}}
map "$request_method $http_origin $orivanta_allowed_origin" $orivanta_preflight {{
  "~^OPTIONS \S+ \S" 1;
}}
)",
                            server::CrossOrigin::exposedHeaders);
}

// Headers that are set within "if" replace those of the location.
std::string crossOriginHeaders(const server::CrossOrigin& crossOrigin) {
  if (!allowsAny(crossOrigin)) return {};
  const auto headers = [&](std::string_view indent) {
    return fmt::format(
        "{0}add_header Access-Control-Allow-Origin $orivanta_allowed_origin always;\n"
        "{1}",
        indent,
        crossOrigin.allowsAll() ? std::string()
                                : fmt::format("{}add_header Vary Origin always;\n", indent));
  };
  return fmt::format(
      R"({}  add_header Access-Control-Expose-Headers $orivanta_exposed_headers always;
  if ($orivanta_preflight) {{
{}    add_header Access-Control-Allow-Methods "GET, HEAD";
    add_header Access-Control-Allow-Headers $http_access_control_request_headers;
    add_header Access-Control-Max-Age 86400;
    return 204;
  }}
)",
      headers("  "), headers("    "));
}

}  // namespace

std::string nginxMaps(const std::vector<PublishedVenue>& venues,
                      const std::vector<std::string>& listLanguages,
                      const server::CrossOrigin& crossOrigin) {
  std::string text = "# Written by `orivanta publish`. Include it in the http block.\n";
  text += crossOriginMaps(crossOrigin);
  text += languageMap("orivanta_list_language", listLanguages);
  std::map<std::vector<std::string>, std::string> variables;  // venues with equal languages share
  std::string folders = "map $arg_venue $orivanta_venue {\n  default \"\";\n";
  for (const PublishedVenue& venue : venues) {
    const auto [entry, isNew] = variables.try_emplace(
        venue.languages, fmt::format("orivanta_language_{}", variables.size()));
    if (isNew) text += languageMap(entry->second, venue.languages);
    folders += fmt::format("  \"~^{}$\" \"{}/${}\";\n", escapedForRegex(venue.slug), venue.slug,
                           entry->second);
  }
  // A header without a value is not sent.
  text += fmt::format("map $uri $orivanta_file_policy {{\n  \"~*\\.svg$\" \"{}\";\n}}\n",
                      server::picturePolicy);
  return text + folders + "}\n";
}

std::string nginxLocations(const std::vector<PublishedVenue>& venues, const std::string& path,
                           const server::CrossOrigin& crossOrigin) {
  const std::string common = crossOriginHeaders(crossOrigin) + R"(  default_type application/json;
  gzip_static on;
  gzip_vary on;
  add_header Cache-Control no-cache;
)";
  std::vector<std::string> folders = {"1/files"};
  for (const PublishedVenue& venue : venues) folders.push_back(escapedForRegex(venue.slug));
  return fmt::format(
      R"(# Written by `orivanta publish`. Include it in a server block with `root FOLDER;`.
location = {0}/1/venue {{
{1}  add_header Vary Accept-Language;
  try_files /1/venues/$orivanta_list_language =404;
}}
location ~ ^{2}/1/(?<orivanta_collection>map|location|category|node|vortex|polygon|closure)$ {{
{1}  add_header Vary Accept-Language;
  if ($orivanta_venue = "") {{
    return 404 '{{"error":{{"status":404,"message":"The query must contain venue=SLUG of a venue."}}}}';
  }}
  try_files /$orivanta_venue/1/$orivanta_collection =404;
}}
location ~ ^{2}(?<orivanta_file>/(?:{3})/.+)$ {{
{1}  add_header Content-Security-Policy $orivanta_file_policy always;
  add_header X-Content-Type-Options nosniff always;
  types {{
    application/json json;
    model/obj obj;
    model/mtl mtl;
    image/png png;
    image/jpeg jpg jpeg;
    image/gif gif;
    image/webp webp;
    image/bmp bmp;
    image/svg+xml svg;
    text/plain txt md;
  }}
  try_files $orivanta_file =404;
}}
)",
      path, common, escapedForRegex(path), fmt::join(folders, "|"));
}

std::string nginxPage() {
  return fmt::format(
      R"(# Written by `orivanta publish`. Include it in a location for the folder of the web page.
index index.html;
gzip_static on;
gzip_vary on;
types {{
  text/html html;
  text/javascript js mjs;
  text/css css;
  application/wasm wasm;
  application/manifest+json webmanifest;
  application/json json map;
  image/svg+xml svg;
  image/png png;
  image/x-icon ico;
  font/woff2 woff2;
}}
default_type application/octet-stream;
add_header Cache-Control no-cache;
add_header Content-Security-Policy "{}" always;
add_header X-Content-Type-Options nosniff always;
)",
      server::pagePolicy);
}

}  // namespace orivanta::publish

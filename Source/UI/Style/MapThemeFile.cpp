#include "Source/UI/Style/MapThemeFile.hpp"

#include <algorithm>
#include <boost/json/value.hpp>
#include <cstddef>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/RawData.hpp"
#include "Source/UI/Style/ThemeMembers.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostBytes = std::size_t{1} << 20U;
constexpr double mostPoints = 1000.0;
constexpr double mostPointsPerMeter = 1e6;

tl::unexpected<foundation::Error> failure(std::string description) {
  return foundation::failure("theme", 0, std::move(description));
}

void readFills(ThemeMembers& members, MapPalette& colors) {
  for (std::size_t i = 0; i < fillKindCount; ++i)
    members.color(wordOf(static_cast<FillKind>(i)), colors.fills[i]);
}

void readColors(ThemeMembers& members, MapPalette& colors) {
  members.color("walkable", colors.walkable);
  members.color("slab", colors.slab);
  members.color("backdrop", colors.backdrop);
  members.color("text", colors.text);
  members.color("halo", colors.halo);
  members.color("outline", colors.outline);
  members.color("route", colors.route);
  members.color("casing", colors.casing);
  members.color("passed", colors.passed);
  members.color("pin", colors.pin);
  members.color("start", colors.start);
}

void readIcons(ThemeMembers& members, MapPalette& colors) {
  members.color("symbol", colors.iconSymbol);
  members.color("lift", colors.iconLift);
  members.color("way", colors.iconWay);
  members.color("gate", colors.iconGate);
  members.color("care", colors.iconCare);
  members.color("information", colors.iconInfo);
  members.color("other", colors.iconOther);
  members.color("outOfOrder", colors.iconOutOfOrder);
}

void readOutlines(ThemeMembers& members, MapTheme& theme) {
  members.number("contrast", theme.outlineContrast, 1, 21);
  members.number("walkableContrast", theme.walkableOutlineContrast, 1, 21);
  members.number("width", theme.sizes.outline, 0, mostPoints);
  members.number("walkableWidth", theme.sizes.walkableOutline, 0, mostPoints);
}

void readFonts(ThemeMembers& members, MapTheme& theme) {
  members.text("family", theme.fontFamily);
  members.number("size", theme.sizes.name, 1, mostPoints);
  members.number("smallSize", theme.sizes.smallName, 1, mostPoints);
  members.number("halo", theme.sizes.halo, 0, mostPoints);
}

void readSizes(ThemeMembers& members, MapSizes& sizes) {
  members.number("icon", sizes.icon, 1, mostPoints);
  members.number("selectedIcon", sizes.selectedIcon, 1, mostPoints);
  members.number("route", sizes.route, 0, mostPoints);
  members.number("casing", sizes.casing, 0, mostPoints);
}

void readZoom(ThemeMembers& members, MapTheme& theme) {
  std::vector<ZoomStep> steps;
  const bool found = members.objects("zoom", [&](ThemeMembers& step) {
    steps.emplace_back();
    step.number("importance", steps.back().importance, 0, 1000);
    step.number("icon", steps.back().iconFrom, 0, mostPointsPerMeter);
    step.number("name", steps.back().nameFrom, 0, mostPointsPerMeter);
  });
  if (!found) return;
  foundation::stableSort(steps.begin(), steps.end(), [](const ZoomStep& a, const ZoomStep& b) {
    return a.importance > b.importance;
  });
  theme.zoom = std::move(steps);
}

void readWords(ThemeMembers& members, KindWords& words) {
  for (std::size_t i = 0; i < placeKindCount; ++i) {
    const auto kind = static_cast<PlaceKind>(i);
    members.texts(wordOf(kind), [&](std::string_view word) { return words.add(kind, word); });
  }
}

void readTheme(ThemeMembers& members, MapTheme& theme) {
  std::string base = "light";
  members.text("base", base);
  if (base != "light" && base != "dark") members.refuse("base", "\"light\" or \"dark\"");
  theme = base == "dark" ? *MapTheme::dark() : *MapTheme::light();
  members.text("name", theme.name);
  members.object("fills", [&](ThemeMembers& fills) { readFills(fills, theme.colors); });
  members.object("colors", [&](ThemeMembers& colors) { readColors(colors, theme.colors); });
  members.object("icons", [&](ThemeMembers& icons) { readIcons(icons, theme.colors); });
  members.object("outlines", [&](ThemeMembers& outlines) { readOutlines(outlines, theme); });
  members.object("fonts", [&](ThemeMembers& fonts) { readFonts(fonts, theme); });
  members.object("sizes", [&](ThemeMembers& sizes) { readSizes(sizes, theme.sizes); });
  members.object("words", [&](ThemeMembers& words) { readWords(words, theme.words); });
  readZoom(members, theme);
}

}  // namespace

foundation::Result<MapThemeFile> parseMapTheme(std::string_view json) {
  if (json.size() > mostBytes) return failure("expected at most 1 MiB");
  const auto data = RawData::parse(json);
  const auto* const object = data && data->data() ? data->data()->if_object() : nullptr;
  if (object == nullptr) return failure("expected a JSON object");
  auto theme = std::make_shared<MapTheme>();
  ThemeFindings findings;
  {
    ThemeMembers members(*object, "", findings);
    readTheme(members, *theme);
  }
  if (!findings.problem.empty()) return failure(std::move(findings.problem));
  return MapThemeFile{std::move(theme), std::move(findings.unknown)};
}

foundation::Result<MapThemeFile> readMapTheme(const std::filesystem::path& file) {
  const auto text = foundation::readFile(file, mostBytes);
  if (!text) return foundation::failure(text.error());
  auto theme = parseMapTheme(*text);
  if (!theme) return failure(file.string() + ": " + theme.error().description);
  return theme;
}

}  // namespace orivanta

#include "Apps/Command/Render/PictureOptions.hpp"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <filesystem>
#include <optional>
#include <utility>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Places.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/UI/Style/MapThemeFile.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr unsigned largestSide = 8192;  // points

std::optional<unsigned> parseNumber(std::string_view text) {
  unsigned number = 0;
  const auto end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

}  // namespace

graphics::Size parseSize(std::string_view text) {
  const auto cross = text.find('x');
  const auto width = parseNumber(text.substr(0, cross));
  const auto height =
      cross == std::string_view::npos ? std::nullopt : parseNumber(text.substr(cross + 1));
  if (!width || !height || *width == 0 || *height == 0 || *width > largestSide ||
      *height > largestSide)
    throw CommandError(
        ExitCode::wrongUse,
        fmt::format(
            "--size: \"{}\" is not a valid size; use a form such as 1280x800 with sides up to {}",
            text, largestSide));
  return {static_cast<double>(*width), static_cast<double>(*height)};
}

std::vector<std::shared_ptr<Map>> chooseFloors(const Venue& venue, const std::string& text) {
  const auto& maps = *venue.maps;
  if (maps.empty()) throw CommandError(ExitCode::notFound, "the venue has no floors");
  if (text.empty()) return {maps.front()};
  if (text == "all") return maps;
  if (const auto map = floorNamed(maps, text)) return {map};
  const auto index = parseNumber(text);
  if (index && *index < maps.size()) return {maps[*index]};
  throw CommandError(ExitCode::notFound,
                     fmt::format("no floor \"{}\"; the venue has {}", text, floorLabels(maps)));
}

Corner parseCorner(std::string_view text) {
  constexpr std::array<std::pair<std::string_view, Corner>, 4> corners{
      {{"lower-left", Corner::lowerLeft},
       {"lower-right", Corner::lowerRight},
       {"upper-left", Corner::upperLeft},
       {"upper-right", Corner::upperRight}}};
  for (const auto& [name, corner] : corners)
    if (name == text) return corner;
  throw CommandError(ExitCode::wrongUse,
                     fmt::format("--attribution: \"{}\" is not a corner; use lower-left, "
                                 "lower-right, upper-left or upper-right",
                                 text));
}

std::shared_ptr<const MapTheme> readTheme(const std::string& text) {
  if (text == "plain") return nullptr;
  if (text == "light") return MapTheme::light();
  if (text == "dark") return MapTheme::dark();
  const auto contrasting = [](const MapTheme& theme) {
    return std::make_shared<const MapTheme>(theme.withHighContrast());
  };
  if (text == "light-contrast") return contrasting(*MapTheme::light());
  if (text == "dark-contrast") return contrasting(*MapTheme::dark());
  const auto file = readMapTheme(text);
  if (!file) throw CommandError(ExitCode::wrongUse, "--style: " + file.error().description);
  for (const std::string& member : file->unknownMembers)
    complain(fmt::format("warning: {}: unknown member {}", text, member));
  return file->theme;
}

std::shared_ptr<Location> findLocation(const Venue& venue, const std::string& text) {
  auto location = findRouteEnd(venue, {text}).location;
  if (!location)
    throw CommandError(ExitCode::wrongUse, fmt::format("\"{}\" is a node, not a location", text));
  return location;
}

Highlight parseHighlight(const Venue& venue, const std::string& text) {
  const auto sign = text.rfind('=');
  const std::string name = text.substr(0, sign);
  const auto color = sign == std::string::npos ? graphics::colors::red
                                               : graphics::Color::parse(text.substr(sign + 1));
  if (!color)
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--highlight: \"{}\" is not a color; use a name such as orange, "
                                   "or #rrggbb",
                                   text.substr(sign + 1)));
  return {findLocation(venue, name), *color};
}

std::string pictureName(const std::string& output, std::string_view label, bool isOneOfMany) {
  if (!isOneOfMany) return output;
  std::string safe(label);
  for (char& character : safe)
    if (character == '/' || character == '\\' || static_cast<unsigned char>(character) < ' ')
      character = '_';
  const std::filesystem::path path(output);
  const std::string stem = (path.parent_path() / path.stem()).string();
  return fmt::format("{}-{}{}", stem, safe, path.extension().string());
}

std::string animationName(const std::string& output) {
  return std::filesystem::path(output).replace_extension(".gif").string();
}

}  // namespace orivanta::command

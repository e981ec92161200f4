#include "Apps/Viewer/Content/CardContent.hpp"

#include <algorithm>
#include <cctype>
#include <optional>
#include <string_view>
#include <utility>

#include "Apps/Viewer/Content/ShownName.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

using guidance::OpeningHours;

constexpr std::string_view separator = "  \u00B7  ";

void append(std::string& text, const std::string& part) {
  if (part.empty()) return;
  if (!text.empty()) text += separator;
  text += part;
}

// Returns its categories without duplicates, and its floors.
std::string detailOf(const Location& place) {
  std::vector<std::string> parts;
  for (const auto& category : place.categories) {
    std::string name = foundation::label(category->name.value_or(""));
    if (std::find(parts.begin(), parts.end(), name) == parts.end())
      parts.push_back(std::move(name));
  }
  for (const auto& floor : floorsOf(place)) parts.push_back(floorName(*floor));
  std::string text;
  for (const std::string& part : parts) append(text, part);
  return text;
}

void describeConnector(CardContent& content, const Vortex& connector, const CardContext& context) {
  const auto& texts = context.texts;
  const std::string kind = connectorName(connector, texts);
  content.title = listedName(context.venue, connector, texts);
  if (content.title != kind) content.detail = kind;
  auto floors = floorsFromTop(floorsOf(connector));
  std::reverse(floors.begin(), floors.end());
  if (!floors.empty())
    append(content.detail,
           texts.text("interface.connector.floors", {{"floors", texts.name(floorLabels(floors))}}));
}

// Whether a text looks like opening hours: "open" alone is one of their grammar, too.
bool statesTimes(std::string_view text) {
  for (std::size_t colon = text.find(':', 1); colon != std::string_view::npos;
       colon = text.find(':', colon + 1))
    if (std::isdigit(static_cast<unsigned char>(text[colon - 1])) != 0) return true;
  return text.find("24/7") != std::string_view::npos;
}

// Removes opening hours at the end of a description and returns them.
std::optional<OpeningHours> takeHours(std::string& description) {
  constexpr std::string_view gap = "; ";
  for (std::size_t start = 0; start < description.size();) {
    const std::string_view rest = std::string_view(description).substr(start);
    if (statesTimes(rest))
      if (auto hours = OpeningHours::parse(rest)) {
        description.resize(start == 0 ? 0 : start - gap.size());
        return hours;
      }
    const std::size_t end = description.find(gap, start);
    if (end == std::string::npos) break;
    start = end + gap.size();
  }
  return std::nullopt;
}

std::string withoutScheme(std::string_view address) {
  for (const std::string_view scheme : {"https://", "http://"})
    if (address.starts_with(scheme)) address.remove_prefix(scheme.size());
  if (address.ends_with('/')) address.remove_suffix(1);
  return std::string(address);
}

void addHours(CardContent& content, const Location& place, const CardContext& context) {
  const std::string text = place._data["hours"].stringValue();
  const auto hours = text.empty() ? takeHours(content.description) : OpeningHours::parse(text);
  if (!hours) {
    content.hours = foundation::label(text);
    return;
  }
  content.state = stateText(*hours, context.now, context.texts);
  content.isClosed = hours->at(context.now) == guidance::OpenState::closed;
  content.week = weekOf(*hours, context.now, context.texts);
}

}  // namespace

CardContent cardContent(const Location& place, const CardContext& context) {
  const auto& texts = context.texts;
  CardContent content;
  content.kind = context.words.kindOf(place);
  const auto* const connector = dynamic_cast<const Vortex*>(&place);
  if (connector != nullptr) {
    describeConnector(content, *connector, context);
  } else {
    content.title = shownName(context.venue, place);
    content.detail = detailOf(place);
  }
  content.description = place.description.value_or("");
  addHours(content, place, context);
  content.phone = texts.name(place._data["phone"].stringValue());
  content.website = texts.name(withoutScheme(place._data["website"].stringValue()));
  if (context.closures.contains(place.id.value_or(""))) {
    content.isClosed = true;
    content.isOutOfOrder = true;
    content.state =
        texts.text(connector != nullptr ? "interface.connector.closed" : "interface.place.closed");
  }
  return content;
}

}  // namespace orivanta::viewer

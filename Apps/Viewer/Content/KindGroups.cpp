#include "Apps/Viewer/Content/KindGroups.hpp"

#include <algorithm>

namespace orivanta::viewer {

namespace {

constexpr KindGroup groups[] = {
    {PlaceKind::toilet, "interface.kind.toilet", 64},
    {PlaceKind::food, "interface.kind.food", 62},
    {PlaceKind::platform, "interface.kind.platform", 60},
    {PlaceKind::shop, "interface.kind.shop", 58},
    {PlaceKind::information, "interface.kind.information", 57},
    {PlaceKind::metro, "interface.kind.metro", 55},
    {PlaceKind::culture, "interface.kind.culture", 54},
    {PlaceKind::library, "interface.kind.library", 53},
    {PlaceKind::exit, "interface.kind.exit", 52},
    {PlaceKind::cash, "interface.kind.cash", 51},
    {PlaceKind::lift, "interface.kind.lift", 50},
    {PlaceKind::sport, "interface.kind.sport", 49},
    {PlaceKind::ticket, "interface.kind.ticket", 48},
    {PlaceKind::lockers, "interface.kind.lockers", 48},
    {PlaceKind::entrance, "interface.kind.entrance", 47},
    {PlaceKind::health, "interface.kind.health", 46},
    {PlaceKind::bus, "interface.kind.bus", 46},
    {PlaceKind::nursing, "interface.kind.nursing", 45},
    {PlaceKind::parking, "interface.kind.parking", 45},
    {PlaceKind::taxi, "interface.kind.taxi", 44},
    {PlaceKind::service, "interface.kind.service", 44},
    {PlaceKind::firstAid, "interface.kind.firstAid", 43},
    {PlaceKind::gate, "interface.kind.gate", 42},
    {PlaceKind::room, "interface.kind.room", 40},
    {PlaceKind::garden, "interface.kind.garden", 40},
    {PlaceKind::waiting, "interface.kind.waiting", 36},
    {PlaceKind::bicycle, "interface.kind.bicycle", 36},
    {PlaceKind::office, "interface.kind.office", 34},
    {PlaceKind::security, "interface.kind.security", 34},
    {PlaceKind::phone, "interface.kind.phone", 32},
    {PlaceKind::smoking, "interface.kind.smoking", 32},
    {PlaceKind::escalator, "interface.kind.escalator", 28},
    {PlaceKind::stairs, "interface.kind.stairs", 26},
    {PlaceKind::ramp, "interface.kind.ramp", 24},
};

PlaceKind groupedAs(PlaceKind kind) {
  const bool isToilet = kind == PlaceKind::toiletWomen || kind == PlaceKind::toiletMen ||
                        kind == PlaceKind::toiletWheelchair;
  return isToilet ? PlaceKind::toilet : kind;
}

}  // namespace

std::span<const KindGroup> kindGroups() { return groups; }

std::optional<std::size_t> kindGroupOf(PlaceKind kind) {
  const PlaceKind icon = groupedAs(kind);
  const auto* const found =
      std::find_if(std::begin(groups), std::end(groups),
                   [&](const KindGroup& group) { return group.icon == icon; });
  if (found == std::end(groups)) return std::nullopt;
  return static_cast<std::size_t>(found - std::begin(groups));
}

}  // namespace orivanta::viewer

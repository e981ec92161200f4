#include "Source/Guidance/Kinds/PlaceKind.hpp"

#include <algorithm>
#include <array>

namespace orivanta {

namespace {

struct Kind {
  std::string_view word;
  FillKind fill;
  double importance;
};

// In the order of `PlaceKind`.
constexpr std::array<Kind, placeKindCount> kinds{{
    {"lift", FillKind::vertical, 70},
    {"escalator", FillKind::vertical, 69},
    {"stairs", FillKind::vertical, 68},
    {"ramp", FillKind::vertical, 67},
    {"entrance", FillKind::transit, 95},
    {"exit", FillKind::transit, 90},
    {"gate", FillKind::transit, 92},
    {"ticket", FillKind::transit, 66},
    {"platform", FillKind::transit, 100},
    {"metro", FillKind::transit, 98},
    {"bus", FillKind::transit, 60},
    {"taxi", FillKind::transit, 60},
    {"parking", FillKind::parking, 60},
    {"bicycle", FillKind::parking, 46},
    {"information", FillKind::information, 88},
    {"cash", FillKind::information, 62},
    {"lockers", FillKind::service, 62},
    {"phone", FillKind::other, 42},
    {"waiting", FillKind::room, 44},
    {"smoking", FillKind::other, 42},
    {"toilet", FillKind::toilet, 64},
    {"toiletWomen", FillKind::toilet, 64},
    {"toiletMen", FillKind::toilet, 64},
    {"toiletWheelchair", FillKind::toilet, 64},
    {"nursing", FillKind::care, 63},
    {"firstAid", FillKind::care, 80},
    {"health", FillKind::care, 54},
    {"security", FillKind::service, 62},
    {"food", FillKind::food, 50},
    {"shop", FillKind::shop, 48},
    {"service", FillKind::service, 46},
    {"culture", FillKind::leisure, 58},
    {"library", FillKind::leisure, 58},
    {"sport", FillKind::leisure, 56},
    {"garden", FillKind::green, 50},
    {"room", FillKind::room, 36},
    {"office", FillKind::office, 34},
    {"other", FillKind::other, 30},
}};

constexpr std::array<std::string_view, fillKindCount> fillWords{
    "shop", "food",    "room",     "office",  "service", "information", "toilet",
    "care", "transit", "vertical", "parking", "leisure", "green",       "other"};

const Kind& entryOf(PlaceKind kind) { return kinds[static_cast<std::size_t>(kind)]; }

}  // namespace

std::string_view wordOf(PlaceKind kind) { return entryOf(kind).word; }

std::optional<PlaceKind> placeKindNamed(std::string_view word) {
  const auto* const found =
      std::find_if(kinds.begin(), kinds.end(), [&](const Kind& kind) { return kind.word == word; });
  if (found == kinds.end()) return std::nullopt;
  return static_cast<PlaceKind>(found - kinds.begin());
}

FillKind fillKindOf(PlaceKind kind) { return entryOf(kind).fill; }

std::string_view wordOf(FillKind kind) { return fillWords[static_cast<std::size_t>(kind)]; }

double importanceOf(PlaceKind kind) { return entryOf(kind).importance; }

}  // namespace orivanta

#include "Tests/Apps/Import/House/House.hpp"

#include <string_view>

namespace orivanta::importer::house {

namespace {

struct Room {
  std::string_view id;
  std::string_view category;
  std::string_view english;
  std::string_view german;
  double level;
  Outline outline;
  std::vector<Point> doors;
};

Outline box(double left, double bottom, double right, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

std::vector<Room> rooms() {
  const Outline southWest = box(6, 0, 18, 6);
  const Outline southEast = box(18, 0, 30, 6);
  const Outline northWest = box(6, 18, 18, 24);
  const Outline northEast = box(18, 18, 30, 24);
  return {
      {"cafe", "cafe", "Linden Café", "Café Linde", 0, southWest, {{12, 6}}},
      {"library", "library", "Library", "Bibliothek", 0, southEast, {{24, 6}}},
      {"office", "office", "Porter", "Pforte", 0, northWest, {{12, 18}}},
      {"toilets", "toilets", "Toilets", "Toiletten", 0, northEast, {{24, 18}}},
      {"reading", "library", "Reading Room", "Lesesaal", 1, southWest, {{12, 6}}},
      {"lab", "room", "Laboratory", "Labor", 1, southEast, {{24, 6}}},
      {"101", "classroom", "101", "", 1, northWest, {{12, 18}}},
      {"102", "classroom", "102", "", 1, northEast, {{24, 18}}},
      {"gallery", "room", "Gallery", "Galerie", 2, box(6, 0, 22, 6), {{12, 6}, {20, 6}}},
      {"kitchen", "room", "Kitchen", "Küche", 2, box(22, 0, 30, 6), {{27, 6}}},
      {"studio", "room", "Studio", "Atelier", 2, northWest, {{12, 18}}},
      // A room behind another one.
      {"archive", "room", "Archive", "Archiv", 2, northEast, {{18, 21}}},
  };
}

Names named(std::string_view english, std::string_view german) {
  Names names = {std::string(english), {{"en", std::string(english)}}, false};
  if (!german.empty()) names.byLanguage["de"] = german;
  return names;
}

std::string at(std::string_view id, double level) {
  return std::string(id) + "@" + std::to_string(static_cast<int>(level));
}

Area area(std::string id, AreaKind kind, double level, Outline outer,
          std::vector<Outline> holes = {}) {
  Area result;
  result.id = result.source = std::move(id);
  result.kind = kind;
  result.level = level;
  result.shape = {{std::move(outer), std::move(holes)}};
  return result;
}

Door door(std::string id, DoorKind kind, double level, Point position,
          std::vector<std::string> areas) {
  Door result;
  result.id = result.source = std::move(id);
  result.kind = kind;
  result.level = level;
  result.position = position;
  result.areas = std::move(areas);
  return result;
}

void addStorey(Building& building, double ordinal, const char* english, const char* german,
               const char* shortName, Outline corridor) {
  Storey storey;
  storey.id = at("level", ordinal);
  storey.ordinal = ordinal;
  storey.names = named(english, german);
  storey.shortName = shortName;
  storey.footprint = {{box(-1, -1, 40, 25), {}}};
  building.storeys.push_back(storey);

  Outline courtyard = box(12, 10, 24, 14);
  const bool ground = ordinal == 0.0;
  building.areas.push_back(
      area(at("corridor", ordinal), AreaKind::walkway, ordinal, std::move(corridor), {courtyard}));
  building.areas.push_back(area(at("courtyard", ordinal),
                                ground ? AreaKind::walkway : AreaKind::opening, ordinal,
                                std::move(courtyard)));
  if (ground)
    building.doors.push_back(door("courtyard-door", DoorKind::door, ordinal, {12, 12},
                                  {at("corridor", 0), at("courtyard", 0)}));
}

void addConnectorArea(Building& building, const char* id, AreaKind kind, double level,
                      Outline outline, Direction direction) {
  Area part = area(at(id, level), kind, level, std::move(outline));
  part.connector = id;
  part.direction = direction;
  if (kind == AreaKind::elevator) {
    part.wheelchair = Wheelchair::yes;
    building.doors.push_back(door(at("lift-door", level), DoorKind::door, level, {30, 11},
                                  {part.id, at("corridor", level)}));
  }
  building.areas.push_back(std::move(part));
}

}  // namespace

Building make() {
  Building building;
  building.id = "house";
  building.names = named("House of Trades", "Haus der Gewerke");
  building.language = "en";
  building.georeference = origin;
  addStorey(building, 0, "Ground floor", "Erdgeschoss", "EG",
            {{0, 6}, {30, 6}, {30, 18}, {6, 18}, {6, 9}, {0, 9}});
  addStorey(building, 1, "First floor", "1. Obergeschoss", "1. OG",
            {{6, 6},
             {30, 6},
             {30, 13},
             {28, 13},
             {28, 16.5},
             {36, 16.5},
             {36, 14},
             {39, 14},
             {39, 18},
             {6, 18}});
  addStorey(building, 2, "Second floor", "2. Obergeschoss", "2. OG", box(6, 6, 30, 18));
  building.doors.push_back(door("entrance", DoorKind::entrance, 0, {0, 7.5}, {at("corridor", 0)}));

  for (const Room& room : rooms()) {
    Area part = area(std::string(room.id), AreaKind::room, room.level, room.outline);
    part.category = room.category;
    part.place = part.id;
    Place place;
    place.id = place.source = part.id;
    place.names = named(room.english, room.german);
    place.category = part.category;
    place.areas = {part.id};
    if (room.id == "cafe") place.hours = "Mo-Fr 08:00-17:00";
    building.places.push_back(std::move(place));
    int number = 0;
    for (const Point position : room.doors)
      building.doors.push_back(
          door(part.id + "-door" + std::to_string(number++), DoorKind::door, room.level, position,
               {part.id, room.id == "archive" ? "studio" : at("corridor", room.level)}));
    building.areas.push_back(std::move(part));
  }
  for (const double level : {0.0, 1.0, 2.0}) {
    addConnectorArea(building, "stairs", AreaKind::stairs, level, box(0, 9.5, 6, 14.5),
                     Direction::both);
    addConnectorArea(building, "lift", AreaKind::elevator, level, box(30, 10, 33, 12),
                     Direction::both);
  }
  for (const double level : {0.0, 1.0})
    addConnectorArea(building, "escalator", AreaKind::escalator, level, box(30, 14, 36, 16),
                     Direction::forward);
  return building;
}

}  // namespace orivanta::importer::house

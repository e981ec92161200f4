// Elevators, escalators, stairs and the ramp to the station.
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

namespace {

// An elevator on every floor, with doors that face the center of the building.
Connector elevator(std::string_view id, const Names& names, double side) {
  Connector connector = {id, ConnectorKind::elevator, names, true, 2.0, {}};
  const Outline shaft =
      side > 0.0 ? rectangle(-3.0, 28.0, 3.0, 32.5) : rectangle(-3.0, -32.5, 3.0, -28.0);
  for (const std::string_view floor : {"b1", "g", "l1", "l2", "roof"})
    connector.stops.push_back({floor, {0.0, side * 26.5}, {}, shaft});
  return connector;
}

// One of the two escalators in the east or west passage. Both go up toward the outside, from the
// court or the gallery to the ring corridor; `lane` is 1 for the north side of the axis and -1 for
// the south side.
Connector escalator(std::string_view id, const Names& names, double side, double lane, bool up,
                    std::string_view lower, std::string_view upper) {
  const double inner = lane * 0.3;
  const double outer = lane * 2.6;
  const double near = 52.5;
  const double far = 63.0;
  const double left = side > 0.0 ? near : -far;
  const double right = side > 0.0 ? far : -near;
  const Outline outline =
      lane > 0.0 ? rectangle(left, inner, right, outer) : rectangle(left, outer, right, inner);
  const double y = lane * 1.45;
  return {id,
          ConnectorKind::escalator,
          names,
          false,
          1.5,
          {{lower, {side * 51.3, y}, {}, outline, up ? Flow::on : Flow::off},
           {upper, {side * 64.2, y}, {}, {}, up ? Flow::off : Flow::on}}};
}

// A stairwell between the outer shops, behind a fire door.
Connector stairs(std::string_view id, const Names& names, double bearing,
                 const std::vector<std::string_view>& floors) {
  Connector connector = {id, ConnectorKind::stairs, names, false, 1.1, {}};
  const Shape well = outer(bearing - 2.5, bearing + 2.5);
  for (const std::string_view floor : floors)
    connector.stops.push_back({floor, at(13.0, bearing), well.doors, well.outline});
  return connector;
}

}  // namespace

std::vector<Connector> makeConnectors() {
  std::vector<Connector> connectors = {
      elevator("lift-north", {"North elevators", "北エレベーター", "مصاعد الشمال", "Aufzüge Nord"},
               1.0),
      elevator("lift-south", {"South elevators", "南エレベーター", "مصاعد الجنوب", "Aufzüge Süd"},
               -1.0),
      {"lift-station",
       ConnectorKind::elevator,
       {"Station elevator", "駅エレベーター", "مصعد المحطة", "Stationsaufzug"},
       true,
       2.0,
       {{"b1", {-6.5, -80.0}, {}, rectangle(-12.0, -82.0, -8.0, -78.0)},
        {"g", {-6.5, -80.0}, {}, rectangle(-12.0, -82.0, -8.0, -78.0)}}},
      {"ramp-station",
       ConnectorKind::ramp,
       {"Station ramp", "駅スロープ", "منحدر المحطة", "Stationsrampe"},
       true,
       2.5,
       {{"b1", {6.2, -78.25}, {}, rectangle(8.0, -80.0, 30.0, -76.5)},
        {"g", {31.8, -78.25}, {}, rectangle(8.0, -80.0, 30.0, -76.5)}}},
  };
  const auto pair = [&](std::string_view up, const Names& upNames, std::string_view down,
                        const Names& downNames, double side, std::string_view lower,
                        std::string_view upper) {
    connectors.push_back(escalator(up, upNames, side, side, true, lower, upper));
    connectors.push_back(escalator(down, downNames, side, -side, false, lower, upper));
  };
  pair("escalator-east-b1-up",
       {"East escalator up to G", "東エスカレーター 1階へ上り",
        "السلم المتحرك الشرقي صعودًا إلى الأرضي", "Rolltreppe Ost aufwärts zum EG"},
       "escalator-east-g-down",
       {"East escalator down to B1", "東エスカレーター 地下1階へ下り",
        "السلم المتحرك الشرقي نزولًا إلى القبو", "Rolltreppe Ost abwärts zum UG"},
       1.0, "b1", "g");
  pair("escalator-east-g-up",
       {"East escalator up to 1", "東エスカレーター 2階へ上り",
        "السلم المتحرك الشرقي صعودًا إلى الأول", "Rolltreppe Ost aufwärts zum 1. OG"},
       "escalator-east-1-down",
       {"East escalator down to G", "東エスカレーター 1階へ下り",
        "السلم المتحرك الشرقي نزولًا إلى الأرضي", "Rolltreppe Ost abwärts zum EG"},
       1.0, "g", "l1");
  pair("escalator-east-1-up",
       {"East escalator up to 2", "東エスカレーター 3階へ上り",
        "السلم المتحرك الشرقي صعودًا إلى الثاني", "Rolltreppe Ost aufwärts zum 2. OG"},
       "escalator-east-2-down",
       {"East escalator down to 1", "東エスカレーター 2階へ下り",
        "السلم المتحرك الشرقي نزولًا إلى الأول", "Rolltreppe Ost abwärts zum 1. OG"},
       1.0, "l1", "l2");
  pair("escalator-west-g-up",
       {"West escalator up to 1", "西エスカレーター 2階へ上り",
        "السلم المتحرك الغربي صعودًا إلى الأول", "Rolltreppe West aufwärts zum 1. OG"},
       "escalator-west-1-down",
       {"West escalator down to G", "西エスカレーター 1階へ下り",
        "السلم المتحرك الغربي نزولًا إلى الأرضي", "Rolltreppe West abwärts zum EG"},
       -1.0, "g", "l1");
  pair("escalator-west-1-up",
       {"West escalator up to 2", "西エスカレーター 3階へ上り",
        "السلم المتحرك الغربي صعودًا إلى الثاني", "Rolltreppe West aufwärts zum 2. OG"},
       "escalator-west-2-down",
       {"West escalator down to 1", "西エスカレーター 2階へ下り",
        "السلم المتحرك الغربي نزولًا إلى الأول", "Rolltreppe West abwärts zum 1. OG"},
       -1.0, "l1", "l2");
  pair("escalator-west-2-up",
       {"West escalator up to the roof", "西エスカレーター 屋上へ上り",
        "السلم المتحرك الغربي صعودًا إلى السطح", "Rolltreppe West aufwärts zum Dach"},
       "escalator-west-roof-down",
       {"West escalator down to 2", "西エスカレーター 3階へ下り",
        "السلم المتحرك الغربي نزولًا إلى الثاني", "Rolltreppe West abwärts zum 2. OG"},
       -1.0, "l2", "roof");
  connectors.push_back(stairs(
      "stairs-northeast", {"Northeast stairs", "北東階段", "درج الشمال الشرقي", "Treppe Nordost"},
      44.5, {"g", "l1", "l2", "roof"}));
  connectors.push_back(stairs(
      "stairs-southwest", {"Southwest stairs", "南西階段", "درج الجنوب الغربي", "Treppe Südwest"},
      225.5, {"b1", "g", "l1", "l2"}));
  connectors.push_back(stairs(
      "stairs-southeast", {"Southeast stairs", "南東階段", "درج الجنوب الشرقي", "Treppe Südost"},
      315.5, {"g", "l1", "l2"}));
  return connectors;
}

}  // namespace orivanta::demo

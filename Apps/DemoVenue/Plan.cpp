#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

Plan makePlan() {
  return {"astrolabe-court",
          {"Astrolabe Court", "アストロラーベ・コート", "ساحة الأسطرلاب", "Astrolabium-Höfe"},
          "An oval of shops around a great brass astrolabe, on five floors from the underground "
          "station "
          "to the gardens on the roof.",
          makeCategories(),
          {makeGroundFloor(), makeBasement(), makeFirstFloor(), makeSecondFloor(), makeRoof()},
          makeConnectors()};
}

}  // namespace orivanta::demo

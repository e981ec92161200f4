// The roof terrace: gardens, a bar and the small observatory.
#include <utility>

#include "Apps/DemoVenue/Plan/Structure.hpp"

namespace orivanta::demo {

Floor makeRoof() {
  Floor floor = {.id = "roof",
                 .shortName = "R",
                 .names = {"Roof terrace", "屋上テラス", "شرفة السطح", "Dachterrasse"},
                 .elevation = 15.0,
                 .outdoor = true};
  addRingSlab(floor);
  addRing(floor);
  addGallery(floor);
  floor.places = {
      {"sundial-bar",
       "bars",
       {"The Sundial Bar", "日時計バー", "مشرب المزولة"},
       "Opens with the first shadow, closes with the last.",
       outer(66, 88)},
      {"copper-crane",
       "restaurants",
       {"Copper Crane Kitchen", "銅の鶴キッチン", "مطبخ الكركي النحاسي"},
       "Roof-grown vegetables and charcoal.",
       outer(150, 176)},
      {"toilets-roof",
       "toilets",
       {"Toilets, roof terrace", "トイレ（屋上）", "دورات المياه، السطح", "Toiletten Dachterrasse"},
       "With a step-free cabin.",
       outer(176, 184)},
      {"small-observatory",
       "culture",
       {"The Small Observatory", "小さな天文台", "المرصد الصغير", "Die kleine Sternwarte"},
       "Sun by day, Saturn by appointment.",
       island(34, 58, Front::both)},
      {"herb-garden",
       "gardens",
       {"Herb garden", "ハーブ園", "حديقة الأعشاب", "Kräutergarten"},
       "Help yourself to three leaves of anything.",
       ground(sector(29.5, 38.5, 198, 260), at(34, 229))},
      {"bee-yard",
       "gardens",
       {"Bee yard", "養蜂場", "منحل السطح", "Bienenhof"},
       "Home of Four Hives. Please walk slowly.",
       ground(sector(29.5, 38.5, 280, 342), at(34, 311))},
      {"star-deck",
       "gardens",
       {"Star deck", "星見デッキ", "منصة النجوم", "Sternendeck"},
       "Reclining benches, no lamps after ten.",
       ground(sector(29.5, 38.5, 100, 162), at(34, 131))},
  };
  floor.walkways.push_back({"herb-path", sector(islandDepth, galleryDepth, 196, 262)});
  floor.walkways.push_back({"bee-path", sector(islandDepth, galleryDepth, 278, 344)});
  floor.walkways.push_back({"star-path", sector(islandDepth, galleryDepth, 98, 164)});
  for (const double bearing : {131.0, 229.0, 311.0})
    floor.lines.push_back({{at(23, bearing), at(43, bearing)}});
  for (const auto& [from, to] : {std::pair{2.0, 41.0},
                                 {48.0, 65.0},
                                 {89.0, 119.0},
                                 {121.0, 149.0},
                                 {185.0, 224.0},
                                 {226.0, 269.0},
                                 {271.0, 314.0},
                                 {316.0, 358.0}}) {
    floor.lawns.push_back(sector(1.5, 16.5, from, to));
    for (double bearing = from + 4.0; bearing < to - 2.0; bearing += 9.0)
      floor.trees.push_back(at(6.0, bearing));
  }
  floor.lawns.push_back(sector(29.5, 38.5, 18, 32));
  floor.lawns.push_back(sector(29.5, 38.5, 60, 80));
  for (const double bearing : {104.0, 110.0, 116.0, 122.0, 140.0, 147.0, 154.0})
    for (const double depth : {32.0, 36.0}) floor.tables.push_back(at(depth, bearing));
  floor.railings.push_back(oval(0.3));
  return floor;
}

}  // namespace orivanta::demo

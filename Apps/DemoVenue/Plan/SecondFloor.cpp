// 2: the food terrace, the restaurants and the movie theater.
#include "Apps/DemoVenue/Plan/Structure.hpp"

namespace orivanta::demo {

namespace {

constexpr double lobbyEnd = -1.5;  // slightly outside the facade

// The large auditorium extends over the garden, behind the lobby of the movie theater.
Shape greatAuditorium() {
  Outline outline = {{104.0, -21.5}, {112.0, -13.0}, {112.0, 13.0}, {104.0, 21.5}};
  for (const Point point : arc(lobbyEnd, 20.0, -20.0)) outline.push_back(point);
  return {outline, {at(lobbyEnd, 0.0)}, {102.0, 0.0}};
}

std::vector<Place> foodAndFilm() {
  return {
      {"ecliptic-1",
       "cinema",
       {"Ecliptic Pictures, screen 1", "黄道シネマ スクリーン1", "سينما فلك البروج، القاعة 1",
        "Ekliptik-Kino, Saal 1"},
       "Silent films with a live piano on Sundays.",
       outer(6, 22)},
      {"ecliptic-2",
       "cinema",
       {"Ecliptic Pictures, screen 2", "黄道シネマ スクリーン2", "سينما فلك البروج، القاعة 2",
        "Ekliptik-Kino, Saal 2"},
       "New films in their own language.",
       outer(338, 354)},
      {"ecliptic-great",
       "cinema",
       {"Ecliptic Pictures, great screen", "黄道シネマ 大スクリーン",
        "سينما فلك البروج، القاعة الكبرى", "Ekliptik-Kino, großer Saal"},
       "Four hundred seats under a painted zodiac.",
       greatAuditorium()},
      {"popcorn-nebula",
       "street-food",
       {"Popcorn Nebula", "ポップコーン星雲", "سديم الفشار"},
       "Sweet, salted or on fire.",
       outer(22, 32)},
      {"toilets-l2",
       "toilets",
       {"Toilets, second floor", "トイレ（3階）", "دورات المياه، الطابق الثاني",
        "Toiletten 2. Obergeschoss"},
       "With a step-free cabin.",
       outer(32, 38)},
      {"cash-l2",
       "cash",
       {"Cash machine, second floor", "ATM（3階）", "الصراف الآلي، الطابق الثاني",
        "Geldautomat 2. Obergeschoss"},
       "One machine beside the stairs.",
       outer(38, 42)},
      {"charcoal-ode",
       "street-food",
       {"Ode to Charcoal", "炭火への頌歌", "قصيدة الفحم"},
       "Skewers, flatbread, smoke.",
       outer(47, 57)},
      {"lemon-mortar",
       "street-food",
       {"Lemon & Mortar", "レモンと乳鉢", "ليمون وهاون"},
       "Hummus, herbs, falafel from the pan.",
       outer(57, 67)},
      {"rice-ferry",
       "street-food",
       {"The Rice Ferry", "飯の渡し舟", "عبّارة الأرز"},
       "Bowls that arrive on time.",
       outer(67, 77)},
      {"tortilla-post",
       "street-food",
       {"Blue Maize", "青とうもろこし", "الذرة الزرقاء"},
       "Tortillas pressed at the counter.",
       outer(77, 87)},
      {"dosa-dynamo",
       "street-food",
       {"Dosa Dynamo", "ドーサ・ダイナモ", "دينامو الدوسا"},
       "A meter of crispness.",
       outer(87, 97)},
      {"bao-barometer",
       "street-food",
       {"Bao Barometer", "包子気圧計", "بارومتر الباو"},
       "Rising all day.",
       outer(97, 107)},
      {"stockpot-choir",
       "restaurants",
       {"The Stockpot Choir", "寸胴合唱団", "جوقة القدور"},
       "Slow dishes, long tables.",
       outer(107, 123)},
      {"red-cedar-table",
       "restaurants",
       {"Red Cedar Table", "赤杉の食卓", "مائدة الأرز الأحمر"},
       "Grilled fish and mountain wine.",
       outer(123, 137)},
      {"mulberry-court",
       "restaurants",
       {"Mulberry Silk Road", "桑のシルクロード", "طريق التوت والحرير"},
       "Eleven kitchens on one menu.",
       outer(137, 149.7)},
      {"quillon",
       "department",
       {"Quillon & Daughters", "クイヨン&ドーターズ", "كويون وبناتها"},
       "Three floors of nearly everything, since before the astrolabe.",
       westHall()},
      {"quillon-home",
       "home",
       {"Quillon & Daughters, home", "クイヨン リビング", "كويون، المنزل",
        "Quillon & Daughters, Wohnen"},
       "China, curtains and forty kinds of spoon.",
       westWingNorth()},
      {"quillon-tea",
       "cafes",
       {"Quillon & Daughters, tea room", "クイヨン ティールーム", "كويون، صالة الشاي",
        "Quillon & Daughters, Teesalon"},
       "Three tiers, two kinds of cream.",
       westWingSouth()},
      {"night-heron-bar",
       "bars",
       {"The Night Heron", "五位鷺バー", "بلشون الليل"},
       "Alcohol-free cocktails, and the other kind.",
       outer(210.3, 223)},
      {"pendulum-arcade",
       "play",
       {"Pendulum Arcade", "振り子ゲームセンター", "ألعاب البندول"},
       "Pinball, air hockey and one honest claw.",
       outer(228, 252)},
      {"waltz-academy",
       "culture",
       {"Three-Four School of Dance", "四分の三拍子舞踏学校", "مدرسة ثلاثة أرباع للرقص",
        "Tanzschule Dreiviertel"},
       "Waltz on Mondays, dabke on Thursdays.",
       outer(252, 270)},
      {"climbing-ivy",
       "fitness",
       {"Ivy Climbing Wall", "蔦のクライミング", "جدار اللبلاب للتسلق"},
       "Nine meters up, soft landing guaranteed.",
       outer(270, 292)},
      {"puppet-theatre",
       "culture",
       {"The Thumb Theatre", "親指劇場", "مسرح الإبهام"},
       "A theater for very small actors.",
       outer(292, 313)},
      {"trampoline-sky",
       "play",
       {"Low Gravity", "低重力", "الجاذبية الخفيفة"},
       "Trampolines, socks obligatory.",
       outer(318, 338)},
  };
}

std::vector<Place> aroundTheAtrium() {
  return {
      {"perseid-terrace",
       "gardens",
       {"Perseid food terrace", "ペルセウス・フードテラス", "شرفة البرشاويات للطعام",
        "Perseiden-Terrasse"},
       "Two hundred seats between the counters and the atrium.",
       ground(sector(29.5, 38.5, 18, 47), at(34, 33))},
      {"leonid-terrace",
       "gardens",
       {"Leonid food terrace", "獅子座フードテラス", "شرفة الأسديات للطعام", "Leoniden-Terrasse"},
       "Quieter seats, high chairs and sockets.",
       ground(sector(29.5, 38.5, 51, 80), at(34, 65))},
      {"gramophone-room",
       "restaurants",
       {"The Gramophone Room", "蓄音機の間", "قاعة الغراموفون"},
       "Dinner at the pace of one record a course.",
       island(98, 131, Front::both)},
      {"tea-orrery",
       "cafes",
       {"Tea & Trajectory", "お茶と軌道", "شاي ومسار"},
       "Thirty teas, each with its orbit time.",
       island(131, 164, Front::both)},
      {"comet-kids",
       "play",
       {"Comet's Nursery", "彗星の保育園", "حضانة المذنب", "Kinderstube Komet"},
       "Two hours of play while you shop.",
       island(196, 229)},
      {"story-well",
       "books",
       {"The Story Well", "物語の井戸", "بئر الحكايات"},
       "Picture books and a teller at four.",
       island(229, 262, Front::both)},
      {"waffle-zenith",
       "sweets",
       {"Waffle Zenith", "ワッフル天頂", "سمت الوافل"},
       "As high as waffles go.",
       island(278, 311, Front::both)},
      {"poster-archive",
       "gifts",
       {"The Poster Archive", "ポスター資料館", "أرشيف الملصقات"},
       "Every film shown here since the opening.",
       island(311, 344)},
  };
}

}  // namespace

Floor makeSecondFloor() {
  Floor floor = {.id = "l2",
                 .shortName = "2",
                 .names = {"Second floor", "3階", "الطابق الثاني", "2. Obergeschoss"},
                 .elevation = 10.0};
  addRingSlab(floor);
  floor.slab.push_back(grown(westBlock(), 0.5));
  floor.slab.push_back(grown(greatAuditorium().outline, 0.5));
  floor.slab.push_back(sector(-2.0, 0.0, -20.0, 20.0));
  addRing(floor);
  addStore(floor);
  addGallery(floor);
  floor.walkways.push_back({"cinema-lobby", sector(lobbyEnd, corridorDepth, -5.4, 5.4)});
  floor.walkways.push_back({"food-terrace", sector(islandDepth, galleryDepth, 16, 82)});
  floor.lines.push_back({{{91.0, 0.0}, at(23, 0)}});
  for (const double bearing : {33.0, 49.0, 65.0})
    floor.lines.push_back({{at(23, bearing), at(43, bearing)}});
  for (const double bearing :
       {20.5, 24.5, 28.5, 37.5, 41.5, 45.0, 53.5, 57.5, 61.5, 69.5, 73.5, 77.5})
    for (const double depth : {31.0, 34.0, 37.0}) floor.tables.push_back(at(depth, bearing));
  addPlaces(floor, {foodAndFilm(), aroundTheAtrium()});
  return floor;
}

}  // namespace orivanta::demo

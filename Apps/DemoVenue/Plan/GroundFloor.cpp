// G: the street level, with three entrances and the court with the large astrolabe.
#include "Apps/DemoVenue/Plan/Structure.hpp"

namespace orivanta::demo {

namespace {

std::vector<Place> outerShops() {
  return {
      {"wandering-button",
       "clothing",
       {"The Wandering Button", "さまようボタン", "الزر المتجول"},
       "Coats with a history. Every button has been somewhere.",
       outer(4, 16)},
      {"tamarisk-row",
       "clothing",
       {"Tamarisk Row", "タマリスク・ロウ", "صف الطرفاء"},
       "Linen in the colors of dry riverbeds.",
       outer(16, 28)},
      {"pocket-planet",
       "gifts",
       {"Pocket Planet", "ポケットプラネット", "كوكب الجيب"},
       "Globes, loupes and small wonders under twenty.",
       outer(28, 35)},
      {"cash-g",
       "cash",
       {"Cash machines, ground floor", "ATM（1階）", "الصراف الآلي، الطابق الأرضي",
        "Geldautomaten Erdgeschoss"},
       "Four machines, one at wheelchair height.",
       outer(35, 38.5)},
      {"lockers-g",
       "lockers",
       {"Lockers", "コインロッカー", "خزائن الأمانات", "Schließfächer"},
       "Sixty lockers, twelve of them big enough for a suitcase.",
       outer(38.5, 42)},
      {"brass-heron",
       "jewelry",
       {"The Brass Heron", "真鍮の青鷺", "مالك الحزين النحاسي"},
       "Watches mended, rings resized, secrets kept.",
       outer(47, 60)},
      {"otterly-shod",
       "shoes",
       {"Otterly Shod", "オッタリー・シューズ", "أحذية القضاعة"},
       "Waterproof boots, tested by somebody with a tail.",
       outer(60, 73)},
      {"saffron-and-slate",
       "cafes",
       {"Saffron & Slate", "サフラン&スレート", "زعفران وأردواز"},
       "Corner café by the north door. Cardamom buns at eight.",
       outer(73, 86)},
      {"paper-kestrel",
       "books",
       {"The Paper Kestrel", "紙のチョウゲンボウ", "العاسوق الورقي"},
       "Novels, notebooks and a reading bench by the window.",
       outer(94, 107)},
      {"velvet-tangent",
       "clothing",
       {"Velvet Tangent", "ベルベット・タンジェント", "المماس المخملي"},
       "Evening wear cut on the bias.",
       outer(107, 120)},
      {"mossgate",
       "beauty",
       {"Mossgate Apothecary", "モスゲート薬草店", "عطارة موسغيت"},
       "Soaps, salves and sensible advice.",
       outer(120, 132)},
      {"toilets-g",
       "toilets",
       {"Toilets, ground floor", "トイレ（1階）", "دورات المياه، الطابق الأرضي",
        "Toiletten Erdgeschoss"},
       "With a step-free cabin and an adult changing bench.",
       outer(132, 138)},
      {"baby-g",
       "baby",
       {"Baby room, ground floor", "ベビー休憩室（1階）", "غرفة الرضع، الطابق الأرضي",
        "Wickelraum Erdgeschoss"},
       "Changing tables, a bottle warmer and two quiet chairs.",
       outer(138, 142)},
      {"tin-whistle",
       "repair",
       {"Tin Whistle Keys & Heels", "合鍵と靴修理ティンホイッスル", "الصافرة للمفاتيح والكعوب"},
       "Keys cut and heels mended while you wait.",
       outer(142, 149.7)},
      {"quillon",
       "department",
       {"Quillon & Daughters", "クイヨン&ドーターズ", "كويون وبناتها"},
       "Three floors of nearly everything, since before the astrolabe.",
       westHall()},
      {"quillon-scent",
       "beauty",
       {"Quillon & Daughters, scent hall", "クイヨン 香水売場", "كويون، قاعة العطور",
        "Quillon & Daughters, Düfte"},
       "Eleven hundred bottles and one patient nose.",
       westWingNorth()},
      {"quillon-gloves",
       "bags",
       {"Quillon & Daughters, gloves and scarves", "クイヨン 手袋・スカーフ売場",
        "كويون، القفازات والأوشحة", "Quillon & Daughters, Handschuhe und Schals"},
       "The famous glove counter, with velvet cushions for the elbow.",
       westWingSouth()},
      {"salt-lantern",
       "home",
       {"Salt Lantern", "塩のランタン", "فانوس الملح"},
       "Lamps for every mood but glare.",
       outer(210.3, 223)},
      {"third-cello",
       "music",
       {"The Third Cello", "三番目のチェロ", "التشيلو الثالث"},
       "Strings, scores and a room to try them in.",
       outer(228, 241)},
      {"fern-and-ferrule",
       "gifts",
       {"Fern & Ferrule", "シダと石突き", "سرخس ومقبض"},
       "Flowers in the morning, umbrellas in the afternoon.",
       outer(241, 254)},
      {"quince-hour",
       "sweets",
       {"The Quince Hour", "マルメロの時間", "ساعة السفرجل"},
       "Tarts, jellies and bread with a crust that answers back.",
       outer(254, 266)},
      {"harbour-bean",
       "cafes",
       {"Two Magpies Coffee Counter", "二羽のカササギ珈琲", "قهوة العقعقين"},
       "One espresso for sorrow, two for joy.",
       outer(274, 287)},
      {"loom-moon",
       "clothing",
       {"Loom & Moon", "織機と月", "النول والقمر"},
       "Knitwear from eleven villages.",
       outer(287, 300)},
      {"kindling",
       "kids",
       {"Kindling", "キンドリング", "شرارة الصغار"},
       "Clothes for people under one meter forty.",
       outer(300, 313)},
      {"first-aid",
       "first-aid",
       {"First aid room", "救護室", "غرفة الإسعافات الأولية", "Erste-Hilfe-Raum"},
       "Ring the bell; somebody comes within a minute.",
       outer(318, 324)},
      {"circuit-finch",
       "tech",
       {"Circuit Finch", "サーキット・フィンチ", "حسّون الدوائر"},
       "Telephones, tablets and patient explanations.",
       outer(324, 340)},
      {"long-meridian",
       "sport",
       {"Long Meridian", "ロング・メリディアン", "خط الزوال الطويل"},
       "Tents, maps and boots for the whole way round.",
       outer(340, 356)},
  };
}

std::vector<Place> islandShops() {
  return {
      {"ink-and-anise",
       "books",
       {"Ink & Anise", "インクとアニス", "حبر ويانسون"},
       "Fountain pens and the paper they deserve.",
       island(16, 38)},
      {"sable-comb",
       "hair",
       {"The Sable Comb", "黒貂の櫛", "مشط السمّور"},
       "Hair, beards and a good story.",
       island(38, 60, Front::both)},
      {"gilded-thimble",
       "repair",
       {"The Gilded Thimble", "金の指ぬき", "الكشتبان المذهّب"},
       "Alterations by tomorrow, miracles by Friday.",
       island(60, 82, Front::gallery)},
      {"bergamot",
       "beauty",
       {"Bergamot Lane", "ベルガモット小路", "زقاق البرغموت"},
       "Scents mixed at the counter.",
       island(98, 114, Front::gallery)},
      {"noor-opticians",
       "medical",
       {"Clear Noon Opticians", "正午眼鏡店", "بصريات الظهيرة"},
       "Eye tests without an appointment until noon.",
       island(114, 130)},
      {"copper-kettle",
       "home",
       {"Kettle & Kind", "ケトル&カインド", "إبريق وأشباهه"},
       "Pans that outlive their owners.",
       island(130, 147, Front::both)},
      {"juniper-satchel",
       "bags",
       {"Juniper Satchel", "ジュニパー鞄店", "حقيبة العرعر"},
       "Leather bags, guaranteed for thirty years.",
       island(147, 164)},
      {"fig-bank",
       "money",
       {"Figtree Savings Bank", "いちじく貯蓄銀行", "بنك التينة للادخار", "Sparbank Feigenbaum"},
       "A bank with a tree in it.",
       island(196, 218)},
      {"puddle-parade",
       "shoes",
       {"Puddle Parade", "水たまりパレード", "موكب البرك"},
       "Small shoes for large puddles.",
       island(218, 240, Front::both)},
      {"north-by-parcel",
       "travel",
       {"North by Parcel", "小包は北へ", "الطرد شمالًا"},
       "Post, parcels and tickets to far places.",
       island(240, 262, Front::gallery)},
      {"opal-ladder",
       "jewelry",
       {"Opal Ladder", "オパールの梯子", "سلّم الأوبال"},
       "Stones chosen in daylight.",
       island(278, 294, Front::gallery)},
      {"clockwork-hare",
       "toys",
       {"The Clockwork Hare", "ぜんまい仕掛けの兎", "الأرنب الآلي"},
       "Toys that need winding, not charging.",
       island(294, 310, Front::both)},
      {"moth-and-mirror",
       "bags",
       {"Moth & Mirror", "蛾と鏡", "عثة ومرآة"},
       "Hats, scarves and a second opinion.",
       island(310, 327)},
      {"dune-telephone",
       "tech",
       {"Dune Radio", "砂丘ラジオ", "راديو الكثبان"},
       "Headphones, radios and repairs of both.",
       island(327, 344)},
  };
}

std::vector<Place> courtAndStreet() {
  return {
      {"great-astrolabe",
       "culture",
       {"The Great Astrolabe", "大アストロラーベ", "الأسطرلاب الكبير", "Das große Astrolabium"},
       "Six meters of brass that tells the hour, the season and who is late.",
       kiosk({0, 0}, 5.0, 270)},
      {"information",
       "information",
       {"Information desk", "総合案内所", "مكتب الاستعلامات", "Information"},
       "Maps, wheelchairs, lost gloves.",
       kiosk({8.5, -15}, 2.2, 180)},
      {"little-dipper",
       "sweets",
       {"The Little Dipper", "こぐま座アイス", "مغرفة الدب الأصغر"},
       "Ice cream by the ladle.",
       kiosk({26, 11}, 3.0, 270)},
      {"saturn-rings",
       "sweets",
       {"Rings of Sugar", "シュガーリング", "حلقات السكر"},
       "Doughnuts, still warm.",
       kiosk({-26, 11}, 3.0, 270)},
      {"marble-juice",
       "street-food",
       {"Marble & Mint", "マーブル&ミント", "رخام ونعناع"},
       "Pressed juices and mint tea.",
       kiosk({26, -11}, 3.0, 90)},
      {"paper-lantern-press",
       "gifts",
       {"Paper Lantern Press", "紙灯籠新聞店", "صحافة الفانوس الورقي"},
       "Newspapers, stamps and the day's horoscope.",
       kiosk({-26, -11}, 3.0, 90)},
      {"entrance-north",
       "entrances",
       {"North entrance", "北口", "المدخل الشمالي", "Nordeingang"},
       "From Lantern Street.",
       ground(rectangle(-5, 66, 5, 69), {0, 67.5})},
      {"entrance-south",
       "entrances",
       {"South entrance", "南口", "المدخل الجنوبي", "Südeingang"},
       "From the station square.",
       ground(rectangle(-5, -69, 5, -66), {0, -67.5})},
      {"entrance-east",
       "entrances",
       {"East entrance", "東口", "المدخل الشرقي", "Osteingang"},
       "From the garden side.",
       ground(rectangle(93.5, -4.5, 96.5, 4.5), {95, 0})},
      {"taxis",
       "vehicles",
       {"Taxi rank", "タクシー乗り場", "موقف سيارات الأجرة", "Taxistand"},
       "By day and by night.",
       ground(rectangle(-40, -89, -18, -85), {-29, -87})},
      {"bicycles",
       "vehicles",
       {"Bicycle stands", "駐輪場", "موقف الدراجات", "Fahrradständer"},
       "Under cover, with a pump on a chain.",
       ground(rectangle(14, 76, 38, 80), {26, 78})},
  };
}

// Lawns in the four corners of the site, and trees along the facade.
void addGarden(Floor& floor) {
  constexpr double margin = -6.0;
  Outline east = {{107, 34}, {107, 79}, {101, 85}, {50, 85}};
  for (const Point point : arc(margin, 59, 25)) east.push_back(point);
  Outline west = {{-50, 85}, {-112, 85}, {-118, 79}, {-118, 39}, {-84, 39}};
  for (const Point point : arc(margin, 144, 121)) west.push_back(point);
  floor.lawns = {east, west, mirrored(east), mirrored(west)};
  for (const double side : {-1.0, 1.0}) {
    for (const double bearing : {29.0, 35.0, 41.0, 47.0, 53.0, 127.0, 133.0, 139.0})
      floor.trees.push_back(at(-11, side * bearing));
    for (const double bearing : {32.0, 44.0, 130.0}) floor.trees.push_back(at(-21, side * bearing));
    for (const double x : {-112.0, -104.0, -96.0, -88.0}) floor.trees.push_back({x, side * 45});
    for (const double x : {-114.0, 102.0})
      for (const double y : {54.0, 63.0, 72.0}) floor.trees.push_back({x, side * y});
    for (const double y : {8.0, 14.0, 20.0}) floor.trees.push_back({99, side * y});
  }
  for (const double x : {-36.0, -27.0, -18.0, -9.0}) floor.trees.push_back({x, 76});
  for (const double x : {14.0, 22.0, 30.0, 38.0}) floor.trees.push_back({x, -86});
  for (const double x : {-39.0, 39.0}) floor.trees.push_back({x, -66});
}

}  // namespace

Floor makeGroundFloor() {
  Floor floor = {.id = "g",
                 .shortName = "G",
                 .names = {"Ground floor", "1階", "الطابق الأرضي", "Erdgeschoss"},
                 .elevation = 0.0};
  floor.slab.push_back({{-112, -98},
                        {102, -98},
                        {114, -86},
                        {114, 80},
                        {102, 92},
                        {-112, 92},
                        {-124, 80},
                        {-124, -86}});
  addRing(floor);
  addStore(floor);
  addCourt(floor);
  addGarden(floor);
  floor.walkways.push_back({"lobby-north", lobby(90)});
  floor.walkways.push_back({"lobby-south", lobby(270)});
  floor.walkways.push_back({"lobby-east", lobby(0)});
  floor.walkways.push_back({"square-north", squareNorth()});
  floor.walkways.push_back({"square-south", squareSouth()});
  floor.walkways.push_back({"square-east", squareEast()});
  floor.lines.push_back({{{0, 82}, at(23, 90)}});
  floor.lines.push_back({{{0, -87}, at(23, 270)}});
  floor.lines.push_back({{{103, 0}, at(23, 0)}});
  floor.lines.push_back({{{0, 73}, {26, 73}, {26, 78}}});
  floor.lines.push_back({{{0, -72}, {-29, -72}, {-29, -87}}});
  floor.lines.push_back({{{0, -72}, {36, -72}, {36, -78.25}}});
  addPlaces(floor, {outerShops(), islandShops(), courtAndStreet()});
  return floor;
}

}  // namespace orivanta::demo

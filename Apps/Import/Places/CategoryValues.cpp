#include <algorithm>
#include <map>
#include <utility>

#include "Apps/Import/Places/Categories.hpp"

namespace orivanta::importer {

namespace {

struct Values {
  std::string_view category;
  std::string_view values;  // separated by spaces
};

// Tags of OpenStreetMap.
constexpr Values tags[] = {
    {"shopping",
     "shop=yes shop=general shop=variety_store shop=outlet shop=pawnbroker "
     "shop=second_hand shop=vacant shop=tobacco shop=e-cigarette shop=hobby shop=craft "
     "shop=fabric shop=sewing shop=wool shop=pet shop=car shop=erotic "
     "amenity=marketplace indoor=shop room=shop room=store"},
    {"department", "shop=department_store shop=mall"},
    {"clothing",
     "shop=clothes shop=fashion shop=boutique shop=tailor shop=baby_goods "
     "shop=underwear"},
    {"shoes", "shop=shoes"},
    {"bags", "shop=bag shop=leather shop=fashion_accessories shop=accessories"},
    {"jewelry", "shop=jewelry shop=watches"},
    {"home",
     "shop=furniture shop=interior_decoration shop=houseware shop=kitchen shop=bed "
     "shop=curtain shop=carpet shop=lighting shop=doityourself shop=hardware "
     "shop=household_linen shop=tableware shop=candles shop=appliance"},
    {"books", "shop=books shop=stationery shop=newsagent shop=comics"},
    {"toys", "shop=toys shop=games shop=party shop=model"},
    {"tech",
     "shop=electronics shop=mobile_phone shop=computer shop=hifi shop=video_games "
     "shop=camera shop=photo shop=telecommunication"},
    {"music", "shop=music shop=musical_instrument shop=video"},
    {"gifts", "shop=gift shop=florist shop=art shop=souvenir shop=antiques"},
    {"sport", "shop=sports shop=outdoor shop=bicycle shop=fishing shop=hunting shop=ski"},
    {"beauty",
     "shop=beauty shop=cosmetics shop=perfumery shop=chemist shop=massage shop=nails "
     "shop=tattoo shop=hairdresser_supply shop=herbalist shop=health "
     "shop=nutrition_supplements"},
    {"groceries",
     "shop=supermarket shop=convenience shop=grocery shop=greengrocer shop=butcher "
     "shop=deli shop=cheese shop=seafood shop=wine shop=alcohol shop=beverages "
     "shop=farm shop=tea shop=coffee shop=spices shop=health_food shop=food "
     "shop=frozen_food shop=organic"},
    {"kiosk", "shop=kiosk amenity=kiosk building=kiosk"},
    {"food",
     "amenity=food_court amenity=canteen room=canteen room=cafeteria room=dining "
     "room=dining_room"},
    {"cafes", "amenity=cafe room=cafe shop=cafe amenity=internet_cafe"},
    {"restaurants", "amenity=restaurant room=restaurant"},
    {"street-food", "amenity=fast_food"},
    {"sweets",
     "shop=bakery shop=pastry shop=confectionery shop=chocolate amenity=ice_cream "
     "shop=ice_cream"},
    {"bars", "amenity=bar amenity=pub amenity=biergarten amenity=nightclub room=bar"},
    {"rooms",
     "indoor=room room=yes room=room indoor=yes building:part=yes buildingpart=room "
     "room=unspecified room=other room=unknown"},
    {"classrooms",
     "room=class room=classroom room=seminar room=computer amenity=classroom "
     "room=training room=education amenity=school amenity=college "
     "amenity=university amenity=kindergarten amenity=training"},
    {"auditoriums",
     "room=auditorium room=lecture room=lecture_hall amenity=auditorium room=hall "
     "amenity=conference_centre room=aula"},
    {"laboratories", "room=laboratory room=lab room=workshop"},
    {"meeting-rooms", "room=meeting room=conference amenity=meeting_room room=meeting_room"},
    {"lounges", "room=lounge room=common room=sport room=break amenity=lounge room=living"},
    {"kitchens", "room=kitchen room=kitchenette"},
    {"storage",
     "room=storage room=locker_room room=archive room=cloakroom room=closet "
     "amenity=cloakroom amenity=storage room=wardrobe room=changing"},
    {"technical",
     "room=technical room=electricity room=server room=it room=maintenance "
     "room=facility room=cleaning room=boiler room=ventilation room=shaft "
     "room=janitor room=machine room=technic indoor=shaft room=printer "
     "room=copy room=waste"},
    {"apartments", "room=bedroom room=apartment room=flat room=dormitory"},
    {"private", "room=private access=private room=staff"},
    {"offices",
     "room=office room=administration room=secretary office=yes amenity=office "
     "room=reception_office room=admin office=company office=administrative"},
    {"money",
     "amenity=bank amenity=bureau_de_change amenity=money_transfer shop=money_lender "
     "office=insurance office=financial"},
    {"repair",
     "craft=shoemaker craft=tailor craft=key_cutter shop=repair shop=locksmith "
     "shop=laundry shop=dry_cleaning craft=electronics_repair shop=shoe_repair"},
    {"hair", "shop=hairdresser shop=barber"},
    {"travel", "shop=travel_agency office=travel_agent"},
    {"post", "amenity=post_office amenity=post_box amenity=parcel_locker room=mailroom"},
    {"rental", "amenity=car_rental amenity=bicycle_rental shop=rental"},
    {"medical",
     "amenity=doctors amenity=dentist amenity=clinic amenity=hospital shop=optician "
     "shop=hearing_aids shop=medical_supply healthcare=yes healthcare=doctor "
     "room=medical amenity=veterinary room=treatment room=examination"},
    {"pharmacies", "amenity=pharmacy healthcare=pharmacy"},
    {"first-aid", "room=first_aid emergency=first_aid_kit emergency=first_aid amenity=first_aid"},
    {"nursing",
     "amenity=baby_hatch amenity=nursing room=nursing amenity=baby_changing "
     "room=nursery amenity=childcare changing_table=yes"},
    {"defibrillators", "emergency=defibrillator"},
    {"information",
     "tourism=information information=office information=desk information=map "
     "information=board information=terminal amenity=information"},
    {"reception", "amenity=reception_desk room=reception room=lobby room=foyer"},
    {"cash", "amenity=atm amenity=payment_terminal"},
    {"toilets",
     "amenity=toilets room=toilet room=toilets room=wc amenity=toilet room=bathroom "
     "room=restroom indoor=toilets amenity=bathroom"},
    {"toilets-men", "toilets=men toilets=male"},
    {"toilets-women", "toilets=women toilets=female"},
    {"toilets-accessible", "toilets=wheelchair"},
    {"showers", "amenity=shower room=shower amenity=public_bath"},
    {"lockers", "amenity=luggage_locker amenity=lockers amenity=locker"},
    {"waiting", "room=waiting amenity=waiting_room room=waiting_room public_transport=waiting"},
    {"smoking", "amenity=smoking_area room=smoking smoking=yes"},
    {"phones", "amenity=telephone emergency=phone"},
    {"water", "amenity=drinking_water amenity=fountain"},
    {"vending",
     "amenity=vending_machine amenity=photo_booth amenity=charging_station "
     "amenity=device_charging_station"},
    {"seating", "amenity=bench amenity=lounger leisure=picnic_table"},
    {"prayer", "amenity=place_of_worship room=prayer room=chapel"},
    {"security", "office=security room=security amenity=security"},
    {"police", "amenity=police"},
    {"safety",
     "emergency=fire_extinguisher emergency=fire_hose emergency=fire_alarm_box "
     "emergency=assembly_point"},
    {"meeting-points", "amenity=meeting_point"},
    {"landmarks", "tourism=attraction tourism=artwork historic=memorial historic=monument"},
    {"leisure",
     "leisure=yes leisure=bowling_alley leisure=amusement_arcade amenity=casino "
     "leisure=adult_gaming_centre leisure=escape_game shop=lottery shop=bookmaker "
     "amenity=gambling"},
    {"cinema", "amenity=cinema room=cinema"},
    {"culture",
     "tourism=museum tourism=gallery amenity=theatre amenity=arts_centre "
     "amenity=exhibition_centre room=exhibition room=gallery amenity=community_centre "
     "amenity=events_venue amenity=social_centre room=stage"},
    {"library", "amenity=library room=library amenity=public_bookcase"},
    {"play", "leisure=playground leisure=indoor_play"},
    {"fitness",
     "leisure=fitness_centre leisure=sports_centre leisure=swimming_pool "
     "leisure=sports_hall leisure=dance leisure=pitch leisure=track amenity=gym "
     "room=gym leisure=trampoline_park leisure=ice_rink leisure=stadium"},
    {"hotels", "tourism=hotel tourism=hostel tourism=guest_house tourism=apartment"},
    {"gardens",
     "leisure=garden leisure=park natural=tree landuse=grass landuse=flowerbed "
     "natural=scrub indoor=garden"},
    {"entrances",
     "entrance=yes entrance=main entrance=staircase entrance=home entrance=shop "
     "railway=subway_entrance railway=train_station_entrance entrance=secondary "
     "entrance=service entrance=entrance"},
    {"exits", "entrance=exit"},
    {"emergency-exits", "entrance=emergency emergency=exit exit=emergency"},
    {"gates", "barrier=turnstile barrier=full-height_turnstile railway=ticket_gate barrier=gate"},
    {"tickets",
     "shop=ticket amenity=ticket_office vending=public_transport_tickets "
     "office=ticket amenity=ticket_validator"},
    {"platforms", "railway=platform public_transport=platform railway=platform_edge"},
    {"station",
     "railway=station public_transport=station railway=halt railway=tram_stop "
     "public_transport=stop_position railway=stop"},
    {"buses", "highway=bus_stop amenity=bus_station highway=platform"},
    {"taxis", "amenity=taxi"},
    {"parking",
     "amenity=parking amenity=parking_space amenity=parking_entrance "
     "building=parking amenity=motorcycle_parking"},
    {"bicycles", "amenity=bicycle_parking"},
    {"lifts", "highway=elevator room=elevator indoor=elevator"},
    {"stairs", "highway=steps room=stairs stairs=yes indoor=stairs room=stairwell"},
    {"escalators", "room=escalator highway=escalator"},
    {"areas",
     "indoor=area indoor=corridor room=corridor indoor=level area=yes room=entrance "
     "highway=footway highway=pedestrian highway=corridor place=square amenity=shelter "
     "room=balcony room=terrace man_made=courtyard"},
};

// Categories of IMDF and words of IndoorGML and of other sources.
constexpr Values words[] = {
    {"shopping",
     "b001 f025 retail shop store shopping rental.retail kiosk.retail retaildepartment "
     "concessions retailstore arcade"},
    {"department", "departmentstore shoppingcenter mall"},
    {"clothing",
     "clothing apparel fashion clothingstore mensclothing womensclothing "
     "childrensclothing fittingroom clothes"},
    {"shoes", "shoestore shoes footwear"},
    {"bags", "luggage accessories leathergoods handbags"},
    {"jewelry", "jewelry jeweler watches"},
    {"home", "furniture homeandgarden housewares homedecor hardware"},
    {"books", "bookstore books newsstand stationery"},
    {"toys", "toys toystore"},
    {"tech", "electronics computers mobilephones phonestore"},
    {"music", "musicstore"},
    {"gifts", "gifts giftshop florist souvenirs dutyfree"},
    {"sport", "sportinggoods outdoorgear"},
    {"beauty", "beauty cosmetics perfume spa nailsalon skincare"},
    {"groceries", "grocery supermarket conveniencestore convenience specialtyfood wine"},
    {"kiosk", "kiosk f107"},
    {"food", "foodservice food eatingdrinking foodcourt fooddrink f026 cafeteria"},
    {"cafes", "cafe coffee coffeeshop coffeeandtea teahouse"},
    {"restaurants", "restaurant restaurants dining"},
    {"street-food", "fastfood quickservice foodstand sandwiches hotdogs"},
    {"sweets", "bakery desserts icecream confectionery candy bagels donuts"},
    {"bars", "bar bars pub nightlife lounge.bar wine.bar brewery"},
    {"rooms", "room unspecified generalspace cell cellspace space b019 cabin cubicle"},
    {"classrooms", "classroom class seminar seminarroom lectureroom studentservices"},
    {"auditoriums", "auditorium lecturehall lecture hall stage"},
    {"laboratories", "laboratory lab"},
    {"meeting-rooms",
     "conferenceroom huddleroom meetingroom conference meeting phoneroom "
     "hoteling"},
    {"lounges", "lounge privatelounge lobby.lounge businesscenter sleepbox"},
    {"kitchens", "kitchen"},
    {"storage", "storage baggagestorage closet locker lockerroom cloakroom"},
    {"technical", "serverroom structure machineroom electric mechanical equipment shaft utility"},
    {"apartments", "bedroom apartment"},
    {"private", "nonpublic private b026 employeesonly restricted"},
    {"offices", "office b002 b018 f104 workspace"},
    {"services", "service services servicearea guestservices b003"},
    {"money", "bank banking currencyexchange financial"},
    {"repair", "repair tailor shoerepair drycleaning laundry"},
    {"hair", "hairsalon hairdresser barber"},
    {"travel", "travelagency"},
    {"post", "postoffice mailbox mailroom f029"},
    {"rental", "carrental rental strollerrental"},
    {"medical",
     "medical doctor dentist optician optometry clinic healthcare healthcarefacility "
     "healthscreening f022"},
    {"pharmacies", "pharmacy drugstore"},
    {"first-aid", "firstaid b017 caregiver"},
    {"nursing", "mothersroom babychanging nursing b016 f021"},
    {"defibrillators", "defibrillator f027"},
    {"information", "information b006 f018 mufid f037 f016"},
    {"reception", "reception lobby foyer"},
    {"cash", "atm changemachine cashier f030 c014"},
    {"toilets", "restroom toilet toilets wc bathroom washroom b009 b010 f001 f008"},
    {"toilets-men", "restroom.male toilet.men toiletmen b007 f002"},
    {"toilets-women", "restroom.female toilet.women toiletwomen b008 f003"},
    {"toilets-accessible",
     "restroom.wheelchair restroom.male.wheelchair "
     "restroom.female.wheelchair restroom.unisex.wheelchair "
     "restroom.transgender.wheelchair b011 b012 b013 b014 f004 f005 f006 "
     "f007"},
    {"showers", "shower showers"},
    {"lockers", "coinlocker lockers f031"},
    {"waiting", "waitingroom waiting gatearea b004 f020"},
    {"smoking", "smokingarea smoking b015"},
    {"phones", "phone payphone telephone f028"},
    {"water", "drinkingfountain drinkingwater"},
    {"vending", "vendingmachine photobooth powerchargingstation copymachine f032 c013"},
    {"seating", "seating seat seatingrow f033 c002"},
    {"prayer", "prayerroom prayer meditation chapel"},
    {"security", "security mobilityrescue lostandfound"},
    {"police", "police f019"},
    {"safety", "fireextinguisher firealarmpullstation emergencyshelter f046 f047 f048 f049"},
    {"meeting-points", "meetingpoint"},
    {"landmarks", "landmark f043"},
    {"leisure", "recreation entertainmentarea gambling casino"},
    {"cinema", "movietheater cinema"},
    {"culture", "theater museum exhibit exhibition artgallery gallery amphitheater culture"},
    {"library", "library"},
    {"play", "childplayarea playground"},
    {"fitness", "fitnessroom gym fitness fieldofplay swimmingpool yoga"},
    {"hotels", "hotel"},
    {"gardens", "vegetation garden terrace animalreliefarea"},
    {"entrances", "entry entrance entrances f017 anchorspace"},
    {"exits", "exit exits f108"},
    {"emergency-exits", "emergencyexit emergency-exits"},
    {"gates", "faregate paidarea f106 ticketgate"},
    {"boarding-gates", "boardinggate arrivalgate"},
    {"tickets", "ticketing tickets ticketoffice b005 f101 vendingmachine.trainticket"},
    {"platforms", "platform b028"},
    {"station", "rail transit traintrack peoplemover trainstation"},
    {"buses", "bus shuttle f038 groundtransportation"},
    {"taxis", "taxi rideshare limo f039 valet"},
    {"check-in", "checkin"},
    {"baggage", "baggageclaim baggagecarousel baggagecarts baggagerecheck"},
    {"controls", "immigration inspection postsecurity presecurity security.checkpoint"},
    {"parking", "parking parkandride b027 parkingspace"},
    {"bicycles", "parking.bicycle"},
    {"lifts", "elevator lift b022 f012"},
    {"escalators", "escalator b023 f013"},
    {"stairs", "stairs steps stair staircase stairway b021 f011"},
    {"ramps", "ramp slope b025 f014"},
    {"walkways", "movingwalkway b024 f015"},
    {"areas",
     "walkway corridor hallway passage concourse b029 b030 b031 b999 b020 footbridge "
     "unenclosedarea opentobelow road transferspace transitionspace geofence"},
};

using Table = std::map<std::string, std::string_view, std::less<>>;

void add(Table& table, const Values& values) {
  std::string_view rest = values.values;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    table.emplace(rest.substr(0, end), values.category);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

const Table& known() {
  static const Table table = [] {
    Table made;
    for (const Values& values : tags) add(made, values);
    for (const Values& values : words) add(made, values);
    return made;
  }();
  return table;
}

const Category* find(std::string_view value) {
  const auto found = known().find(value);
  return found == known().end() ? nullptr : &categoryWithId(found->second);
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return lower;
}

// "climbing_hall" as "climbing hall".
std::string asWords(std::string_view value) {
  std::string text(value);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '_' || c == '.' || c == '\t'; }, ' ');
  return text;
}

// The category of tags with an unknown value, by key.
std::string_view categoryOfKey(std::string_view key) {
  constexpr std::pair<std::string_view, std::string_view> keys[] = {
      {"shop", "shopping"},
      {"office", "offices"},
      {"room", "rooms"},
      {"indoor", "rooms"},
      {"healthcare", "medical"},
      {"craft", "services"},
      {"leisure", "leisure"},
      {"tourism", "leisure"},
      {"amenity", "facilities"},
      {"sport", "fitness"},
      {"information", "information"},
      {"emergency", "safety"},
      {"railway", "transport"},
      {"public_transport", "transport"},
      {"toilets", "toilets"},
      {"aeroway", "transport"},
      {"cuisine", "restaurants"}};
  for (const auto& [name, category] : keys)
    if (name == key) return category;
  return "other";
}

CategoryMatch matchTag(std::string_view tag) {
  if (const Category* category = find(tag)) return {category, {}};
  const std::size_t equals = tag.find('=');
  const std::string_view key = tag.substr(0, equals);
  const std::string_view value = tag.substr(equals + 1);
  // Of several values, the first that is known.
  for (std::size_t from = 0; from < value.size();) {
    const std::size_t end = std::min(value.find(';', from), value.size());
    std::string one(key);
    one += '=';
    one += value.substr(from, end - from);
    if (const Category* category = find(one)) return {category, {}};
    from = end + 1;
  }
  return {&categoryWithId(categoryOfKey(key)), asWords(value)};
}

}  // namespace

CategoryMatch matchCategory(std::string_view value) {
  const std::string lower = lowerCase(value);
  if (lower.empty()) return {&categoryWithId("rooms"), {}};
  if (lower.find('=') != std::string::npos) return matchTag(lower);
  const std::size_t colon = lower.find(':');
  const std::string_view type =
      colon == std::string::npos ? std::string_view() : std::string_view(lower).substr(0, colon);
  std::string_view word =
      std::string_view(lower).substr(colon == std::string::npos ? 0 : colon + 1);
  const std::string unknown = asWords(word);
  while (!word.empty()) {
    if (const Category* category = find(word)) return {category, {}};
    const std::size_t dot = word.rfind('.');
    word = dot == std::string_view::npos ? std::string_view() : word.substr(0, dot);
  }
  if (type == "occupant" || type == "kiosk") return {&categoryWithId("shopping"), unknown};
  if (type == "unit") return {&categoryWithId("rooms"), unknown};
  if (type.empty()) return {&categoryWithId("rooms"), unknown};
  return {&categoryWithId("other"), unknown};
}

}  // namespace orivanta::importer

#include "Source/Guidance/Narrator.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/algorithm/string/replace.hpp>
#include <limits>

#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Words/Messages.hpp"
#include "Source/Guidance/Words/Placeholders.hpp"
#include "Tests/Support/MessageFile.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::guidance {
namespace {

using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using Reference = Direction::Turn::ReferencePosition;

// A venue with hand-made routes.
class NarratorTest : public testing::Test {
 protected:
  NarratorTest() { reload(); }

  void reload() {
    const auto venue = small_.load();
    shop_ = venue->locations->at(1);
    bakery_ = venue->locations->at(0);
    food_ = bakery_->categories.front();
    stairs_ = venue->vortices->at(1);
    const auto guide = Guide::make(*venue);
    sign_ = guide->spokenName(std::shared_ptr<Location>(stairs_));
    shopName_ = guide->spokenName(shop_);
    lower_ = venue->nodes->at(1);
    upper_ = venue->nodes->at(5);
    itinerary_.hasScale = true;
  }

  // A walk, a ride on the stairs, and a walk on the upper floor.
  std::vector<Step> routeUpstairs() {
    itinerary_.legs.assign(3, Leg());
    for (Leg& leg : itinerary_.legs)
      leg = {Leg::Kind::walk, {lower_}, lower_->map, 145, 100, {}, {}, {}, 0};
    itinerary_.legs[1].kind = Leg::Kind::ride;
    itinerary_.legs[1].nodes = {lower_, upper_};
    itinerary_.legs[1].connector = stairs_;
    itinerary_.legs[1].connectorKind = ConnectorKind::stairs;
    itinerary_.legs[1].sign = sign_;
    itinerary_.legs[1].floorsPassed = 1;
    std::vector<Step> steps(5);
    steps[0].kind = Step::Kind::depart;
    steps[0].name = "Bakery";
    steps[0].turnDegrees = 90;
    steps[0].metersToNext = 43;
    steps[0].passed = {{shop_, nullptr, Side::left}};
    steps[1].turnDegrees = -50;
    steps[1].sharpness = Sharpness::bear;
    steps[1].landmark = Landmark{bakery_, food_, Reference::Past};
    steps[1].through = {shop_};
    steps[1].metersToNext = 22;
    steps[2].kind = Step::Kind::ride;
    steps[2].leg = 1;
    steps[2].side = Side::right;
    steps[3].kind = Step::Kind::leave;
    steps[3].leg = 2;
    steps[3].turnDegrees = -90;
    steps[3].secondTurnDegrees = 90;
    steps[3].metersToNext = 240;
    steps[4].kind = Step::Kind::arrive;
    steps[4].leg = 2;
    steps[4].name = shopName_;
    steps[4].side = Side::left;
    steps[4].opposite = bakery_;
    return steps;
  }

  std::string textOf(const Step& step, const Narrator& narrator = Narrator()) const {
    return narrator.text(itinerary_, {step}, 0);
  }

  test::TwoFloorVenue small_;
  std::shared_ptr<Location> bakery_;
  std::shared_ptr<Location> shop_;
  std::shared_ptr<Category> food_;
  std::shared_ptr<Vortex> stairs_;
  std::string sign_;
  std::string shopName_;
  std::shared_ptr<Node> lower_;
  std::shared_ptr<Node> upper_;
  Itinerary itinerary_;
};

TEST_F(NarratorTest, WritesARouteInEachLanguage) {
  const auto steps = routeUpstairs();
  struct Case {
    const char* language;
    std::string text;  // with brackets for isolates
  };
  for (const Case& each : {
           Case{"en",
                "Leave Bakery and turn left. Go 40\u00a0m, past Book Shop on your left.\n"
                "Bear right after “Food”. Go 20\u00a0m, through Book Shop.\n"
                "Take the stairs on your right (Stairs B) up one floor to F1: First.\n"
                "Leave the stairs and turn right, then immediately left. Go 250\u00a0m.\n"
                "You have arrived: Book Shop is on your left, opposite Bakery.\n"
                "450\u00a0m, 5\u00a0min"},
           {"de",
            "Verlassen Sie Bakery und biegen Sie links ab. Gehen Sie 40\u00a0m weiter, vorbei an "
            "Book Shop auf der linken Seite.\n"
            "Halten Sie sich nach „Food“ rechts. Gehen Sie 20\u00a0m weiter, durch Book Shop "
            "hindurch.\n"
            "Nehmen Sie die Treppe auf der rechten Seite (Stairs B) eine Etage nach oben bis "
            "F1: First.\n"
            "Verlassen Sie die Treppe und biegen Sie rechts und gleich darauf links ab. Gehen "
            "Sie 250\u00a0m weiter.\n"
            "Sie sind am Ziel: Book Shop liegt auf der linken Seite, gegenüber von Bakery.\n"
            "450\u00a0m, 5\u00a0Min."},
           {"fr",
            "Quittez Bakery et tournez à gauche. Avancez de 40\u00a0m, en passant devant Book Shop "
            "sur votre gauche.\n"
            "Tournez légèrement à droite après «\u00a0Food\u00a0». Avancez de 20\u00a0m, en "
            "traversant "
            "Book Shop.\n"
            "Prenez l’escalier sur votre droite (Stairs B) pour monter d’un étage jusqu’à "
            "«\u00a0F1\u00a0: First\u00a0».\n"
            "Quittez l’escalier et tournez à droite, puis immédiatement à gauche. Avancez de "
            "250\u00a0m.\n"
            "Vous êtes à destination\u00a0: Book Shop se trouve sur votre gauche, en face de "
            "Bakery.\n"
            "450\u00a0m, 5\u00a0min"},
           {"ja",
            "Bakeryを出て、左に曲がります。40m進みます。途中、左側にBook Shopがあります。\n"
            "「Food」を過ぎたら斜め右に進みます。Book Shopの中を通って20m進みます。\n"
            "右側の階段（Stairs B）で1階分上がり、F1：Firstへ進みます。\n"
            "階段を出て、右に曲がり、すぐに左に曲がります。250m進みます。\n"
            "目的地のBook Shopは左側、Bakeryの向かいにあります。\n"
            "450m、5分"},
           {"ar",
            "غادر [Bakery] ثم انعطف يسارًا. سِر مسافة [40\u00a0م] مرورًا أمام [Book Shop] على يسارك.\n"
            "انعطف قليلًا إلى اليمين بعد «[Food]». سِر مسافة [20\u00a0م] عبر [Book Shop].\n"
            "استخدم الدرج على يمينك ([Stairs B]) للصعود طابقًا واحدًا إلى [F1]: [First].\n"
            "غادر الدرج ثم انعطف يمينًا ثم يسارًا مباشرةً. سِر مسافة [250\u00a0م].\n"
            "لقد وصلت: وجهتك [Book Shop] على يسارك، مقابل [Bakery].\n"
            "[450\u00a0م]، 5\u00a0دقائق"},
       }) {
    const Narrator narrator(each.language);
    std::string text;
    for (const std::string& line : narrator.texts(itinerary_, steps)) text += line + '\n';
    text += narrator.summary(itinerary_);
    boost::algorithm::replace_all(text, "\u2068", "[");
    boost::algorithm::replace_all(text, "\u2069", "]");
    EXPECT_EQ(text, each.text);
  }
}

// Calls `visit` with a list of steps for every value that changes a text.
template <class Visit>
void visitAllSteps(const std::vector<Step>& route, Itinerary& itinerary, Visit visit) {
  const auto& shop = route[0].passed.front().place;
  const std::vector<Side> sides{Side::none, Side::left, Side::right, Side::ahead, Side::behind};
  for (const auto kind : {Step::Kind::depart, Step::Kind::turn, Step::Kind::leave})
    for (const auto sharpness :
         {Sharpness::bear, Sharpness::turn, Sharpness::sharp, Sharpness::around})
      for (const double degrees : {-90.0, 0.0, 90.0})
        for (const auto& second : {std::optional<double>(), std::optional(-degrees)})
          for (int i = 0; i < 20; ++i) {
            Step step;
            step.kind = kind;
            step.leg = i < 10 ? 0 : 1;
            step.sharpness = sharpness;
            step.turnDegrees = degrees;
            step.secondTurnDegrees = second;
            if (i % 2 == 0) step.name = "X";
            if (kind == Step::Kind::leave)
              step.side = sides[static_cast<std::size_t>(i + i / 5) % 5];
            if (i % 5 > 1)
              step.landmark = Landmark{shop, nullptr, static_cast<Reference>(i % 5 - 2)};
            visit({step});
          }
  for (const double meters : {0.0, 20.0})
    for (const Side first : sides)
      for (const Side second : sides)
        for (std::size_t count = 0; count < 12; ++count) {
          Step step;
          step.metersToNext = meters;
          step.passed = {{shop, nullptr, first}, {shop, route[1].landmark->category, second}};
          step.passed.resize(count % 3);
          step.through = {shop, route[1].landmark->place, itinerary.legs[1].connector};
          step.through.resize(count / 3);
          visit({step});
        }
  for (const Side side : sides)
    for (const bool named : {true, false})
      for (const bool isOpposite : {true, false}) {
        Step step = route[4];
        step.side = side;
        if (!named) step.name.clear();
        if (!isOpposite) step.opposite = nullptr;
        visit({step});
        visit({step, step});
      }
  for (int kind = 0; kind < 5; ++kind) {
    for (const Side side : sides)
      for (const int floors : {-12, -1, 0, 1, 2, 5, 100}) {
        itinerary.legs[1].connectorKind = static_cast<ConnectorKind>(kind);
        itinerary.legs[1].floorsPassed = floors;
        Step step = route[2];
        step.side = side;
        visit({step});
      }
    visit({route[3]});
    Step straight = route[3];
    straight.turnDegrees = 0;
    visit({straight});
  }
  std::swap(itinerary.legs[1].nodes[0], itinerary.legs[1].nodes[1]);
  visit({route[2]});
}

TEST_F(NarratorTest, UsesEveryMessage) {
  // Messages that consist of their keys and placeholders show which ones a text uses.
  const auto english = Messages::ofLibrary("en");
  std::vector<std::string> texts;
  for (const auto& [key, forms] : english->catalog.messages()) {
    std::string text = "<" + key + ">";
    const auto placeholders = placeholdersOf(forms.back());
    for (const auto& name : *placeholders) text += "{" + name + "}";
    texts.push_back(key + "\4");
    texts.push_back(forms.size() == 1 ? text : text + '\0' + text);
  }
  std::vector<std::pair<std::string_view, std::string_view>> messages;
  for (std::size_t i = 0; i < texts.size(); i += 2) messages.emplace_back(texts[i], texts[i + 1]);
  const auto keys = Narrator::fromMessages(test::messageFile(messages), "xx");
  ASSERT_TRUE(keys);
  std::string all;
  visitAllSteps(routeUpstairs(), itinerary_, [&](const std::vector<Step>& steps) {
    const std::string text = keys->text(itinerary_, steps, 0);
    EXPECT_NE(text, "");
    all += text;
  });
  all += keys->summary(itinerary_) + keys->length(2000);
  for (int kind = 0; kind < 8; ++kind)
    for (const char* place : {"", "X"})
      all += keys->text(Problem{static_cast<Problem::Kind>(kind), 0}, place);
  for (const auto& [key, forms] : english->catalog.messages()) {
    if (key.starts_with("interface.")) continue;  // see Tests/check-messages
    EXPECT_THAT(all, HasSubstr("<" + key + ">"));
  }
}

TEST_F(NarratorTest, EachLanguageIsComplete) {
  const auto& english = Messages::ofLibrary("en")->catalog.messages();
  for (const std::string& language : Narrator::languages()) {
    const auto messages = Messages::ofLibrary(language);
    ASSERT_TRUE(messages) << language;
    ASSERT_EQ(messages->catalog.messages().size(), english.size()) << language;
    for (const auto& [key, forms] : english) {
      const auto* translated = messages->catalog.find(key);
      ASSERT_NE(translated, nullptr) << language << ' ' << key;
      EXPECT_EQ(placeholdersOf(translated->back()), placeholdersOf(forms.back()))
          << language << key;
    }
    const Narrator narrator(language);
    visitAllSteps(routeUpstairs(), itinerary_, [&](const std::vector<Step>& steps) {
      const std::string text = narrator.text(itinerary_, steps, 0);
      EXPECT_EQ(text.find_first_of("{}"), std::string::npos) << text;
      EXPECT_TRUE(text.ends_with(".") || text.ends_with("。")) << text;
      EXPECT_EQ(text.find("  "), std::string::npos) << text;
    });
  }
}

TEST_F(NarratorTest, AddsALanguage) {
  std::vector<std::string> texts;
  for (const auto& [key, forms] : Messages::ofLibrary("en")->catalog.messages()) {
    texts.push_back(key + "\4");
    texts.push_back(forms.size() == 1 ? forms[0] : forms[0] + '\0' + forms[1]);
    if (key == "time.minutes") texts.back() = std::string("kort") + '\0' + "{minutes} min";
  }
  std::vector<std::pair<std::string_view, std::string_view>> messages;
  for (std::size_t i = 0; i < texts.size(); i += 2) messages.emplace_back(texts[i], texts[i + 1]);
  const std::string file = test::messageFile(messages);
  EXPECT_FALSE(Narrator::addLanguage(file.substr(1), "qaa"));
  EXPECT_EQ(Narrator::bestLanguage("qaa-AT, de"), "de");
  ASSERT_TRUE(Narrator::addLanguage(file, "qaa"));
  ASSERT_TRUE(Narrator::addLanguage(file, "de"));
  EXPECT_THAT(Narrator::languages(), IsSupersetOf({"ar", "de", "en", "fr", "ja", "qaa"}));
  EXPECT_EQ(Narrator("qaa-AT, de").time(60), "kort");
  EXPECT_EQ(Narrator("de").time(60), "1\u00A0Min.");
}

TEST_F(NarratorTest, SpeaksOnlyGivenNames) {
  Step ride;
  ride.kind = Step::Kind::ride;
  Step arrival;
  arrival.kind = Step::Kind::arrive;
  const std::string cut = std::string(79, 'x') + "…";
  struct Case {
    std::string name;  // as JSON
    const char* language;
    std::string ride;     // the name of the stairs
    std::string arrival;  // the name of the shop
  };
  for (const Case& each :
       {Case{R"("X", "nameGenerated": true)", "en", "Take the stairs up one floor to F1: First.",
             "You have arrived at your destination."},
        {R"("stairs")", "en", "Take the stairs up one floor to F1: First.",
         "You have arrived at stairs."},
        {R"(" ")", "en", "Take the stairs up one floor to F1: First.",
         "You have arrived at your destination."},
        {R"("a{place}\u202e\u001b\n ")", "en",
         "Take the stairs (a{place}\uFFFD) up one floor to F1: First.",
         "You have arrived at a{place}\uFFFD."},
        {'"' + std::string(10'000'000, 'x') + '"', "en",
         "Take the stairs (" + cut + ") up one floor to F1: First.",
         "You have arrived at " + cut + "."},
        {R"("مقهى")", "en", "Take the stairs (\u2068مقهى\u2069) up one floor to F1: First.",
         "You have arrived at \u2068مقهى\u2069."},
        {R"("TR03")", "ar",
         "استخدم الدرج (\u2068TR03\u2069) للصعود طابقًا واحدًا إلى \u2068F1\u2069: "
         "\u2068First\u2069.",
         "لقد وصلت إلى وجهتك \u2068TR03\u2069."}}) {
    small_.vortices = R"([{"id": "lift", "name": "L", "type": "lift", "nodes": []},
        {"id": "stairs", "type": "stairs", "nodes": ["n2", "u2"], "name": )" +
                      each.name + "}]";
    small_.locations = R"([{"id": "l1", "name": "B", "type": "shop", "categories": ["c2"]},
        {"id": "l2", "type": "shop", "name": )" +
                       each.name + "}]";
    reload();
    routeUpstairs();
    ride.leg = 1;
    arrival.name = shopName_;
    const Narrator narrator(each.language);
    EXPECT_EQ(textOf(ride, narrator), each.ride);
    EXPECT_EQ(textOf(arrival, narrator), each.arrival);
  }
}

TEST_F(NarratorTest, NamesFloorsInFull) {
  struct Case {
    const char* language;
    const char* connector;
    const char* names;
    const char* text;
  };
  for (const Case& each : {Case{"en", "lift", R"("shortName": "2F", "name": "Food")",
                                "Take the elevator up one floor to 2F: Food."},
                           {"en", "stairs", R"("shortName": "1", "name": "Level 1")",
                            "Take the stairs up one floor to Level 1."},
                           {"fr", "stairs", R"("shortName": "0", "name": "Rez-de-chaussée")",
                            "Prenez l’escalier pour monter d’un étage jusqu’à «\u00a00\u00a0: "
                            "Rez-de-chaussée\u00a0»."}}) {
    small_.maps = R"([{"id": "g", "name": "G", "shortName": "G", "elevation": 0},
        {"id": "f1", "elevation": 10, )" +
                  std::string(each.names) + "}]";
    small_.vortices = R"([{"id": "lift", "name": "L", "type": "lift", "nodes": []},
        {"id": "stairs", "type": "stairs", "nodes": ["n2", "u2"], "name": ""}])";
    reload();
    Step ride = routeUpstairs()[2];
    ride.side = Side::none;
    if (each.connector == std::string_view("lift"))
      itinerary_.legs[1].connectorKind = ConnectorKind::lift;
    EXPECT_EQ(textOf(ride, Narrator(each.language)), each.text);
  }
}

TEST_F(NarratorTest, TellsWhereTheWalkAfterARideBegins) {
  struct Case {
    const char* language;
    Side side;
    double degrees;
    const char* text;
  };
  for (const Case& each :
       {Case{"en", Side::left, 0, "Leave the stairs and turn left."},
        {"en", Side::behind, 0, "Leave the stairs and turn around."},
        {"en", Side::ahead, 90, "Leave the stairs and turn left."},
        {"en", Side::behind, 90, "Leave the stairs and turn around, then turn left."},
        {"de", Side::left, 90,
         "Verlassen Sie die Treppe und biegen Sie links ab, dann biegen Sie links ab."},
        {"fr", Side::behind, -90, "Quittez l’escalier et faites demi-tour, puis tournez à droite."},
        {"ja", Side::right, -90, "階段を出て、右に曲がってから右に曲がります。"},
        {"ar", Side::right, 90, "غادر الدرج ثم انعطف يمينًا ثم انعطف يسارًا."}}) {
    Step step = routeUpstairs()[3];
    step.side = each.side;
    step.turnDegrees = each.degrees;
    step.secondTurnDegrees.reset();
    step.metersToNext = 0.0;
    EXPECT_EQ(textOf(step, Narrator(each.language)), each.text);
  }
}

TEST_F(NarratorTest, CountsFurtherRooms) {
  Step step = routeUpstairs()[1];
  const auto cafe = Location::make(*RawData::parse(R"({"id": "c", "name": "C", "type": "x"})"));
  const std::pair<std::vector<std::shared_ptr<Location>>, const char*> cases[] = {
      {{shop_, shop_}, "through Book Shop."},
      {{shop_, bakery_}, "through Book Shop and Bakery."},
      {{shop_, bakery_, shop_}, "through Book Shop and Bakery."},
      {{shop_, bakery_, cafe, shop_}, "through Book Shop, Bakery and one more room."},
      {{shop_, bakery_, cafe, stairs_}, "through Book Shop, Bakery and 2 more rooms."}};
  for (const auto& [rooms, text] : cases) {
    step.through = rooms;
    EXPECT_THAT(textOf(step), HasSubstr(text));
  }
}

TEST_F(NarratorTest, JoinsRidesAndOmitsUnknownLengths) {
  auto steps = routeUpstairs();
  itinerary_.legs.insert(itinerary_.legs.begin() + 1, itinerary_.legs[1]);
  for (auto& step : steps) step.leg += step.leg > 1 ? 1 : 0;
  for (const auto& [lastLeg, floors] :
       {std::pair(0, "one floor"), {2, "2 floors"}, {99, "2 floors"}}) {
    steps[2].lastLeg = static_cast<std::size_t>(lastLeg);
    EXPECT_THAT(Narrator().text(itinerary_, steps, 2), HasSubstr(floors));
  }
  itinerary_.hasScale = false;
  EXPECT_EQ(Narrator().text(itinerary_, steps, 0),
            "Leave Bakery and turn left. Go past Book Shop on your left.");
  EXPECT_EQ(Narrator().text(itinerary_, steps, 3),
            "Leave the stairs and turn right, then immediately left.");
  EXPECT_EQ(Narrator().summary(itinerary_), "");
  EXPECT_EQ(Narrator().text(itinerary_, steps, steps.size()), "");
  steps[2].leg = 9;
  EXPECT_EQ(Narrator().text(itinerary_, steps, 2), "Take the passage on your right.");
}

TEST(Narrator, RoundsLengthsAndTimes) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const std::pair<double, const char*> lengths[] = {
      {9.9, ""},           {10, "10\u00a0m"},   {99, "100\u00a0m"},   {124, "100\u00a0m"},
      {126, "150\u00a0m"}, {549, "500\u00a0m"}, {951, "1,0\u00a0km"}, {1e300, "1000000,0\u00a0km"},
      {-50, ""},           {none, ""}};
  for (const auto& [meters, text] : lengths)
    EXPECT_EQ(Narrator("de").length(meters), text) << meters;
  const std::pair<double, const char*> times[] = {{120, "دقيقتان"},
                                                  {269, "4\u00a0دقائق"},
                                                  {-1e300, "دقيقة واحدة"},
                                                  {1e300, "1000000\u00a0دقيقة"},
                                                  {none, ""}};
  for (const auto& [seconds, text] : times)
    EXPECT_EQ(Narrator("ar").time(seconds), text) << seconds;
}

TEST(Narrator, FindsTheBestLanguage) {
  EXPECT_THAT(Narrator::languages(), IsSupersetOf({"ar", "de", "en", "fr", "ja"}));
  const std::pair<std::string, const char*> cases[] = {{"de-AT, en;q=0.5", "de"},
                                                       {"xx", "en"},
                                                       {"en;q=0.5 ,FR-ca;q=0.7", "fr"},
                                                       {"ja;q=0,de;q=0.001", "de"},
                                                       {"", "en"},
                                                       {"*, ar-Latn-x-y;q=1.0", "ar"},
                                                       {"zh, ja;q=2, fr;q=x, de;Q=0.3", "de"},
                                                       {"den", "en"},
                                                       {",,;q=1,de", "de"},
                                                       {std::string(10'000'000, ',') + "de", "en"}};
  for (const auto& [preferred, best] : cases) {
    EXPECT_EQ(Narrator::bestLanguage(preferred), best) << preferred.substr(0, 99);
    EXPECT_EQ(Narrator(preferred).language(), best);
  }
}

TEST(Narrator, ReadsMessageFiles) {
  using namespace std::string_view_literals;
  const auto read = [](std::string_view key, std::string_view text, std::string_view header = "",
                       const char* language = "xx") {
    return Narrator::fromMessages(test::messageFile({{"", header}, {key, text}}), language);
  };
  EXPECT_EQ(read("length.meters\4", "m {meters}")->length(20), "m 20");
  EXPECT_EQ(read("length.meters\4", "m {meters}")->time(20), "1\u00a0min");
  EXPECT_EQ(read("unknown\4", "{any")->language(), "xx");
  for (const auto text :
       {"{x}"sv, "{"sv, "}"sv, "{meters"sv, "{meters:9}"sv, "{}"sv, "{{meters}}"sv, "a\0b"sv})
    EXPECT_FALSE(read("length.meters\4", text)) << text;
  EXPECT_FALSE(read("length.meters\4", "a", "Plural-Forms: nplurals=2; plural=("));
  EXPECT_FALSE(read("time.minutes\4", "a\0b\0c"sv));
  EXPECT_EQ(read("time.minutes\4", "a", "Plural-Forms: nplurals=1; plural=0")->time(0), "a");
  std::string many;
  for (int i = 0; i < 17; ++i) many += "{meters}";
  EXPECT_FALSE(read("length.meters\4", many));
  EXPECT_FALSE(Narrator::fromMessages("", "xx"));
  const std::tuple<const char*, const char*, bool> directions[] = {
      {"fa-IR", "", true},
      {"fa-Latn", "", false},
      {"az-Arab", "", true},
      {"xx", "X-Text-Direction: rtl", true},
      {"he", "X-Text-Direction: ltr\n", false}};
  for (const auto& [language, header, expected] : directions)
    EXPECT_EQ(read("a\4", "b", header, language)->isRightToLeft(), expected) << language;
}

}  // namespace
}  // namespace orivanta::guidance

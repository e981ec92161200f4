#include "Apps/Import/Places/GeneratedNames.hpp"

#include <algorithm>

#include "Apps/Import/Places/Categories.hpp"

namespace orivanta::importer {

namespace {

struct Singular {
  std::string_view category;
  std::array<std::string_view, categoryLanguages.size()> names;
};

// What one thing of a category is called, where the name of the category is a plural.
constexpr Singular singulars[] = {
    {"shopping", {"Shop", "Geschäft", "Boutique", "店舗", "متجر"}},
    {"rooms", {"Room", "Raum", "Salle", "部屋", "غرفة"}},
    {"classrooms", {"Classroom", "Seminarraum", "Salle de cours", "教室", "قاعة دراسية"}},
    {"auditoriums", {"Lecture hall", "Hörsaal", "Amphithéâtre", "講堂", "مدرج"}},
    {"laboratories", {"Laboratory", "Labor", "Laboratoire", "実験室", "مختبر"}},
    {"meeting-rooms",
     {"Meeting room", "Besprechungsraum", "Salle de réunion", "会議室", "غرفة اجتماعات"}},
    {"lounges", {"Lounge", "Aufenthaltsraum", "Salon", "ラウンジ", "صالة"}},
    {"kitchens", {"Kitchen", "Küche", "Cuisine", "キッチン", "مطبخ"}},
    {"storage", {"Storage room", "Lagerraum", "Réserve", "倉庫", "مخزن"}},
    {"technical", {"Technical room", "Technikraum", "Local technique", "機械室", "غرفة تقنية"}},
    {"offices", {"Office", "Büro", "Bureau", "事務所", "مكتب"}},
    {"waiting", {"Waiting room", "Warteraum", "Salle d'attente", "待合所", "غرفة انتظار"}},
    {"nursing", {"Baby care room", "Wickelraum", "Espace bébé", "授乳室", "غرفة رعاية الرضع"}},
    {"cash", {"Cash machine", "Geldautomat", "Distributeur de billets", "ATM", "صرّاف آلي"}},
    {"restaurants", {"Restaurant", "Restaurant", "Restaurant", "レストラン", "مطعم"}},
    {"cafes", {"Café", "Café", "Café", "カフェ", "مقهى"}},
    {"entrances", {"Entrance", "Eingang", "Entrée", "出入口", "مدخل"}},
    {"exits", {"Exit", "Ausgang", "Sortie", "出口", "مخرج"}},
    {"emergency-exits",
     {"Emergency exit", "Notausgang", "Sortie de secours", "非常口", "مخرج طوارئ"}},
    {"gates", {"Ticket gate", "Fahrkartensperre", "Contrôle des billets", "改札", "بوابة تذاكر"}},
    {"platforms", {"Platform", "Bahnsteig", "Quai", "ホーム", "رصيف"}},
    {"buses", {"Bus stop", "Bushaltestelle", "Arrêt de bus", "バスのりば", "موقف حافلات"}},
    {"taxis",
     {"Taxi stand", "Taxistand", "Station de taxis", "タクシーのりば", "موقف سيارات أجرة"}},
    {"lifts", {"Elevator", "Aufzug", "Ascenseur", "エレベーター", "مصعد"}},
    {"escalators", {"Escalator", "Rolltreppe", "Escalator", "エスカレーター", "سلم متحرك"}},
    {"stairs", {"Stairs", "Treppe", "Escalier", "階段", "درج"}},
    {"ramps", {"Ramp", "Rampe", "Rampe", "スロープ", "منحدر"}},
    {"walkways", {"Moving walkway", "Fahrsteig", "Tapis roulant", "動く歩道", "ممر متحرك"}},
};

Names namesOf(const Category& category, std::string_view language) {
  const auto* const singular =
      std::find_if(std::begin(singulars), std::end(singulars),
                   [&](const Singular& entry) { return entry.category == category.id; });
  const auto& texts = singular == std::end(singulars) ? category.names : singular->names;
  Names names;
  names.generated = true;
  names.name = std::string(texts.front());
  const std::string_view tongue = language.substr(0, language.find('-'));
  for (std::size_t i = 0; i < categoryLanguages.size(); ++i) {
    names.byLanguage.emplace(categoryLanguages[i], texts[i]);
    if (categoryLanguages[i] == tongue) names.name = std::string(texts[i]);
  }
  return names;
}

}  // namespace

Names generatedName(std::string_view category, std::string_view language) {
  const CategoryMatch match = matchCategory(category);
  if (match.unknown.empty()) return namesOf(*match.category, language);
  Names names;
  names.generated = true;
  names.name = match.unknown;
  return names;
}

Names generatedName(ConnectorKind kind, std::string_view language) {
  return namesOf(categoryOf(kind), language);
}

}  // namespace orivanta::importer

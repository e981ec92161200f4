#include "Apps/Import/Storeys/StoreyNames.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

// "#" stands for the number of the storey.
struct Words {
  std::string_view language;
  std::string_view ground, groundShort;
  std::string_view upper, upperShort;
  std::string_view lower, lowerShort;
  std::string_view between;  // storeys with a fraction as their ordinal
  std::string_view other;    // storeys with a short name that is not the usual one
  int first = 1;  // number of the storey above the ground floor; 2: the ground floor is 1
};

constexpr Words table[] = {
    {"en", "Ground floor", "G", "Floor #", "#", "Basement #", "B#", "Mezzanine #", "Level #"},
    {"de", "Erdgeschoss", "EG", "#. Obergeschoss", "#. OG", "#. Untergeschoss", "#. UG",
     "Zwischengeschoss #", "Ebene #"},
    {"fr", "Rez-de-chaussée", "RDC", "Étage #", "#", "Sous-sol #", "-#", "Entresol #", "Niveau #"},
    {"es", "Planta baja", "PB", "Planta #", "#", "Sótano #", "-#", "Entreplanta #", "Nivel #"},
    {"it", "Piano terra", "PT", "Piano #", "#", "Piano interrato #", "-#", "Mezzanino #",
     "Livello #"},
    {"pt", "Rés do chão", "R/C", "Piso #", "#", "Cave #", "-#", "Sobreloja #", "Nível #"},
    {"nl", "Begane grond", "BG", "Verdieping #", "#", "Kelder #", "-#", "Tussenverdieping #",
     "Niveau #"},
    {"da", "Stueetage", "St.", "#. sal", "#. sal", "#. kælder", "-#", "Mellemetage #", "Niveau #"},
    {"sv", "Bottenvåning", "BV", "Våning #", "#", "Källare #", "-#", "Entresol #", "Nivå #"},
    {"nb", "Etasje 1", "1", "Etasje #", "#", "Underetasje #", "U#", "Mellometasje #", "Nivå #", 2},
    {"fi", "1. kerros", "1", "#. kerros", "#", "#. kellarikerros", "K#", "Välikerros #", "Taso #",
     2},
    {"pl", "Parter", "0", "Piętro #", "#", "Piwnica #", "-#", "Antresola #", "Poziom #"},
    {"cs", "Přízemí", "P", "#. patro", "#", "#. suterén", "-#", "Mezipatro #", "Podlaží #"},
    {"hu", "Földszint", "Fsz.", "#. emelet", "#", "#. pince", "-#", "Félemelet #", "Szint #"},
    {"tr", "Zemin kat", "Z", "#. kat", "#", "Bodrum #", "B#", "Ara kat #", "Kat #"},
    {"ru", "1-й этаж", "1", "#-й этаж", "#", "Подвал #", "-#", "Антресоль #", "Уровень #", 2},
    {"uk", "1-й поверх", "1", "#-й поверх", "#", "Підвал #", "-#", "Антресоль #", "Рівень #", 2},
    {"ja", "1階", "1F", "#階", "#F", "地下#階", "B#F", "中間階 #", "フロア #", 2},
    {"ko", "1층", "1F", "#층", "#F", "지하 #층", "B#", "중간층 #", "# 층", 2},
    {"zh", "一层", "1F", "#层", "#F", "地下#层", "B#", "夹层 #", "# 层", 2},
    {"ar", "الطابق الأرضي", "G", "الطابق #", "#", "القبو #", "B#", "الميزانين #", "المستوى #"},
};

const Words* wordsOf(std::string_view language) {
  const std::string_view primary = language.substr(0, language.find('-'));
  const auto* found = std::find_if(std::begin(table), std::end(table),
                                   [&](const Words& words) { return words.language == primary; });
  return found == std::end(table) ? nullptr : found;
}

std::string filled(std::string_view pattern, std::string_view number) {
  std::string text(pattern);
  if (const std::size_t at = text.find('#'); at != std::string::npos) text.replace(at, 1, number);
  return text;
}

struct Texts {
  std::string name;
  std::string shortName;
};

Texts textsOf(const Words& words, double ordinal) {
  if (ordinal != std::round(ordinal)) {
    const std::string number = levelText(ordinal);
    return {filled(words.between, number), number};
  }
  if (ordinal == 0.0) return {std::string(words.ground), std::string(words.groundShort)};
  const bool isUpper = ordinal > 0.0;
  const std::string number = levelText(isUpper ? ordinal - 1.0 + words.first : -ordinal);
  return {filled(isUpper ? words.upper : words.lower, number),
          filled(isUpper ? words.upperShort : words.lowerShort, number)};
}

// The same sign with other spaces or full stops means the same: "1.OG", "1. OG", "1 OG".
std::string comparable(std::string_view sign) {
  std::string text;
  for (const char character : sign)
    if (character != ' ' && character != '.') text += character;
  return text;
}

std::string generatedStoreyName(const Words& words, const Storey& storey) {
  Texts texts = textsOf(words, storey.ordinal);
  const std::string sign = comparable(storey.shortName);
  if (sign.empty() || sign == comparable(texts.shortName) ||
      sign == comparable(levelText(storey.ordinal)))
    return std::move(texts.name);
  return filled(words.other, storey.shortName);
}

}  // namespace

void nameStorey(Storey& storey, const std::string& language,
                const std::vector<std::string>& languages) {
  const Words* words = wordsOf(language);
  if (words == nullptr) words = &table[0];
  Names& names = storey.names;
  if (names.name.empty() && !names.byLanguage.empty())
    names.name = names.byLanguage.begin()->second;
  if (names.name.empty()) {
    names.name = generatedStoreyName(*words, storey);
    names.generated = true;
    for (const std::string& other : languages)
      if (const Words* others = wordsOf(other))
        names.byLanguage.emplace(other, generatedStoreyName(*others, storey));
  }
  if (storey.shortName.empty()) storey.shortName = textsOf(*words, storey.ordinal).shortName;
}

}  // namespace orivanta::importer

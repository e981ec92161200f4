#include "Apps/Import/Fixes/FixValues.hpp"

#include <utility>

namespace orivanta::importer {

namespace json = boost::json;

std::optional<double> fixNumber(const json::object& object, std::string_view key) {
  const json::value* value = object.if_contains(key);
  if (value == nullptr || !value->is_number()) return std::nullopt;
  return value->to_number<double>();
}

std::optional<AreaKind> fixedKind(std::string_view word) {
  constexpr std::pair<std::string_view, AreaKind> words[] = {
      {"room", AreaKind::room},
      {"corridor", AreaKind::walkway},
      {"walkway", AreaKind::walkway},
      {"stairs", AreaKind::stairs},
      {"escalator", AreaKind::escalator},
      {"elevator", AreaKind::elevator},
      {"lift", AreaKind::elevator},
      {"ramp", AreaKind::ramp},
      {"moving-walkway", AreaKind::movingWalkway},
      {"opening", AreaKind::opening},
      {"wall", AreaKind::wall},
      {"obstacle", AreaKind::obstacle}};
  for (const auto& [name, kind] : words)
    if (name == word) return kind;
  return std::nullopt;
}

std::optional<Names> namesIn(const json::value& value) {
  Names names;
  if (value.is_string()) {
    names.name = value.get_string();
  } else if (value.is_object()) {
    for (const auto& member : value.get_object())
      if (member.value().is_string()) names.byLanguage[member.key()] = member.value().get_string();
  } else {
    return std::nullopt;
  }
  return names;
}

void addIgnoredFix(Findings& findings, const char* rule, const std::string& file,
                   const std::string& id, std::string_view field, std::string message,
                   std::string advice) {
  findings.add({.rule = rule,
                .source = id,
                .file = file,
                .field = std::string(field),
                .message = std::move(message),
                .effect = "The correction is ignored.",
                .advice = std::move(advice)});
}

}  // namespace orivanta::importer

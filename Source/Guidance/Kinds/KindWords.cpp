#include "Source/Guidance/Kinds/KindWords.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Kinds/WordTable.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

using foundation::unwrap;

constexpr std::size_t mostCategories = 64;  // that are visited from a category

// The search form of a word, with blanks where it has "_" at its ends. Empty if nothing else is
// left.
std::string formOf(std::string_view word) {
  std::string form = searchForm(word);
  if (form.empty()) return form;
  if (word.front() == '_') form.insert(0, 1, ' ');
  if (word.back() == '_') form += ' ';
  return form;
}

using Words = std::vector<std::pair<std::string, PlaceKind>>;

Words builtInWords(std::string_view table) {
  Words words;
  for (const WordRow& row : wordTable(table))
    for (const std::string_view word : row.words)
      words.emplace_back(formOf(word), unwrap(placeKindNamed(row.heading.front())));
  return words;
}

PlaceKind firstIn(const Words& words, std::string_view form) {
  const auto found = std::find_if(words.begin(), words.end(), [&](const auto& word) {
    return form.find(word.first) != std::string_view::npos;
  });
  return found == words.end() ? PlaceKind::other : found->second;
}

PlaceKind builtInKindOf(std::string_view form) {
  static const Words words = builtInWords("kinds");
  static const Words toilets = builtInWords("toilets");
  const PlaceKind kind = firstIn(words, form);
  if (kind != PlaceKind::toilet) return kind;
  const PlaceKind refined = firstIn(toilets, form);
  return refined == PlaceKind::other ? kind : refined;
}

// Remembers the kinds of a thread's last texts: a venue has few categories, but many places.
PlaceKind builtInKind(std::string_view text) {
  constexpr std::size_t most = 4096;
  thread_local std::map<std::string, PlaceKind, std::less<>> known;
  if (const auto found = known.find(text); found != known.end()) return found->second;
  if (known.size() >= most) known.clear();
  return known.emplace(text, builtInKindOf(' ' + searchForm(text) + ' ')).first->second;
}

}  // namespace

KindWords::KindWords() = default;

bool KindWords::add(PlaceKind kind, std::string_view word) {
  std::string form = formOf(word);
  if (form.empty()) return false;
  added_.push_back({std::move(form), kind});
  return true;
}

PlaceKind KindWords::kindOf(std::string_view text) const {
  if (added_.empty()) return builtInKind(text);
  const std::string form = ' ' + searchForm(text) + ' ';
  const auto found = std::find_if(added_.rbegin(), added_.rend(), [&](const Word& word) {
    return form.find(word.form) != std::string::npos;
  });
  return found == added_.rend() ? builtInKindOf(form) : found->kind;
}

PlaceKind KindWords::kindOf(const Category& category) const {
  std::vector<std::shared_ptr<const Category>> outer;  // in breadth-first order
  const auto visit = [&](const Category& inner) {
    for (const auto& link : inner.parents)
      if (auto parent = link.lock(); parent && outer.size() < mostCategories)
        outer.push_back(std::move(parent));
    return kindOf(inner.name.value_or(std::string()));
  };
  PlaceKind kind = visit(category);
  for (std::size_t i = 0; kind == PlaceKind::other && i < outer.size(); ++i)
    kind = visit(*outer[i]);
  return kind;
}

PlaceKind KindWords::kindOf(const Location& place) const {
  const std::string type = place.type.value_or(std::string());
  if (dynamic_cast<const Vortex*>(&place) != nullptr) {
    const PlaceKind kind = kindOf(type);
    if (kind != PlaceKind::other) return kind;
  }
  for (const auto& category : place.categories) {
    const PlaceKind kind = category ? kindOf(*category) : PlaceKind::other;
    if (kind != PlaceKind::other) return kind;
  }
  const PlaceKind kind = kindOf(type);
  return kind == PlaceKind::other && type == "tenant" ? PlaceKind::shop : kind;
}

}  // namespace orivanta

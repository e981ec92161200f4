#include "Apps/Import/Storeys/Levels.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace orivanta::importer {

namespace {

constexpr double greatestLevel = 500.0;
constexpr double greatestRange = 200.0;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// Replaces dashes, full-width digits and full-width separators, as they are used in East Asia.
void writeInAscii(std::string& text) {
  if (std::all_of(text.begin(), text.end(), [](char each) { return (each & 0x80) == 0; })) return;
  for (const std::string_view dash :
       {"\u2010", "\u2011", "\u2012", "\u2013", "\u2014", "\u2212", "\uFF0D"})
    replaceAll(text, dash, "-");
  replaceAll(text, "\uFF1B", ";");
  replaceAll(text, "\uFF0C", ",");
  for (char digit = '0'; digit <= '9'; ++digit) {
    const std::string wide = {'\xEF', '\xBC', static_cast<char>('\x90' + (digit - '0'))};
    replaceAll(text, wide, std::string(1, digit));
  }
}

// Takes a number from the front of the text, with blanks around it.
std::optional<double> takeNumber(std::string_view& text) {
  std::string_view rest = trimmed(text);
  if (rest.starts_with('+')) rest.remove_prefix(1);
  const std::size_t digits = rest.starts_with('-') ? 1 : 0;
  if (rest.size() <= digits || !isDigit(rest[digits])) return std::nullopt;
  double number = 0.0;
  const auto [end, error] =
      std::from_chars(rest.data(), rest.data() + rest.size(), number, std::chars_format::fixed);
  if (error != std::errc() || std::abs(number) > greatestLevel) return std::nullopt;
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  text = trimmed(rest);
  return number;
}

// Whether the only comma of the text is a decimal point.
bool hasDecimalComma(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos || text.find(',', comma + 1) != std::string_view::npos)
    return false;
  const std::string_view before = text.substr(0, comma);
  const std::string_view after = text.substr(comma + 1);
  if (before.empty() || !isDigit(before.back())) return false;
  if (after.empty() || after.size() > 2 || !std::all_of(after.begin(), after.end(), isDigit))
    return false;
  std::string_view whole = before;
  std::string_view next = after;
  const std::optional<double> first = takeNumber(whole);
  const std::optional<double> second = takeNumber(next);
  return !(first && second && whole.empty() && after != "5" && *second == *first + 1.0);
}

// Adds the levels of a number or a range. Returns whether the text is one.
bool addItem(std::string_view item, Levels& levels) {
  const std::optional<double> first = takeNumber(item);
  if (!first) return false;
  if (item.empty()) {
    levels.values.push_back(roundedLevel(*first));
    return true;
  }
  if (!item.starts_with('-')) return false;
  item.remove_prefix(1);
  const std::optional<double> last = takeNumber(item);
  if (!last || !item.empty()) return false;
  const auto [low, high] = std::minmax(*first, *last);
  if (high - low > greatestRange) return false;
  for (double level = low; level <= high + 1e-6; level += 1.0)
    levels.values.push_back(roundedLevel(level));
  levels.isRange = true;
  return true;
}

template <class Use>
void forEachItem(std::string_view text, char separator, const Use& use) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (const std::string_view item = trimmed(text.substr(0, end)); !item.empty()) use(item);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

}  // namespace

Levels parseLevels(std::string_view text) {
  std::string plain(text.substr(0, 4096));
  writeInAscii(plain);
  Levels levels;
  const auto add = [&](std::string_view item) {
    if (addItem(item, levels)) return;
    if (!levels.unreadable.empty()) levels.unreadable += ';';
    levels.unreadable += item;
  };
  forEachItem(plain, ';', [&](std::string_view item) {
    if (!hasDecimalComma(item)) return forEachItem(item, ',', add);
    std::string number(item);
    number[number.find(',')] = '.';
    add(number);
  });
  std::sort(levels.values.begin(), levels.values.end());
  levels.values.erase(std::unique(levels.values.begin(), levels.values.end()), levels.values.end());
  return levels;
}

double roundedLevel(double level) {
  // Adding zero turns negative zero into zero.
  return std::isfinite(level) ? std::round(level * 1000.0) / 1000.0 + 0.0 : 0.0;
}

std::string levelText(double level) { return fmt::format("{}", roundedLevel(level)); }

}  // namespace orivanta::importer

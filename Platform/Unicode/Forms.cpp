#include "Platform/Unicode/Forms.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace orivanta::unicode {

namespace {

constexpr std::int32_t lastPoint = 0x10FFFF;

// Hangul syllables are composed and decomposed by computation (Unicode Standard, section 3.12).
constexpr std::int32_t firstSyllable = 0xAC00;
constexpr std::int32_t firstLeading = 0x1100;
constexpr std::int32_t firstVowel = 0x1161;
constexpr std::int32_t beforeTrailing = 0x11A7;
constexpr std::int32_t leadingCount = 19;
constexpr std::int32_t vowelCount = 21;
constexpr std::int32_t trailingCount = 28;
constexpr std::int32_t syllableCount = leadingCount * vowelCount * trailingCount;

int combiningClassOf(std::int32_t point) { return propertiesOf(point).combiningClass; }

bool isSyllable(std::int32_t point) {
  return point >= firstSyllable && point < firstSyllable + syllableCount;
}

void appendSyllable(CodePoints& points, std::int32_t syllable) {
  const std::int32_t index = syllable - firstSyllable;
  points.push_back(firstLeading + index / (vowelCount * trailingCount));
  points.push_back(firstVowel + index % (vowelCount * trailingCount) / trailingCount);
  if (index % trailingCount != 0) points.push_back(beforeTrailing + index % trailingCount);
}

struct Expansion {
  std::int32_t point;   // that is expanded
  std::uint32_t first;  // in `points`
  std::uint32_t end;
};

struct Expansions {
  std::vector<Expansion> list;  // sorted
  CodePoints points;
};

const Expansions& allExpansions() {
  static const Expansions all = [] {
    Expansions result;
    result.list.reserve(expandedCount);
    PackedNumbers firsts(expansionFirsts);
    PackedNumbers rests(expansionRests);
    Expansion each{};
    for (std::size_t i = 0; i < expandedCount; ++i) {
      each = {each.point + expandedGaps[i], each.end, each.end + expansionLengths[i]};
      result.list.push_back(each);
      for (std::uint32_t at = each.first; at < each.end; ++at)
        result.points.push_back(at == each.first ? each.point + firsts.next() : rests.next());
    }
    return result;
  }();
  return all;
}

void appendExpansion(CodePoints& points, std::int32_t point) {
  const auto& [all, expanded] = allExpansions();
  const auto found = std::lower_bound(
      all.begin(), all.end(), point,
      [](const Expansion& each, std::int32_t wanted) { return each.point < wanted; });
  if (found == all.end() || found->point != point) {
    points.push_back(point);
    return;
  }
  points.insert(points.end(), expanded.begin() + found->first, expanded.begin() + found->end);
}

// Sorts each run of marks by combining class.
void order(CodePoints& points) {
  for (auto begin = points.begin(); begin != points.end();) {
    if (combiningClassOf(*begin) == 0) {
      ++begin;
      continue;
    }
    const auto end = std::find_if(begin, points.end(),
                                  [](std::int32_t each) { return combiningClassOf(each) == 0; });
    std::stable_sort(begin, end, [](std::int32_t first, std::int32_t second) {
      return combiningClassOf(first) < combiningClassOf(second);
    });
    begin = end;
  }
}

std::optional<std::int32_t> composedSyllable(std::int32_t first, std::int32_t second) {
  if (first >= firstLeading && first < firstLeading + leadingCount && second >= firstVowel &&
      second < firstVowel + vowelCount)
    return firstSyllable +
           ((first - firstLeading) * vowelCount + second - firstVowel) * trailingCount;
  if (isSyllable(first) && (first - firstSyllable) % trailingCount == 0 &&
      second > beforeTrailing && second < beforeTrailing + trailingCount)
    return first + second - beforeTrailing;
  return std::nullopt;
}

// The base, the mark and the result of each composition, sorted.
using Composition = std::array<std::int32_t, 3>;

const std::vector<Composition>& allCompositions() {
  static const std::vector<Composition> all = [] {
    std::vector<Composition> list;
    list.reserve(compositionCount);
    PackedNumbers firsts(compositionFirsts);
    PackedNumbers seconds(compositionSeconds);
    PackedNumbers results(composedPoints);
    for (std::size_t i = 0; i < compositionCount; ++i)
      list.push_back({firsts.next(), seconds.next(), results.next()});
    std::sort(list.begin(), list.end());
    return list;
  }();
  return all;
}

std::optional<std::int32_t> composition(std::int32_t first, std::int32_t second) {
  if (const auto syllable = composedSyllable(first, second)) return syllable;
  const auto& all = allCompositions();
  const auto found = std::lower_bound(all.begin(), all.end(), Composition{first, second, 0});
  if (found == all.end() || (*found)[0] != first || (*found)[1] != second) return std::nullopt;
  return (*found)[2];
}

}  // namespace

const Properties& propertiesOf(std::int32_t point) {
  if (point < 0 || point > lastPoint) {
    static constexpr Properties unassigned = {};
    return unassigned;
  }
  const auto index = static_cast<std::size_t>(point);
  return properties[propertyBlocks[blockNumbers[index / blockSize] * blockSize +
                                   index % blockSize]];
}

std::size_t readCodePoint(std::string_view text, std::int32_t& point) {
  if (text.empty()) return 0;
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) {
    point = static_cast<std::int32_t>(lead);
    return 1;
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  std::uint32_t value = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return 0;
    value = value << 6U | (byte(i) & 0x3FU);
  }
  const bool isOverlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  if (isOverlong || (value >= 0xD800 && value < 0xE000) || value > lastPoint) return 0;
  point = static_cast<std::int32_t>(value);
  return length;
}

std::optional<CodePoints> foldedDecomposition(std::string_view text, bool dropsIgnorable) {
  CodePoints points;
  while (!text.empty()) {
    std::int32_t point = 0;
    const std::size_t length = readCodePoint(text, point);
    if (length == 0) return std::nullopt;
    text.remove_prefix(length);
    if (dropsIgnorable && propertiesOf(point).isIgnorable != 0) continue;
    if (isSyllable(point))
      appendSyllable(points, point);
    else
      appendExpansion(points, point);
  }
  if (dropsIgnorable)
    std::erase_if(points, [](std::int32_t each) { return propertiesOf(each).isIgnorable != 0; });
  order(points);
  return points;
}

void compose(CodePoints& points) {
  std::size_t written = 0;
  std::optional<std::size_t> starter;
  int lastClass = -1;  // of the marks kept since the starter; -1 if there are none
  for (const std::int32_t point : points) {
    const int ownClass = combiningClassOf(point);
    if (starter && lastClass < ownClass) {
      if (const auto composed = composition(points[*starter], point)) {
        points[*starter] = *composed;
        continue;
      }
    }
    points[written] = point;
    if (ownClass == 0) {
      starter = written;
      lastClass = -1;
    } else {
      lastClass = ownClass;
    }
    ++written;
  }
  points.resize(written);
}

}  // namespace orivanta::unicode

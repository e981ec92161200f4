#include "Source/UI/Labels/LineBreaks.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

namespace orivanta {

namespace {

constexpr std::size_t mostParts = 64;
constexpr double wordPenalty = 0.25;  // of the text's width, for a break in a katakana word

constexpr std::u32string_view notFirst =
    U"、。，．・：；！？…‥ー～〜゛゜々〻ゝゞヽヾ）］｝〕〉》」』】｠〗〙"
    U"ぁぃぅぇぉっゃゅょゎゕゖァィゥェォッャュョヮヵヶ"
    U"!),.:;?]}%»”’";
constexpr std::u32string_view notLast = U"（［｛〔〈《「『【｟〖〘([{«“‘";

struct Cluster {
  std::string_view bytes;
  std::int32_t first = 0;  // code point
};

std::int32_t codePointAt(std::string_view text, std::size_t& length) {
  std::int32_t point = -1;
  const auto read = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &point);
  length = read > 0 ? static_cast<std::size_t>(read) : 1;
  return read > 0 ? point : 0xFFFD;
}

std::vector<Cluster> clustersOf(std::string_view text) {
  std::vector<Cluster> clusters;
  std::int32_t last = 0;
  utf8proc_int32_t state = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 0;
    const std::int32_t point = codePointAt(text.substr(at), length);
    if (clusters.empty() || utf8proc_grapheme_break_stateful(last, point, &state)) {
      clusters.push_back({text.substr(at, length), point});
    } else {
      Cluster& cluster = clusters.back();
      cluster.bytes = {cluster.bytes.data(), cluster.bytes.size() + length};
    }
    last = point;
    at += length;
  }
  return clusters;
}

// No-break spaces are not blanks.
bool isBlank(std::int32_t point) {
  return point == ' ' || point == '\t' || point == '\n' || point == '\r' || point == 0x3000;
}

bool isIn(std::u32string_view list, std::int32_t point) {
  return list.find(static_cast<char32_t>(point)) != std::u32string_view::npos;
}

bool isKatakana(std::int32_t point) {
  return (point >= 0x30A1 && point <= 0x30FF && point != U'・') ||
         (point >= 0x31F0 && point <= 0x31FF);
}

bool isKanaOrHan(std::int32_t point) {
  return (point >= 0x3000 && point <= 0x30FF) || (point >= 0x31F0 && point <= 0x31FF) ||
         (point >= 0x3400 && point <= 0x4DBF) || (point >= 0x4E00 && point <= 0x9FFF) ||
         (point >= 0xF900 && point <= 0xFAFF) || (point >= 0xFF01 && point <= 0xFF0F) ||
         (point >= 0xFF1A && point <= 0xFF20) || (point >= 0xFF3B && point <= 0xFF40) ||
         (point >= 0xFF5B && point <= 0xFF65) || (point >= 0x20000 && point <= 0x3FFFF);
}

bool mayBreakBetween(std::int32_t before, std::int32_t after) {
  if (isBlank(after)) return false;
  if (isBlank(before)) return true;
  return isKanaOrHan(before) && isKanaOrHan(after) && !isIn(notLast, before) &&
         !isIn(notFirst, after);
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty()) {
    std::size_t length = 0;
    if (!isBlank(codePointAt(text, length))) break;
    text.remove_prefix(length);
  }
  for (bool isTrimmed = true; isTrimmed && !text.empty();) {
    isTrimmed = isBlank(static_cast<unsigned char>(text.back()));
    if (isTrimmed) text.remove_suffix(1);
    if (!isTrimmed && text.size() >= 3 && text.substr(text.size() - 3) == "\u3000") {
      text.remove_suffix(3);
      isTrimmed = true;
    }
  }
  return text;
}

bool isSingleKanaOrHan(std::string_view line) {
  const std::vector<Cluster> clusters = clustersOf(line);
  return clusters.size() == 1 && isKanaOrHan(clusters.front().first);
}

// A part with what a line that ends after it costs.
struct Piece {
  std::string_view text;
  double width = 0;  // without blanks at the end
  double blank = 0;  // the width of the blanks
  bool isInWord = false;
};

std::vector<Piece> piecesOf(std::string_view text, const TextWidth& width) {
  std::vector<std::string_view> parts = lineParts(text);
  if (parts.size() > mostParts) {
    const char* const start = parts[mostParts - 1].data();
    const std::size_t rest = static_cast<std::size_t>(parts.back().data() - start);
    parts[mostParts - 1] = {start, rest + parts.back().size()};
    parts.resize(mostParts);
  }
  const double blank = parts.size() > 1 ? width("x x") - width("xx") : 0.0;
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Piece piece{parts[i], width(trimmed(parts[i])), 0, false};
    if (trimmed(parts[i]).size() < parts[i].size()) piece.blank = blank;
    if (i + 1 < parts.size())
      piece.isInWord = isKatakana(clustersOf(parts[i]).back().first) &&
                       isKatakana(clustersOf(parts[i + 1]).front().first);
    pieces.push_back(piece);
  }
  return pieces;
}

// Finds the ends of lines for which the widest line, plus the penalties, is least. Tables are
// indexed by the number of lines and the number of pieces in them.
class Breaking {
 public:
  explicit Breaking(std::vector<Piece> pieces) : pieces_(std::move(pieces)) {
    starts_.push_back(0);
    for (const Piece& piece : pieces_)
      starts_.push_back(starts_.back() + piece.width + piece.blank);
  }

  // Returns the number of pieces up to the end of each line.
  std::vector<std::size_t> ends(std::size_t lines) const {
    const std::size_t count = pieces_.size();
    std::vector<std::vector<Best>> table(lines + 1, std::vector<Best>(count + 1));
    table[0][0].cost = 0;
    for (std::size_t line = 1; line <= lines; ++line)
      for (std::size_t end = line; end <= count; ++end)
        for (std::size_t start = line - 1; start < end; ++start)
          improve(table[line][end], table[line - 1][start], start, end);
    std::vector<std::size_t> found(lines);
    for (std::size_t line = lines, end = count; line > 0; end = table[line--][end].start)
      found[line - 1] = end;
    return found;
  }

 private:
  struct Best {
    double cost = std::numeric_limits<double>::infinity();  // widest line and penalties
    double widest = 0;
    double penalties = 0;
    std::size_t start = 0;
  };

  void improve(Best& best, const Best& before, std::size_t start, std::size_t end) const {
    const double line = starts_[end] - starts_[start] - pieces_[end - 1].blank;
    const double widest = std::max(before.widest, line);
    const double penalty = pieces_[end - 1].isInWord ? wordPenalty * starts_.back() : 0.0;
    const double penalties = before.penalties + penalty;
    // Of equal ways, the one with longer first lines is taken.
    if (before.cost < std::numeric_limits<double>::infinity() &&
        widest + penalties <= best.cost + 1e-9)
      best = {widest + penalties, widest, penalties, start};
  }

  std::vector<Piece> pieces_;
  std::vector<double> starts_;  // of the pieces, on one line
};

}  // namespace

std::vector<std::string_view> lineParts(std::string_view text) {
  text = trimmed(text);
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  std::int32_t before = 0;
  for (const Cluster& cluster : clustersOf(text)) {
    const std::size_t at = static_cast<std::size_t>(cluster.bytes.data() - text.data());
    if (at > start && mayBreakBetween(before, cluster.first)) {
      parts.push_back(text.substr(start, at - start));
      start = at;
    }
    before = cluster.first;
  }
  if (start < text.size()) parts.push_back(text.substr(start));
  return parts;
}

std::vector<LabelLines> labelLines(std::string_view text, const TextWidth& width, int most) {
  const std::vector<Piece> pieces = piecesOf(text, width);
  const Breaking breaking(pieces);
  std::vector<LabelLines> found;
  const std::size_t limit = std::min(pieces.size(), static_cast<std::size_t>(std::max(0, most)));
  for (std::size_t count = 1; count <= limit; ++count) {
    LabelLines lines;
    std::size_t start = 0;
    for (const std::size_t end : breaking.ends(count)) {
      const char* const first = pieces[start].text.data();
      const std::string_view& last = pieces[end - 1].text;
      const auto length = static_cast<std::size_t>(last.data() + last.size() - first);
      lines.lines.emplace_back(trimmed({first, length}));
      lines.width = std::max(lines.width, width(lines.lines.back()));
      start = end;
    }
    if (count > 1 && std::any_of(lines.lines.begin(), lines.lines.end(), isSingleKanaOrHan)) break;
    found.push_back(std::move(lines));
  }
  return found;
}

}  // namespace orivanta

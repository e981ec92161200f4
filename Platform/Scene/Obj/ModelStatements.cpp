#include "Platform/Scene/Obj/ModelStatements.hpp"

#include <cmath>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include "Platform/Scene/Obj/TextLines.hpp"

namespace orivanta::scene::obj {

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

Point takePoint(std::string_view& line) {
  Point point;
  for (float& coordinate : point) coordinate = takeNumber(line, 0.0F);
  return point;
}

bool isFinite(const Point& point) {
  return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

Point withLengthOne(const Point& point) {
  const std::array<double, 3> exact{point[0], point[1], point[2]};
  const double length = std::sqrt(exact[0] * exact[0] + exact[1] * exact[1] + exact[2] * exact[2]);
  if (!isFinite(point) || length == 0.0) return {};
  return {static_cast<float>(exact[0] / length), static_cast<float>(exact[1] / length),
          static_cast<float>(exact[2] / length)};
}

// Takes an index, which counts from 1 or, when negative, back from the last one so far. Numbers too
// large for an index become one that is beyond every list.
std::optional<std::uint32_t> takeIndex(std::string_view& text, std::size_t countSoFar) {
  constexpr std::uint64_t largest = none - 1;
  const bool isNegative = !text.empty() && text.front() == '-';
  std::size_t length = isNegative ? 1 : 0;
  std::uint64_t number = 0;
  for (; length < text.size() && text[length] >= '0' && text[length] <= '9'; ++length)
    if (number < largest) number = number * 10 + static_cast<std::uint64_t>(text[length] - '0');
  text.remove_prefix(length);
  if (number == 0) return std::nullopt;
  if (!isNegative) return static_cast<std::uint32_t>(std::min(number, largest) - 1);
  if (number > countSoFar) return std::nullopt;
  return static_cast<std::uint32_t>(countSoFar - number);
}

class StatementReader {
 public:
  ModelStatements read(std::string_view text) {
    TextLines lines(text);
    for (auto line = lines.next(); !line.empty(); line = lines.next()) readStatement(line);
    return std::move(statements_);
  }

 private:
  void readStatement(std::string_view line) {
    switch (line.front()) {
      case 'v':
        if (takeKeyword(line, "v")) return addPosition(line);
        if (takeKeyword(line, "vt")) return addTextureCoordinate(line);
        if (takeKeyword(line, "vn")) statements_.normals.push_back(withLengthOne(takePoint(line)));
        return;
      case 'f':
        if (takeKeyword(line, "f") || takeKeyword(line, "fo")) addFace(line);
        return;
      case 'u':
        if (takeKeyword(line, "usemtl")) useMaterial(line);
        return;
      case 'm':
        if (takeKeyword(line, "mtllib")) statements_.libraryLines.emplace_back(line);
        return;
      default:
        return;
    }
  }

  void addPosition(std::string_view line) {
    Point point = takePoint(line);
    if (!isFinite(point)) point[0] = notANumber;
    statements_.positions.push_back(point);
  }

  void addTextureCoordinate(std::string_view line) {
    const float u = takeNumber(line, 0.0F);
    const float v = takeNumber(line, 0.0F);
    const bool isUsable = std::isfinite(u) && std::isfinite(v);
    statements_.textureCoordinates.push_back({isUsable ? u : 0.0F, isUsable ? v : 0.0F});
  }

  void useMaterial(std::string_view name) {
    if (name == material_) return;
    material_ = name;
    isMaterialChanged_ = true;
  }

  void addFace(std::string_view line) {
    auto& corners = statements_.corners;
    const std::size_t first = corners.size();
    bool isReadable = true;
    for (auto word = takeWord(line); isReadable && !word.empty() && word.front() != '#';
         word = takeWord(line))
      isReadable = addCorner(word);
    const std::size_t count = corners.size() - first;
    if (!isReadable || count < 3) {
      corners.resize(first);
      ++statements_.skippedFaces;
      return;
    }
    statements_.cornerCounts.push_back(static_cast<std::uint32_t>(count));
    if (isMaterialChanged_) beginRun();
    ++statements_.runs.back().faceCount;
  }

  // "position", "position/texture coordinate", "position//normal" or all three.
  bool addCorner(std::string_view word) {
    const auto position = takeIndex(word, statements_.positions.size());
    if (!position) return false;
    Corner corner{*position};
    if (!takePart(word, statements_.textureCoordinates.size(), corner.textureCoordinate))
      return false;
    if (!takePart(word, statements_.normals.size(), corner.normal)) return false;
    statements_.corners.push_back(corner);
    return word.empty();
  }

  static bool takePart(std::string_view& word, std::size_t countSoFar, std::uint32_t& part) {
    if (word.empty()) return true;
    if (word.front() != '/') return false;
    word.remove_prefix(1);
    if (word.empty() || word.front() == '/') return true;
    const auto index = takeIndex(word, countSoFar);
    if (index) part = *index;
    return index.has_value();
  }

  void beginRun() {
    isMaterialChanged_ = false;
    const auto next = static_cast<std::uint32_t>(statements_.materialNames.size());
    const auto [found, isNew] = materials_.try_emplace(material_, next);
    if (isNew) statements_.materialNames.push_back(material_);
    statements_.runs.push_back({found->second, 0});
  }

  ModelStatements statements_;
  std::unordered_map<std::string, std::uint32_t> materials_;
  std::string material_;
  bool isMaterialChanged_ = true;  // since the last face
};

}  // namespace

ModelStatements readStatements(std::string_view text) { return StatementReader().read(text); }

}  // namespace orivanta::scene::obj

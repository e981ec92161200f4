#include "Platform/Scene/Obj/ModelStatements.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

#include "Platform/Scene/Obj/Model.hpp"
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

// Reads an index, which counts from 1, or backward from the last element if it is negative. Returns
// whether there was a valid one. An index that is too large is replaced by one that is beyond every
// list.
bool takeIndex(std::string_view& text, std::size_t countSoFar, std::uint32_t& index) {
  constexpr std::uint64_t largest = none - 1;
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool isNegative = at != end && *at == '-';
  if (isNegative) ++at;
  std::uint64_t number = 0;
  for (; at != end && *at >= '0' && *at <= '9'; ++at)
    if (number < largest) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
  text.remove_prefix(static_cast<std::size_t>(at - text.data()));
  if (number == 0 || (isNegative && number > countSoFar)) return false;
  index =
      static_cast<std::uint32_t>(isNegative ? countSoFar - number : std::min(number, largest) - 1);
  return true;
}

class StatementReader {
 public:
  ModelStatements read(std::string_view text) {
    TextLines lines(text);
    for (auto line = lines.next(); !line.empty() && !statements_.hasTooManyMaterials;
         line = lines.next())
      readStatement(line);
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
    for (removeBlanks(line); isReadable && !line.empty() && line.front() != '#'; removeBlanks(line))
      isReadable = addCorner(line);
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

  // Accepts "position", "position/texture coordinate", "position//normal" or all three.
  bool addCorner(std::string_view& line) {
    Corner corner{};
    if (!takeIndex(line, statements_.positions.size(), corner.position) ||
        !takePart(line, statements_.textureCoordinates.size(), corner.textureCoordinate) ||
        !takePart(line, statements_.normals.size(), corner.normal))
      return false;
    statements_.corners.push_back(corner);
    return line.empty() || isBlank(line.front());
  }

  static bool takePart(std::string_view& line, std::size_t countSoFar, std::uint32_t& part) {
    if (line.empty() || line.front() != '/') return true;
    line.remove_prefix(1);
    if (line.empty() || line.front() == '/' || isBlank(line.front())) return true;
    return takeIndex(line, countSoFar, part);
  }

  void beginRun() {
    isMaterialChanged_ = false;
    const auto next = static_cast<std::uint32_t>(statements_.materialNames.size());
    const auto [found, isNew] = materials_.try_emplace(material_, next);
    if (isNew) statements_.materialNames.push_back(material_);
    statements_.hasTooManyMaterials = statements_.materialNames.size() > mostMaterials;
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

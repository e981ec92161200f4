#include "Platform/Scene/Obj/MaterialLibrary.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <unordered_set>

#include "Platform/Scene/Obj/LocalPath.hpp"
#include "Platform/Scene/Obj/TextLines.hpp"

namespace orivanta::scene::obj {

namespace {

constexpr float unreadable = std::numeric_limits<float>::quiet_NaN();

// An option between `map_Kd` and the file name.
struct TextureOption {
  std::string_view name;
  int words;    // number of arguments
  int numbers;  // maximum number of further numeric arguments
};

constexpr TextureOption textureOptions[] = {
    {"-blendu", 1, 0}, {"-blendv", 1, 0},     {"-bm", 1, 0},      {"-boost", 1, 0}, {"-cc", 1, 0},
    {"-clamp", 1, 0},  {"-colorspace", 1, 0}, {"-imfchan", 1, 0}, {"-mm", 2, 0},    {"-o", 1, 2},
    {"-s", 1, 2},      {"-t", 1, 2},          {"-texres", 1, 0},  {"-type", 1, 0},
};

bool takeOption(std::string_view& line) {
  for (const TextureOption& option : textureOptions) {
    if (!takeKeyword(line, option.name)) continue;
    for (int word = 0; word < option.words; ++word) takeWord(line);
    for (int number = 0; number < option.numbers; ++number) {
      std::string_view rest = line;
      if (std::isnan(takeNumber(rest, unreadable))) break;
      line = rest;
    }
    return true;
  }
  return false;
}

std::optional<std::filesystem::path> texture(std::string_view line) {
  while (takeOption(line)) line = withoutBlanksAround(line);
  return localPath(line);
}

// A single number applies to all three components.
void readColor(std::string_view line, std::array<float, 3>& color) {
  const float red = takeNumber(line, unreadable);
  const float green = takeNumber(line, red);
  const float blue = takeNumber(line, green);
  if (!std::isfinite(red) || !std::isfinite(green) || !std::isfinite(blue)) return;
  color = {red, green, blue};
  for (float& component : color) component = std::clamp(component, 0.0F, 1.0F);
}

std::optional<float> fraction(std::string_view line) {
  takeKeyword(line, "-halo");
  const float number = takeNumber(line, unreadable);
  if (!std::isfinite(number)) return std::nullopt;
  return std::clamp(number, 0.0F, 1.0F);
}

class MaterialReader {
 public:
  std::vector<Material> read(std::string_view text) {
    TextLines lines(text);
    for (auto line = lines.next(); !line.empty(); line = lines.next()) readStatement(line);
    return std::move(materials_);
  }

 private:
  void readStatement(std::string_view line) {
    if (takeKeyword(line, "newmtl")) return begin(line);
    if (!isOpen_) return;
    Material& material = materials_.back();
    if (takeKeyword(line, "Kd")) return readColor(line, material.diffuse);
    if (takeKeyword(line, "d")) {
      if (const auto opacity = fraction(line)) {
        material.opacity = *opacity;
        hasOpacity_ = true;
      }
    } else if (takeKeyword(line, "Tr")) {
      const auto transparency = fraction(line);
      if (transparency && !hasOpacity_) material.opacity = 1.0F - *transparency;
    } else if (takeKeyword(line, "map_Kd")) {
      if (auto path = texture(line)) material.diffuseTexture = std::move(path);
    }
  }

  void begin(std::string_view name) {
    hasOpacity_ = false;
    isOpen_ = !name.empty() && materials_.size() < mostMaterials && names_.emplace(name).second;
    if (!isOpen_) return;
    materials_.emplace_back().name = name;
    materials_.back().defined = true;
  }

  std::vector<Material> materials_;
  std::unordered_set<std::string> names_;
  bool isOpen_ = false;      // whether statements apply to the last material
  bool hasOpacity_ = false;  // `d` takes precedence over `Tr`, regardless of their order
};

}  // namespace

std::vector<Material> parseMaterials(std::string_view text) { return MaterialReader().read(text); }

}  // namespace orivanta::scene::obj

// Reading models and material libraries, including ignored statements and damaged files.
#include "Platform/Scene/Obj/Model.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>

#include "Platform/Scene/Obj/LocalPath.hpp"
#include "Platform/Scene/Obj/MaterialLibrary.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::scene::obj {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string square = "v 0 0 0\nv 4 0 0\nv 4 4 0\nv 0 4 0\nvt 0 0\nvt 1 0\nvt 1 1\nvn 0 0 2\n";

double area(const Model& model) {
  double sum = 0.0;
  for (const Group& group : model.groups) {
    for (std::size_t i = 0; i < group.indices.size(); i += 3) {
      const auto& a = model.vertices.at(group.indices[i]).position;
      const auto& b = model.vertices.at(group.indices[i + 1]).position;
      const auto& c = model.vertices.at(group.indices[i + 2]).position;
      const double u[3] = {double{b[0]} - double{a[0]}, double{b[1]} - double{a[1]},
                           double{b[2]} - double{a[2]}};
      const double v[3] = {double{c[0]} - double{a[0]}, double{c[1]} - double{a[1]},
                           double{c[2]} - double{a[2]}};
      sum += std::hypot(u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                        u[0] * v[1] - u[1] * v[0]) /
             2.0;
    }
  }
  return sum;
}

std::vector<std::string> groupNames(const Model& model) {
  std::vector<std::string> names;
  for (const Group& group : model.groups) names.push_back(group.material.name);
  return names;
}

// Lists "name:triangles" for each group.
std::string groups(const Model& model) {
  std::ostringstream text;
  for (const Group& group : model.groups)
    text << (text.tellp() > 0 ? " " : "") << group.material.name << ':' << group.indices.size() / 3;
  return text.str();
}

TEST(Model, WaysToWriteAFace) {
  struct {
    const char* text;
    double area;
    std::size_t skipped;
  } const faces[] = {
      {"f 1 2 3 4", 16, 0},
      {"f 1// 2// 3//", 8, 0},
      {"f 1/ 2/ 3/", 8, 0},
      {"f 1/1 2/2 3/3 # remark", 8, 0},
      {"f 1//1 2//1 3//1 4//1", 16, 0},
      {"f\t1/1/1  2/2/1\t3/3/1 \r", 8, 0},
      {"f -4/-3/-1 -3/-2/-1 -2/-1/-1", 8, 0},
      {"f 1 2 \\\n 3 \\\r\n4", 16, 0},
      {"f 1 2 3\nf 1 3 4 0", 8, 1},
      {"f 1 2 5\nv 4 4 0", 8, 0},
      {"f 1 2", 0, 1},
      {"f", 0, 1},
      {"f 0 1 2", 0, 1},
      {"f 1 2 -5", 0, 1},
      {"f 1 2 5", 0, 1},
      {"f 1 2 4294967297", 0, 1},
      {"f 1 2 18446744073709551619", 0, 1},
      {"f 1 2 -18446744073709551615", 0, 1},
      {"f 1/1 2/2 3/4", 0, 1},
      {"f 1//1 2//1 3//2", 0, 1},
      {"f 1 2 3/1/1/1", 0, 1},
      {"f 1 2 x", 0, 1},
      {"f 1 2 3x", 0, 1},
      {"f 1 2 3/x", 0, 1},
      {"f 1 2 -", 0, 1},
      {"v nan 0 0\nv 1e39 0 0\nv 0 -inf 0\nf 1 2 5\nf 1 2 6\nf 1 2 7\nf 1 2 3", 8, 3},
      {"v 1e400 0 0\nf 1 2 5", 0, 1},
      {"v red 0 0\nf 1 2 5", 0, 1},
      {"v +4 +4e0 0.0E+1 1 0 0\nf 1 2 5", 8, 0},
      {"v 0\nf 5 2 3", 8, 0},
      {"o a\ng b c\ns off\nl 1 2\np 1\ncurv 1 2\nfoo 1 2 3\nf 1 2 3", 8, 0}};
  for (const auto& [text, expectedArea, expectedSkipped] : faces) {
    const Model model = parseModel(square + text);
    EXPECT_EQ(area(model), expectedArea) << text;
    EXPECT_EQ(model.groups.empty(), expectedArea == 0.0) << text;
    EXPECT_EQ(model.skippedFaces, expectedSkipped) << text;
  }
  EXPECT_EQ(area(parseModel("\xEF\xBB\xBF# remark\\\n" + square + "f 1 2 3")), 8);
}

TEST(Model, CornersAlikeShareAVertex) {
  const Model model = parseModel(square +
                                 "vn 1 0 0\nf 1/1/1 2/2/1 3/3/1\nf 1/1/1 3/3/1 4/1/1\n"
                                 "f 1/1/2 2/2/1 3/2/1\n");
  EXPECT_EQ(model.groups.at(0).indices, (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3, 4, 1, 5}));
  EXPECT_EQ(model.vertices.at(2), (Vertex{{4, 4, 0}, {0, 0, 1}, {1, 1}}));
  EXPECT_TRUE(model.hasNormals);
  EXPECT_TRUE(model.hasTextureCoordinates);
}

TEST(Model, MissingNormalsStayUnknown) {
  const Model model = parseModel(square + "vn 0 0 0\nf 1//2 2//2 3//2\nf 1//1 3//1 4\n");
  EXPECT_FALSE(model.hasNormals);
  EXPECT_FALSE(model.hasTextureCoordinates);
  const auto normal = [&](std::size_t index) {
    return model.vertices.at(model.groups.at(0).indices.at(index)).normal;
  };
  for (const std::size_t without : {0U, 2U, 5U}) EXPECT_THAT(normal(without), ElementsAre(0, 0, 0));
  EXPECT_THAT(normal(4), ElementsAre(0, 0, 1));
}

TEST(Model, GroupsComeByFirstUse) {
  const std::pair<const char*, const char*> models[] = {
      {"f 1 2 3", ":1"},
      {"usemtl B\nf 1 2 3\nusemtl A\nf 1 2 3 4\nusemtl B\nf 1 2 3", "B:2 A:2"},
      {"f 1 2 3\nusemtl A\nusemtl C\nf 1 2 3\nusemtl\nf 2 3 4", ":2 C:1"},
      {"usemtl two words \t\r\nf 1 2 3\nusemtl #1\nf 1 2 3", "two words:1 #1:1"},
      {"usemtl A\nf 1 2 2\nf 1 2 9\nusemtl B\nf 1 2 3\nusemtl A\nf 1 2 3", "B:1 A:1"}};
  for (const auto& [text, expected] : models)
    EXPECT_EQ(groups(parseModel(square + text)), expected);
}

TEST(Model, LibrariesAreFoundByName) {
  const std::map<fs::path, std::string> files{{"a.mtl", "newmtl A\nKd 1 0 0\n"},
                                              {"b.mtl", "newmtl A\nKd 0 1 0\nnewmtl B\n"},
                                              {"two words.mtl", "newmtl C\n"}};
  const auto library = [&](const fs::path& name) {
    const auto file = files.find(name);
    return file == files.end() ? std::nullopt : std::optional(file->second);
  };
  const std::pair<const char*, const char*> lines[] = {
      {"mtllib a.mtl", "A"},
      {"mtllib missing.mtl b.mtl\r", "AB"},
      {"mtllib two words.mtl", "C"},
      {"mtllib a.mtl\nmtllib two words.mtl\nmtllib b.mtl", "ABC"},
      {"mtllib ../a.mtl", "A"},
      {"mtllib /etc/a.mtl C:\\maps\\b.mtl", "AB"},
      {"mtllib", ""},
      {"mtllib ..", ""}};
  for (const auto& [line, expected] : lines) {
    const Model model = parseModel(
        square + "usemtl A\nf 1 2 3\nusemtl B\nf 1 2 3\nusemtl C\nf 1 2 3\n" + line, library);
    std::string defined;
    for (const Group& group : model.groups)
      if (group.material.defined) defined += group.material.name;
    EXPECT_EQ(defined, expected) << line;
    EXPECT_THAT(groupNames(model), ElementsAre("A", "B", "C"));
    if (defined != "ABC") continue;
    EXPECT_THAT(model.groups[0].material.diffuse, ElementsAre(1, 0, 0));
  }
}

TEST(MaterialLibrary, StatementsOfAMaterial) {
  const auto look = [](std::array<float, 3> color, float opacity, const char* texture) {
    Material material{"M", color, opacity, std::nullopt, true};
    if (*texture != '\0') material.diffuseTexture = texture;
    return material;
  };
  const std::pair<const char*, Material> materials[] = {
      {"", look({1, 1, 1}, 1, "")},
      {"\tKd\t0.5 .25 1e-1\t# remark\r", look({0.5F, 0.25F, 0.1F}, 1, "")},
      {"Kd 0.5", look({0.5F, 0.5F, 0.5F}, 1, "")},
      {"Kd 2 -1 0", look({1, 0, 0}, 1, "")},
      {"Kd red\nKd spectral a.rfl\nKd nan 0 0\nKd 0 inf 0\nKd", look({1, 1, 1}, 1, "")},
      {"d 0.25\nTr 0.5", look({1, 1, 1}, 0.25F, "")},
      {"Tr 0.75", look({1, 1, 1}, 0.25F, "")},
      {"d -halo 0.5", look({1, 1, 1}, 0.5F, "")},
      {"d x\nd 7", look({1, 1, 1}, 1, "")},
      {"map_Kd two words.png ", look({1, 1, 1}, 1, "two words.png")},
      {"map_Kd -s 2 2 -o 0 0.5 0 -clamp on -blendu off -mm 0 1 2.png", look({1, 1, 1}, 1, "2.png")},
      {"map_Kd -s 1 -x.png", look({1, 1, 1}, 1, "-x.png")},
      {"map_Kd pictures\\wood.png", look({1, 1, 1}, 1, "pictures/wood.png")},
      {"map_Kd ../../wood.png", look({1, 1, 1}, 1, "wood.png")},
      {"map_Kd\nmap_Kd -s 1 1 1\nmap_Kd ..\nmap_Kd a/", look({1, 1, 1}, 1, "")},
      {"newmtl M\nKd 0 0 0\nnewmtl\nKd 0 0 0", look({1, 1, 1}, 1, "")}};
  for (const auto& [text, expected] : materials)
    EXPECT_THAT(parseMaterials(std::string("Kd 0 0 0\nnewmtl M \n") + text), ElementsAre(expected))
        << text;
}

TEST(LocalPath, NeverLeavesTheFolder) {
  const std::pair<const char*, const char*> names[] = {{"a.png", "a.png"},
                                                       {"b/./c/../a.png", "b/a.png"},
                                                       {"../a.png", "a.png"},
                                                       {"b/../../a.png", "a.png"},
                                                       {"/etc/passwd", "passwd"},
                                                       {"C:\\b\\a.png", "a.png"},
                                                       {"C:a.png", "a.png"},
                                                       {"..\\..\\a.png", "a.png"},
                                                       {"//host/a.png", "a.png"},
                                                       {"", ""},
                                                       {".", ""},
                                                       {"..", ""},
                                                       {"b/..", ""},
                                                       {"../..", ""},
                                                       {"/", ""},
                                                       {"b/", ""},
                                                       {"C:", ""}};
  for (const auto& [name, expected] : names)
    EXPECT_EQ(localPath(name).value_or(""), expected) << name;
  EXPECT_FALSE(localPath(std::string_view("a\0b", 3)));
}

std::string usesOfMaterials(std::size_t count) {
  std::string text = square;
  for (std::size_t i = 0; i < count; ++i) text += fmt::format("usemtl {}\nf 1 2 3\n", i);
  return text;
}

TEST(Model, MaterialsAreLimited) {
  const Model model = parseModel(usesOfMaterials(mostMaterials) + "usemtl 0\nf 1 2 3\n");
  EXPECT_EQ(model.groups.size(), mostMaterials);
  EXPECT_FALSE(model.hasTooManyMaterials);
  std::string library;
  for (std::size_t i = 0; i <= mostMaterials; ++i) library += fmt::format("newmtl {}\n", i);
  EXPECT_EQ(parseMaterials(library).size(), mostMaterials);
}

TEST(Model, FilesThatCannotBeReadSayWhy) {
  const test::TemporaryFolder folder;
  const fs::path large = folder.write("large.obj", "");
  fs::resize_file(large, largestModelBytes + 1);
  const std::pair<fs::path, ModelError> files[] = {
      {folder.path() / "missing.obj", ModelError::unreadable},
      {folder.path(), ModelError::unreadable},
      {"/dev/zero", ModelError::unreadable},
      {large, ModelError::tooLarge},
      {folder.write("many.obj", usesOfMaterials(mostMaterials + 1)), ModelError::tooLarge},
      {folder.write("empty.obj", ""), ModelError::nothingToDraw},
      {folder.write("points.obj", square), ModelError::nothingToDraw}};
  for (const auto& [file, code] : files) {
    const auto result = readModel(file);
    ASSERT_FALSE(result) << file;
    const auto& error = result.error();
    EXPECT_EQ(error.code, static_cast<int>(code)) << error.description;
    EXPECT_THAT(error.description, testing::StartsWith(file.string()));
  }
}

// The area of all faces, computed from the text corner by corner.
double faceArea(const std::string& text) {
  std::vector<std::array<double, 3>> positions;
  std::istringstream lines(text);
  double sum = 0.0;
  for (std::string line, keyword; std::getline(lines, line);) {
    std::istringstream words(line);
    words >> keyword;
    if (keyword == "v") {
      auto& [x, y, z] = positions.emplace_back();
      words >> x >> y >> z;
    } else if (keyword == "f") {
      std::vector<std::array<double, 3>> corners;
      for (std::string corner; words >> corner;)
        corners.push_back(positions.at(std::stoul(corner) - 1));
      double normal[3] = {};
      for (std::size_t i = 0; i < corners.size(); ++i)
        for (std::size_t axis = 0; axis < 3; ++axis) {
          const auto& [from, to] = std::pair(corners[i], corners[(i + 1) % corners.size()]);
          const std::size_t next = (axis + 1) % 3;
          normal[axis] += from[axis] * to[next] - from[next] * to[axis];
        }
      sum += std::hypot(normal[0], normal[1], normal[2]) / 2.0;
    }
    keyword.clear();
  }
  return sum;
}

TEST(Model, RealFloorsKeepTheirAreaAndMaterials) {
  const auto venues = test::venuesFolder();
  if (!venues) GTEST_SKIP() << "the real venues are not available";
  std::size_t modelCount = 0;
  for (const std::string& venue : test::venueNames()) {
    for (const auto& entry : fs::directory_iterator(*venues / venue / "maps")) {
      if (entry.path().extension() != ".obj") continue;
      ++modelCount;
      const auto result = readModel(entry.path());
      ASSERT_TRUE(result) << entry.path();
      const Model& model = *result;
      const double expected = faceArea(test::contentsOf(entry.path()));
      EXPECT_NEAR(area(model), expected, 1e-5 * expected) << entry.path();
      EXPECT_EQ(model.skippedFaces, 0U);
      EXPECT_TRUE(model.hasNormals);
      for (const Group& group : model.groups) {
        EXPECT_TRUE(group.material.defined) << entry.path() << ' ' << group.material.name;
        const auto& texture = group.material.diffuseTexture;
        EXPECT_TRUE(!texture || fs::exists(*texture)) << *texture;
      }
    }
  }
  EXPECT_GT(modelCount, 20U);
}

}  // namespace
}  // namespace orivanta::scene::obj

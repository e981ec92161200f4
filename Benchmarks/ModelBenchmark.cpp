// A Wavefront model from a file to vertices and groups ready to draw, against tinyobjloader, which
// is asked for less: it neither cuts faces into triangles nor joins corners. A file holds so many
// floors of 1,500 rooms, each a material and 20 faces.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <tiny_obj_loader.h>

#include <iterator>
#include <map>
#include <random>

#include "Platform/Scene/Obj/Model.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::benchmarks {
namespace {

namespace fs = std::filesystem;

// Rooms as prisms with 18 corners: a floor and a ceiling that are not convex, quadrilaterals
// between.
class WrittenModel {
 public:
  explicit WrittenModel(int floors) {
    for (int floor = 0; floor < floors; ++floor)
      for (int room = 0; room < roomsOfFloor; ++room) addRoom(floor, room);
    file_ = folder_.write("model.obj", text_);
    folder_.write("model.mtl", library_);
    bytes_ = static_cast<std::int64_t>(text_.size() + library_.size());
    text_ = {};
  }

  const fs::path& file() const { return file_; }
  std::int64_t bytes() const { return bytes_; }

 private:
  static constexpr int roomsOfFloor = 1'500;
  static constexpr int sides = 18;

  void addRoom(int floor, int room) {
    const std::string name = fmt::format("room-{}-{}", floor, room);
    fmt::format_to(out(library_), "newmtl {}\nKd 0.8 0.{} 0.7\n", name, room % 10);
    fmt::format_to(out(text_), "usemtl {}\n", name);
    for (const double height : {0.0, 2.5})
      for (int side = 0; side < sides; ++side) addCorner(10.0 * room, 4.0 * floor + height, side);
    addFaces();
  }

  void addCorner(double x, double z, int side) {
    const double angle = 2.0 * 3.14159265 * side / sides;
    const double radius = side % 2 == 0 ? 4.0 : 2.5;
    fmt::format_to(out(text_), "v {:.3f} {:.3f} {:.3f}\n",
                   x + radius * std::cos(angle) + jitter_(random_), radius * std::sin(angle), z);
    fmt::format_to(out(text_), "vt {:.4f} {:.4f}\nvn {:.3f} {:.3f} 0\n", radius, angle,
                   std::cos(angle), std::sin(angle));
  }

  void addFaces() {
    const auto corner = [&](int side, int normal) {
      return fmt::format(" {0}/{0}/{1}", first_ + side, first_ + normal);
    };
    for (int side = 0; side < sides; ++side) {
      const int next = (side + 1) % sides;
      text_ += 'f';
      for (const int at : {side, next, next + sides, side + sides}) text_ += corner(at, side);
      text_ += '\n';
    }
    for (int end = 0; end < 2; ++end) {
      text_ += 'f';
      for (int side = 0; side < sides; ++side)
        text_ += corner(end == 0 ? sides - 1 - side : sides + side, 0);
      text_ += '\n';
    }
    first_ += 2 * sides;
  }

  static std::back_insert_iterator<std::string> out(std::string& text) {
    return std::back_inserter(text);
  }

  test::TemporaryFolder folder_;
  fs::path file_;
  std::int64_t bytes_ = 0;
  std::string text_ = "mtllib model.mtl\n";
  std::string library_;
  int first_ = 1;
  std::mt19937 random_{1};
  std::uniform_real_distribution<double> jitter_{0.0, 0.5};
};

const WrittenModel& model(const benchmark::State& state) {
  static std::map<std::int64_t, WrittenModel> models;
  const auto floors = state.range(0);
  return models.try_emplace(floors, static_cast<int>(floors)).first->second;
}

void withLibrary(benchmark::State& state) {
  const WrittenModel& written = model(state);
  for (auto _ : state) {
    const auto read = scene::obj::readModel(written.file());
    if (!std::holds_alternative<scene::obj::Model>(read)) state.SkipWithError("not read");
  }
  state.SetBytesProcessed(state.iterations() * written.bytes());
}

void withTinyObjLoader(benchmark::State& state) {
  const WrittenModel& written = model(state);
  const std::string folder = written.file().parent_path().string() + '/';
  for (auto _ : state) {
    tinyobj::attrib_t attributes;
    std::vector<tinyobj::shape_t> shapes;
    std::vector<tinyobj::material_t> materials;
    std::string warning;
    std::string error;
    if (!tinyobj::LoadObj(&attributes, &shapes, &materials, &warning, &error,
                          written.file().c_str(), folder.c_str(), /*triangulate=*/false))
      state.SkipWithError(error.c_str());
  }
  state.SetBytesProcessed(state.iterations() * written.bytes());
}

// Floors, of some 6 MB each.
void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1)->Arg(25)->Unit(benchmark::kMillisecond);
}

BENCHMARK(withLibrary)->Name("Model")->Apply(sizes);
BENCHMARK(withTinyObjLoader)->Name("Model.tinyobjloader")->Apply(sizes);

}  // namespace
}  // namespace orivanta::benchmarks

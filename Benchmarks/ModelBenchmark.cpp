// Reads a Wavefront model from a file to vertices and groups that are ready to draw, compared with
// tinyobjloader, which does less: it neither cuts faces into triangles nor merges corners. A file
// contains N floors of 1,500 rooms and 150,000 triangles each. The counter "memory" is the memory
// of the result as a multiple of the file size.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <tiny_obj_loader.h>

#include <map>
#include <optional>
#include <utility>

#include "Benchmarks/WrittenModel.hpp"
#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::benchmarks {
namespace {

const WrittenModel& model(const benchmark::State& state) {
  static std::map<std::int64_t, WrittenModel> models;
  const auto floors = state.range(0);
  return models.try_emplace(floors, static_cast<int>(floors)).first->second;
}

double allocatedBytes() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

template <class Read>
void readAgain(benchmark::State& state, const Read& read) {
  const WrittenModel& written = model(state);
  {
    const double before = allocatedBytes();
    const auto kept = read(written);
    state.counters["memory"] = (allocatedBytes() - before) / static_cast<double>(written.bytes());
    if (!kept) state.SkipWithError("not read");
  }
  for (auto _ : state) benchmark::DoNotOptimize(read(written));
  state.SetBytesProcessed(state.iterations() * written.bytes());
}

void withLibrary(benchmark::State& state) {
  readAgain(state, [](const WrittenModel& written) -> std::optional<scene::obj::Model> {
    auto read = scene::obj::readModel(written.file());
    if (read) return std::move(*read);
    return std::nullopt;
  });
}

struct TinyModel {
  tinyobj::attrib_t attributes;
  std::vector<tinyobj::shape_t> shapes;
  std::vector<tinyobj::material_t> materials;
};

void withTinyObjLoader(benchmark::State& state) {
  readAgain(state, [](const WrittenModel& written) -> std::optional<TinyModel> {
    TinyModel model;
    std::string warning;
    std::string error;
    const std::string folder = written.file().parent_path().string() + '/';
    if (!tinyobj::LoadObj(&model.attributes, &model.shapes, &model.materials, &warning, &error,
                          written.file().c_str(), folder.c_str(), /*triangulate=*/false))
      return std::nullopt;
    return model;
  });
}

// The number of floors, of about 9 MB each.
void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1)->Arg(25)->Unit(benchmark::kMillisecond);
}

BENCHMARK(withLibrary)->Name("Model")->Apply(sizes);
BENCHMARK(withTinyObjLoader)->Name("Model.tinyobjloader")->Apply(sizes);

}  // namespace
}  // namespace orivanta::benchmarks

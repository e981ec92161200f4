// Writes a floor as a Wavefront model to the disk.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

#include "Platform/Graphics/Geometry.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::benchmarks {

/// A file with a number of floors of 1,500 rooms. Each room has its own material and is a prism
/// with 26 walls and a nonconvex floor and ceiling: 28 faces, 100 triangles.
class WrittenModel {
 public:
  explicit WrittenModel(int floors);

  const std::filesystem::path& file() const { return file_; }
  std::int64_t bytes() const { return bytes_; }  ///< including the material library

 private:
  static constexpr int roomsOfFloor = 1'500;
  static constexpr int sides = 26;

  void addRoom(int floor, int room);
  void addCorner(const graphics::Point& at, double height);
  void addWallNormal(const graphics::Point& from, const graphics::Point& to);
  void addFaces();

  test::TemporaryFolder folder_;
  std::filesystem::path file_;
  std::int64_t bytes_ = 0;
  std::string text_ = "mtllib model.mtl\n";
  std::string library_;
  int firstVertex_ = 1;
  int firstNormal_ = 1;
  std::mt19937 random_{1};
  std::uniform_real_distribution<double> jitter_{0.0, 0.5};
};

}  // namespace orivanta::benchmarks

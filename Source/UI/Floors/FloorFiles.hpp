// The files that make up the 3D scene of a floor.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Platform/Foundation/Url.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// As a map's record names them.
struct FloorFiles {
  std::string model;                ///< the URL of the OBJ file; empty when the floor has none
  std::string materials;            ///< that of the material library; the same
  std::vector<std::string> images;  ///< those of the pictures

  static FloorFiles of(const Map& map);

  /// The URLs in the order of fetching: the model, its materials if any, the pictures. A text that
  /// is no URL is a fatal error.
  std::vector<foundation::Url> urls() const;
};

/// The number of a venue's floors that name a model and pictures; a missing list has none.
std::size_t countFloorsWithPictures(const Venue& venue);

}  // namespace orivanta

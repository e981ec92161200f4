// The files that make up the 3D scene of a floor.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Platform/Foundation/Url.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The files of a floor, as named in its map record.
struct FloorFiles {
  std::string model;                ///< URL of the OBJ file; empty if there is none
  std::string materials;            ///< URL of the material library; empty if there is none
  std::vector<std::string> images;  ///< URLs of the pictures

  static FloorFiles of(const Map& map);

  /// Returns the URLs in fetch order: the model, its materials if any, the pictures. An invalid URL
  /// is a fatal error.
  std::vector<foundation::Url> urls() const;
};

/// Returns the number of a venue's floors with a model and pictures; 0 if the list is missing.
std::size_t countFloorsWithPictures(const Venue& venue);

}  // namespace orivanta

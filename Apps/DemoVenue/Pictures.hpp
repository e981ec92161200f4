// The demo venue's images: floor textures, the logo, the cover, and signs for the places.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Writes tiles.png, deck.png and steps.png into the folder. They repeat in both directions.
void writeTextures(const std::filesystem::path& folder);

/// Writes the logo in three sizes and the cover image into the folder.
void writeImages(const Plan& plan, const std::filesystem::path& folder);

/// A size of the images of places: its key in the web API, and its pixels.
struct Rendition {
  std::string_view key;
  int width;
};
inline constexpr std::array renditions = {Rendition{"small", 256}, Rendition{"medium", 512},
                                          Rendition{"large", 1024}};

/// The file name of a category's sign, such as "cafes-256.png".
std::string signName(std::string_view category, const Rendition& rendition);

/// Writes a sign, twice as wide as high, in all sizes for each category that has a symbol.
void writeSigns(const Plan& plan, const std::filesystem::path& folder);

}  // namespace orivanta::demo

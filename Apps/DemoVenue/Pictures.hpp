// The demo venue's pictures: textures of the floors, the logo, the cover, signs for the places.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Writes tiles.png, deck.png and steps.png, which repeat in both directions, into the folder.
void writeTextures(const std::filesystem::path& folder);

/// Writes the logo in three sizes and the cover picture into the folder.
void writeImages(const Plan& plan, const std::filesystem::path& folder);

/// A size in which the pictures of places come: its key in the web API, and pixels.
struct Rendition {
  std::string_view key;
  int width;
};
inline constexpr std::array renditions = {Rendition{"small", 256}, Rendition{"medium", 512},
                                          Rendition{"large", 1024}};

/// The file of a category's sign, such as "cafes-256.png".
std::string signName(std::string_view category, const Rendition& rendition);

/// Writes a sign, twice as wide as high, for each category that has a symbol, in all renditions.
void writeSigns(const Plan& plan, const std::filesystem::path& folder);

}  // namespace orivanta::demo

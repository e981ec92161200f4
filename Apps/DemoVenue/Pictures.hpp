// The demo venue's pictures: textures of the floors, the logo, the cover.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Writes tiles.png, deck.png and steps.png, which repeat in both directions, into the folder.
void writeTextures(const std::filesystem::path& folder);

/// Writes the logo in three sizes and the cover picture into the folder.
void writeImages(const Plan& plan, const std::filesystem::path& folder);

}  // namespace orivanta::demo

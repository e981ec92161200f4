// Joins pieces of outlines to lines.
// Private header.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Scene/Ribbons.hpp"

namespace orivanta {

/// A straight piece of an outline.
struct OutlinePiece {
  graphics::Vector3 from;
  graphics::Vector3 to;
  std::uint8_t color;  ///< color index
};

/// Joins pieces that end where others begin. Each piece belongs to one line. Lines that return to
/// their first point are closed.
std::vector<scene::Ribbons::Line> chainPieces(std::span<const OutlinePiece> pieces);

}  // namespace orivanta

// Several pictures made into one that moves.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::command {

/// Writes an animated GIF that repeats for ever, each picture with up to 256 colours of its own,
/// chosen from what it holds. The pictures have one size. Throws `CommandError` when the file
/// cannot be written.
void writeAnimation(const std::vector<std::shared_ptr<const graphics::Image>>& pictures,
                    double secondsPerPicture, const std::string& file);

}  // namespace orivanta::command

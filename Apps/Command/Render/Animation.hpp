// Combines several images into an animation.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::command {

/// An animated GIF that repeats forever. Images are written one by one, each with a palette of up
/// to 256 colors chosen for it. All images must have the same size. All operations throw
/// `CommandError` if the file cannot be written.
class Animation {
 public:
  Animation(const std::string& file, double secondsPerPicture);
  ~Animation();
  Animation(const Animation&) = delete;
  Animation& operator=(const Animation&) = delete;

  void add(const graphics::Image& picture);
  void finish();

 private:
  class GifFile;

  std::unique_ptr<GifFile> gif_;
  double secondsPerPicture_;
  bool begun_ = false;
};

}  // namespace orivanta::command

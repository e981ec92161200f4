// Several pictures made into one that moves.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::command {

/// An animated GIF that repeats for ever, written picture by picture, each with up to 256 colors
/// of its own, chosen from what it holds. The pictures have one size. All operations throw
/// `CommandError` when the file cannot be written.
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

// Uploads the images of sheets, one texture for each sheet.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "Platform/Graphics/Sheet.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

/// In each frame, first `choose`, then `upload`, then `bind`.
class SheetTextures {
 public:
  /// Chooses the images of a sheet that this frame uploads, unless it has done so for this frame.
  /// Returns the greatest serial number of all images that the texture will have then; it has all
  /// with smaller numbers.
  std::uint64_t choose(const std::shared_ptr<graphics::Sheet>& sheet);

  /// Uploads what was chosen.
  void upload(FrameStatistics& statistics);

  /// Binds the texture of a sheet, which must have been chosen, to the active texture unit.
  void bind(const graphics::Sheet& sheet) const;

  /// Deletes the textures of sheets that no longer exist.
  void collect();

 private:
  struct Entry {
    std::weak_ptr<graphics::Sheet> sheet;
    gl::Texture texture;
    std::uint64_t lastSerial = 0;
    std::vector<graphics::SheetImage> chosen;
    bool isChosen = false;
    bool hasStorage = false;
  };

  std::map<const graphics::Sheet*, Entry> entries_;
};

}  // namespace orivanta::render

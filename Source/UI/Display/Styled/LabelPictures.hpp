// Draws the images of labels in the background and keeps them in a sheet.
// Private header.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "Platform/Graphics/Sheet.hpp"
#include "Source/UI/Display/Styled/LabelPicture.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// The images of labels for one theme and one scale. When the sheet is full, the images that were
/// not drawn for the longest time are dropped. Any thread; call it under the transaction in which a
/// frame is gathered, or under none.
class LabelPictures {
 public:
  /// Uses a sheet of 1024 pixels, or of 2048 pixels if `scale` (pixels per point) is above 1.
  LabelPictures(std::shared_ptr<const MapTheme> theme, double scale);

  /// `sheetSide`: pixels.
  LabelPictures(std::shared_ptr<const MapTheme> theme, double scale, std::uint32_t sheetSide);

  /// Drops the images that are not drawn yet.
  ~LabelPictures();
  LabelPictures(const LabelPictures&) = delete;
  LabelPictures& operator=(const LabelPictures&) = delete;

  /// Returns the sheet that has the images. Never null; always the same one.
  const std::shared_ptr<graphics::Sheet>& sheet() const;

  /// Begins a frame. Images that were found in this frame or in the last one stay in the sheet.
  void beginFrame();

  /// Returns the place of an image in the sheet. If it is not there yet, returns nothing, draws it
  /// in the background and then calls `view::View::setNeedsFrame`. An image for which no frame asks
  /// any more when its turn comes is not drawn. Also returns nothing while the images of this frame
  /// and of the last one leave no space, and always if there is nothing to draw, see
  /// `makeLabelImage`.
  std::optional<graphics::SheetPlace> find(const LabelPicture& picture);

  /// Same as `find`, but draws the image in the calling thread if it is not there yet.
  std::optional<graphics::SheetPlace> findNow(const LabelPicture& picture);

  /// Returns whether images are still being drawn.
  bool isExpecting() const;

  /// Draws the images that are still missing, and waits for those that other threads are drawing.
  void finish();

 private:
  struct State;
  const std::shared_ptr<State> state_;  // also owned by the tasks
};

}  // namespace orivanta

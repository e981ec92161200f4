// The images of the labels of a frame.
// Private header.
#pragma once

#include <cstddef>
#include <vector>

#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Display/Styled/LabelPictures.hpp"
#include "Source/UI/Labels/LabelPlacement.hpp"

namespace orivanta {

/// Collects the pieces of the sheet that a frame shows. An image that was not there when its label
/// came fades in when it is. Used under transactions.
class LabelPieces {
 public:
  /// What all pieces of a frame have in common.
  struct Frame {
    const MapTheme& theme;
    LabelPictures& pictures;
    double time;   ///< seconds
    double scale;  ///< pixels per point
    bool isStill;  ///< whether images neither fade nor are missing
  };

  /// Begins with other labels.
  void reset(std::size_t labelCount);

  /// Makes the pieces of the visible labels.
  void collect(const LabelPlacement& placement, const FloorLabels& labels, const Frame& frame);

  /// The pieces, from the back to the front.
  const std::vector<view::SheetPiece>& pieces() const { return pieces_; }

  /// Whether an image appeared a short time before the last frame.
  bool isFading() const { return isFading_; }

 private:
  struct Appearance {
    double symbol = -1;  // the time when its image was first drawn; negative if it is not visible
    double name = -1;
  };

  void add(const ShownLabel& shown, const PlaceLabel& label, const LabelSource& source,
           const Frame& frame);
  void addPiece(const LabelPicture& picture, const graphics::Rect& rect, double opacity,
                double& since, const Frame& frame);

  std::vector<Appearance> appearances_;  // of the labels
  std::vector<std::size_t> visible_;     // in the last frame
  std::vector<view::SheetPiece> pieces_;
  bool isFading_ = false;
};

}  // namespace orivanta

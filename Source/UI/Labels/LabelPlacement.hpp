// Decides which labels of a floor are shown in each frame, and where.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

class LabelPass;
struct LabelOrder;
class MapMotion;
struct LabelState;

/// Places labels by rank, so that no name or symbol lies over another one, over a panel or a mark,
/// or is cut at the edge of the view. Ten times a second, all labels are considered; in the frames
/// between, only those that are shown. A name moves only with its place: to change its side or its
/// lines, it fades out and in again.
///
/// A shown label has priority over slightly more important ones. A hidden one appears if it was
/// free for two considerations with a gap of 5 points, is 10 points inside the view, and went at
/// least 0.4 seconds ago. Labels fade for 0.2 seconds; one that would be cut or covered disappears
/// at once.
///
/// The result depends only on the arguments. Any thread, but only one at a time.
class ORIVANTA_API LabelPlacement {
 public:
  LabelPlacement();   ///< without labels
  ~LabelPlacement();  ///< needs no preparation
  LabelPlacement(const LabelPlacement&) = delete;
  LabelPlacement& operator=(const LabelPlacement&) = delete;

  /// Replaces the labels. None is shown until the next frame.
  void setLabels(std::vector<PlaceLabel> labels);

  /// Returns the labels.
  const std::vector<PlaceLabel>& labels() const { return labels_; }

  /// Advances to a frame. Does nothing if `frame.places` has not one element for each label.
  void update(const LabelFrame& frame);

  /// Places the labels without fading and waiting, for a single picture and for the first frame of
  /// a floor. Does nothing if `frame.places` has not one element for each label.
  void placeAtOnce(const LabelFrame& frame);

  /// Returns the labels that are visible in the last frame, the most important first. The reference
  /// is valid until the labels or the frame change.
  const std::vector<ShownLabel>& shown() const { return shown_; }

  /// Returns whether labels are fading or waiting to appear, so that a next frame with the same
  /// camera may differ.
  bool isChanging() const { return isChanging_; }

 private:
  bool canPlace(const LabelFrame& frame) const;
  MapMotion follow(const LabelFrame& frame, double elapsed);
  void sort(const LabelFrame& frame);
  bool fade(double elapsed);
  void list();
  void add(std::size_t index);

  std::vector<PlaceLabel> labels_;
  std::vector<LabelState> states_;
  std::vector<std::size_t> ranked_;    // the labels by rank
  std::vector<LabelOrder> preferred_;  // for sorting
  std::vector<LabelOrder> others_;     // for sorting
  std::vector<LabelOrder> order_;      // of the last consideration
  std::unique_ptr<LabelPass> pass_;
  std::vector<ShownLabel> shown_;
  double time_ = 0;
  double passTime_ = 0;
  bool hasTime_ = false;
  bool isMoving_ = false;
  bool isChanging_ = false;
};

}  // namespace orivanta

// One consideration of labels, in the order of their importance.
// Private header.
#pragma once

#include <array>
#include <limits>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Labels/LabelForms.hpp"
#include "Source/UI/Labels/LabelGrid.hpp"
#include "Source/UI/Labels/MapMotion.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

/// The symbol or the name of a label.
struct LabelPart {
  bool isShown = false;
  bool isWaiting = false;  // free, but not yet shown; keeps its room
  bool isPlaced = false;   // was considered in this pass
  int freePasses = 0;
  double opacity = 0;
  double wentAt = std::numeric_limits<double>::lowest();

  bool isVisible() const { return isShown || opacity > 0; }
};

/// What a placement remembers about a label.
struct LabelState {
  LabelPart symbol;
  LabelPart name;
  LabelForm form;            // changes only while the name is not visible
  bool isInside = false;     // the name is inside the area, without a symbol
  graphics::Point point;     // of the anchor in the last frame
  double pointsPerUnit = 0;  // in the last frame
  double growth = 0;         // of the scale, relative, per second
  double cameAt = std::numeric_limits<double>::lowest();  // the last part
  bool isFresh = false;  // came a short time ago; gives way to no new label

  bool isShown() const { return symbol.isShown || name.isShown; }
};

/// A part of a label in the order of importance. The symbol of a label is before its name.
struct LabelOrder {
  double score;  // less is more important
  std::size_t index;
  bool isName;
};

/// Which labels a pass considers.
enum class LabelPassKind {
  shown,  // only those that are shown
  all,
  atOnce  // all; free ones appear without waiting
};

/// Places parts of labels in a grid. Keeps its memory between passes.
class LabelPass {
 public:
  /// Decides which parts of the labels in `order` are shown. The labels, states and places have
  /// equal numbers of elements.
  void run(const std::vector<PlaceLabel>& labels, std::vector<LabelState>& states,
           const std::vector<LabelOrder>& order, const LabelFrame& frame, const MapMotion& motion,
           LabelPassKind kind);

  /// Removes parts at once that are fading out and are cut, covered by a panel or a mark, or too
  /// close to a shown part.
  void removeCovered(const std::vector<PlaceLabel>& labels, std::vector<LabelState>& states,
                     const LabelFrame& frame);

  /// Hides a part.
  static void hide(LabelPart& part, double time);

 private:
  void reset(const std::vector<PlaceLabel>& labels, const std::vector<LabelState>& states);
  void chooseMode(std::size_t index);
  ProjectedPlace placeAtScale(std::size_t index, bool isSmaller) const;
  void prepare(std::size_t index);
  void place(const LabelOrder& next);
  void placeSymbol(std::size_t index);
  void placeName(std::size_t index);
  bool isNameWanted(std::size_t index) const;
  bool chooseSide(std::size_t index);
  bool isFree(const LabelPart& part, const graphics::Rect& rect, std::size_t index) const;
  bool willStayClear(const graphics::Rect& rect, graphics::Point anchor) const;
  void settle(LabelPart& part, const graphics::Rect& rect, std::size_t index, bool isFree);
  bool isAtScale(const LabelPart& part, std::size_t index, double scale) const;
  double shareOnOthers(const graphics::Rect& rect, std::size_t index) const;
  void leave(LabelPart& part, const graphics::Rect& rect, std::size_t index);

  static constexpr std::array<double, 4> edgeShares{0.25, 0.5, 0.75, 1};  // of the time to the edge

  const std::vector<PlaceLabel>* labels_ = nullptr;  // during a run
  std::vector<LabelState>* states_ = nullptr;        // during a run
  const LabelFrame* frame_ = nullptr;                // during a run
  TextPlane plane_;
  MapWay shownWay_;                 // in the time of a fade
  MapWay soonWay_;                  // in the time that new labels should stay
  std::array<MapWay, 4> edgeWays_;  // in parts of the time that they should stay in the view
  LabelPassKind kind_ = LabelPassKind::all;
  LabelGrid taken_;    // panels, marks, and parts that are shown or waiting
  LabelGrid soon_;     // the same, where they will be
  LabelGrid leaving_;  // parts that are fading out
};

}  // namespace orivanta

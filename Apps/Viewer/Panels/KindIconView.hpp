// Shows the icon of a kind of places.
#pragma once

#include "Platform/View/View.hpp"
#include "Source/UI/Style/MapIcons.hpp"

namespace orivanta::viewer {

/// Shows an icon of the map as large as its frame, which must be a square. Receives no touches.
class KindIconView : public view::View {
 public:
  explicit KindIconView(PlaceKind kind);

  void setIcon(PlaceKind kind, IconState state = IconState::normal);
  void draw(view::Canvas& canvas) override;

 private:
  PlaceKind kind_;
  IconState state_ = IconState::normal;
};

}  // namespace orivanta::viewer

// A row of a list with the icon of a kind of places.
#pragma once

#include <memory>

#include "Apps/Viewer/Panels/KindIconView.hpp"
#include "Apps/Viewer/Widgets/List.hpp"

namespace orivanta::viewer {

/// The icon is before the title.
class PlaceRow : public Row {
 public:
  PlaceRow(RowText text, PlaceKind kind);

  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<KindIconView> icon_;
};

}  // namespace orivanta::viewer

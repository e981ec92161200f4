#include "Source/UI/Display/Styled/StyledLabels.hpp"

#include <mutex>
#include <utility>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Source/Map.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

// The areas of one floor, which labels of several themes share.
class StyledLabels::Areas {
 public:
  /// Computes the areas, or waits until another thread has computed them. Any thread.
  const FloorAreas& of(const FloorRecords& records) {
    std::call_once(once_, [&] { areas_.emplace(records); });
    return *areas_;
  }

 private:
  std::once_flag once_;  // guards the following member
  std::optional<FloorAreas> areas_;
};

// The making of the labels of one floor. The task in the background has a weak pointer to it, so
// that labels that are no longer needed are not made.
class StyledLabels::Making : public std::enable_shared_from_this<Making> {
 public:
  Making(FloorRecords records, std::shared_ptr<const MapTheme> theme, std::shared_ptr<Areas> areas)
      : records_(std::move(records)), theme_(std::move(theme)), areas_(std::move(areas)) {}

  /// `made` is called on the main thread, unless this object no longer exists.
  void start(std::function<void()> made) {
    foundation::runInBackground([weak = weak_from_this(), made = std::move(made)] {
      if (const auto self = weak.lock()) self->result();
      foundation::mainQueue::async([weak, made] {
        if (!weak.expired()) made();
      });
    });
  }

  /// Makes the labels, or waits until another thread has made them. Any thread.
  std::shared_ptr<const FloorLabels> result() {
    std::call_once(once_, [this] {
      labels_ = std::make_shared<const FloorLabels>(
          makeFloorLabels(records_, areas_->of(records_), *theme_));
      records_ = {};
    });
    return labels_;
  }

 private:
  std::once_flag once_;  // guards the following members
  FloorRecords records_;
  std::shared_ptr<const FloorLabels> labels_;
  const std::shared_ptr<const MapTheme> theme_;
  const std::shared_ptr<Areas> areas_;
};

void StyledLabels::attach(MapView& view,
                          std::function<std::vector<graphics::Rect>(double)> furniture) {
  map_ = &view;
  shown_ = std::make_shared<LabelView>(view);
  shown_->setFurniture(std::move(furniture));
  shown_->setStill(isStill_);
  shown_->setHidden(isHidden_ || !areShown_);
  shown_->setCovered(covered_);
  shown_->setRoute(route_);
  shown_->setMarked(marked_);
  shown_->addTo(view);
}

void StyledLabels::detach() {
  if (!shown_) return;
  clear();
  shown_->removeFromSuperview();
  shown_.reset();
  instead_.reset();
  map_ = nullptr;
}

void StyledLabels::show(const std::shared_ptr<const MapTheme>& theme) {
  const auto& floor = map_->currentMap();
  const auto model = floor ? floor->mapObject : nullptr;
  if (model && model == model_.lock() && theme == theme_) return;
  clear();
  if (!model || !map_->venue) return;
  if (!areas_ || model != areasModel_.lock()) areas_ = std::make_shared<Areas>();
  model_ = areasModel_ = model;
  theme_ = theme;
  shown_->setTheme(theme);
  make();
}

void StyledLabels::make() {
  FloorRecords records = floorRecords(*map_->venue, *map_->currentMap(), theme_->words, closures_);
  records.closedWord = closedWord_;
  making_ = std::make_shared<Making>(std::move(records), theme_, areas_);
  making_->start([this] { take(); });
}

// The former labels stay until those with the new marks are made.
void StyledLabels::setClosures(const guidance::Closures& closures, const std::string& word) {
  const bool isSame = closures == closures_ && (closures.empty() || word == closedWord_);
  closures_ = closures;
  closedWord_ = word;
  if (!isSame && theme_) make();
}

void StyledLabels::setSelected(std::optional<SelectedPlace> selected) {
  selected_ = std::move(selected);
  if (shown_ && !instead_) shown_->setSelected(selected_);
}

void StyledLabels::setInstead(std::shared_ptr<const FloorLabels> labels) {
  if (!shown_ || labels == instead_) return;
  instead_ = std::move(labels);
  shown_->setSelected(instead_ ? std::nullopt : selected_);
  showMade();
}

void StyledLabels::showMade() { shown_->setLabels(instead_ ? instead_ : made_); }

void StyledLabels::clear() {
  making_.reset();
  model_.reset();
  if (std::exchange(theme_, nullptr)) {
    made_.reset();
    showMade();
  }
}

void StyledLabels::take() {
  made_ = std::exchange(making_, nullptr)->result();
  showMade();
}

void StyledLabels::finish() {
  if (making_) take();
  if (shown_) shown_->finish();
}

void StyledLabels::setShown(bool areShown) {
  areShown_ = areShown;
  if (shown_) shown_->setHidden(isHidden_ || !areShown_);
}

void StyledLabels::setHidden(bool isHidden) {
  isHidden_ = isHidden;
  if (shown_) shown_->setHidden(isHidden_ || !areShown_);
}

void StyledLabels::setStill(bool isStill) {
  isStill_ = isStill;
  if (shown_) shown_->setStill(isStill);
}

void StyledLabels::setCovered(std::vector<graphics::Rect> covered) {
  covered_ = std::move(covered);
  if (shown_) shown_->setCovered(covered_);
}

void StyledLabels::setRoute(std::vector<RouteSegment> route) {
  route_ = std::move(route);
  if (shown_) shown_->setRoute(route_);
}

void StyledLabels::setMarked(std::vector<std::shared_ptr<Location>> places) {
  marked_ = std::move(places);
  if (shown_) shown_->setMarked(marked_);
}

void StyledLabels::setMarks(std::vector<graphics::Rect> marks) {
  if (shown_) shown_->setMarks(std::move(marks));
}

std::optional<double> StyledLabels::unitsPerMeter() const {
  return shown_ ? shown_->unitsPerMeter() : std::nullopt;
}

}  // namespace orivanta

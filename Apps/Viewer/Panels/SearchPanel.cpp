#include "Apps/Viewer/Panels/SearchPanel.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "Apps/Viewer/CategoryMatch.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double fieldHeight = 48;  // points
constexpr double signWidth = 44;
constexpr double titleHeight = 34;
constexpr const char* nearestDetail = "The route to the nearest one";

class GroupTitle : public Row {
 public:
  explicit GroupTitle(const std::string& title)
      : Row(titleHeight),
        label_(std::make_shared<Label>(
            LabelStyle{.size = theme::smallSize, .bold = true, .color = theme::accent}, title)) {
    addSubview(label_);
    setUserInteractionEnabled(false);
  }

  void draw(view::Canvas&) override {
    const graphics::Size size = bounds().size;
    label_->setFrame({{theme::padding, 8}, {size.width - 2 * theme::padding, size.height - 8}});
  }

 private:
  std::shared_ptr<Label> label_;
};

std::string labelOf(const std::optional<std::string>& name) {
  return name ? foundation::label(*name) : std::string();
}

std::string categoryOf(const Location& place) {
  return place.categories.empty() ? std::string() : labelOf(place.categories.front()->name);
}

}  // namespace

SearchPanel::SearchPanel(const Venue& venue)
    : venue_(venue),
      search_(*venue.locations, [this](const auto& groups) { show(groups); }),
      field_(std::make_shared<TextField>(defaultPlaceholder)),
      sign_(std::make_shared<Label>(
          LabelStyle{.size = 28, .color = theme::faint, .alignment = Alignment::center}, "\u2315")),
      clear_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      nothing_(std::make_shared<Label>(LabelStyle{.color = theme::faint},
                                       "Nothing found. Try fewer letters.")),
      list_(std::make_shared<List>()) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{sign_, field_, clear_, nothing_, list_})
    addSubview(part);
  field_->action = [this] {
    if (isOpen())
      field_->placeCaret(field_->tapPlace().x);
    else
      open();
  };
  field_->changed = [this] { search(); };
  clear_->action = [this] { close(); };
}

void SearchPanel::open(const std::string& placeholder, bool offersNearest) {
  offersNearest_ = offersNearest;
  field_->setPlaceholder(placeholder);
  field_->setText("");
  field_->setFocused(true);
  search();
}

void SearchPanel::close() {
  field_->setPlaceholder(defaultPlaceholder);
  field_->setText("");
  field_->setFocused(false);
  search_.cancel();
  choosesFirst_ = false;
  show({});
  hasSearched_ = false;
}

void SearchPanel::search() {
  choosesFirst_ = false;
  search_.start(field_->text());
  if (layoutChanged) layoutChanged();
}

void SearchPanel::show(const std::vector<PlaceGroup>& groups) {
  hasSearched_ = true;
  items_.clear();
  placeCount_ = 0;
  RowSource source;
  const auto add = [&](Item item, double height) {
    items_.push_back(std::move(item));
    source.heights.push_back(height);
  };
  const auto category = offersNearest_ ? categoryTyped(venue_, field_->text()) : nullptr;
  if (category && isOpen())
    add({nullptr, labelOf(category->name), category}, Row::heightWith(nearestDetail));
  const bool hasTitles = groups.size() > 1;
  for (const PlaceGroup& group : groups) {
    if (hasTitles)
      add({nullptr, group.title.empty() ? "Other places" : group.title, nullptr}, titleHeight);
    for (const auto& place : group.places) {
      std::string detail = hasTitles ? "" : categoryOf(*place);
      const double height = Row::heightWith(detail);
      add({place, std::move(detail), nullptr}, height);
    }
    placeCount_ += group.places.size();
  }
  source.make = [this](std::size_t index) { return makeRow(index); };
  source.canBeMarked = [this](std::size_t index) { return items_[index].canBeChosen(); };
  list_->setSource(std::move(source));
  if (!items_.empty() && !field_->text().empty()) list_->moveMark(1);
  if (layoutChanged) layoutChanged();
  if (std::exchange(choosesFirst_, false)) chooseMarked();
}

std::shared_ptr<Row> SearchPanel::makeRow(std::size_t index) {
  const Item& item = items_[index];
  if (!item.canBeChosen()) return std::make_shared<GroupTitle>(foundation::label(item.text));
  auto row = std::make_shared<Row>(item.category
                                       ? RowText{.title = "Nearest: " + item.text,
                                                 .detail = nearestDetail,
                                                 .trailing = "",
                                                 .dot = theme::accent}
                                       : RowText{.title = labelOf(item.place->name),
                                                 .detail = item.text,
                                                 .trailing = floorLabels(floorsOf(*item.place))});
  row->action = [this, item] { choose(item); };
  return row;
}

void SearchPanel::chooseMarked() {
  if (search_.isBusy()) {
    choosesFirst_ = true;
    return;
  }
  const auto first = std::find_if(items_.begin(), items_.end(),
                                  [](const Item& item) { return item.canBeChosen(); });
  if (const auto marked = list_->marked())
    choose(items_[*marked]);
  else if (first != items_.end())
    choose(*first);
}

// The item is a copy, because closing removes the row that owns it.
void SearchPanel::choose(Item item) {
  close();
  if (item.category) {
    if (nearestChosen) nearestChosen(item.category);
  } else if (chosen) {
    chosen(item.place);
  }
}

double SearchPanel::arrange(double width, double mostHeight) {
  sign_->setFrame({{2, 0}, {signWidth, fieldHeight}});
  field_->setFrame({{signWidth, 0}, {width - 2 * signWidth, fieldHeight}});
  clear_->setFrame({{width - signWidth - 2, 2}, {signWidth, fieldHeight - 4}});
  clear_->setHidden(!isOpen());
  const bool isEmpty = items_.empty();
  nothing_->setHidden(!isOpen() || !isEmpty || !hasSearched_);
  nothing_->setFrame({{theme::padding, fieldHeight}, {width - 2 * theme::padding, 48}});
  list_->setHidden(!isOpen() || isEmpty);
  if (!isOpen()) return fieldHeight;
  if (isEmpty) return hasSearched_ ? fieldHeight + 56 : fieldHeight;
  const double height = list_->heightWithin(mostHeight - fieldHeight - 8);
  list_->setFrame({{0, fieldHeight}, {width, height}});
  list_->arrange();
  return fieldHeight + height + 8;
}

void SearchPanel::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  if (isOpen())
    canvas.fill({{theme::padding, fieldHeight - 1}, {bounds().size.width - 2 * theme::padding, 1}},
                theme::hairline);
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/Panels/SearchPanel.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "Apps/Viewer/CategoryMatch.hpp"
#include "Apps/Viewer/NearestChoices.hpp"
#include "Apps/Viewer/Widgets/Direction.hpp"
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

const char* placeholderKey(std::optional<RouteEnd> end) {
  if (!end) return "interface.search";
  return *end == RouteEnd::start ? "interface.search.start" : "interface.search.destination";
}

std::string labelOf(const std::optional<std::string>& name) {
  return name ? foundation::label(*name) : std::string();
}

std::string categoryOf(const Location& place) {
  return place.categories.empty() ? std::string() : labelOf(place.categories.front()->name);
}

}  // namespace

SearchPanel::SearchPanel(const Venue& venue, const guidance::InterfaceTexts& texts)
    : venue_(venue),
      texts_(texts),
      search_(SearchWorker(*venue.locations), [this](const auto& groups) { show(groups); }),
      field_(std::make_shared<TextField>(texts.text("interface.search"))),
      sign_(std::make_shared<Label>(
          LabelStyle{
              .size = 28, .color = theme::faint, .alignment = Alignment::center, .isSign = true},
          "\u2315")),
      clear_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      nothing_(std::make_shared<Label>(LabelStyle{.color = theme::faint},
                                       texts.text("interface.search.nothing"))),
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
  list_->setTakesFocus(false);  // the panel handles its keys
  clear_->action = [this] { close(); };
}

void SearchPanel::open(std::optional<RouteEnd> end) {
  end_ = end;
  field_->setPlaceholder(texts_.text(placeholderKey(end)));
  field_->setText("");
  field_->setFocused(true);
  search();
}

void SearchPanel::close() {
  end_.reset();
  field_->setPlaceholder(texts_.text(placeholderKey(end_)));
  field_->setText("");
  field_->setFocused(false);
  search_.cancel();
  choosesFirst_ = false;
  show({});
  hasSearched_ = false;
}

bool SearchPanel::handleKey(const KeyPress& press) {
  switch (press.key) {
    case Key::up:
    case Key::down:
      list_->moveMark(press.key == Key::down ? 1 : -1);
      return true;
    case Key::enter:
      chooseMarked();
      return true;
    case Key::backspace:
      field_->eraseBack(press.control);
      return true;
    case Key::erase:
      field_->eraseForward();
      return true;
    case Key::left:
    case Key::right:
      field_->moveCaret(press.key == Key::left ? CaretStep::left : CaretStep::right);
      return true;
    case Key::home:
    case Key::end:
      field_->moveCaret(press.key == Key::home ? CaretStep::start : CaretStep::end);
      return true;
    default:
      return false;
  }
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
  if (isOpen() && end_ != RouteEnd::start)
    for (const auto& category : categoriesTyped(venue_, field_->text()))
      add({nullptr, texts_.text("interface.nearest.detail"), category}, Row::detailHeight);
  const bool hasTitles = groups.size() > 1;
  for (const PlaceGroup& group : groups) {
    if (hasTitles)
      add({nullptr, group.title.empty() ? texts_.text("interface.search.others") : group.title,
           nullptr},
          titleHeight);
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
  if (layoutChanged) layoutChanged();  // before the mark, which scrolls
  if (!items_.empty() && !field_->text().empty()) list_->moveMark(1);
  if (std::exchange(choosesFirst_, false)) chooseMarked();
}

std::shared_ptr<Row> SearchPanel::makeRow(std::size_t index) {
  const Item& item = items_[index];
  if (!item.canBeChosen()) return std::make_shared<GroupTitle>(foundation::label(item.text));
  auto row = std::make_shared<Row>(item.category
                                       ? RowText{.title = nearestOf(item.category, texts_).title,
                                                 .detail = item.text,
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
  const auto end = end_;
  close();
  if (item.category) {
    if (nearestChosen) nearestChosen(item.category);
  } else if (chosen) {
    chosen(item.place, end);
  }
}

double SearchPanel::barHeight() { return std::max(fieldHeight, theme::control()); }

double SearchPanel::arrange(double width, double mostHeight) {
  sign_->setFrame({{2, 0}, {signWidth, fieldHeight}});
  field_->setFrame({{signWidth, 0}, {width - 2 * signWidth, fieldHeight}});
  clear_->setFrame({{width - signWidth - 2, 2}, {signWidth, fieldHeight - 4}});
  clear_->setHidden(!isOpen());
  const bool isEmpty = items_.empty();
  nothing_->setHidden(!isOpen() || !isEmpty || !hasSearched_);
  nothing_->setFrame({{theme::padding, fieldHeight}, {width - 2 * theme::padding, 48}});
  list_->setHidden(!isOpen() || isEmpty);
  double height = nothing_->isHidden() ? fieldHeight : fieldHeight + 56;
  if (!list_->isHidden()) {
    const double listHeight = list_->heightWithin(mostHeight - fieldHeight - 8);
    list_->setFrame({{0, fieldHeight}, {width, listHeight}});
    list_->arrange();
    height = fieldHeight + listHeight + 8;
  }
  directChildren(*this, width);
  return height;
}

void SearchPanel::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  if (isOpen())
    canvas.fill({{theme::padding, fieldHeight - 1}, {bounds().size.width - 2 * theme::padding, 1}},
                theme::hairline);
}

}  // namespace orivanta::viewer

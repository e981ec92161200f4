#include "Apps/Viewer/Panels/SearchPanel.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "Apps/Viewer/Content/CategoryMatch.hpp"
#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double leastBarHeight = 48;  // points

const char* placeholderKey(std::optional<RouteEnd> end) {
  if (!end) return "interface.search";
  return *end == RouteEnd::start ? "interface.search.start" : "interface.search.destination";
}

}  // namespace

SearchPanel::SearchPanel(const Venue& venue, const guidance::InterfaceTexts& texts)
    : venue_(venue),
      texts_(texts),
      search_(SearchWorker(venue), [this](const auto& groups) { show(groups); }),
      pages_(venue, texts,
             {.nearest = [this](const NearestChoice& choice) { chooseNearest(choice); },
              .turn = [this](BrowsePages::Page page) { browse(page); },
              .back = [this] { goBack(); },
              .clearRecent =
                  [this] {
                    recent_.clear();
                    browse(page_);
                  }}),
      field_(std::make_shared<TextField>(texts.text("interface.search"))),
      sign_(std::make_shared<Label>(
          LabelStyle{
              .size = 28, .color = theme::faint, .alignment = Alignment::center, .isSign = true},
          "\u2315")),
      clear_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 17)),
      nothing_(std::make_shared<Label>(LabelStyle{.color = theme::faint, .lines = 0},
                                       texts.text("interface.search.nothing"))),
      list_(std::make_shared<ChoiceList>()) {
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
  list_->placeChosen = [this](const auto& place) { choosePlace(place); };
  list_->describe = [this](Choice& choice) { pages_.describe(choice); };
}

void SearchPanel::open(std::optional<RouteEnd> end) {
  end_ = end;
  field_->setPlaceholder(texts_.text(placeholderKey(end)));
  field_->setText("");
  field_->setFocused(true);
  page_ = {};
  search();
}

void SearchPanel::close() {
  end_.reset();
  field_->setPlaceholder(texts_.text(placeholderKey(end_)));
  field_->setText("");
  field_->setFocused(false);
  search_.cancel();
  choosesFirst_ = false;
  findsNothing_ = false;
  placeCount_ = 0;
  setSections({});
}

bool SearchPanel::goBack() {
  if (!isOpen() || !field_->text().empty() || page_.show == BrowsePages::Show::start) return false;
  browse({.showsKinds = page_.showsKinds});
  return true;
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
      if (!goBack()) field_->eraseBack(press.control);
      return true;
    case Key::erase:
      field_->eraseForward();
      return true;
    case Key::left:
    case Key::right:
      if (!moveAcross(press.key))
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

// Moves the mark between tiles. If there is a text, the keys move the caret.
bool SearchPanel::moveAcross(Key key) {
  const bool isForward = (key == Key::right) != isRightToLeft(*this);
  return field_->text().empty() && list_->moveAcross(isForward ? 1 : -1);
}

void SearchPanel::search() {
  choosesFirst_ = false;
  if (field_->text().empty()) {
    search_.cancel();
    search_.prepare();
    return browse(page_);
  }
  search_.start(field_->text());
  if (layoutChanged) layoutChanged();
}

void SearchPanel::browse(BrowsePages::Page page) {
  page_ = page;
  findsNothing_ = false;
  placeCount_ = 0;
  const bool offersNearest = nearestOffered && end_ != RouteEnd::start;
  setSections(pages_.sections(page, offersNearest ? nearestOffered() : std::vector<NearestChoice>(),
                              recent_.places()));
}

void SearchPanel::show(const std::vector<PlaceGroup>& groups) {
  std::vector<ChoiceSection> sections(1);
  if (end_ != RouteEnd::start)
    for (const auto& category : categoriesTyped(venue_, field_->text())) {
      const NearestChoice nearest = nearestOf(category, texts_);
      sections.front().choices.push_back({.title = nearest.title,
                                          .detail = texts_.text("interface.nearest.detail"),
                                          .kind = nearest.kind,
                                          .action = [this, nearest] { chooseNearest(nearest); }});
    }
  auto rows = pages_.rowsOf(groups);
  std::move(rows.begin(), rows.end(), std::back_inserter(sections));
  placeCount_ = 0;
  for (const PlaceGroup& group : groups) placeCount_ += group.places.size();
  findsNothing_ = placeCount_ == 0 && sections.front().choices.empty();
  setSections(std::move(sections));
  if (!findsNothing_) list_->moveMark(1);
  if (std::exchange(choosesFirst_, false)) chooseMarked();
}

// The layout comes before the mark, which scrolls.
void SearchPanel::setSections(std::vector<ChoiceSection> sections) {
  list_->setSections(std::move(sections));
  if (layoutChanged) layoutChanged();
}

void SearchPanel::chooseMarked() {
  if (!field_->text().empty() && search_.isBusy()) {
    choosesFirst_ = true;
    return;
  }
  if (!list_->chooseMarked() && !field_->text().empty()) list_->chooseFirst();
}

void SearchPanel::choosePlace(const std::shared_ptr<Location>& place) {
  const auto end = end_;
  close();
  if (chosen) chosen(place, end);
}

void SearchPanel::chooseNearest(const NearestChoice& choice) {
  NearestChoice copy = choice;  // closing removes the original
  close();
  if (nearestChosen) nearestChosen(std::move(copy));
}

double SearchPanel::barHeight() { return std::max(leastBarHeight, theme::control() + 4); }

double SearchPanel::arrange(double width, double mostHeight) {
  const double bar = barHeight();
  const double side = theme::control();
  const double inner = width - 2 * theme::padding;
  sign_->setFrame({{2, 0}, {side, bar}});
  const double end = isOpen() ? side : theme::padding;  // with the button, or without it
  field_->setFrame({{side, 0}, {std::max(theme::controlSize, width - side - end), bar}});
  clear_->setFrame({{width - side - 2, (bar - side) / 2}, {side, side}});
  clear_->setHidden(!isOpen());
  nothing_->setHidden(!isOpen() || !findsNothing_);
  const double nothing = nothing_->isHidden() ? 0 : nothing_->fitting(inner).height + 28;
  nothing_->setFrame({{theme::padding, bar}, {inner, nothing}});
  list_->layOut(width);
  list_->setHidden(!isOpen() || list_->size() == 0);
  double height = bar + nothing;
  if (!list_->isHidden()) {
    const double listHeight = list_->heightWithin(mostHeight - bar - 8, width);
    list_->setFrame({{0, bar}, {width, listHeight}});
    list_->arrange();
    height = bar + listHeight + 8;
  }
  directChildren(*this, width);
  return height;
}

void SearchPanel::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  if (isOpen())
    canvas.fill({{theme::padding, barHeight() - 1}, {bounds().size.width - 2 * theme::padding, 1}},
                theme::hairline);
}

}  // namespace orivanta::viewer

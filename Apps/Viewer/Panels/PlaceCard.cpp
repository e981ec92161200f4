#include "Apps/Viewer/Panels/PlaceCard.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostPictureHeight = 160;  // points
constexpr double largePictureSide = 72;
constexpr double smallPictureSide = 56;
constexpr int mostLines = 5;  // of the description
constexpr double leastWideRatio = 1.4;
constexpr double gap = 10;  // between buttons
constexpr double smallGap = 6;
constexpr double nearestHeight = theme::controlSize - 8;
constexpr double leastTitleGap = 5;  // on both sides of the title of a button

// Returns its categories without duplicates, and its floors.
std::string kindOf(const Location& place) {
  std::vector<std::string> parts;
  for (const auto& category : place.categories) {
    const std::string name = category->name.value_or("");
    if (!name.empty() && std::find(parts.begin(), parts.end(), name) == parts.end())
      parts.push_back(name);
  }
  for (const auto& floor : floorsOf(place)) parts.push_back(floorName(*floor));
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : "  \u00B7  ") + part;
  return text;
}

}  // namespace

PlaceCard::PlaceCard(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      picture_(std::make_shared<PictureView>()),
      name_(
          std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 2})),
      kind_(std::make_shared<Label>(
          LabelStyle{.size = theme::smallSize, .color = theme::faint, .lines = 2})),
      closed_(std::make_shared<Label>(
          LabelStyle{.size = theme::smallSize, .bold = true, .color = theme::warning})),
      description_(std::make_shared<Label>(LabelStyle{.lines = mostLines})),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      from_(std::make_shared<Button>(ButtonLook::tinted, texts.text("interface.place.from"))),
      to_(std::make_shared<Button>(ButtonLook::filled, texts.text("interface.place.to"))),
      addStop_(std::make_shared<Button>(ButtonLook::tinted, texts.text("interface.place.stop"))) {
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           closed_, picture_, name_, kind_, description_, close_, from_, to_, addStop_})
    addSubview(part);
  close_->action = forward(closed);
  from_->action = forward(fromHere);
  to_->action = forward(toHere);
  addStop_->action = forward(stopAdded);
}

void PlaceCard::show(const Location& place, const std::string& name) {
  name_->setText(name);
  kind_->setText(kindOf(place));
  description_->setText(place.description.value_or(""));
  picture_->setPicture(nullptr);
}

void PlaceCard::setPlaceClosed(bool isClosed) {
  closed_->setText(isClosed ? texts_.text("interface.place.closed") : "");
}

void PlaceCard::setNearest(const std::vector<std::string>& titles) {
  for (const auto& button : nearest_) button->removeFromSuperview();
  nearest_.clear();
  for (const std::string& title : titles) {
    nearest_.push_back(std::make_shared<Button>(ButtonLook::tinted, title, theme::smallSize));
    nearest_.back()->action = [this, index = nearest_.size() - 1] {
      if (nearestChosen) nearestChosen(index);
    };
    addSubview(nearest_.back());
  }
}

void PlaceCard::setPicture(std::shared_ptr<const graphics::Image> picture, PictureMode mode) {
  picture_->setPicture(std::move(picture), mode);
}

bool PlaceCard::hasWidePicture() const {
  const graphics::Size size = picture_->picture()->size();
  return size.width > leastWideRatio * size.height;
}

// Arranges the name and the kind, with a small picture beside them.
double PlaceCard::arrangeHead(double width, bool isSmall) {
  constexpr double padding = theme::padding;
  picture_->setFrame({});
  close_->setFrame({{width - 46, 4}, {42, 42}});
  double left = padding;
  if (picture_->picture() && (isSmall || !hasWidePicture())) {
    const double side = isSmall ? smallPictureSide : largePictureSide;
    picture_->setFrame({{padding, padding}, {side, side}});
    left += side + 14;
  }
  const double textWidth = width - left - padding - 28;
  const double nameHeight = name_->fitting(textWidth).height;
  name_->setFrame({{left, padding}, {textWidth, nameHeight}});
  const double kindHeight = kind_->fitting(textWidth).height;
  kind_->setFrame({{left, padding + nameHeight + 3}, {textWidth, kindHeight}});
  const double closedHeight = closed_->text().empty() ? 0 : closed_->fitting(textWidth).height + 3;
  closed_->setFrame({{left, kind_->frame().maxY() + 3}, {textWidth, closedHeight}});
  return std::max(kind_->frame().maxY() + closedHeight, picture_->frame().maxY()) + 12;
}

double PlaceCard::arrange(double width, double mostHeight, bool isSmall) {
  int lines = mostLines;
  showsNearest_ = !nearest_.empty();
  double height = arrangeParts(width, isSmall, lines);
  if (height > mostHeight) height = arrangeParts(width, /*isSmall=*/true, lines);
  while (height > mostHeight && lines > 0) height = arrangeParts(width, /*isSmall=*/true, --lines);
  if (height > mostHeight && std::exchange(showsNearest_, false))
    height = arrangeParts(width, /*isSmall=*/true, lines);
  directChildren(*this, width);
  return height;
}

// Arranges everything, with at most `lines` lines of the description.
double PlaceCard::arrangeParts(double width, bool isSmall, int lines) {
  constexpr double padding = theme::padding;
  const double inner = width - 2 * padding;
  double top = arrangeHead(width, isSmall);
  if (picture_->picture() && !isSmall && hasWidePicture()) {
    const graphics::Size size = picture_->picture()->size();
    const double height = std::min(mostPictureHeight, inner * size.height / size.width);
    picture_->setFrame({{padding, top}, {inner, height}});
    top += height + 12;
  }
  description_->setHidden(lines == 0);
  if (lines > 0) description_->setLines(lines);
  const double descriptionHeight = lines > 0 ? description_->fitting(inner).height : 0;
  description_->setFrame({{padding, top}, {inner, descriptionHeight}});
  if (descriptionHeight > 0) top += descriptionHeight + 14;
  return arrangeButtons(width, top);
}

// Arranges buttons in as many rows as their titles need. Returns the lower edge.
double PlaceCard::arrangeNearest(double width, double top) {
  const double inner = width - 2 * theme::padding;
  const auto widthOf = [](Button& button) {
    return button.fittingWidth() - 2 * (theme::padding - leastTitleGap);
  };
  for (std::size_t first = 0; first < nearest_.size();) {
    std::size_t end = first;
    double titles = 0;
    double needed = -smallGap;
    for (; end < nearest_.size(); ++end) {
      const double next = widthOf(*nearest_[end]);
      if (end > first && needed + smallGap + next > inner) break;
      titles += next;
      needed += smallGap + next;
    }
    double left = theme::padding;
    const double stretched = (inner - (needed - titles)) / titles;
    for (; first < end; ++first) {
      const double each = widthOf(*nearest_[first]) * stretched;
      nearest_[first]->setFrame({{left, top}, {each, nearestHeight}});
      left += each + smallGap;
    }
    top += nearestHeight + smallGap;
  }
  return top - smallGap;
}

// Arranges the buttons. Returns the height of the card.
double PlaceCard::arrangeButtons(double width, double top) {
  addStop_->setHidden(!canAddStop_);
  for (const auto& button : nearest_) button->setHidden(!showsNearest_);
  if (showsNearest_) top = arrangeNearest(width, top) + gap;
  const auto row = canAddStop_ ? std::vector{from_, addStop_, to_} : std::vector{from_, to_};
  const auto count = static_cast<double>(row.size());
  const double each = (width - 2 * theme::padding - gap * (count - 1)) / count;
  double left = theme::padding;
  for (const auto& button : row) {
    button->setFrame({{left, top}, {each, theme::controlSize}});
    left += each + gap;
  }
  return top + theme::controlSize + theme::padding;
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/Panels/PlaceCard.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Command/Places.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostPictureHeight = 150;  // points
constexpr double smallPictureSide = 56;

// Its categories, each once, and its floors.
std::string kindOf(const Location& place) {
  std::vector<std::string> parts;
  for (const auto& category : place.categories) {
    const std::string name = category->name.value_or("");
    if (!name.empty() && std::find(parts.begin(), parts.end(), name) == parts.end())
      parts.push_back(name);
  }
  for (const auto& floor : command::floorsOf(place))
    parts.push_back(floor->name.empty() ? command::floorLabel(*floor) : floor->name);
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : "  \u00B7  ") + part;
  return text;
}

}  // namespace

PlaceCard::PlaceCard()
    : name_(
          std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 2})),
      kind_(std::make_shared<Label>(
          LabelStyle{.size = theme::smallSize, .color = theme::faint, .lines = 2})),
      description_(std::make_shared<Label>(LabelStyle{.lines = 5})),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      from_(std::make_shared<Button>(ButtonLook::tinted, "From here")),
      to_(std::make_shared<Button>(ButtonLook::filled, "To here")) {
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           name_, kind_, description_, close_, from_, to_})
    addSubview(part);
  const auto forward = [](std::function<void()>& receiver) {
    return [&receiver] {
      if (receiver) receiver();
    };
  };
  close_->action = forward(closed);
  from_->action = forward(fromHere);
  to_->action = forward(toHere);
}

void PlaceCard::show(const Location& place) {
  name_->setText(place.name.value_or(""));
  kind_->setText(kindOf(place));
  description_->setText(place.description.value_or(""));
  picture_ = nullptr;
}

void PlaceCard::setPicture(std::shared_ptr<const graphics::Image> picture) {
  picture_ = std::move(picture);
}

double PlaceCard::arrange(double width, bool isSmall) {
  constexpr double padding = theme::padding;
  double top = padding;
  double textWidth = width - 2 * padding - 28;
  double left = padding;
  pictureFrame_ = {};
  if (picture_) {
    const graphics::Size size = picture_->size();
    const double side = isSmall ? smallPictureSide : 72.0;
    const double ratio = size.width / size.height;
    if (!isSmall && ratio > 1.4) {
      const double height = std::min(mostPictureHeight, (width - 2 * padding) / ratio);
      pictureFrame_ = {{padding + (width - 2 * padding - height * ratio) / 2, top},
                       {height * ratio, height}};
      top += height + 12;
    } else {
      const double factor = side / std::max(size.width, size.height);
      pictureFrame_ = {{padding, top}, {size.width * factor, size.height * factor}};
      left += side + 14;
      textWidth -= side + 14;
    }
  }
  const double nameHeight = name_->fitting(textWidth).height;
  name_->setFrame({{left, top}, {textWidth, nameHeight}});
  const double kindHeight = kind_->fitting(textWidth).height;
  kind_->setFrame({{left, top + nameHeight + 3}, {textWidth, kindHeight}});
  close_->setFrame({{width - 46, 4}, {42, 42}});
  top += nameHeight + 3 + kindHeight + 12;
  top = std::max(top, pictureFrame_.maxY() + 12);
  const double descriptionHeight = description_->fitting(width - 2 * padding).height;
  description_->setFrame({{padding, top}, {width - 2 * padding, descriptionHeight}});
  if (descriptionHeight > 0) top += descriptionHeight + 14;
  const double buttonWidth = (width - 2 * padding - 10) / 2;
  from_->setFrame({{padding, top}, {buttonWidth, theme::controlSize}});
  to_->setFrame({{padding + buttonWidth + 10, top}, {buttonWidth, theme::controlSize}});
  return top + theme::controlSize + padding;
}

void PlaceCard::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  if (picture_ && pictureFrame_.size.width > 0) canvas.draw(picture_, pictureFrame_);
}

}  // namespace orivanta::viewer

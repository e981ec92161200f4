#include "Apps/Viewer/Panels/PlaceCard.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

namespace {

constexpr double mostPictureHeight = 160;  // points
constexpr double largePictureSide = 72;
constexpr double smallPictureSide = 56;
constexpr double iconSide = 40;
constexpr int mostLines = 5;  // of the description
constexpr double leastWideRatio = 1.4;
constexpr double gap = 10;  // between buttons
constexpr double smallGap = 6;
constexpr double lineGap = 4;

LabelStyle smallStyle(int lines = 1) {
  return {.size = theme::smallSize, .color = theme::faint, .lines = lines};
}

}  // namespace

PlaceCard::PlaceCard(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      icon_(std::make_shared<KindIconView>(PlaceKind::other)),
      picture_(std::make_shared<PictureView>()),
      name_(
          std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 0})),
      kind_(std::make_shared<Label>(smallStyle(0))),
      state_(
          std::make_shared<Label>(LabelStyle{.size = theme::smallSize, .bold = true, .lines = 0})),
      week_(std::make_shared<WeekLines>(texts)),
      phone_(std::make_shared<Label>(LabelStyle{.lines = 0})),
      website_(std::make_shared<Label>(LabelStyle{.lines = 0})),
      description_(std::make_shared<Label>(LabelStyle{.lines = mostLines})),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 17)),
      from_(std::make_shared<Button>(ButtonLook::tinted, texts.text("interface.place.from"))),
      to_(std::make_shared<Button>(ButtonLook::filled, texts.text("interface.place.to"))),
      addStop_(std::make_shared<Button>(ButtonLook::tinted, texts.text("interface.place.stop"))) {
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           icon_, picture_, name_, kind_, state_, week_, phone_, website_, description_, close_,
           from_, to_, addStop_})
    addSubview(part);
  week_->action = [this] { toggleWeek(); };
  close_->action = forward(closed);
  from_->action = forward(fromHere);
  to_->action = forward(toHere);
  addStop_->action = forward(stopAdded);
}

void PlaceCard::show(const CardContent& content) {
  picture_->setPicture(nullptr);
  week_->setOpen(false);
  update(content);
}

void PlaceCard::update(const CardContent& content) {
  content_ = content;
  icon_->setIcon(content.kind, content.isOutOfOrder ? IconState::outOfOrder : IconState::normal);
  name_->setText(content.title);
  kind_->setText(content.detail);
  state_->setText(content.state);
  state_->setColor(content.isClosed ? theme::warning : theme::accent);
  week_->show(content.week, content.hours);
  const auto line = [this](const char* key, const std::string& value) {
    return value.empty() ? "" : texts_.text(key, {{"value", value}});
  };
  phone_->setText(line("interface.place.phone", content.phone));
  website_->setText(line("interface.place.website", content.website));
  description_->setText(content.description);
}

void PlaceCard::toggleWeek() {
  week_->setOpen(!week_->isOpen());
  if (layoutChanged) layoutChanged();
}

void PlaceCard::setNearest(const std::vector<NearestChoice>& choices) {
  for (const auto& button : nearest_) button->removeFromSuperview();
  nearest_.clear();
  nearest_.reserve(choices.size());
  for (const NearestChoice& choice : choices) {
    nearest_.push_back(std::make_shared<Tile>(
        TileLook::flat, TileContent{.title = choice.title, .kind = choice.kind}));
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

// Arranges the name, the kind and the state, with the icon or a small picture beside them.
double PlaceCard::arrangeHead(double width, bool isSmall) {
  constexpr double padding = theme::padding;
  picture_->setFrame({});
  const double close = theme::control();
  close_->setFrame({{width - close - 4, 4}, {close, close}});
  const bool hasPicture = picture_->picture() && (isSmall || !hasWidePicture());
  const double side = !hasPicture ? theme::withIcons(iconSide)
                      : isSmall   ? smallPictureSide
                                  : largePictureSide;
  icon_->setHidden(hasPicture);
  (hasPicture ? static_cast<view::View&>(*picture_) : *icon_)
      .setFrame({{padding, padding}, {side, side}});
  const double left = padding + side + 12;
  const double textWidth = std::max(1.0, width - left - close - 8);
  double top = padding;
  for (const auto& label : {name_, kind_, state_}) {
    const double height = label->text().empty() ? 0 : label->fitting(textWidth).height;
    label->setFrame({{left, top}, {textWidth, height}});
    if (height > 0) top += height + 3;
  }
  return std::max(top - 3, padding + side) + 12;
}

double PlaceCard::arrange(double width, double mostHeight, bool isSmall) {
  Fit fit{isSmall, mostLines};
  const auto fits = [&] { return arrangeParts(width, fit) <= mostHeight; };
  if (!fits()) {
    fit.isSmall = true;
    while (!fits() && fit.lines > 0) --fit.lines;
    if (!fits()) fit.showsNearest = false;
    while (!fits() && fit.days > 0) --fit.days;
  }
  const double height = arrangeParts(width, fit);
  directChildren(*this, width);
  return height;
}

// Arranges everything.
double PlaceCard::arrangeParts(double width, const Fit& fit) {
  constexpr double padding = theme::padding;
  const double inner = width - 2 * padding;
  double top = arrangeHead(width, fit.isSmall);
  if (picture_->picture() && !fit.isSmall && hasWidePicture()) {
    const graphics::Size size = picture_->picture()->size();
    const double height = std::min(mostPictureHeight, inner * size.height / size.width);
    picture_->setFrame({{padding, top}, {inner, height}});
    top += height + 12;
  }
  top = arrangeHours(width, top, fit.days);
  description_->setHidden(fit.lines == 0);
  if (fit.lines > 0) description_->setLines(fit.lines);
  const double descriptionHeight = fit.lines > 0 ? description_->fitting(inner).height : 0;
  description_->setFrame({{padding, top}, {inner, descriptionHeight}});
  if (descriptionHeight > 0) top += descriptionHeight + 12;
  top = arrangeContacts(width, top);
  top = arrangeNearest(width, top, fit.showsNearest);
  return arrangeButtons(width, top);
}

// Arranges the opening hours. Returns the lower edge with the space below, as the following do.
double PlaceCard::arrangeHours(double width, double top, std::size_t days) {
  const double inner = width - 2 * theme::padding;
  const double height = week_->arrange(inner, days);
  week_->setHidden(height <= 0);
  week_->setFrame({{theme::padding, top}, {inner, height}});
  return height > 0 ? top + height + 12 : top;
}

double PlaceCard::arrangeContacts(double width, double top) {
  const double inner = width - 2 * theme::padding;
  const double first = top;
  for (const auto& label : {phone_, website_}) {
    const double height = label->text().empty() ? 0 : label->fitting(inner).height;
    label->setFrame({{theme::padding, top}, {inner, height}});
    if (height > 0) top += height + lineGap;
  }
  return top > first ? top + 12 - lineGap : top;
}

double PlaceCard::arrangeNearest(double width, double top, bool shows) {
  for (const auto& tile : nearest_) tile->setHidden(!shows);
  if (!shows || nearest_.empty()) return top;
  const double inner = width - 2 * theme::padding;
  const std::size_t columns = TileRow::columnsIn(TileLook::flat, width) > 1 ? 2 : 1;
  const double each = (inner - (columns > 1 ? smallGap : 0)) / static_cast<double>(columns);
  for (std::size_t first = 0; first < nearest_.size(); first += columns) {
    const std::size_t end = std::min(first + columns, nearest_.size());
    double height = 0;
    for (std::size_t i = first; i < end; ++i)
      height = std::max(height, nearest_[i]->heightFor(each));
    for (std::size_t i = first; i < end; ++i) {
      const auto column = static_cast<double>(i - first);
      nearest_[i]->setFrame({{theme::padding + column * (each + smallGap), top}, {each, height}});
    }
    top += height + smallGap;
  }
  return top + gap - smallGap;
}

// Arranges the buttons. Returns the height of the card.
double PlaceCard::arrangeButtons(double width, double top) {
  addStop_->setHidden(!canAddStop_);
  const auto row = canAddStop_ ? std::vector{from_, addStop_, to_} : std::vector{from_, to_};
  const double inner = width - 2 * theme::padding;
  return viewer::arrangeButtons(row, theme::padding, top, inner, gap) + theme::padding;
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/Panels/SearchPanel.hpp"

#include "Apps/Command/Places.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr double fieldHeight = 48;  // points
constexpr double signWidth = 44;

std::shared_ptr<Row> rowOf(const Location& place) {
  RowText text;
  text.title = place.name.value_or("");
  if (!place.categories.empty()) text.detail = place.categories.front()->name.value_or("");
  text.trailing = command::floorLabels(command::floorsOf(place));
  return std::make_shared<Row>(text);
}

}  // namespace

SearchPanel::SearchPanel(const Venue& venue)
    : index_(venue),
      field_(std::make_shared<TextField>(defaultPlaceholder)),
      sign_(std::make_shared<Label>(
          LabelStyle{.size = 28, .color = theme::faint, .alignment = Alignment::centre}, "\u2315")),
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

void SearchPanel::open(const std::string& placeholder) {
  field_->setPlaceholder(placeholder);
  field_->setText("");
  field_->setFocused(true);
  search();
}

void SearchPanel::close() {
  field_->setPlaceholder(defaultPlaceholder);
  field_->setText("");
  field_->setFocused(false);
  found_.clear();
  list_->setRows({});
  if (layoutChanged) layoutChanged();
}

void SearchPanel::search() {
  found_ = index_.find(field_->text());
  std::vector<std::shared_ptr<Row>> rows;
  for (std::size_t i = 0; i < found_.size(); ++i) {
    rows.push_back(rowOf(*found_[i]));
    rows.back()->action = [this, i] { choose(i); };
  }
  list_->setRows(std::move(rows));
  if (!found_.empty() && !field_->text().empty()) list_->mark(0);
  if (layoutChanged) layoutChanged();
}

void SearchPanel::chooseMarked() {
  if (!found_.empty()) choose(list_->marked().value_or(0));
}

void SearchPanel::choose(std::size_t row) {
  const auto place = found_[row];
  close();
  if (chosen) chosen(place);
}

double SearchPanel::arrange(double width, double mostHeight) {
  sign_->setFrame({{2, 0}, {signWidth, fieldHeight}});
  field_->setFrame({{signWidth, 0}, {width - 2 * signWidth, fieldHeight}});
  clear_->setFrame({{width - signWidth - 2, 2}, {signWidth, fieldHeight - 4}});
  clear_->setHidden(!isOpen());
  nothing_->setHidden(!isOpen() || !found_.empty());
  nothing_->setFrame({{theme::padding, fieldHeight}, {width - 2 * theme::padding, 48}});
  list_->setHidden(!isOpen() || found_.empty());
  if (!isOpen()) return fieldHeight;
  if (found_.empty()) return fieldHeight + 56;
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

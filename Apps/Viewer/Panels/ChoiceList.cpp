#include "Apps/Viewer/Panels/ChoiceList.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Panels/HeadingRow.hpp"
#include "Apps/Viewer/Panels/PlaceRow.hpp"

namespace orivanta::viewer {

namespace {

TileLook lookOf(const ChoiceSection& section) {
  return section.look == ChoiceSection::Look::tallTiles ? TileLook::tall : TileLook::flat;
}

}  // namespace

void ChoiceList::setSections(std::vector<ChoiceSection> sections) {
  setSource({});
  lines_.clear();
  *column_ = 0;
  sections_ = std::move(sections);
  width_ = -1;
}

void ChoiceList::layOut(double width) {
  if (width == width_) return;
  width_ = width;
  lines_.clear();
  for (const ChoiceSection& section : sections_) switch (section.look) {
      case Look::heading:
      case Look::back:
        lines_.push_back({&section, {}, 1});
        for (const Choice& choice : section.choices) lines_.back().choices.push_back(&choice);
        break;
      case Look::rows:
        for (const Choice& choice : section.choices) lines_.push_back({&section, {&choice}, 1});
        break;
      case Look::tallTiles:
      case Look::flatTiles:
        addTiles(section, width);
        break;
    }
  RowSource source;
  source.heights.reserve(lines_.size());
  for (const Line& line : lines_) source.heights.push_back(heightOf(line));
  source.make = [this](std::size_t index) { return makeRow(lines_[index]); };
  source.canBeMarked = [this](std::size_t index) { return !lines_[index].choices.empty(); };
  setSource(std::move(source));
}

void ChoiceList::addTiles(const ChoiceSection& section, double width) {
  std::vector<const Choice*> shown;
  shown.reserve(section.choices.size());
  for (const Choice& choice : section.choices) shown.push_back(&choice);
  const std::size_t columns = TileRow::columnsIn(lookOf(section), width);
  const std::size_t room = section.foldedRows * columns;
  if (room > 0 && shown.size() - 1 > room)
    shown.erase(shown.begin() + static_cast<std::ptrdiff_t>(room) - 2, shown.end() - 2);
  else if (room > 0)
    shown.pop_back();
  for (std::size_t first = 0; first < shown.size(); first += columns) {
    const auto begin = shown.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(columns, shown.size() - first);
    lines_.push_back({&section, {begin, begin + static_cast<std::ptrdiff_t>(count)}, columns});
  }
}

double ChoiceList::heightOf(const Line& line) const {
  switch (line.section->look) {
    case Look::heading:
      return HeadingRow::headingHeight;
    case Look::back:
      return HeadingRow::backHeight;
    case Look::rows:
      break;
    case Look::tallTiles:
    case Look::flatTiles:
      return TileRow::heightOf(lookOf(*line.section));
  }
  return Row::heightWith(line.choices.front()->detail);
}

std::shared_ptr<Row> ChoiceList::makeRow(const Line& line) {
  const ChoiceSection& section = *line.section;
  switch (section.look) {
    case Look::heading:
    case Look::back: {
      const Choice* choice = line.choices.empty() ? nullptr : line.choices.front();
      const bool isBack = section.look == Look::back;
      auto row = std::make_shared<HeadingRow>(isBack ? HeadingLook::back : HeadingLook::group,
                                              section.title,
                                              choice == nullptr ? ""
                                              : isBack          ? choice->trailing
                                                                : choice->title);
      if (choice != nullptr)
        row->action = [this, copy = *choice] { choose(copy); };
      else
        row->setUserInteractionEnabled(false);
      return row;
    }
    case Look::rows:
      break;
    case Look::tallTiles:
    case Look::flatTiles:
      return makeTiles(line);
  }
  Choice choice = *line.choices.front();
  if (choice.place && describe) describe(choice);
  auto row = std::make_shared<PlaceRow>(
      RowText{.title = choice.title, .detail = choice.detail, .trailing = choice.trailing},
      choice.kind);
  row->action = [this, choice] { choose(choice); };
  return row;
}

std::shared_ptr<Row> ChoiceList::makeTiles(const Line& line) {
  TileRow::Tiles tiles;
  tiles.reserve(line.choices.size());
  for (const Choice* choice : line.choices) {
    auto tile =
        std::make_shared<Tile>(lookOf(*line.section), choice->kind, choice->title, choice->detail);
    tile->action = [this, copy = *choice] { choose(copy); };
    tiles.push_back(std::move(tile));
  }
  return std::make_shared<TileRow>(lookOf(*line.section), std::move(tiles), line.columns, column_);
}

bool ChoiceList::moveAcross(int forward) {
  if (!marked()) return false;
  const std::size_t count = lines_[*marked()].choices.size();
  if (count < 2) return false;
  const std::size_t column = std::min(*column_, count - 1);
  if (forward > 0)
    *column_ = std::min(column + 1, count - 1);
  else
    *column_ = column == 0 ? 0 : column - 1;
  setNeedsFrame();
  return true;
}

bool ChoiceList::chooseMarked() {
  if (!marked()) return false;
  const auto& choices = lines_[*marked()].choices;
  choose(*choices[std::min(*column_, choices.size() - 1)]);
  return true;
}

void ChoiceList::chooseFirst() {
  const auto first = std::find_if(lines_.begin(), lines_.end(), [](const Line& line) {
    return line.section->look == Look::rows && !line.choices.empty();
  });
  if (first != lines_.end()) choose(*first->choices.front());
}

// The choice is a copy, because its action may replace the content.
void ChoiceList::choose(Choice choice) {
  if (choice.action)
    choice.action();
  else if (placeChosen)
    placeChosen(choice.place);
}

}  // namespace orivanta::viewer

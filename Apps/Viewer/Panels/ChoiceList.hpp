// A list of headings, rows and tiles from which the user chooses.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/Panels/TileRow.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta::viewer {

/// What can be chosen.
struct Choice {
  std::string title{};                     ///< of a place, `ChoiceList::describe` returns it
  std::string detail{};                    ///< below the title; may be empty
  std::string trailing{};                  ///< at the end of a row; not in tiles
  PlaceKind kind = PlaceKind::other;       ///< for the icon
  std::shared_ptr<Location> place{};       ///< null for other choices
  std::function<void()> action = nullptr;  ///< null for a place
};

/// Choices of one look.
struct ChoiceSection {
  enum class Look {
    heading,    ///< a title, and a button at its end if there is a choice
    back,       ///< a title with an arrow; choosing it leads back
    rows,       ///< one row for each choice
    tallTiles,  ///< see `TileLook`
    flatTiles   ///< see `TileLook`
  };

  Look look = Look::rows;
  std::string title{};  ///< of a heading
  std::vector<Choice> choices{};

  /// If greater than 0, the last choice unfolds the section. It is shown if there are more rows of
  /// tiles; then the choice before it is the last of the tiles that are shown.
  std::size_t foldedRows = 0;
};

/// One choice is marked for the keyboard, also within a row of tiles.
class ChoiceList : public List {
 public:
  /// Called with a place that the user has chosen.
  std::function<void(const std::shared_ptr<Location>&)> placeChosen;

  /// Completes the texts and the icon of a place. Called when its row becomes visible.
  std::function<void(Choice&)> describe;

  /// Replaces the content, which is shown after the next call of `layOut`.
  void setSections(std::vector<ChoiceSection> sections);

  /// Makes the rows for a width in points. Does nothing unless the width or the content is new.
  void layOut(double width);

  /// Moves the mark within a row of tiles: forward (1) or backward (-1). Returns false if the
  /// marked row has fewer than two tiles, or if no row is marked.
  bool moveAcross(int forward);

  /// Chooses what is marked. Returns false if nothing is.
  bool chooseMarked();

  /// Chooses the first place or action that is not a heading. Does nothing if there is none.
  void chooseFirst();

 private:
  using Look = ChoiceSection::Look;

  // A row, and the choices in it.
  struct Line {
    const ChoiceSection* section;
    std::vector<const Choice*> choices;
    std::size_t columns;  // for tiles
  };

  void addTiles(const ChoiceSection& section, double width);
  std::shared_ptr<Row> makeRow(const Line& line);
  std::shared_ptr<Row> makeTiles(const Line& line);
  double heightOf(const Line& line) const;
  void choose(Choice choice);

  std::vector<ChoiceSection> sections_;
  std::vector<Line> lines_;
  double width_ = -1;
  std::shared_ptr<std::size_t> column_ = std::make_shared<std::size_t>(0);  // of the mark
};

}  // namespace orivanta::viewer

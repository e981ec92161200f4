#include <gtest/gtest.h>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

TEST(Label, IsAsHighAsItsLinesWhateverTheirLetters) {
  const auto heightOf = [](const char* text) {
    return Label(LabelStyle{.lines = 0}, text).fitting(400).height;
  };
  EXPECT_GT(heightOf("ace"), 14);
  EXPECT_EQ(heightOf("ace"), heightOf("Ágjp"));
  EXPECT_NEAR(heightOf("ace\nace"), 2 * heightOf("ace"), 1);
}

TEST(Label, IsSmallerRatherThanBreakAWord) {
  for (const auto& [text, lines] :
       {std::pair("Restauration", 1), std::pair("Restauration libre", 2),
        std::pair("レストラン", 2)}) {
    Label label(LabelStyle{.lines = 0}, text);
    const double line = label.fitting(400).height;
    Label word(LabelStyle{}, lines == 2 && text[0] != 'R' ? text : "Restauration");
    const double room = word.fitting(400).width * 0.8;
    EXPECT_NEAR(label.fitting(room).height / line, lines, 0.5) << text;
  }
}

TEST(TextField, TakesAndErasesWholeCharacters) {
  TextField field("");
  int changes = 0;
  field.changed = [&] { ++changes; };
  field.insert("Cafe\u0301\n\t 昇");
  EXPECT_EQ(field.text(), "Cafe\u0301 昇");
  field.eraseBack();
  field.eraseBack();
  field.eraseBack();
  EXPECT_EQ(field.text(), "Caf") << "the accent is deleted with its letter";
  field.insert("\xC3 du\xFF nord ");
  field.eraseBack(/*word=*/true);
  EXPECT_EQ(field.text(), "Caf du ");
  EXPECT_EQ(changes, 6);
}

TEST(TextField, ShortensALongPlaceholderInsteadOfCuttingLetters) {
  class Canvas : public view::Canvas {
   public:
    double time() const override { return 0; }
    double scale() const override { return 1; }
    void fill(const graphics::Rect&, const graphics::Color&, double) override {}
    void draw(const std::shared_ptr<const graphics::Image>&, const graphics::Rect& rect, double,
              double) override {
      drawn = rect;
    }
    void draw(view::SceneView&, const graphics::Rect&) override {}
    graphics::Rect drawn;
  } canvas;
  TextField field("Places, shops and people");
  for (const double width : {100.0, 80.0}) {
    field.setFrame({{0, 0}, {width, 40}});
    field.draw(canvas);
    EXPECT_GT(canvas.drawn.size.width, width / 2);
    EXPECT_LE(canvas.drawn.size.width, width - 4);
  }
}

TEST(TextField, TheCaretGoesByCharactersAsTheyShow) {
  TextField field("");
  field.setFrame({{0, 0}, {200, 40}});
  const auto type = [&](std::initializer_list<CaretStep> steps, const char* text) {
    for (const CaretStep step : steps) field.moveCaret(step);
    field.insert(text);
    return field.text();
  };
  field.setText("e\u0301a");
  EXPECT_EQ(type({CaretStep::left, CaretStep::left}, "x"), "xe\u0301a") << "over the accent";
  EXPECT_EQ(type({CaretStep::right}, "y"), "xe\u0301ya");
  field.eraseForward();
  EXPECT_EQ(field.text(), "xe\u0301y");
  field.eraseForward();
  EXPECT_EQ(type({CaretStep::start}, "  "), "xe\u0301y") << "nothing behind, blanks before";
  field.eraseForward();
  field.eraseForward();
  EXPECT_EQ(field.text(), "y") << "a letter is deleted with its accent";

  const std::string hebrew = "\u05D0\u05D1\u05D2";
  field.setText(hebrew);
  EXPECT_EQ(field.caret(), hebrew.size());
  field.moveCaret(CaretStep::left);
  EXPECT_EQ(field.caret(), hebrew.size()) << "the end is on the left";
  field.moveCaret(CaretStep::right);
  EXPECT_EQ(field.caret(), 4U);
  field.placeCaret(1000);
  EXPECT_EQ(field.caret(), 0U);
  field.placeCaret(-5);
  EXPECT_EQ(field.caret(), hebrew.size());

  field.setText("iiiiWWWW");
  field.placeCaret(14);  // an i is about four points wide, a W fourteen
  EXPECT_GT(field.caret(), 1U);
  EXPECT_LE(field.caret(), 4U);
  field.setText(std::string(199, 'a'));
  field.insert("e\u0301");
  EXPECT_EQ(field.text().size(), 199U) << "no truncated characters";
}

TEST(List, ScrollsBetweenItsEnds) {
  List list;
  list.setFrame({{0, 0}, {200, 100}});
  std::vector<std::shared_ptr<Row>> rows;
  for (int i = 0; i < 10; ++i) rows.push_back(std::make_shared<Row>(RowText{"row", "", ""}));
  list.setRows(rows);
  EXPECT_FALSE(rows[2]->isHidden()) << "a part of it is inside";
  EXPECT_EQ(rows[3]->superview(), nullptr);
  list.scrollBy(1e9);
  EXPECT_EQ(rows[0]->superview(), nullptr);
  EXPECT_EQ(rows[9]->frame().maxY(), 100);
  list.reveal(3);
  EXPECT_EQ(rows[3]->frame().minY(), 0);
  list.scrollBy(-1e9);
  EXPECT_EQ(rows[0]->frame().minY(), 0);

  // Rows get the heights of their wrapped texts.
  rows[0] = std::make_shared<Row>(RowText{std::string(60, 'n') + " name", "", ""});
  list.setRows(rows);
  EXPECT_GT(rows[0]->frame().size.height, 1.2 * Row::plainHeight);
  EXPECT_EQ(rows[1]->frame().minY(), rows[0]->frame().maxY());
}

TEST(List, MakesOnlyTheRowsInSightAndMarksOnlyThoseThatMayBe) {
  List list;
  list.setFrame({{0, 0}, {200, 100}});
  int made = 0;
  RowSource source;
  source.heights.assign(100'000, 20);
  source.make = [&](std::size_t) {
    ++made;
    return std::make_shared<Row>(20);
  };
  source.canBeMarked = [](std::size_t row) { return row % 10 != 0; };  // titles
  list.setSource(std::move(source));
  EXPECT_EQ(made, 5);
  const std::pair<int, std::size_t> steps[] = {{1, 1}, {-1, 1}, {8, 9}, {1, 11}, {-1, 9}};
  for (const auto& [down, marked] : steps) {
    list.moveMark(down);
    EXPECT_EQ(list.marked(), marked);
  }
  list.mark(99'999);
  EXPECT_EQ(list.inSight().rbegin()->first, 99'999U);
  EXPECT_EQ(list.inSight().size(), 5U);
  EXPECT_EQ(list.subviews().size(), 5U);
  EXPECT_LT(made, 25);
}

}  // namespace orivanta::viewer

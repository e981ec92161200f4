#include <gtest/gtest.h>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"

namespace orivanta::viewer {

TEST(Label, IsAsHighAsItsLinesWhateverTheirLetters) {
  const auto heightOf = [](const char* text) {
    return Label(LabelStyle{.lines = 0}, text).fitting(400).height;
  };
  EXPECT_GT(heightOf("ace"), 14);
  EXPECT_EQ(heightOf("ace"), heightOf("Ágjp"));
  EXPECT_NEAR(heightOf("ace\nace"), 2 * heightOf("ace"), 1);
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
  EXPECT_EQ(field.text(), "Caf") << "the accent goes with its letter";
  field.insert(" du nord ");
  field.eraseBack(/*word=*/true);
  EXPECT_EQ(field.text(), "Caf du ");
  EXPECT_EQ(changes, 6);
}

TEST(List, ScrollsBetweenItsEndsAndHidesWhatLeavesIt) {
  List list;
  list.setFrame({{0, 0}, {200, 100}});
  std::vector<std::shared_ptr<Row>> rows;
  for (int i = 0; i < 10; ++i) rows.push_back(std::make_shared<Row>(RowText{"row", "", ""}));
  list.setRows(rows);
  EXPECT_EQ(rows[1]->alpha(), 1);
  EXPECT_TRUE(rows[2]->isHidden()) << "most of it is outside";
  list.scrollBy(1e9);
  EXPECT_TRUE(rows[0]->isHidden());
  EXPECT_EQ(rows[9]->frame().maxY(), 100);
  list.reveal(3);
  EXPECT_EQ(rows[3]->frame().minY(), 0);
  list.scrollBy(-1e9);
  EXPECT_EQ(rows[0]->frame().minY(), 0);
}

}  // namespace orivanta::viewer

#include "Platform/View/LayoutConstraint.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {
namespace {

using graphics::Rect;
using Attribute = LayoutAttribute;
using Constraints = std::vector<LayoutConstraint>;

// A view of 200 x 100 with two children, one of which the test may position.
struct Stage {
  std::shared_ptr<View> parent = std::make_shared<View>(Rect{{30, 40}, {200, 100}});
  std::shared_ptr<View> a = std::make_shared<View>(Rect{{1, 2}, {30, 40}});
  std::shared_ptr<View> b = std::make_shared<View>(Rect{{5, 6}, {70, 80}});
  std::vector<std::string> lines;

  Stage() {
    parent->addSubview(a);
    parent->addSubview(b);
    a->setTranslatesAutoresizingMaskIntoConstraints(false);
    foundation::setDiagnosticSink([this](std::string_view line) { lines.emplace_back(line); });
  }
  ~Stage() { foundation::setDiagnosticSink(nullptr); }
};

TEST(LayoutConstraint, DecidesWhatItCanAndKeepsTheRest) {
  struct Case {
    const char* what;
    Constraints (*make)(View* a, View* b, View* parent);
    Rect expected;
    std::size_t lost;  // constraints that contradict earlier ones
  };
  const Case cases[] = {
      {"nothing", [](auto...) { return Constraints{}; }, {{1, 2}, {30, 40}}, 0},
      {"one edge moves, the size stays",
       [](View* a, View*, View* p) {
         return Constraints{{a, Attribute::right, p, Attribute::right, 1, -10},
                            {a, Attribute::top, p, Attribute::bottom, 1, -50}};
       },
       {{160, 50}, {30, 40}},
       0},
      {"both edges stretch",
       [](View* a, View*, View* p) {
         return Constraints{{a, Attribute::trailing, p, Attribute::trailing},
                            {a, Attribute::leading, p, Attribute::leading, 1, 20}};
       },
       {{20, 2}, {180, 40}},
       0},
      {"center and share",
       [](View* a, View*, View* p) {
         return Constraints{{a, Attribute::centerX, p, Attribute::centerX},
                            {a, Attribute::centerY, p, Attribute::centerY, 1, 5},
                            {a, Attribute::width, p, Attribute::width, 0.25},
                            {a, Attribute::height, a, Attribute::width, 2}};
       },
       {{75, 5}, {50, 100}},
       0},
      {"beside a sibling that holds its frame",
       [](View* a, View* b, View*) {
         return Constraints{{b, Attribute::right, a, Attribute::left, 1, -4},
                            {a, Attribute::bottom, b, Attribute::bottom}};
       },
       {{79, 46}, {30, 40}},
       0},
      {"earlier constraints win; a repeated constraint is not a contradiction",
       [](View* a, View*, View* p) {
         return Constraints{{a, Attribute::width, nullptr, Attribute::none, 1, 50},
                            {a, Attribute::left, p, Attribute::left, 1, 10},
                            {a, Attribute::right, p, Attribute::left, 1, 60},
                            {a, Attribute::right, p, Attribute::right},
                            {a, Attribute::width, p, Attribute::width}};
       },
       {{10, 2}, {50, 40}},
       2},
      {"no equation",
       [](View* a, View*, View* p) {
         return Constraints{
             {a, Attribute::none, p, Attribute::left},
             {a, Attribute::left, p, Attribute::none},
             {a, Attribute::left, p, Attribute::left, std::numeric_limits<double>::infinity()},
             {a, Attribute::left, p, Attribute::right, 1,
              std::numeric_limits<double>::quiet_NaN()}};
       },
       {{1, 2}, {30, 40}},
       4},
      {"no negative sizes",
       [](View* a, View*, View* p) {
         return Constraints{{a, Attribute::width, p, Attribute::width, -1, 0}};
       },
       {{1, 2}, {0, 40}},
       0},
  };
  for (const Case& each : cases) {
    Stage stage;
    stage.parent->addConstraints(each.make(stage.a.get(), stage.b.get(), stage.parent.get()));
    stage.parent->layoutIfNeeded();
    EXPECT_EQ(stage.a->frame(), each.expected) << each.what;
    EXPECT_EQ(stage.b->frame(), (Rect{{5, 6}, {70, 80}})) << each.what;
    stage.parent->layoutIfNeeded();
    EXPECT_EQ(stage.lines.size(), each.lost) << each.what << ": reported once, not once per frame";
  }
}

TEST(LayoutConstraint, SolvesSiblingsTogetherAndThenWhatIsBelow) {
  Stage stage;
  stage.b->setTranslatesAutoresizingMaskIntoConstraints(false);
  const auto inner = std::make_shared<View>();
  inner->setTranslatesAutoresizingMaskIntoConstraints(false);
  stage.a->addSubview(inner);
  View *a = stage.a.get(), *b = stage.b.get(), *parent = stage.parent.get();
  parent->addConstraints(Constraints{{a, Attribute::left, parent, Attribute::left},
                                     {a, Attribute::right, b, Attribute::left},
                                     {b, Attribute::right, parent, Attribute::right},
                                     {a, Attribute::width, b, Attribute::width, 3}});
  b->addConstraint({b, Attribute::height, b, Attribute::width, 0.5});
  a->addConstraint({inner.get(), Attribute::width, a, Attribute::width});
  parent->addConstraint({parent, Attribute::width, nullptr, Attribute::none, 1, 999});
  parent->layoutIfNeeded();
  EXPECT_TRUE(stage.lines.empty()) << "its parent determines its width";
  EXPECT_EQ(a->frame(), (Rect{{0, 2}, {150, 40}}));
  EXPECT_EQ(b->frame(), (Rect{{150, 6}, {50, 25}}));
  EXPECT_EQ(inner->frame(), (Rect{{0, 0}, {150, 0}}));
}

TEST(LayoutConstraint, GoesWithTheViewsItIsAbout) {
  Stage stage;
  const auto inner = std::make_shared<View>();
  stage.a->addSubview(inner);
  stage.a->addConstraint({inner.get(), Attribute::left, stage.a.get(), Attribute::left});
  stage.a->addConstraint({stage.a.get(), Attribute::width, nullptr, Attribute::none, 1, 9});
  stage.parent->addConstraint(
      {stage.a.get(), Attribute::left, stage.parent.get(), Attribute::left});
  stage.parent->addConstraint({stage.b.get(), Attribute::left, stage.a.get(), Attribute::left});
  stage.parent->addConstraint({stage.b.get(), Attribute::top, stage.parent.get(), Attribute::top});
  stage.parent->addSubview(stage.a);
  EXPECT_EQ(stage.parent->constraints().size(), 3U) << "it was only brought to the front";
  stage.b->addSubview(stage.a);
  EXPECT_EQ(stage.parent->constraints().size(), 1U);
  EXPECT_EQ(stage.a->constraints().size(), 2U);
  EXPECT_DEATH(stage.parent->addConstraint({stage.a.get(), Attribute::left}), "layout constraint");
}

TEST(VisualFormat, PinsToTheEdgesThatItNames) {
  struct Case {
    const char* format;
    Rect expected;
  };
  const Case cases[] = {
      {"H:|-0-[subview]-0-|", {{0, 2}, {200, 40}}},
      {"V:|-0-[subview]-0-|", {{1, 0}, {30, 100}}},
      {"H:|-2.5-[subview]--10-|", {{2.5, 2}, {207.5, 40}}},
      {"V:|[subview]|", {{1, 0}, {30, 100}}},
      {"H:|-5-[subview]", {{5, 2}, {30, 40}}},
      {"V:[subview]-5-|", {{1, 55}, {30, 40}}},
      {"H:[subview]", {{1, 2}, {30, 40}}},
  };
  for (const Case& each : cases) {
    Stage stage;
    stage.parent->addConstraints(
        constraintsWithVisualFormat(each.format, "subview", *stage.a, *stage.parent));
    stage.parent->layoutIfNeeded();
    EXPECT_EQ(stage.a->frame(), each.expected) << each.format;
  }
  Stage stage;
  for (const char* broken : {"", "|[subview]|", "H:|-x-[subview]", "H:|-5[subview]",
                             "H:|-5-[other]", "H:[subview]-5-", "H:[subview]|x", "H:[subview"})
    EXPECT_DEATH(constraintsWithVisualFormat(broken, "subview", *stage.a, *stage.parent),
                 "not a valid visual format")
        << broken;
}

}  // namespace
}  // namespace orivanta::view

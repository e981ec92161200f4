#include "Platform/Graphics/Sheet.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/View/Canvas.hpp"
#include "Tests/Platform/Render/Studio.hpp"

namespace orivanta::test {
namespace {

using graphics::Rect;
using graphics::Sheet;
using graphics::SheetPlace;
using view::SheetPiece;

std::shared_ptr<const graphics::Image> makeNoise(std::uint32_t width, std::uint32_t height,
                                                 std::uint32_t seed = 1) {
  std::vector<std::uint8_t> bytes(std::size_t{4} * width * height);
  for (std::uint8_t& byte : bytes)
    byte = static_cast<std::uint8_t>((seed = seed * 69069 + 1) >> 24);
  return graphics::Image::make(width, height, std::move(bytes));
}

std::shared_ptr<const graphics::Image> makePlain(std::uint8_t level) {
  return graphics::Image::make(2, 2, std::vector<std::uint8_t>(16, level));
}

class Drawn : public view::View {
 public:
  Drawn(Rect frame, std::function<void(view::Canvas&)> action)
      : View(frame), action_(std::move(action)) {}

  void draw(view::Canvas& canvas) override {
    View::draw(canvas);
    action_(canvas);
  }

 private:
  std::function<void(view::Canvas&)> action_;
};

bool areEqual(const graphics::Image& a, const graphics::Image& b) {
  return std::equal(a.pixels().begin(), a.pixels().end(), b.pixels().begin(), b.pixels().end());
}

TEST(Sheet, PiecesAreOneDrawCallAndAnyRendererShowsThem) {
  const auto sheet = Sheet::make(256);
  std::vector<SheetPiece> pieces;
  std::vector<std::shared_ptr<const graphics::Image>> images;
  for (std::uint32_t i = 0; i < 300; ++i) {
    images.push_back(makeNoise(3 + i % 5, 3 + i % 7, i));
    const auto place = sheet->add(images.back());
    ASSERT_TRUE(place) << i;
    pieces.push_back({*place, {{10.0 * (i % 20), 10.0 * (i / 20.0)}, images.back()->size()}});
  }
  const Rect frame{{0, 0}, {200, 160}};
  Drawn asPieces(frame, [&](view::Canvas& canvas) { canvas.draw(sheet, pieces); });
  Drawn asImages(frame, [&](view::Canvas& canvas) {
    for (std::size_t i = 0; i < pieces.size(); ++i) canvas.draw(images[i], pieces[i].rect);
  });
  Studio first(200, 160);
  const auto expected = first.draw(asImages);
  EXPECT_TRUE(areEqual(*first.draw(asPieces), *expected));
  EXPECT_EQ(first.statistics().drawCalls, 1);
  Studio second(200, 160);
  EXPECT_TRUE(areEqual(*second.draw(asPieces), *expected));
}

TEST(Sheet, PiecesLookLikeImages) {
  const auto sheet = Sheet::make(128);
  sheet->add(makePlain(255));
  const auto image = makeNoise(17, 9);
  const auto place = sheet->add(image);
  ASSERT_TRUE(place);
  for (int x = 0; x < 5; ++x) sheet->add(makePlain(255));
  struct Case {
    const char* what;
    Rect rect;
    double alpha = 1;
    double turn = 0;
    double scale = 1;
    int tolerance = 0;
  };
  const Case cases[] = {
      {"snapped", {{3.4, 5.3}, {17, 9}}},
      {"half transparent", {{3.4, 5.7}, {17, 9}}, 0.5},
      {"two pixels a point", {{3.4, 5.2}, {8.5, 4.5}}, 1, 0, 2},
      {"stretched", {{3.4, 5.3}, {25, 11}}, 0.7, 0, 1, 1},
      {"turned", {{8, 8}, {17, 9}}, 1, 0.6, 1, 1},
  };
  Studio studio(40, 30);
  for (const Case& c : cases) {
    const Rect frame{{0, 0}, {40 / c.scale, 30 / c.scale}};
    const SheetPiece piece{*place, c.rect, c.alpha, c.turn};
    Drawn asPiece(frame, [&](view::Canvas& canvas) { canvas.draw(sheet, {{piece}}); });
    Drawn asImage(frame,
                  [&](view::Canvas& canvas) { canvas.draw(image, c.rect, c.alpha, c.turn); });
    const auto expected = studio.draw(asImage, 0, c.scale);
    const auto actual = studio.draw(asPiece, 0, c.scale);
    for (std::uint32_t i = 0; i < 40 * 30; ++i)
      ASSERT_TRUE(
          isNear(pixelOf(*actual, i % 40, i / 40), pixelOf(*expected, i % 40, i / 40), c.tolerance))
          << c.what << " at " << i % 40 << ", " << i / 40;
  }
}

TEST(Sheet, FramesUploadNoMoreThanTheBudget) {
  const auto sheet = Sheet::make(64);
  sheet->setUploadBudget(2 * 16);
  std::vector<SheetPiece> pieces;
  for (int i = 0; i < 5; ++i)
    pieces.push_back({*sheet->add(makePlain(255)), {{2.0 * i, 0}, {2, 2}}});
  Drawn root({{0, 0}, {10, 2}}, [&](view::Canvas& canvas) { canvas.draw(sheet, pieces); });
  Studio studio(10, 2);
  const auto shown = [&] {
    const auto picture = studio.draw(root);
    int count = 0;
    for (std::uint32_t x = 0; x < 10; x += 2) count += pixelOf(*picture, x, 0)[3] == 255 ? 1 : 0;
    return count;
  };
  for (const int expected : {2, 4}) {
    EXPECT_EQ(shown(), expected);
    EXPECT_TRUE(root.needsFrame());
  }
  EXPECT_EQ(shown(), 5);
  EXPECT_FALSE(root.needsFrame());
  shown();
  const auto quadsOnly = studio.statistics().bytesUploaded;
  sheet->setUploadBudget(0);
  pieces.push_back({*sheet->add(makeNoise(20, 20)), {{-50, 0}, {20, 20}}});
  shown();
  EXPECT_EQ(studio.statistics().bytesUploaded, quadsOnly / 5 * 6 + 1600);
}

TEST(Sheet, RemovedImagesAreLeftOutAndTheirSpaceShowsOthers) {
  const auto sheet = Sheet::make(16);
  const auto add = [&](std::uint8_t level) {
    return *sheet->add(graphics::Image::make(10, 10, std::vector<std::uint8_t>(400, level)));
  };
  std::vector<SheetPiece> pieces{{add(100), {{0, 0}, {10, 10}}}};
  Drawn root({{0, 0}, {10, 10}}, [&](view::Canvas& canvas) { canvas.draw(sheet, pieces); });
  Studio studio(10, 10);
  EXPECT_EQ(pixelOf(*studio.draw(root), 5, 5)[3], 100);
  EXPECT_FALSE(sheet->add(makeNoise(10, 10)));
  sheet->remove(pieces[0].place);
  EXPECT_EQ(pixelOf(*studio.draw(root), 5, 5)[3], 0);
  const SheetPlace place = add(200);
  EXPECT_EQ(pixelOf(*studio.draw(root), 5, 5)[3], 0);
  sheet->remove(pieces[0].place);
  sheet->remove({1, 1, 2, 2, place.serial});  // of another sheet
  pieces[0].place = place;
  EXPECT_EQ(pixelOf(*studio.draw(root), 5, 5)[3], 200);
  EXPECT_FALSE(root.needsFrame());
}

// A canvas of a host that does not know sheets.
class HostCanvas : public view::Canvas {
 public:
  double time() const override { return 0; }
  double scale() const override { return 1; }
  void fill(const Rect&, const graphics::Color&, double) override {}
  void draw(const std::shared_ptr<const graphics::Image>& image, const Rect& rect, double alpha,
            double turn) override {
    drawn.emplace_back(image, rect, alpha, turn);
  }
  void draw(view::SceneView&, const Rect&) override {}

  std::vector<std::tuple<std::shared_ptr<const graphics::Image>, Rect, double, double>> drawn;
};

TEST(Sheet, OtherCanvasesDrawEachPieceAsAnImage) {
  const auto sheet = Sheet::make(64);
  const auto images = {makePlain(1), makePlain(2), makePlain(3)};
  std::vector<SheetPiece> pieces;
  for (const auto& image : images) pieces.push_back({*sheet->add(image), {{1, 2}, {3, 4}}, 0.5, 2});
  sheet->remove(pieces[1].place);
  HostCanvas canvas;
  static_cast<view::Canvas&>(canvas).draw(sheet, pieces);
  const Rect rect{{1, 2}, {3, 4}};
  EXPECT_THAT(canvas.drawn, testing::ElementsAre(std::tuple(images.begin()[0], rect, 0.5, 2.0),
                                                 std::tuple(images.begin()[2], rect, 0.5, 2.0)));
}

}  // namespace
}  // namespace orivanta::test

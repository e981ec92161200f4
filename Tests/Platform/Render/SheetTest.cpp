#include "Platform/Graphics/Sheet.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/View/Canvas.hpp"
#include "Tests/Platform/Render/Studio.hpp"

namespace orivanta::test {
namespace {

using graphics::Image;
using graphics::Rect;
using graphics::Sheet;
using view::SheetPiece;

std::shared_ptr<const Image> makeNoise(std::uint32_t width, std::uint32_t height,
                                       std::uint32_t seed = 1) {
  std::vector<std::uint8_t> bytes(std::size_t{4} * width * height);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>((seed = seed * 69069 + 1) >> 24);
  return Image::make(width, height, std::move(bytes));
}

std::shared_ptr<const Image> makePlain(std::uint32_t side, std::uint8_t level) {
  return Image::make(side, side, std::vector<std::uint8_t>(std::size_t{4} * side * side, level));
}

// Draws with a function.
class Drawn : public view::View {
 public:
  Drawn(graphics::Size size, std::function<void(view::Canvas&)> action)
      : View({{}, size}), action_(std::move(action)) {}
  void draw(view::Canvas& canvas) override { action_(canvas); }

 private:
  std::function<void(view::Canvas&)> action_;
};

// The greatest difference of two bytes.
int difference(const Image& a, const Image& b) {
  int most = 0;
  for (std::size_t i = 0; i < a.pixels().size(); ++i)
    most = std::max(most, std::abs(a.pixels()[i] - b.pixels()[i]));
  return most;
}

TEST(Sheet, PiecesAreOneDrawCallInEveryRenderer) {
  const auto sheet = Sheet::make(256);
  std::vector<SheetPiece> pieces;
  for (std::uint32_t i = 0; i < 300; ++i) {
    const auto image = makeNoise(3 + i % 5, 3 + i % 7, i);
    pieces.push_back({*sheet->add(image), {{10.0 * (i % 20), 0.5 * i}, image->size()}});
  }
  Drawn asPieces({200, 160}, [&](auto& canvas) { canvas.draw(sheet, pieces); });
  Drawn asImages({200, 160}, [&](auto& canvas) {
    for (const auto& piece : pieces) canvas.draw(sheet->image(piece.place), piece.rect);
  });
  Studio first(200, 160);
  const auto expected = first.draw(asImages);
  EXPECT_EQ(difference(*first.draw(asPieces), *expected), 0);
  EXPECT_EQ(first.statistics().drawCalls, 1);
  Studio second(200, 160);
  EXPECT_EQ(difference(*second.draw(asPieces), *expected), 0);
}

TEST(Sheet, PiecesLookLikeImages) {
  const auto sheet = Sheet::make(128);
  const auto image = makeNoise(17, 9);
  for (int i = 0; i < 3; ++i) sheet->add(makePlain(2, 255));
  const auto place = sheet->add(image);
  for (int i = 0; i < 3; ++i) sheet->add(makePlain(2, 255));
  struct Case {
    const char* what;
    SheetPiece piece;
    double scale = 1;
    int tolerance = 0;
  };
  const Case cases[] = {
      {"snapped", {*place, {{3.4, 5.3}, {17, 9}}}},
      {"half transparent", {*place, {{3.4, 5.7}, {17, 9}}, 0.5}},
      {"two pixels a point", {*place, {{3.4, 5.2}, {8.5, 4.5}}}, 2},
      {"stretched", {*place, {{3.4, 5.3}, {25, 11}}, 0.7}, 1, 1},
      {"turned", {*place, {{8, 8}, {17, 9}}, 1, 0.6}, 1, 1},
  };
  Studio studio(40, 30);
  for (const auto& [what, piece, scale, tolerance] : cases) {
    const graphics::Size size{40 / scale, 30 / scale};
    Drawn asPiece(size, [&, p = piece](auto& canvas) { canvas.draw(sheet, {{p}}); });
    Drawn asImage(size,
                  [&, p = piece](auto& canvas) { canvas.draw(image, p.rect, p.alpha, p.turn); });
    const auto expected = studio.draw(asImage, 0, scale);
    EXPECT_LE(difference(*studio.draw(asPiece, 0, scale), *expected), tolerance) << what;
  }
}

TEST(Sheet, FramesUploadNoMoreThanTheBudget) {
  const auto sheet = Sheet::make(64);
  sheet->setUploadBudget(2 * 16);
  std::vector<SheetPiece> pieces;
  for (int i = 0; i < 5; ++i)
    pieces.push_back({*sheet->add(makePlain(2, 255)), {{2.0 * i, 0}, {2, 2}}});
  Drawn root({10, 2}, [&](auto& canvas) { canvas.draw(sheet, pieces); });
  Studio studio(10, 2);
  for (const std::uint32_t shown : {2U, 4U, 5U}) {
    const auto picture = studio.draw(root);
    for (std::uint32_t i = 0; i < 5; ++i)
      EXPECT_EQ(pixelOf(*picture, 2 * i, 0)[3], i < shown ? 255 : 0) << shown << ": " << i;
    EXPECT_EQ(root.needsFrame(), shown < 5);
  }
  studio.draw(root);
  const auto quads = studio.statistics().bytesUploaded;
  pieces.front().place = *sheet->add(makeNoise(20, 20));  // exceeds the budget
  studio.draw(root);
  EXPECT_EQ(studio.statistics().bytesUploaded, quads + 1600);
}

TEST(Sheet, RemovedImagesAreLeftOutAndTheirSpaceShowsOthers) {
  const auto sheet = Sheet::make(16);
  SheetPiece piece{*sheet->add(makePlain(10, 100)), {{0, 0}, {10, 10}}};
  Drawn root({10, 10}, [&](auto& canvas) { canvas.draw(sheet, {{piece}}); });
  Studio studio(10, 10);
  const auto alpha = [&] { return pixelOf(*studio.draw(root), 5, 5)[3]; };
  EXPECT_EQ(alpha(), 100);
  EXPECT_FALSE(sheet->add(makePlain(10, 200)));
  sheet->remove(piece.place);
  const auto place = sheet->add(makePlain(10, 200));
  ASSERT_TRUE(place);
  EXPECT_EQ(alpha(), 0);
  sheet->remove(piece.place);
  sheet->remove({1, 1, 2, 2, place->serial});  // of another sheet
  piece.place = *place;
  EXPECT_EQ(alpha(), 200);
  EXPECT_FALSE(root.needsFrame());
}

// A canvas of a host that does not know sheets.
class HostCanvas : public view::Canvas {
 public:
  double time() const override { return 0; }
  double scale() const override { return 1; }
  void fill(const Rect&, const graphics::Color&, double) override {}
  MOCK_METHOD(void, draw, (const std::shared_ptr<const Image>&, const Rect&, double, double),
              (override));
  void draw(view::SceneView&, const Rect&) override {}
};

TEST(Sheet, OtherCanvasesDrawEachPieceAsAnImage) {
  const auto sheet = Sheet::make(64);
  const auto image = makePlain(2, 1);
  const SheetPiece pieces[] = {{*sheet->add(image), {{1, 2}, {3, 4}}, 0.5, 2},
                               {*sheet->add(image), {{1, 2}, {3, 4}}}};
  sheet->remove(pieces[1].place);
  HostCanvas canvas;
  EXPECT_CALL(canvas, draw(image, pieces[0].rect, 0.5, 2.0));
  static_cast<view::Canvas&>(canvas).draw(sheet, pieces);
}

}  // namespace
}  // namespace orivanta::test

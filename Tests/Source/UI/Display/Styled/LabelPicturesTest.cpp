#include "Source/UI/Display/Styled/LabelPictures.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Graphics/Changes.hpp"
#include "Tests/Support/Latch.hpp"

namespace orivanta {
namespace {

using Form = LabelPicture::Form;

LabelPicture name(std::string text) { return {Form::name, std::move(text), 12}; }

TEST(LabelPictures, AreDrawnInTheBackground) {
  LabelPictures pictures(MapTheme::light(), 2);
  EXPECT_EQ(pictures.sheet()->side(), 2048U);
  const LabelPicture all[] = {name("One"),
                              name("One\ntwo"),
                              {Form::name, "One", 24},
                              {Form::icon, "", 16, PlaceKind::food},
                              {Form::icon, "", 16, PlaceKind::lift},
                              {Form::icon, "", 16, PlaceKind::lift, IconState::outOfOrder},
                              {Form::dot, "", 5, PlaceKind::food},
                              {Form::here, "", 24}};
  const auto changes = graphics::changeCount();
  for (const LabelPicture& picture : all) pictures.find(picture);
  pictures.find(name(" "));
  pictures.finish();
  EXPECT_FALSE(pictures.isExpecting());
  EXPECT_GE(graphics::changeCount(), changes + std::size(all));
  for (const LabelPicture& picture : all) {
    const auto place = pictures.find(picture);
    ASSERT_TRUE(place) << picture.text;
    const auto expected = makeLabelImage(picture, *MapTheme::light(), 2);
    const auto image = pictures.sheet()->image(*place);
    EXPECT_TRUE(std::equal(image->pixels().begin(), image->pixels().end(),
                           expected->pixels().begin(), expected->pixels().end()))
        << picture.text;
  }
  EXPECT_FALSE(pictures.find(name(" ")));
  EXPECT_FALSE(pictures.isExpecting());
}

TEST(LabelPictures, FinishingNeedsNoOtherThread) {
  const auto latch = std::make_shared<test::Latch>();
  for (unsigned i = 0; i < std::max(4U, std::thread::hardware_concurrency()); ++i)
    foundation::runInBackground([latch] { EXPECT_TRUE(latch->wait()); });
  LabelPictures pictures(MapTheme::light(), 1);
  for (const char* text : {"One", "Two"}) pictures.find(name(text));
  pictures.finish();
  EXPECT_FALSE(pictures.isExpecting());
  EXPECT_TRUE(pictures.find(name("Two")));
  latch->open();
}

TEST(LabelPictures, ThoseNotDrawnForTheLongestTimeAreDropped) {
  LabelPictures pictures(MapTheme::light(), 1, 128);
  const LabelPicture kept{Form::icon, "", 16, PlaceKind::lift};
  pictures.find(kept);
  pictures.finish();
  const auto place = pictures.find(kept);
  for (int frame = 0; frame < 60; ++frame) {
    pictures.beginFrame();
    ASSERT_EQ(pictures.find(kept), place) << frame;
    pictures.find(name("Room " + std::to_string(frame)));
    pictures.finish();
    ASSERT_TRUE(pictures.find(name("Room " + std::to_string(frame)))) << frame;
  }
  EXPECT_TRUE(pictures.find(name("Room 58")));
  EXPECT_FALSE(pictures.find(name("Room 0")));
}

TEST(LabelPictures, MoreThanTheSheetHoldsWaitForSpaceWithoutFurtherFrames) {
  LabelPictures pictures(MapTheme::light(), 1, 64);
  const auto find = [&](int first, int end) {
    int found = 0;
    for (int i = first; i < end; ++i) found += pictures.find(name("R" + std::to_string(i))) ? 1 : 0;
    pictures.finish();
    return found;
  };
  pictures.find(name("Wider than the sheet"));
  find(0, 20);
  const int room = find(0, 20);
  EXPECT_GT(room, 0);
  EXPECT_LT(room, 20);
  const auto changes = graphics::changeCount();
  EXPECT_EQ(find(0, 20), room);
  EXPECT_EQ(graphics::changeCount(), changes);
  pictures.beginFrame();
  find(19, 20);
  pictures.beginFrame();
  EXPECT_EQ(find(19, 20), 1);
  for (int frame = 0; frame < 2; ++frame) pictures.beginFrame();
  EXPECT_FALSE(pictures.find(name("Wider than the sheet")));  // and nothing is dropped for it
  EXPECT_EQ(find(19, 20), 1);
}

TEST(LabelPictures, CanBeDestroyedWhileDrawing) {
  for (int round = 0; round < 20; ++round) {
    LabelPictures pictures(MapTheme::dark(), 1);
    for (int i = 0; i < 20; ++i) pictures.find(name("Room " + std::to_string(i)));
  }
}

}  // namespace
}  // namespace orivanta

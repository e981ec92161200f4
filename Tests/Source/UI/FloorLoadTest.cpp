#include "Source/UI/FloorLoad.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using foundation::Url;
using testing::ElementsAre;
using testing::HasSubstr;

// A downloader that delivers each file when the test allows it.
class HoldingDownloader : public HttpDownloader {
 public:
  explicit HoldingDownloader(std::shared_ptr<HttpDownloader> source) : source_(std::move(source)) {}

  void fetchFile(const Url& url, const std::string& folder,
                 const foundation::CancellationToken& cancellation,
                 FetchCompletion completion) override {
    const std::string name = *url.lastPathComponent();
    if (name == "missing") return completion(foundation::failure("", 0, "missing"));
    const auto fetch = [source = source_, url, folder, cancellation,
                        completion = std::move(completion)] {
      source->fetchFile(url, folder, cancellation, completion);
    };
    const auto latch = held.find(name);
    if (latch == held.end())
      fetch();
    else
      latch->second->whenOpen(fetch);
  }

  void fileWasUsed(const std::string& path) override {
    used.push_back(std::filesystem::path(path).filename());
  }

  std::map<std::string, std::shared_ptr<Latch>> held;  ///< set before the load
  std::vector<std::string> used;                       ///< the names of files
  std::shared_ptr<void> token;

 private:
  const std::shared_ptr<HttpDownloader> source_;
};

[[nodiscard]] bool drainUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition() && std::chrono::steady_clock::now() < end) {
    foundation::mainQueue::wait(0.02);  // the condition may change on another thread
    foundation::mainQueue::drain();
  }
  return condition();
}

std::shared_ptr<Map> mapOf(const std::string& id, const std::string& scene) {
  return Map::make(*RawData::parse(fmt::format(R"({{"id": "{}", "scene": {}}})", id, scene)));
}

class FloorLoadTest : public testing::Test {
 protected:
  FloorLoadTest() { shown.mapView->downloader = downloader; }

  FloorLoadHandlers handlers() {
    return {[this](const FloorProgress& floor) { changes.push_back(floor); },
            [this](const std::vector<FloorProgress>& floors) { ended.push_back(floors); }};
  }
  std::vector<FloorProgress> load(const std::shared_ptr<Map>& first = nullptr) {
    shown.mapView->loadFloors(handlers(), first);
    EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
    return ended.empty() ? std::vector<FloorProgress>{} : ended.front();
  }
  bool isTurning() const {
    return shown.mapView->activityIndicator->superview() != nullptr &&
           shown.mapView->activityIndicator->isAnimating();
  }

  ShownVenue shown{false};
  std::shared_ptr<HoldingDownloader> downloader =
      std::make_shared<HoldingDownloader>(shown.mapView->downloader);
  std::vector<FloorProgress> changes;
  std::vector<std::vector<FloorProgress>> ended;
};

TEST_F(FloorLoadTest, BringsEveryFloorStepByStep) {
  const auto floors = load();
  ASSERT_EQ(floors.size(), 3U);
  EXPECT_EQ(floors[0].state, FloorState::ready);
  EXPECT_EQ(floors[1].state, FloorState::ready);
  EXPECT_EQ(floors[2].state, FloorState::withoutModel);
  EXPECT_THAT(shown.delegate->calls, ElementsAre("loaded"));
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(0));
  EXPECT_EQ(*shown.mapView->cameraDistance, 1374);
  EXPECT_THAT(downloader->used, ElementsAre("ground.obj", "floor.mtl", "upper.obj"));
  EXPECT_FALSE(isTurning());
  EXPECT_EQ(shown.mapView->findPosition3D(*shown.location("cafe-1")),
            graphics::Vector3(200, 200, 2));
  shown.mapView->changeMap(1);
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(1));

  std::vector<std::pair<FloorState, std::size_t>> ofGround;
  for (const FloorProgress& floor : changes) {
    EXPECT_EQ(floor.problem, "");
    if (floor.map == shown.floor(0)) ofGround.emplace_back(floor.state, floor.filesDone);
    EXPECT_EQ(floor.fileCount, floor.map == shown.floor(0) ? 2U : floor.map->obj ? 1U : 0U);
  }
  using enum FloorState;
  EXPECT_THAT(ofGround, ElementsAre(std::pair(fetching, 0U), std::pair(fetching, 1U),
                                    std::pair(reading, 2U), std::pair(ready, 2U)));
}

TEST_F(FloorLoadTest, ShowsTheWantedFloorWhileOthersHang) {
  const auto latch = std::make_shared<Latch>();
  downloader->held["ground.obj"] = latch;
  const auto handle = shown.mapView->loadFloors(handlers(), shown.floor(1));
  EXPECT_TRUE(isTurning());
  EXPECT_TRUE(drainUntil([this] { return !shown.delegate->calls.empty(); }));
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(1));
  EXPECT_EQ(handle->floors()[0].state, FloorState::fetching);
  EXPECT_EQ(shown.floor(0)->mapObject, nullptr);
  EXPECT_FALSE(isTurning());
  EXPECT_TRUE(ended.empty());
  latch->open();
  EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
  EXPECT_EQ(shown.delegate->calls.size(), 1U);
  shown.mapView->changeMap(0);
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(0));
}

TEST_F(FloorLoadTest, FetchesTheWantedFloorFirst) {
  const auto latch = std::make_shared<Latch>();
  auto& maps = *shown.venue->maps;
  for (int i = 0; i < 6; ++i) {
    const std::string name = fmt::format("{}.obj", i);
    maps.insert(maps.begin(), mapOf(name, fmt::format(R"({{"obj": "http://h/{}"}})", name)));
    downloader->held[name] = latch;
  }
  downloader->held["ground.obj"] = latch;
  shown.mapView->loadFloors(handlers(), maps[7]);  // the upper floor
  EXPECT_TRUE(drainUntil([this] { return !shown.delegate->calls.empty(); }));
  latch->open();
  EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
}

TEST_F(FloorLoadTest, ShowsAnotherFloorWhenTheWantedOneCannotBe) {
  for (const char* const wanted : {R"({"obj": ""})", R"({"obj": "http://h/missing"})"}) {
    ended.clear();
    shown.venue->maps->at(2) = mapOf("r", wanted);
    load(shown.floor(2));
    EXPECT_EQ(shown.mapView->currentMap()->mapObject->parent(),
              shown.mapView->sceneView->scene()->rootNode());
  }
  EXPECT_THAT(shown.delegate->calls, ElementsAre("loaded", "loaded"));
}

// Loads floors whose files come from a server.
class ServedFloorLoad : public FloorLoadTest {
 protected:
  ServedFloorLoad() { shown.mapView->downloader = std::make_shared<HttpDownloader>(); }

  const TemporaryFolder caches;
  const EnvironmentVariable variable{"XDG_CACHE_HOME", caches.path()};
  MisbehavingServer server;
};

TEST_F(ServedFloorLoad, TellsWhyAFloorCannotBeShown) {
  const auto secret = caches.write("secret.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
  server.on("/page.obj", Answer::html(" \n<html>no such page"));
  server.on("/text.obj", Answer::html("404"));
  server.on("/good.obj", Answer::html("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"));
  struct Case {
    std::string scene;
    FloorState state;
    std::string problem;
  };
  const auto model = [&](const std::string& path) {
    return fmt::format(R"("obj": "{}")", server.root(path));
  };
  const std::string refused = MisbehavingServer::refusingRoot();
  for (const auto& [scene, state, problem] :
       {Case{R"("obj": "a floor")", FloorState::failed, "\"a floor\" is not the URL of a file"},
        Case{R"("obj": "http://h")", FloorState::failed, "\"http://h\" is not the URL of a file"},
        Case{R"("obj": ")" + refused + "floor.obj\"", FloorState::failed,
             refused + "floor.obj cannot be fetched"},
        Case{fmt::format(R"("obj": "FILE://{}")", secret.string()), FloorState::failed,
             "secret.obj is not an http or https URL"},
        Case{model("/page.obj"), FloorState::failed, "page.obj returned an error page"},
        Case{model("/text.obj"), FloorState::failed,
             "text.obj is not a model that can be shown: the model has no faces"},
        Case{model("/good.obj") + R"(, "mtl": ":", "images": [{"url": "file:///etc/hosts"}])",
             FloorState::ready,
             "\":\" is not the URL of a file; file:///etc/hosts is not an http or https URL"}}) {
    *shown.venue->maps = {mapOf("m", "{" + scene + "}")};
    ended.clear();
    shown.delegate->calls.clear();
    const FloorProgress floor = load().at(0);
    EXPECT_EQ(floor.state, state) << scene;
    EXPECT_THAT(floor.problem, HasSubstr(problem));
    EXPECT_EQ(shown.delegate->calls.size(), state == FloorState::ready ? 1U : 0U) << scene;
    EXPECT_FALSE(isTurning());
  }
}

TEST_F(FloorLoadTest, ReportsALoaderThatReturnsNoNode) {
  struct EmptyLoader : AssetLoader {
    foundation::Result<std::shared_ptr<scene::Node>> readModel(const Url&) override {
      return nullptr;
    }
  };
  shown.mapView->assetLoader = std::make_shared<EmptyLoader>();
  const FloorProgress floor = load().at(0);
  EXPECT_EQ(floor.state, FloorState::failed);
  EXPECT_THAT(floor.problem, HasSubstr("the loader returned no node"));
}

TEST_F(ServedFloorLoad, MakesPicturesSmallerThatAreTooLargeTogether) {
  const auto png = graphics::encodePng(
      *graphics::Image::make(1200, 1000, std::vector<std::uint8_t>(4'800'000, 255)));
  server.on("/a.png", Answer::html({png.begin(), png.end()}));
  server.on("/a.mtl", Answer::html("newmtl a\nmap_Kd a.png\n"));
  server.on("/a.obj", Answer::html("mtllib a.mtl\nusemtl a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"));
  shown.venue->maps->clear();
  for (int i = 0; i < 84; ++i)  // each gets a share of 998,643 pixels
    shown.venue->maps->push_back(
        mapOf(fmt::format("{}", i), fmt::format(R"({{"obj": "{0}.obj", "mtl": "{0}.mtl",
                                              "images": [{{"url": "{0}.png"}}]}})",
                                                server.root("/a"))));
  const auto pictureOf = [&](std::size_t floor) {
    const auto shape = shown.floor(floor)->mapObject->children().front();
    return std::get<1>(shape->geometry()->firstMaterial()->diffuse().contents);
  };
  const std::string remark = "a.png was reduced to 600 x 500 pixels (original: 1200 x 1000)";
  std::string remarks;
  for (const FloorProgress& floor : load()) {
    EXPECT_EQ(floor.state, FloorState::ready) << floor.problem;
    remarks += floor.remark;
  }
  EXPECT_EQ(remarks, remark);
  const DiagnosticLines lines;
  for (const bool again : {false, true}) {
    EXPECT_EQ(pictureOf(0)->width(), 600U);
    EXPECT_EQ(pictureOf(0), pictureOf(83)) << "shared";
    shown.delegate->calls.clear();
    if (!again) shown.load();
  }
  EXPECT_TRUE(lines.contains(remark));
}

TEST_F(FloorLoadTest, EndsWithoutFloors) {
  shown.venue->maps->clear();
  EXPECT_TRUE(load().empty());
  shown.venue->maps.reset();
  ended.clear();
  EXPECT_TRUE(load().empty());
  EXPECT_TRUE(shown.delegate->calls.empty());
}

TEST_F(ServedFloorLoad, KeepsFilesApartAndFetchesSharedOnesOnce) {
  const std::string triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
  server.on("/a/floor.obj", Answer::html(triangle + "usemtl a\nf 1 2 3\n"));
  server.on("/b/floor.obj",
            {Answer::html("<p>busy", 503), Answer::html(triangle + "usemtl b\nf 1 2 3\n")});
  server.on("/c.obj", {Answer::html("not yet"), Answer::html(triangle + "usemtl c\nf 1 2 3\n")});
  server.on("/shared.mtl", Answer::html("newmtl a\n"));
  const auto scene = [&](const std::string& path) {
    return fmt::format(R"({{"obj": "{}", "mtl": "{}"}})", server.root(path),
                       server.root("/shared.mtl"));
  };
  *shown.venue->maps = {mapOf("1", scene("/a/floor.obj")),
                        mapOf("2", fmt::format(R"({{"obj": "{}"}})", server.root("/b/floor.obj"))),
                        mapOf("3", scene("/c.obj"))};

  std::vector<FloorState> states;
  for (const FloorProgress& floor : load(shown.floor(2))) states.push_back(floor.state);
  EXPECT_THAT(states, ElementsAre(FloorState::ready, FloorState::failed, FloorState::failed));
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(0));

  ended.clear();  // only the file that was not a model is fetched again
  for (const FloorProgress& floor : load(shown.floor(2)))
    EXPECT_EQ(floor.state, FloorState::ready) << floor.problem;
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(2));
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_EQ(shown.floor(i)->mapObject->children().front()->name(), std::string(1, "abc"[i]));
  for (const std::string path : {"/shared.mtl", "/a/floor.obj", "/b/floor.obj"})
    EXPECT_EQ(server.requests(path).size(), 2U) << "once for each load";
}

TEST_F(ServedFloorLoad, TellsServersWithAVenueOfTheSameNameApartAndRemembersBoth) {
  MisbehavingServer servers[2];
  const std::string names[2] = {"one", "two"};
  const auto expectOwnModel = [&](std::size_t i, std::size_t earlierFiles) {
    *shown.venue->maps = {
        mapOf("m", fmt::format(R"({{"obj": "{}"}})", servers[i].root("/floor.obj")))};
    ended.clear();
    const FloorProgress floor = load().at(0);
    ASSERT_EQ(floor.state, FloorState::ready) << floor.problem;
    EXPECT_EQ(floor.map->mapObject->children().front()->name(), names[i]);
    EXPECT_EQ(floor.earlierFiles, earlierFiles);
    EXPECT_EQ(floor.remark.empty(), earlierFiles == 0) << floor.remark;
  };
  for (std::size_t i = 0; i < 2; ++i)
    servers[i].on("/floor.obj",
                  {Answer::html("v 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl " + names[i] + "\nf 1 2 3\n"),
                   Answer::html("", 503)});
  for (const std::size_t earlierFiles : {0U, 1U})
    for (std::size_t i = 0; i < 2; ++i) expectOwnModel(i, earlierFiles);
}

// Starts a load in which one floor blocks, ends the load as the test specifies, then releases the
// floor.
class EndedFloorLoad : public FloorLoadTest {
 protected:
  void loadAndEnd(const std::function<void(std::shared_ptr<MapView>& view, FloorLoad& load)>& end) {
    const auto latch = std::make_shared<Latch>();
    const auto letGo = std::make_shared<Latch>();
    downloader->held["upper.obj"] = latch;
    downloader->token = opensWhenGone(letGo);
    shown.mapView->downloader = std::make_shared<HttpDownloader>();
    auto view = MapView::make({{0, 0}, {100, 100}});
    const std::weak_ptr<MapView> weak = view;
    view->venue = shown.venue;
    view->downloader = std::exchange(downloader, nullptr);
    view->delegate = shown.delegate;
    const auto handle = view->loadFloors(handlers(), shown.floor(1));
    EXPECT_TRUE(drainUntil([&] { return handle->floors()[0].state == FloorState::ready; }));
    changes.clear();
    end(view, *handle);
    if (view) view->downloader = std::make_shared<HttpDownloader>();
    latch->open();
    EXPECT_TRUE(drainUntil([&] { return letGo->isOpen(); }));
    foundation::mainQueue::drain();
    EXPECT_TRUE(changes.empty());
    EXPECT_TRUE(ended.empty());
    EXPECT_TRUE(shown.delegate->calls.empty());
    EXPECT_NE(shown.floor(0)->mapObject, nullptr);
    EXPECT_EQ(shown.floor(1)->mapObject, nullptr);
    EXPECT_EQ(handle->floors()[1].state, FloorState::fetching);
    view.reset();
    EXPECT_TRUE(weak.expired());
  }
};

TEST_F(EndedFloorLoad, TellsNothingAfterwards) {
  loadAndEnd([](auto& view, FloorLoad& load) {
    load.cancel();
    load.cancel();
    EXPECT_EQ(view->activityIndicator->superview(), nullptr);
  });
}

TEST_F(EndedFloorLoad, MayBeEndedByTheEndOfTheView) {
  loadAndEnd([](auto& view, FloorLoad&) { view.reset(); });
}

TEST_F(EndedFloorLoad, LeavesAnotherVenueAlone) {
  loadAndEnd([](auto& view, FloorLoad&) {
    view->venue = Venue::make(*RawData::parse(R"({"id": "w", "slug": "w", "name": "W"})"));
  });
}

TEST_F(FloorLoadTest, AHandlerMayEndTheLoadOrTheView) {
  auto view = MapView::make();
  view->venue = shown.venue;
  view->downloader = downloader;
  auto handle = std::make_shared<std::shared_ptr<FloorLoad>>();
  bool called = false;
  *handle = view->loadFloors({[&](const FloorProgress& floor) {
                                EXPECT_FALSE(called);
                                if (floor.state != FloorState::ready) return;
                                called = true;
                                view.reset();
                              },
                              {}});
  EXPECT_TRUE(drainUntil([&] { return called; }));
  EXPECT_EQ(view, nullptr);

  view = MapView::make();
  view->venue = shown.venue;
  view->downloader = downloader;
  *handle = view->loadFloors({[&](const FloorProgress&) { (*handle)->cancel(); },
                              [](const auto&) { ADD_FAILURE() << "canceled"; }});
  shown.mapView->loadFloors(handlers());
  EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
}

TEST_F(FloorLoadTest, AnotherLoadTakesThePlaceOfTheFirst) {
  const auto latch = std::make_shared<Latch>();
  downloader->held["ground.obj"] = latch;
  bool firstTold = false;
  shown.mapView->loadFloors({{}, [&](const auto&) { firstTold = true; }});
  shown.mapView->loadFloors(handlers());
  EXPECT_TRUE(isTurning());
  latch->open();
  EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
  EXPECT_FALSE(firstTold);

  const auto former = shown.floor(0)->mapObject;  // is shown until the requested floor is ready
  const auto upperLatch = std::make_shared<Latch>();
  downloader->held["upper.obj"] = upperLatch;
  ended.clear();
  shown.mapView->loadFloors(handlers(), shown.floor(1));
  EXPECT_TRUE(drainUntil([&] { return shown.floor(0)->mapObject != former; }));
  EXPECT_EQ(former->parent(), nullptr);
  EXPECT_EQ(shown.floor(0)->mapObject->parent(), shown.mapView->sceneView->scene()->rootNode());
  upperLatch->open();
  EXPECT_TRUE(drainUntil([this] { return !ended.empty(); }));
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(1));
  EXPECT_THAT(shown.delegate->calls, ElementsAre("loaded", "loaded"));
}

TEST_F(FloorLoadTest, AViewWithoutAVenueStopsTheProgram) {
  shown.mapView->venue = nullptr;
  EXPECT_DEATH(shown.mapView->loadFloors({}), "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta::test

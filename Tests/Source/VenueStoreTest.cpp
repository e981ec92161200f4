// Stores venues that were loaded from servers, and loads them without one.
#include "Source/VenueStore.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "Platform/Foundation/Files.hpp"
#include "Source/Category.hpp"
#include "Source/Directions.hpp"
#include "Source/FolderStorage.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/SmallVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta {
namespace {

namespace fs = std::filesystem;
using test::Answer;
using test::Awaited;

constexpr const char* password = "o2H-secret";

class VenueStoreTest : public testing::Test {
 protected:
  VenueStoreTest() {
    server.on("/1/venue", Answer::json(R"([{"id": "v", "slug": "small", "name": "S", "x": 0.1}])"));
    serveVenue();
  }

  void serveVenue() {
    for (const auto& [name, json] : test::smallVenueAnswers())
      server.on("/1/" + name, Answer::json(json));
  }

  std::shared_ptr<VenueStore> makeStore(std::size_t mostBytes = VenueStore::defaultMostBytes) {
    return VenueStore::make(
        std::make_shared<FolderStorage>(folder.path() / "venues", folder.path()),
        {mostBytes, [this](const foundation::Error&) { ++failures; }});
  }

  WebApiSession session(const std::string& user = "ann", const char* language = "de") const {
    return WebApiSession(server.root(), user, password, language).storingIn(store);
  }

  static void untilIdle(VenueStore& store) {
    const Awaited<bool> idle;
    store.whenIdle([idle] { idle.give(true); });
    idle.take();
  }

  VenueLoadReport load(const WebApiSession& session, const std::string& slug = "small") const {
    const Awaited<VenueLoadReport> ended;
    const auto json = fmt::format(R"({{"id": "v", "slug": "{}", "name": "S", "x": 0.1}})", slug);
    loadVenueReporting(session, Venue::make(*RawData::parse(json)), false,
                       {.ended = [ended](auto report) { ended.give(std::move(report)); }});
    auto report = ended.take();
    if (store) untilIdle(*store);
    return report;
  }

  StoredVenueReport loadStored(const WebApiSession& session,
                               const std::string& slug = "small") const {
    const Awaited<StoredVenueReport> ended;
    loadStoredVenue(session, slug, false,
                    {.ended = [ended](auto report) { ended.give(std::move(report)); }});
    auto report = ended.take();
    untilIdle(*store);
    return report;
  }

  std::vector<fs::path> entries() const {
    std::vector<fs::path> files;
    for (const auto& item : fs::directory_iterator(folder.path() / "venues"))
      if (item.path().extension() == ".venue") files.push_back(item.path());
    return files;
  }

  test::TemporaryFolder folder;
  test::MisbehavingServer server;
  std::atomic<int> failures = 0;
  std::shared_ptr<VenueStore> store = makeStore();
};

std::vector<std::string> pathBetween(const Venue& venue, std::size_t from, std::size_t to) {
  std::vector<std::string> path;
  const auto& nodes = *venue.nodes;
  if (const auto found = getDirections(venue, NodeList{nodes[from]}, NodeList{nodes[to]}))
    for (const auto& node : found->path) path.push_back(*node->id);
  return path;
}

}  // namespace

TEST_F(VenueStoreTest, StoredVenuesAreEqualToThoseOfTheServerAndBelongToOneUser) {
  const std::string picture = server.root("/cafe.png");
  server.on("/1/map", Answer::json(R"([{"id": "floor1", "elevation": 0, "scene": {"obj": ")" +
                                   picture + R"("}}])")
                          .next("/1/more"));
  server.on("/1/more", Answer::json(R"([{"id": "floor2", "elevation": 4}])").gzipped());
  const auto before = std::chrono::system_clock::now() - std::chrono::seconds(5);
  const auto loaded = load(session()).venue;
  const Awaited<VenueListReport> listed;
  loadVenuesReporting(session(), {.ended = [listed](auto report) { listed.give(report); }});
  listed.take();
  untilIdle(*store);
  server.forgetRequests();

  const StoredVenueReport stored = loadStored(session());
  ASSERT_TRUE(stored.venue);
  const Location& cafe = *stored.venue->locations->front();
  EXPECT_EQ(cafe.nodes.size(), 1U);
  EXPECT_EQ(cafe.polygons.size(), 1U);
  EXPECT_EQ(cafe.categories.size(), 1U);
  EXPECT_EQ(*stored.venue->_data.data(), *loaded->_data.data());
  const auto jsonOf = [](const auto& records) {
    std::vector<boost::json::value> values;
    for (const auto& record : *records) values.push_back(*record->_data.data());
    return values;
  };
  EXPECT_EQ(jsonOf(stored.venue->maps), jsonOf(loaded->maps));
  EXPECT_EQ(jsonOf(stored.venue->locations), jsonOf(loaded->locations));
  EXPECT_EQ(jsonOf(stored.venue->categories), jsonOf(loaded->categories));
  EXPECT_EQ(jsonOf(stored.venue->nodes), jsonOf(loaded->nodes));
  EXPECT_EQ(jsonOf(stored.venue->vortices), jsonOf(loaded->vortices));
  EXPECT_EQ(jsonOf(stored.venue->polygons), jsonOf(loaded->polygons));
  EXPECT_EQ(pathBetween(*stored.venue, 2, 3), pathBetween(*loaded, 2, 3));
  EXPECT_THAT(pathBetween(*stored.venue, 2, 3), testing::SizeIs(testing::Gt(2U)));
  EXPECT_THAT(stored.files, testing::ElementsAre(picture));
  EXPECT_GE(stored.storedAt, before);
  const Awaited<StoredListReport> storedList;
  loadStoredVenues(session(), {.ended = [storedList](auto report) { storedList.give(report); }});
  EXPECT_EQ(*storedList.take().venues.at(0)->_data.data(), *loaded->_data.data());

  EXPECT_FALSE(loadStored(session("bob")).venue);
  EXPECT_FALSE(loadStored(session("ann", "en")).venue);
  EXPECT_FALSE(loadStored(session(), "other").venue);
  EXPECT_FALSE(loadStored(WebApiSession(server.rootByName(), "ann", password, "de")  //
                              .storingIn(store))
                   .venue);
  EXPECT_THAT(server.requests(), testing::IsEmpty());
  const std::string encoded = session().ApiHttpSession.authString.substr(sizeof "Basic");
  for (const auto& file : entries()) {
    const std::string text = *foundation::readFile(file, 1U << 20U);
    for (const std::string& secret : {std::string(password), std::string("ann"), encoded})
      EXPECT_THAT(text, testing::Not(testing::HasSubstr(secret)));
  }
}

TEST_F(VenueStoreTest, AVenueThatDoesNotArriveCompletelyLeavesTheStoredOne) {
  load(session());
  const auto former = foundation::readFile(entries().at(0), 1U << 20U);
  struct Case {
    const char* path;
    Answer answer;
  };
  const std::vector<Case> cases{
      {"/1/map", Answer::json("[]")},
      {"/1/map", Answer::json("{}", 401)},
      {"/1/node", Answer::json("[]", 500)},
      {"/1/node", Answer::json(R"({"error": 1})")},
      {"/1/location", Answer::html("<p>Welcome")},
      {"/1/polygon", Answer::json("[" + std::string(99, ' ') + "]").closedAfter(50)}};
  for (const Case& each : cases) {
    SCOPED_TRACE(each.path + each.answer.body);
    server.on(each.path, each.answer);
    load(session());
    EXPECT_EQ(foundation::readFile(entries().at(0), 1U << 20U), former);
    EXPECT_TRUE(loadStored(session()).venue);
    serveVenue();
  }
  server.on("/1/category", Answer::json("[]"));
  load(session());
  EXPECT_THAT(*loadStored(session()).venue->categories, testing::IsEmpty());
  EXPECT_EQ(failures, 0);
}

TEST_F(VenueStoreTest, ADamagedEntryIsRemoved) {
  load(session());
  const fs::path file = entries().at(0);
  const std::string sound = *foundation::readFile(file, 1U << 20U);
  std::vector<std::string> damaged{"", "\n", sound.substr(0, sound.size() / 2), sound + "x",
                                   "orivanta-venue-1 99 1 0\n"};
  for (std::size_t i = 0; i < sound.size(); i += i < 60 ? 1 : 97) {
    damaged.push_back(sound);
    damaged.back()[i] ^= 1;
  }
  for (const std::string& text : damaged) {
    std::ofstream(file, std::ios::binary) << text;
    EXPECT_FALSE(loadStored(session()).venue) << text;
    EXPECT_FALSE(fs::exists(file)) << text;
  }
  // The checksum is right, but the content is not that of this venue.
  for (const char* content : {"", "2\n{}", "9\n{}", R"(13\n{"identity":1})"}) {
    FolderStorage(folder.path() / "venues", folder.path())
        .save(file.stem().string(), {content, {}}, [](const auto& saved) { EXPECT_TRUE(saved); });
    EXPECT_FALSE(loadStored(session()).venue) << content;
    EXPECT_FALSE(fs::exists(file)) << content;
  }
  load(session());
  EXPECT_TRUE(loadStored(session()).venue);
}

TEST_F(VenueStoreTest, WithoutSpaceOrFilesTheFormerVenueStaysAndOneFailureIsReported) {
  const fs::path root = folder.path() / "venues";
  FolderStorage storage(root, folder.path());
  const std::string former(5000, 'a');
  storage.save("k", {former, {}}, [](const auto& saved) { ASSERT_TRUE(saved); });
  struct Case {
    int resource;
    rlim_t limit;
  };
  for (const Case each : {Case{RLIMIT_FSIZE, 8000}, {RLIMIT_NOFILE, 0}}) {
    rlimit normal{};
    ::getrlimit(each.resource, &normal);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{each.limit, normal.rlim_max};
    ::setrlimit(each.resource, &tight);
    for (int times = 0; times < 2; ++times) {
      store->save("k", {std::string(9000, 'b'), {}});
      untilIdle(*store);
    }
    store->protect("k", store);
    ::setrlimit(each.resource, &normal);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failures, 1) << "only the first one";
    storage.load("k", [&](auto loaded) { EXPECT_EQ(loaded.value().bytes, former); });
  }
  std::ofstream(folder.path() / "file") << "no folder";
  FolderStorage none(folder.path() / "file/venues", folder.path());
  none.save("k", {"bytes", {}}, [](const auto& saved) { EXPECT_FALSE(saved); });
  none.load("k", [](const auto& loaded) { EXPECT_FALSE(loaded); });
  none.list([](const auto& listed) { EXPECT_TRUE(listed.empty()); });
  makeStore(100)->save("k", {std::string(101, 'c'), {}});
  EXPECT_EQ(failures, 2) << "too large";
}

// Without a server, whose thread could hold a lock of the heap while the process is copied.
TEST(FolderStorageTest, ProcessesMayWriteAndReadTheSameEntry) {
  const test::TemporaryFolder folder;
  FolderStorage storage(folder.path() / "venues", folder.path());
  std::vector<pid_t> writers;
  for (const char content : {'a', 'b'}) {
    writers.push_back(::fork());
    if (writers.back() != 0) continue;
    for (std::size_t i = 1; i <= 60; ++i)
      storage.save("k", {std::string(i * 997, content), {}}, [](const auto&) {});
    ::_exit(0);
  }
  for (std::size_t running = writers.size(); running > 0;) {
    storage.load(
        "k", [](const auto& loaded) { EXPECT_EQ(loaded ? loaded->bytes.size() % 997 : 0, 0U); });
    int status = 0;
    if (::waitpid(-1, &status, WNOHANG) > 0) {
      EXPECT_EQ(status, 0);
      --running;
    }
  }
  storage.load("k", [](const auto& loaded) { EXPECT_EQ(loaded.value().bytes.size(), 60U * 997); });
}

TEST_F(VenueStoreTest, RemovesWhatWasNotUsedForTheLongestTimeButNothingThatIsInUse) {
  for (const char* file : {"s/a/model.obj", "s/b/model.obj", "s/c/model.obj"})
    folder.write(file, std::string(1000, 'm'));
  store = makeStore(5500);
  const auto save = [&](const char* key, std::vector<std::string> folders) {
    store->save(key, {std::string(1000, *key), std::move(folders)});
    untilIdle(*store);
  };
  const auto user = std::make_shared<int>(0);
  save("a1", {"s/a"});
  save("a2", {"s/a", "../outside", "/tmp"});
  save("b", {"s/b"});
  store->load("a1", [](const auto& loaded) { EXPECT_TRUE(loaded); });
  store->protect("a2", user);
  save("c", {"s/c"});  // a2 is older than b, but in use
  const auto isThere = [&](const std::string& key) {
    return fs::exists(folder.path() / "venues" / (key + ".venue"));
  };
  EXPECT_EQ((std::vector{isThere("a1"), isThere("a2"), isThere("b"), isThere("c")}),
            (std::vector{true, true, false, true}));
  EXPECT_FALSE(fs::exists(folder.path() / "s/b"));
  save("d", {});
  EXPECT_FALSE(isThere("a1"));
  EXPECT_TRUE(fs::exists(folder.path() / "s/a")) << "a2 has the same files";
  // Locks of another handle exclude each other as those of another process do.
  auto hold = FolderStorage(folder.path() / "venues", "").hold("c");
  FolderStorage storage(folder.path() / "venues", folder.path());
  storage.remove("c", [](bool isRemoved) { EXPECT_FALSE(isRemoved); });
  hold.reset();
  storage.remove("c", [](bool isRemoved) { EXPECT_TRUE(isRemoved); });
}

}  // namespace orivanta

// Loads a venue over HTTP, and measures the parts separately: the transfer of its pages by six
// concurrent chains without parsing them, parsing the same pages into records one after the other,
// and joining the records and building the graph.
//
// "near" is a server in this process, "far" the same server with 20 ms of latency. Joining is
// measured with 100,000 nodes and compared with parsing their JSON.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <map>

#include "Apps/Server/VenueServer.hpp"
#include "Benchmarks/LatencyRelay.hpp"
#include "Benchmarks/MallJson.hpp"
#include "Source/Category.hpp"
#include "Source/HttpLink.hpp"
#include "Source/Loading/VenueJoin.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::benchmarks {
namespace {

constexpr const char* collectionNames[] = {"location", "category", "map",
                                           "node",     "vortex",   "polygon"};

// A mall of 20,000 nodes on the venue server, in pages of 500, near and far.
class ServedMall {
 public:
  static ServedMall& shared() {
    static ServedMall instance;
    return instance;
  }

  std::string root(bool far) const {
    return "http://127.0.0.1:" + std::to_string(far ? relay_->port() : serverPort_) + "/1/";
  }

 private:
  ServedMall() {
    for (const auto& [name, json] : mallJson(20'000)) folder_.write("mall/" + name + ".json", json);
    server::ServerOptions options;
    options.folders = {folder_.path()};
    options.pageSize = 500;
    server_ = std::make_unique<server::VenueServer>(options);
    const std::string root = server_->root();
    serverPort_ = static_cast<std::uint16_t>(std::stoi(root.substr(root.rfind(':') + 1)));
    relay_ = std::make_unique<LatencyRelay>(serverPort_, std::chrono::milliseconds(20));
  }

  test::TemporaryFolder folder_;
  std::unique_ptr<server::VenueServer> server_;
  std::uint16_t serverPort_ = 0;
  std::unique_ptr<LatencyRelay> relay_;
};

using Pages = std::map<std::string, std::vector<std::string>>;

// Follows the pages of a collection without parsing them.
class TransferDelegate : public network::UrlSessionDelegate {
 public:
  void didReceiveData(std::string_view bytes) override { page_.append(bytes); }

  void didComplete(const network::HttpUrlResponse& response,
                   const std::optional<foundation::Error>& error) override {
    if (error) std::abort();
    const auto next = findLink(response, "next");
    if (next) session->startDataTask(*foundation::Url::parse(next->uri));
    pages.push_back(std::move(page_));
    page_.clear();
    if (next) return;
    session->invalidateAndCancel();
    finished.set_value();
  }

  std::shared_ptr<network::UrlSession> session;
  std::vector<std::string> pages;
  std::promise<void> finished;

 private:
  std::string page_;
};

Pages transferred(const std::string& root) {
  std::map<std::string, std::shared_ptr<TransferDelegate>> chains;
  for (const char* name : collectionNames) {
    auto chain = std::make_shared<TransferDelegate>();
    chain->session = network::UrlSession::make({}, chain);
    chain->session->startDataTask(*foundation::Url::parse(root + name + "?venue=mall"));
    chains[name] = chain;
  }
  Pages pages;
  for (auto& [name, chain] : chains) {
    chain->finished.get_future().wait();
    pages[name] = std::move(chain->pages);
  }
  return pages;
}

template <class Record>
Collection<Record> parsed(const std::vector<std::string>& pages) {
  Collection<Record> records;
  for (const std::string& page : pages)
    for (const RawData& element : RawData::parse(page)->arrayValue())
      if (auto record = Record::make(element)) records.insert_or_assign(*record->id, record);
  return records;
}

CollectionDictionary parsed(const Pages& pages) {
  CollectionDictionary collections;
  collections.locations = parsed<Location>(pages.at("location"));
  collections.categories = parsed<Category>(pages.at("category"));
  collections.maps = parsed<Map>(pages.at("map"));
  collections.nodes = parsed<Node>(pages.at("node"));
  collections.vortices = parsed<Vortex>(pages.at("vortex"));
  collections.polygons = parsed<Polygon>(pages.at("polygon"));
  return collections;
}

void load(benchmark::State& state, bool far) {
  const WebApiSession session(ServedMall::shared().root(far), "", "", "en");
  const auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "mall", "name": "Mall"})"));
  for (auto _ : state) {
    std::promise<void> finished;
    loadVenue(session, venue, false, [&](const auto&) { finished.set_value(); });
    finished.get_future().wait();
  }
  activeVenue = nullptr;
}

void transfer(benchmark::State& state, bool far) {
  const std::string root = ServedMall::shared().root(far);
  for (auto _ : state) benchmark::DoNotOptimize(transferred(root));
}

void parse(benchmark::State& state) {
  const Pages pages = transferred(ServedMall::shared().root(false));
  for (auto _ : state) benchmark::DoNotOptimize(parsed(pages));
}

constexpr std::size_t joinedNodes = 100'000;

Pages largeMall() {
  Pages pages;
  for (auto& [name, json] : mallJson(joinedNodes)) pages[name] = {std::move(json)};
  return pages;
}

void parseJson(benchmark::State& state) {
  const std::string json = largeMall().at("node").front();
  for (auto _ : state) benchmark::DoNotOptimize(RawData::parse(json));
}

void join(benchmark::State& state) {
  const Pages pages = largeMall();
  for (auto _ : state) {
    state.PauseTiming();
    auto collections = std::make_unique<CollectionDictionary>(parsed(pages));
    state.ResumeTiming();
    linkNodeMaps(*collections);
    linkVortexNodes(*collections, false);
    state.PauseTiming();
    collections.reset();
    state.ResumeTiming();
  }
}

BENCHMARK_CAPTURE(load, near, false)->Name("Loading/near")->UseRealTime();
BENCHMARK_CAPTURE(load, far, true)->Name("Loading/far")->UseRealTime();
BENCHMARK_CAPTURE(transfer, near, false)->Name("Loading.transfer/near")->UseRealTime();
BENCHMARK_CAPTURE(transfer, far, true)->Name("Loading.transfer/far")->UseRealTime();
BENCHMARK(parse)->Name("Loading.parse")->UseRealTime();
BENCHMARK(join)->Name("Loading.join")->UseRealTime();
BENCHMARK(parseJson)->Name("Loading.parseJson")->UseRealTime();

}  // namespace
}  // namespace orivanta::benchmarks

// Uses the public headers and a few symbols of each part of the library. Tests/Install/check writes
// Node.hpp and Source/Node.hpp, which belong to this program.
#include <Node.hpp>
#include <Source/Node.hpp>
#include <future>
#include <iostream>
#include <orivanta/core.hpp>

static_assert(ORIVANTA_VERSION >= ORIVANTA_VERSION_NUMBER(0, 1, 0));
static_assert(OwnNode().number + OwnSourceNode().number == 3);

using namespace orivanta;

// Starts a request that nobody answers. Returns whether it fails.
bool requestFails() {
  std::promise<bool> failed;
  HttpSession("http://127.0.0.1:1/", "user", "password", "en")
      .get("node")
      .onPage<int>(0, [](int pages, const RawData&) { return pages + 1; })
      .onComplete([&](int) { failed.set_value(false); })
      .onError([&](const foundation::Error&) { failed.set_value(true); });
  return failed.get_future().get();
}

int main() {
  const auto page = RawData::parse(R"([
    {"id": "m", "elevation": 0},
    {"id": "a", "x": 0, "y": 0, "paths": [{"node": "b"}]},
    {"id": "b", "x": 3, "y": 4}])");
  const auto elements = page->arrayValue();
  auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "Venue"})"));
  Collection<Node> nodes;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    auto node = Node::make(elements[i]);
    node->map = Map::make(elements[0]);
    nodes.insert({*node->id, node});
  }
  venue->navigationGraph =
      std::make_shared<NavigationGraph>(nodes, Collection<Vortex>(), /*accessible=*/false);
  activeVenue = venue;
  if (!attributionText(*venue).empty() || !requestFails()) return 1;
  const auto directions = nodes.at("a")->directionsTo(*nodes.at("b"));
  if (!directions || directions->path.size() != 2) return 1;
  std::cout << "length " << (*venue->navigationGraph)[*nodes.at("a")].front().distance() << '\n';
}

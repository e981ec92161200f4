#include "Tests/Support/ShownVenue.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"

namespace orivanta::test {

namespace {

// Returns local files instead of downloading them.
class LocalFiles : public HttpDownloader {
 public:
  explicit LocalFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}
  std::optional<std::string> loadFileSync(const foundation::Url& url, const std::string&) override {
    return (folder_ / std::filesystem::path(url.path()).filename()).string();
  }
  void fetchFile(const foundation::Url& url, const std::string& folder,
                 const foundation::CancellationToken&, FetchCompletion completion) override {
    completion(Fetched{*loadFileSync(url, folder)});
  }

 private:
  std::filesystem::path folder_;
};

struct Shape {
  const char* material;
  double left, bottom, right, top, height;
};

std::string modelOf(std::initializer_list<Shape> shapes) {
  std::string text = "mtllib floor.mtl\nvn 0 0 1\n";
  for (const Shape& shape : shapes)
    text += fmt::format(
        "usemtl {0}\nv {1} {2} {5}\nv {3} {2} {5}\nv {3} {4} {5}\nv {1} {4} {5}\n"
        "f -4//1 -3//1 -2//1 -1//1\n",
        shape.material, shape.left, shape.bottom, shape.right, shape.top, shape.height);
  return text;
}

RawData json(const std::string& text) { return *RawData::parse(text); }

std::shared_ptr<Location> makeLocation(const char* id, const char* name,
                                       const std::shared_ptr<Polygon>& polygon) {
  auto location = Location::make(
      json(fmt::format(R"({{"id": "{}", "name": "{}", "type": "shop"}})", id, name)));
  if (polygon) {
    location->polygons.push_back(polygon);
    polygon->locations.push_back(location);
  }
  return location;
}

}  // namespace

DiagnosticLines::DiagnosticLines() : lines_(std::make_shared<std::vector<std::string>>()) {
  foundation::setDiagnosticSink(
      [lines = lines_](std::string_view line) { lines->emplace_back(line); });
}

DiagnosticLines::~DiagnosticLines() {
  foundation::setDiagnosticSink([](std::string_view) {});
}

bool DiagnosticLines::contains(const std::string& line) const {
  return std::find(lines_->begin(), lines_->end(), line) != lines_->end();
}

void RecordingDelegate::polygonSelected(const std::shared_ptr<Polygon>& polygon) {
  calls.push_back(*polygon->id);
}

ShownVenue::ShownVenue(bool loadNow)
    : venue(Venue::make(json(R"({"id": "v", "slug": "shown", "name": "Shown"})"))),
      mapView(MapView::make({{0, 0}, {800, 800}})) {
  foundation::setDiagnosticSink([](std::string_view) {});
  folder_.write("ground.obj", modelOf({{"Ground", 0, 0, 1000, 1000, 0},
                                       {"cafe", 100, 100, 300, 300, 2},
                                       {"hall", 600, 600, 900, 900, 2},
                                       {"Stand", 400, 400, 500, 500, 2}}));
  folder_.write("upper.obj",
                modelOf({{"Ground", 0, 0, 800, 400, 0}, {"loft", 100, 100, 200, 200, 2}}));
  folder_.write("floor.mtl", "newmtl Ground\nKd 1 1 1\nnewmtl cafe\nKd 0 0 1\n");
  venue->maps.emplace();
  for (const char* const map :
       {R"({"id": "g", "name": "Ground floor", "scene": {"obj": "http://h/ground.obj",
            "mtl": "http://h/floor.mtl", "images": []}})",
        R"({"id": "u", "name": "Upper floor", "scene": {"obj": "http://h/upper.obj"}})",
        R"({"id": "r", "name": "Roof", "scene": {"obj": ""}})"})
    venue->maps->push_back(Map::make(json(map)));
  venue->polygonDictionary.emplace();
  for (const char* const id : {"cafe", "hall", "loft"}) {
    auto made = Polygon::make(json(fmt::format(R"({{"id": "{}"}})", id)));
    made->map = floor(made->id == "loft" ? 1 : 0);
    venue->polygonDictionary->insert({id, made});
  }
  venue->locations = {makeLocation("cafe-1", "Cafe", polygon("cafe")),
                      makeLocation("stand-1", "Stand", nullptr),
                      makeLocation("loft-1", "Loft", polygon("loft"))};
  mapView->venue = venue;
  mapView->delegate = delegate;
  mapView->downloader = std::make_shared<LocalFiles>(folder_.path());
  mapView->layoutIfNeeded();
  if (loadNow) load();
}

ShownVenue::~ShownVenue() { mapView->clearPaths(); }

void ShownVenue::load() {
  mapView->loadScene();
  while (delegate->calls.empty()) {
    foundation::mainQueue::wait(1.0);
    foundation::mainQueue::drain();
  }
}

std::shared_ptr<Polygon> ShownVenue::polygon(const std::string& id) const {
  return venue->polygonDictionary->at(id);
}

std::shared_ptr<Location> ShownVenue::location(const std::string& id) const {
  for (const auto& location : *venue->locations)
    if (location->id == id) return location;
  return nullptr;
}

std::shared_ptr<Node> ShownVenue::node(double x, double y, double z, std::size_t floorIndex) const {
  auto made = Node::make(json(fmt::format(R"({{"id": "n", "x": {}, "y": {}, "z": {}}})", x, y, z)));
  made->map = floor(floorIndex);
  return made;
}

}  // namespace orivanta::test

#include "Source/UI/Floors/FetchPlan.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "Source/Map.hpp"
#include "Source/UI/Floors/FloorFiles.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

using foundation::Url;

struct Listed {
  FetchPlan::Floor floor;
  std::vector<Url> urls;  // with distinct last components
  std::string folder;
};

std::string nameOf(const Url& url) { return url.lastPathComponent().value_or(""); }

void list(const std::string& text, std::vector<std::string>& problems, Listed& listed) {
  const auto url = Url::parse(text);
  if (!url || !url->lastPathComponent())
    problems.push_back(fmt::format("\"{}\" is not the URL of a file", text));
  else if (std::none_of(listed.urls.begin(), listed.urls.end(),
                        [&](const Url& other) { return nameOf(other) == nameOf(*url); }))
    listed.urls.push_back(*url);
}

Listed listFiles(const std::shared_ptr<Map>& map) {
  Listed listed{{map, {}, {}, {}}, {}, {}};
  const FloorFiles files = FloorFiles::of(*map);
  if (files.model.empty()) return listed;
  std::vector<std::string> problems;
  list(files.model, problems, listed);
  if (!problems.empty()) {
    listed.floor.problem = problems.front();
    return listed;
  }
  if (!files.materials.empty()) list(files.materials, listed.floor.omissions, listed);
  for (const std::string& image : files.images) list(image, listed.floor.omissions, listed);
  return listed;
}

// Processes the floors in the venue's order, so that folders do not depend on the fetch order.
void chooseFolders(std::vector<Listed>& floors, const std::string& slug) {
  std::map<std::pair<std::string, std::string>, Url> taken;  // by folder and name
  for (Listed& listed : floors) {
    if (listed.urls.empty()) continue;
    listed.folder = HttpDownloader::folderFor(listed.urls.front(), slug) + "/maps";
    const bool clashes = std::any_of(listed.urls.begin(), listed.urls.end(), [&](const Url& url) {
      const auto entry = taken.find({listed.folder, nameOf(url)});
      return entry != taken.end() && entry->second != url;
    });
    if (clashes)
      listed.folder += '/' + listed.floor.map->id.value_or("");
    else
      for (const Url& url : listed.urls) taken.emplace(std::pair(listed.folder, nameOf(url)), url);
  }
}

}  // namespace

FetchPlan FetchPlan::of(const Venue& venue, const std::shared_ptr<Map>& first) {
  std::vector<Listed> floors;
  if (venue.maps)
    for (const auto& map : *venue.maps) floors.push_back(listFiles(map));
  chooseFolders(floors, venue.slug.value_or(""));

  FetchPlan plan;
  plan.order.resize(floors.size());
  std::iota(plan.order.begin(), plan.order.end(), std::size_t{0});
  std::stable_partition(plan.order.begin(), plan.order.end(),
                        [&](std::size_t i) { return floors[i].floor.map == first; });
  std::map<std::pair<std::string, std::string>, std::size_t> numbers;
  for (const std::size_t i : plan.order)
    for (const Url& url : floors[i].urls) {
      const auto [entry, isNew] =
          numbers.try_emplace({floors[i].folder, nameOf(url)}, plan.files.size());
      if (isNew) plan.files.push_back({url, floors[i].folder});
      floors[i].floor.files.push_back(entry->second);
    }
  for (Listed& listed : floors) plan.floors.push_back(std::move(listed.floor));
  return plan;
}

}  // namespace orivanta

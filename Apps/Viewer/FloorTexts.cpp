#include "Apps/Viewer/FloorTexts.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Source/Guidance/Floors.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr int stepsPerFloor = 4;  // besides its files

}  // namespace

double loadedShare(const std::vector<FloorProgress>& floors) {
  double done = 0;
  double all = 0;
  for (const FloorProgress& floor : floors) {
    if (floor.state == FloorState::withoutModel) continue;
    const double files = static_cast<double>(floor.fileCount);
    all += files + stepsPerFloor;
    done += static_cast<double>(floor.filesDone);
    if (floor.state == FloorState::reading) done += 1;
    if (floor.state == FloorState::ready || floor.state == FloorState::failed)
      done = done - static_cast<double>(floor.filesDone) + files + stepsPerFloor;
  }
  return all > 0 ? done / all : 0;
}

std::string progressText(const std::vector<FloorProgress>& floors,
                         const guidance::InterfaceTexts& texts) {
  std::size_t files = 0;
  std::size_t filesDone = 0;
  for (const FloorProgress& floor : floors) {
    files += floor.fileCount;
    filesDone += floor.filesDone;
  }
  const auto ready = std::count_if(floors.begin(), floors.end(), [](const auto& floor) {
    return floor.state == FloorState::ready;
  });
  return texts.text("interface.loading.floors", {{"files", fmt::to_string(filesDone)},
                                                 {"filecount", fmt::to_string(files)},
                                                 {"floors", fmt::to_string(ready)},
                                                 {"floorcount", fmt::to_string(floors.size())}});
}

Problem floorProblem(const FloorProgress& floor, const guidance::InterfaceTexts& texts) {
  const std::string name = texts.name(floorName(*floor.map));
  if (floor.state == FloorState::failed)
    return {texts.text("interface.problem.floor", {{"floor", name}}), floor.problem + "."};
  return {texts.text("interface.problem.model", {{"floor", name}}),
          texts.text("interface.problem.model.detail")};
}

std::string floorNote(const FloorProgress& floor, const guidance::InterfaceTexts& texts) {
  const char* key =
      floor.state == FloorState::failed ? "interface.note.floor" : "interface.note.model";
  return texts.text(key, {{"floor", texts.name(floorName(*floor.map))}});
}

Problem floorsProblem(const std::vector<FloorProgress>& floors, const Venue& venue,
                      const guidance::InterfaceTexts& texts) {
  const auto broken = std::find_if(floors.begin(), floors.end(), [](const FloorProgress& floor) {
    return floor.state == FloorState::failed;
  });
  if (broken != floors.end())
    return {texts.text("interface.problem.floors"), broken->problem + "."};
  const std::string name = texts.name(venue.name.value_or(venue.slug.value_or("")));
  return {texts.text("interface.problem.models"),
          texts.text("interface.problem.models.detail", {{"venue", name}})};
}

std::string omissions(const std::vector<FloorProgress>& floors,
                      const guidance::InterfaceTexts& texts) {
  std::vector<std::string> names;
  for (const FloorProgress& floor : floors)
    if (floor.state == FloorState::ready && !floor.problem.empty())
      names.push_back(texts.name(floorName(*floor.map)));
  if (names.size() > 1) return texts.text("interface.note.textures.many", names.size());
  if (names.size() == 1) return texts.text("interface.note.textures", {{"floor", names.front()}});
  const bool isEarlier = std::any_of(floors.begin(), floors.end(),
                                     [](const auto& floor) { return floor.earlierFiles > 0; });
  return isEarlier ? texts.text("interface.note.copies") : "";
}

}  // namespace orivanta::viewer

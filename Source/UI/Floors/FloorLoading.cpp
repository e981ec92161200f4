#include "Source/UI/Floors/FloorLoading.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Floors/FloorFiles.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

bool isDone(FloorState state) {
  return state == FloorState::ready || state == FloorState::withoutModel ||
         state == FloorState::failed;
}

// Removes the path of the cached file, which means nothing to users.
std::string reasonOf(const foundation::Error& error, const std::string& path) {
  const std::string prefix = path + ": ";
  const std::string& text = error.description;
  return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

// Removes a file that is not a valid model, so that it is fetched again the next time.
foundation::Result<std::shared_ptr<scene::Node>> readModel(AssetLoader& loader,
                                                           const std::string& path,
                                                           const std::string& address) try {
  auto model = loader.readModel(foundation::Url::fromFile(path));
  if (model && *model) return model;
  HttpDownloader::forgetFile(path);
  return foundation::failure(
      "model", 0,
      fmt::format("{} is not a model that can be shown: {}", address,
                  model ? "the loader returned no node" : reasonOf(model.error(), path)));
} catch (const std::exception& exception) {
  return foundation::failure("model", 0,
                             fmt::format("{} cannot be read: {}", address, exception.what()));
}

}  // namespace

FloorLoading::FloorLoading(const std::shared_ptr<MapView>& view, FloorStage stage,
                           FloorLoadHandlers handlers, const std::shared_ptr<Map>& first)
    : view_(view),
      stage_(std::move(stage)),
      venue_(view->venue),
      downloader_(view->downloader),
      handlers_(std::make_shared<FloorLoadHandlers>(std::move(handlers))) {
  pictures_ = std::make_shared<PictureBudget>(countFloorsWithPictures(*view->venue));
  FetchPlan plan = FetchPlan::of(*view->venue, first);
  order_ = std::move(plan.order);
  files_ = std::move(plan.files);
  paths_.resize(files_.size());
  for (FetchPlan::Floor& planned : plan.floors) {
    FloorProgress progress{planned.map, FloorState::waiting, 0, planned.files.size(),
                           std::move(planned.problem)};
    if (progress.fileCount == 0)
      progress.state = progress.problem.empty() ? FloorState::withoutModel : FloorState::failed;
    floors_.push_back(
        {std::move(progress), std::move(planned.files), std::move(planned.omissions), {}});
  }
}

template <class Step>
void FloorLoading::onMainQueue(std::weak_ptr<FloorLoading> load, Step step) {
  foundation::mainQueue::async([load = std::move(load), step = std::move(step)]() mutable {
    const auto self = load.lock();
    if (!self || !self->handlers_) return;
    const auto view = self->view_.lock();
    if (view && view->venue && view->venue == self->venue_.lock())
      step(*self);
    else
      self->release();
  });
}

void FloorLoading::start() {
  const std::weak_ptr<FloorLoading> weak = weak_from_this();
  onMainQueue(weak, [](FloorLoading& self) { self.announce(); });
  FileFetch::start(files_, downloader_, cancellation_.token(),
                   {[weak](std::size_t file) {
                      onMainQueue(weak, [file](FloorLoading& self) { self.fileBegan(file); });
                    },
                    [weak](std::size_t file, FileFetch::Outcome outcome) {
                      onMainQueue(weak, [file, outcome = std::move(outcome)](FloorLoading& self) {
                        self.fileEnded(file, outcome);
                      });
                    }});
}

void FloorLoading::cancel() {
  if (!handlers_) return;
  if (const auto view = view_.lock(); view && !sceneStarted_) stage_.hideActivity();
  release();
}

std::vector<FloorProgress> FloorLoading::floors() const {
  std::vector<FloorProgress> floors;
  floors.reserve(floors_.size());
  for (const Floor& floor : floors_) floors.push_back(floor.progress);
  return floors;
}

// Reports the floors whose state was known before fetching.
void FloorLoading::announce() {
  for (const Floor& floor : floors_)
    if (isDone(floor.progress.state)) changed(floor);
  endIfDone();
}

void FloorLoading::fileBegan(std::size_t file) {
  for (Floor& floor : floors_) {
    if (floor.progress.state != FloorState::waiting || !uses(floor, file)) continue;
    floor.progress.state = FloorState::fetching;
    changed(floor);
  }
}

void FloorLoading::fileEnded(std::size_t file, const FileFetch::Outcome& outcome) {
  if (outcome) paths_[file] = outcome->path;
  for (Floor& floor : floors_) {
    if (!handlers_) return;  // a handler canceled the load
    if (floor.progress.state != FloorState::fetching || !uses(floor, file)) continue;
    ++floor.progress.filesDone;
    if (!outcome) {
      if (file == floor.files.front()) {
        fail(floor, outcome.error().description);
        continue;
      }
      floor.omissions.push_back(outcome.error().description);
    } else if (!outcome->remark.empty()) {
      ++floor.progress.earlierFiles;
      floor.remarks.push_back(outcome->remark);
    }
    if (floor.progress.filesDone == floor.files.size()) read(floor);
    changed(floor);
  }
  endIfDone();
}

bool FloorLoading::uses(const Floor& floor, std::size_t file) {
  return std::find(floor.files.begin(), floor.files.end(), file) != floor.files.end();
}

void FloorLoading::read(Floor& floor) {
  floor.progress.state = FloorState::reading;
  const auto view = view_.lock();
  if (!view) return;
  const std::size_t model = floor.files.front();
  foundation::runInBackground(
      [weak = weak_from_this(), index = static_cast<std::size_t>(&floor - floors_.data()),
       loader = view->assetLoader, cancellation = cancellation_.token(), path = paths_[model],
       address = files_[model].url.absoluteString(), budget = pictures_] {
        if (cancellation.isCanceled()) return;
        FloorPictures pictures(budget);
        Model read{readModel(*loader, path, address), {}};
        read.remarks = pictures.remarks();
        const auto tell = [weak, index](const Model& result) {
          onMainQueue(weak, [index, result](FloorLoading& self) { self.wasRead(index, result); });
        };
        if (read.node)
          view::SceneView::prepare({*read.node}, [tell, read](bool) { tell(read); });
        else
          tell(read);
      });
}

void FloorLoading::wasRead(std::size_t index, const Model& model) {
  Floor& floor = floors_[index];
  const auto view = view_.lock();
  if (!view) return;
  if (!model.node) {
    fail(floor, model.node.error().description);
  } else {
    stage_.setModel(*floor.progress.map, *model.node);
    floor.remarks.insert(floor.remarks.end(), model.remarks.begin(), model.remarks.end());
    floor.progress.remark = fmt::format("{}", fmt::join(floor.remarks, "; "));
    floor.progress.problem = fmt::format("{}", fmt::join(floor.omissions, "; "));
    floor.progress.state = FloorState::ready;
    startScene();
    changed(floor);
  }
  endIfDone();
}

void FloorLoading::fail(Floor& floor, std::string problem) {
  floor.progress.problem = std::move(problem);
  floor.progress.state = FloorState::failed;
  startScene();
  changed(floor);
}

// Starts the scene once, as soon as the floor to show is known.
void FloorLoading::startScene() {
  const auto view = view_.lock();
  if (sceneStarted_ || !view || !isDone(floors_[order_.front()].progress.state)) return;
  const auto ready = std::find_if(order_.begin(), order_.end(), [this](std::size_t i) {
    return floors_[i].progress.state == FloorState::ready;
  });
  if (ready == order_.end()) return;
  sceneStarted_ = true;
  stage_.showFirst(floors_[*ready].progress.map);
}

void FloorLoading::changed(const Floor& floor) {
  const auto handlers = handlers_;  // a handler may cancel the load
  if (handlers && handlers->floorChanged) handlers->floorChanged(floor.progress);
}

void FloorLoading::endIfDone() {
  if (!handlers_ || !std::all_of(floors_.begin(), floors_.end(),
                                 [](const Floor& floor) { return isDone(floor.progress.state); }))
    return;
  if (const auto view = view_.lock(); view && !sceneStarted_) stage_.hideActivity();
  const auto handlers = release();
  if (handlers->ended) handlers->ended(floors());
}

// Ends the load. After that, the application's handle keeps neither handlers nor downloader alive.
std::shared_ptr<FloorLoadHandlers> FloorLoading::release() {
  const auto self = shared_from_this();
  cancellation_.cancel();
  if (const auto downloader = std::exchange(downloader_, nullptr))
    for (const std::string& path : paths_)
      if (!path.empty()) downloader->fileWasUsed(path);
  const auto view = view_.lock();  // kept alive until `ended` returns
  if (view) stage_.ended(*self);
  return std::exchange(handlers_, nullptr);
}

}  // namespace orivanta

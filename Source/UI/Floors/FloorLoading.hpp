// A load of a venue's floors into a map view.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/UI/AssetLoader.hpp"
#include "Source/UI/FloorLoad.hpp"
#include "Source/UI/Floors/FetchPlan.hpp"
#include "Source/UI/Floors/FileFetch.hpp"
#include "Source/UI/Floors/PictureBudget.hpp"

namespace orivanta {

class MapView;

/// The operations of a load on its map view. Called on the main thread while the map view exists.
struct FloorStage {
  std::function<void(Map& map, const std::shared_ptr<scene::Node>& model)> setModel;
  std::function<void(const std::shared_ptr<Map>& map)> showFirst;  ///< starts the scene
  std::function<void()> hideActivity;
  std::function<void(const FloorLoad& load)> ended;
};

/// Owned by its view while it is running. Its state is used only on the main thread. Background
/// work passes its results to the main queue, where the results of an ended load are discarded. If
/// the view has another venue by then, the load ends without calling handlers.
class FloorLoading : public FloorLoad, public std::enable_shared_from_this<FloorLoading> {
 public:
  FloorLoading(const std::shared_ptr<MapView>& view, FloorStage stage, FloorLoadHandlers handlers,
               const std::shared_ptr<Map>& first);

  void start();
  void cancel() override;
  std::vector<FloorProgress> floors() const override;

 private:
  struct Floor {
    FloorProgress progress;
    std::vector<std::size_t> files;  // the model first
    std::vector<std::string> omissions;
    std::vector<std::string> remarks;
  };
  struct Model {
    foundation::Result<std::shared_ptr<scene::Node>> node;
    std::vector<std::string> remarks;
  };

  template <class Step>
  static void onMainQueue(std::weak_ptr<FloorLoading> load, Step step);

  static bool uses(const Floor& floor, std::size_t file);
  void announce();
  void fileBegan(std::size_t file);
  void fileEnded(std::size_t file, const FileFetch::Outcome& outcome);
  void read(Floor& floor);
  void wasRead(std::size_t index, const Model& model);
  void fail(Floor& floor, std::string problem);
  void startScene();
  void changed(const Floor& floor);
  void endIfDone();
  std::shared_ptr<FloorLoadHandlers> release();

  const std::weak_ptr<MapView> view_;
  const FloorStage stage_;
  std::weak_ptr<Venue> venue_;
  std::shared_ptr<HttpDownloader> downloader_;   // null if the load has ended
  std::shared_ptr<FloorLoadHandlers> handlers_;  // null if the load has ended
  std::vector<Floor> floors_;
  std::vector<std::size_t> order_;  // order of fetching, the requested floor first
  std::vector<FileFetch::File> files_;
  std::vector<std::string> paths_;  // of the files; empty for missing files
  std::shared_ptr<PictureBudget> pictures_;
  const foundation::CancellationSource cancellation_;
  bool sceneStarted_ = false;
};

}  // namespace orivanta

#include "Apps/Command/ViewVenue.hpp"

#include <fmt/format.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Apps/Command/GuideRoute.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Apps/Server/VenueServer.hpp"
#include "Apps/Viewer/Times.hpp"
#include "Apps/Viewer/Viewer.hpp"
#include "Apps/Viewer/Window.hpp"
#include "Platform/Foundation/Screen.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/UI/MapDownloader.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::command {

namespace {

std::unique_ptr<server::VenueServer> serveDemo(const std::filesystem::path& folder) {
  server::ServerOptions options;
  options.folders = {folder};
  try {
    return std::make_unique<server::VenueServer>(options);
  } catch (const std::exception& error) {
    throw CommandError(ExitCode::wrongUse, fmt::format("the demo venue: {}", error.what()));
  }
}

// The demo venue's server listens on another port each time, so the files cached from it would
// never be used again.
struct DemoFiles {
  explicit DemoFiles(std::string root) : serverRoot(std::move(root)) {}
  ~DemoFiles() {
    if (const auto url = foundation::Url::parse(serverRoot)) HttpDownloader::removeFilesOf(*url);
  }
  DemoFiles(const DemoFiles&) = delete;
  DemoFiles& operator=(const DemoFiles&) = delete;

  const std::string serverRoot;
};

std::unique_ptr<render::WindowSurface> openWindow(const ViewVenueOptions& options) {
  auto surface = render::WindowSurface::make({"Orivanta", parseSize(options.size), options.scale});
  if (!surface) throw CommandError(ExitCode::outputFailed, surface.error().description);
  return std::move(*surface);
}

}  // namespace

ExitCode viewVenue(const ViewVenueOptions& options) {
  if (options.scale != 0 && !(options.scale >= 0.25 && options.scale <= 8))
    throw CommandError(ExitCode::wrongUse, "--scale must be from 0.25 to 8");
  preferLanguage(options.language);
  viewer::Times times(options.times ? std::function<void(std::string_view)>(complain) : nullptr);
  showDiagnostics(options.connection);
  viewer::ViewerOptions viewerOptions;
  if (!options.slug.empty()) viewerOptions.slug = options.slug;
  viewerOptions.settings = resolveSettings(options.connection);
  viewerOptions.walksAtOnce = options.walk;
  viewerOptions.look.textScale = options.textSize / 100.0;
  viewerOptions.look.hasHighContrast = options.highContrast;
  viewerOptions.reducesMotion = options.reducedMotion;
  viewerOptions.isOffline = options.connection.offline;
  viewerOptions.theme = readTheme(options.style);
  viewerOptions.look.isDark = viewerOptions.theme && viewerOptions.theme->isDark;
  std::unique_ptr<server::VenueServer> demo;
  std::optional<DemoFiles> demoFiles;
  if (options.demoVenue && !options.connection.offline && !isEndpointGiven(options.connection)) {
    demo = serveDemo(*options.demoVenue);
    viewerOptions.settings.endpoint = demo->root();
    viewerOptions.settings.store = nullptr;  // its port is another one each time
    demoFiles.emplace(demo->root());
    if (!viewerOptions.slug) viewerOptions.slug = server::readPackage(*options.demoVenue).slug;
  }
  const auto surface = openWindow(options);
  times.reached("window open");
  foundation::setMainScreenScale(surface->scale());
  const auto store = viewerOptions.settings.store;
  viewer::Viewer viewer(std::move(viewerOptions));
  viewer.reached = [&times](std::string_view what) { times.reached(what); };
  viewer::runWindow(viewer, *surface, times, {writeOutput, complain});
  times.summarize();
  finishStoring(store);
  return ExitCode::success;
}

}  // namespace orivanta::command

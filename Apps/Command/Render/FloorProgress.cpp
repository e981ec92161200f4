#include "Apps/Command/Render/FloorProgress.hpp"

#include <fmt/format.h>

#include "Apps/Command/ProgressLine.hpp"
#include "Source/Map.hpp"
#include "Source/UI/FloorFiles.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

ReportingDownloader::ReportingDownloader(const Venue& venue) {
  for (const auto& map : *venue.maps) {
    const FloorFiles files = FloorFiles::of(*map);
    if (!files.model.empty())
      fileCount_ += 1 + (files.materials.empty() ? 0 : 1) + files.images.size();
  }
}

std::optional<std::string> ReportingDownloader::loadFileSync(const foundation::Url& url,
                                                             const std::string& path) {
  ProgressLine::standardError().show(
      fmt::format("Loading floors: {} of {} files", filesDone_, fileCount_),
      ProgressLine::Clock::now());
  ++filesDone_;
  return HttpDownloader::loadFileSync(url, path);
}

}  // namespace orivanta::command

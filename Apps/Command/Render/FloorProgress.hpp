// Progress of the downloads of a venue's floors.
#pragma once

#include <cstddef>
#include <memory>

#include "Source/Fwd.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta::command {

/// Shows on a terminal how many of the files of a venue's floors are there.
class ReportingDownloader : public HttpDownloader {
 public:
  explicit ReportingDownloader(const Venue& venue);

  std::optional<std::string> loadFileSync(const foundation::Url& url,
                                          const std::string& path) override;

 private:
  std::size_t fileCount_ = 0;
  std::size_t filesDone_ = 0;
};

}  // namespace orivanta::command

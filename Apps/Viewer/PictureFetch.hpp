// Fetches the picture of a place in the background.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/PictureView.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta::viewer {

/// Fetches one picture at a time: starting another one, or destroying this object, cancels the
/// request. Main thread only.
class PictureFetch {
 public:
  using Arrived =
      std::function<void(const std::shared_ptr<const graphics::Image>& picture, PictureMode mode)>;

  ~PictureFetch() { cancel(); }

  /// Fetches the pictures of all places in the background, one after the other, except those that
  /// are cached, so that they are there without a connection.
  static void cacheAll(const Venue& venue, std::shared_ptr<HttpDownloader> downloader,
                       const foundation::CancellationToken& cancellation);

  /// Fetches the picture of a place, or else its logo. `arrived` is called from the main queue, at
  /// most once; it is not called if the picture cannot be read or if the request was canceled.
  /// Pictures are cached below the folder of the venue `slug` on its server, by their URLs.
  void start(const Location& place, const std::string& slug,
             const std::shared_ptr<HttpDownloader>& downloader, Arrived arrived);

 private:
  void cancel();

  foundation::CancellationSource cancellation_;  // of the latest request
};

}  // namespace orivanta::viewer

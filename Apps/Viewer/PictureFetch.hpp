// The picture of a place, fetched while people look at something else.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/PictureView.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Floors/FileFetch.hpp"

namespace orivanta::viewer {

/// One picture at a time: the next one ends the request for the former, and so does the end of
/// this. Main thread.
class PictureFetch {
 public:
  using Arrived =
      std::function<void(const std::shared_ptr<const graphics::Image>& picture, PictureMode mode)>;

  ~PictureFetch() { cancel(); }

  /// `arrived` is called from the main queue, at most once: not without a picture that can be read,
  /// nor once another is fetched. Pictures are kept in the folder of the venue `slug` on its
  /// server, apart by their URLs.
  void start(const Location& place, const std::string& slug,
             std::shared_ptr<HttpDownloader> downloader, Arrived arrived);

 private:
  void cancel();

  foundation::CancellationSource cancellation_;
  std::shared_ptr<Arrived> arrived_;  // gone with the wish for the picture
};

}  // namespace orivanta::viewer

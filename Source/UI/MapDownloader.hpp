// Files fetched once and kept in the caches directory.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/AwaitedRequests.hpp"

namespace orivanta {

/// A file is kept under the last component of its URL's path and found by that name alone: two URLs
/// that end alike share a file, which stays until somebody removes it. A component that is no
/// proper file name (".", "a%2Fb", one of more than 255 bytes) is kept under a name made from it,
/// so that nothing is written outside the caches directory. A URL without a path and a user
/// without a caches directory are fatal errors.
///
/// Requests carry no credentials. Two downloads of one file at once both write it, and it stays
/// whole. What happens is told as diagnostic lines. Without state; any thread.
class ORIVANTA_API HttpDownloader {
 public:
  /// The path of the file, and an error when that was not written.
  using Completion =
      std::function<void(const std::string& path, const std::optional<foundation::Error>& error)>;

  virtual ~HttpDownloader() = default;

  /// The path of the file in the folder `path` of the caches directory, one or several names
  /// separated by slashes; blocks while it is fetched. Whatever answers counts, an error page as
  /// well. Nothing when nothing answers or the file cannot be written.
  virtual std::optional<std::string> loadFileSync(const foundation::Url& url,
                                                  const std::string& path);

  /// As above, for a file directly in the caches directory. A file that is there is reported before
  /// this returns, anything else on a background thread. An answer other than 200 is kept from the
  /// cache and never reported. A file that cannot be written gives an error of the domain "Error
  /// saving file" with the code 1001. Without a completion the file is fetched all the same.
  virtual void loadFileAsync(const foundation::Url& url, Completion completion);

  /// One of the two is empty.
  struct Fetched {
    std::string path;
    std::string problem;  ///< a sentence with the URL, without a full stop
  };

  /// As `loadFileSync`, but keeps only what is an answer: with a body, and with a status of 200 to
  /// 299. Ends, with a problem, when the requests are cancelled. For `MapView::loadFloors`.
  virtual Fetched fetchFile(const foundation::Url& url, const std::string& path,
                            network::AwaitedRequests& requests);
};

}  // namespace orivanta

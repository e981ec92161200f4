// Files fetched once and kept in the caches directory.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
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
/// whole. What happens is told as diagnostic lines. Immutable; any thread.
class ORIVANTA_API HttpDownloader {
 public:
  /// Without a transport requests use the default one.
  explicit HttpDownloader(std::shared_ptr<network::UrlTransport> transportToUse = nullptr)
      : transport(std::move(transportToUse)) {}
  /// The path of the file, and an error when that was not written.
  using Completion =
      std::function<void(const std::string& path, const std::optional<foundation::Error>& error)>;

  virtual ~HttpDownloader() = default;

  const std::shared_ptr<network::UrlTransport> transport;  ///< null for the default transport

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

  /// The result of `fetchFile`.
  struct Fetched {
    /// The path of the file.
    std::string path;

    /// Why an earlier copy takes the place of what the server has now: a sentence with the URL,
    /// without a full stop. Empty unless it does.
    std::string remark = {};
  };

  /// Fetches a file for `MapView::loadFloors` into the folder `path` of the caches directory, or
  /// takes the one that is there if the server says that it has not changed. What an answer must
  /// be to count: it has a body that does not begin as a web page or JSON does, and a status of 200
  /// to 299. Only "http" and "https" URLs are fetched. Blocks. Fails if the requests are canceled.
  /// The text of an error is a sentence with the URL, without a full stop.
  ///
  /// Beside each file a hidden one notes the URL that it came from, its length and a checksum, and
  /// what the server gave to recognize it by: an entity tag, a date, or nothing, and then the file
  /// is fetched anew each time. A file that does not agree with its note, and one that came from
  /// another URL, counts for nothing. An agreeing one is used, with a remark, if the request fails,
  /// the server has a problem of its own (a status of 408, 429 or from 500), nothing or a web page
  /// comes in place of the file, or the new file cannot be saved.
  virtual foundation::Result<Fetched> fetchFile(const foundation::Url& url, const std::string& path,
                                                const network::AwaitedRequests& requests);

  /// The folder in which the files of a venue are kept apart from those of other servers: a name
  /// made of the URL's scheme, host and port, and one made of the slug. For `fetchFile`.
  static std::string folderFor(const foundation::Url& url, std::string_view slug);

  /// Removes a fetched file that turned out to be damaged from the caches directory, so that it is
  /// fetched anew the next time. A file outside the caches directory stays.
  static void forgetFile(const std::string& path);

  /// Removes all files of the URL's server from such folders, as far as possible.
  static void removeFilesOf(const foundation::Url& url);
};

}  // namespace orivanta

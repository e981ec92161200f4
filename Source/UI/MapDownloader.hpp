// Fetches files and caches them in the caches directory.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta {

/// The name of a cached file is the last component of its URL's path. URLs with the same last
/// component share a file, which is never removed automatically. If the component is not a valid
/// file name (".", "a%2Fb", more than 255 bytes), a name is derived from it, so that nothing is
/// written outside the caches directory. A URL without a path and a user without a caches directory
/// are fatal errors.
///
/// Requests contain no credentials. Concurrent downloads of one file all write it, but never
/// corrupt it. Progress and errors are printed as diagnostic lines. Immutable; any thread.
class ORIVANTA_API HttpDownloader {
 public:
  /// If the transport is null, requests use the default one.
  explicit HttpDownloader(std::shared_ptr<network::UrlTransport> transportToUse = nullptr)
      : transport(std::move(transportToUse)) {}
  /// Receives the path of the file, and an error if the file was not written.
  using Completion =
      std::function<void(const std::string& path, const std::optional<foundation::Error>& error)>;

  virtual ~HttpDownloader() = default;

  const std::shared_ptr<network::UrlTransport> transport;  ///< null for the default transport

  /// Returns the path of the file in the folder `path` of the caches directory. `path` consists of
  /// one or more names separated by slashes. Blocks while the file is fetched. Every response is
  /// stored, including error pages. Returns nothing if there is no response or the file cannot be
  /// written.
  virtual std::optional<std::string> loadFileSync(const foundation::Url& url,
                                                  const std::string& path);

  /// Fetches a file asynchronously into the caches directory itself. If the file is cached, calls
  /// the completion before this function returns, otherwise on a background thread. A response
  /// with a status other than 200 is not cached, and the completion is not called. If the file
  /// cannot be written, the error has the domain "Error saving file" and the code 1001. The
  /// completion may be empty.
  virtual void loadFileAsync(const foundation::Url& url, Completion completion);

  /// The result of `fetchFile`.
  struct Fetched {
    /// The path of the file.
    std::string path;

    /// Why an earlier copy is used instead of the server's current file: a sentence with the URL,
    /// without a final period. Empty if the copy is up to date.
    std::string remark = {};
  };

  /// Receives the result of `fetchFile`. The text of an error is a sentence with the URL, without a
  /// final period.
  using FetchCompletion = std::function<void(foundation::Result<Fetched> fetched)>;

  /// The memory that one fetch may use while a file is received and decoded. A received body counts
  /// twice, because its string grows, and its decoded form counts in addition.
  static constexpr std::size_t mostFetchBytes = std::size_t{192} << 20U;

  /// Fetches a file for `MapView::loadFloors` into the folder `path` of the caches directory, and
  /// returns immediately. Uses the cached file if the server reports that it has not changed. A
  /// response is valid if its status is 200 to 299 and its body is not empty and does not begin
  /// like a web page or JSON. Only "http" and "https" URLs are fetched. A transfer slower than 100
  /// bytes per second, a redirect from HTTPS to HTTP and a file that uses more than
  /// `mostFetchBytes` are errors.
  ///
  /// Calls `completion` once and never on the calling thread before this function returns: on a
  /// background thread, which it may block, or in a browser in a later turn of the page. Canceling
  /// the token ends the request and discards the completion, unless it is already running. The
  /// downloader must exist until the completion has been called or destroyed.
  ///
  /// An override must return quickly, must not throw, and may call `completion` on any thread, also
  /// before it returns. It need not call it once the token has been canceled, but should then
  /// release it.
  ///
  /// A hidden note next to each file stores its URL, length and checksum, and the validator that
  /// the server sent: an entity tag, a date, or none. Without a validator the file is fetched each
  /// time. A cached file that does not match its note or came from another URL is ignored. A
  /// matching file is used, with a remark, if the request fails, the server reports a temporary
  /// error (status 408, 429, or 500 and above), a successful response is empty, a web page or
  /// JSON, or the new file cannot be saved.
  virtual void fetchFile(const foundation::Url& url, const std::string& path,
                         const foundation::CancellationToken& cancellation,
                         FetchCompletion completion);

  /// Called on the main thread when a load of `MapView::loadFloors` has ended or was canceled, for
  /// each file that it has fetched. Does nothing, so that the file stays cached. An override can
  /// remove the file, for example if the caches directory is in memory. After a canceled load, a
  /// background thread may still be reading the file; what it reads is discarded.
  virtual void fileWasUsed(const std::string& /*path*/) {}

  /// Returns the folder for the files of a venue, for `fetchFile`. It consists of a name made from
  /// the URL's scheme, host and port, and a name made from the slug, so that servers do not share
  /// files.
  static std::string folderFor(const foundation::Url& url, std::string_view slug);

  /// Returns whether `fetchFile` has cached this file and the file is undamaged.
  static bool isCached(const foundation::Url& url, const std::string& path);

  /// Removes a damaged file from the caches directory, so that it is fetched again the next time.
  /// Does not remove files outside the caches directory.
  static void forgetFile(const std::string& path);

  /// Removes the folders of `folderFor` for the URL's server, with all files. Ignores errors.
  static void removeFilesOf(const foundation::Url& url);
};

}  // namespace orivanta

// An HTTP/1.1 server on loopback that sends scripted responses, which may be late, damaged,
// truncated or missing.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Tests/Support/Latch.hpp"

namespace orivanta::test {

/// A request as received.
struct ReceivedRequest {
  std::string method;
  std::string target;  ///< the request target as sent, such as "/1/node?venue=a"
  std::string path;    ///< the part before the "?"
  std::string query;   ///< the part after the "?", or empty
  std::vector<std::pair<std::string, std::string>> fields;

  /// The value of a header; the case of the name is ignored. Returns nothing if the header is
  /// missing.
  std::optional<std::string> field(std::string_view name) const;
};

/// A scripted response. Built by chaining: Answer::json("[1]").next("/b").held(latch).
struct Answer {
  enum class Ending {
    complete,
    closed,  ///< the connection is closed before the end of the body
    reset    ///< like `closed`, but with a TCP reset
  };

  int status = 200;
  std::vector<std::pair<std::string, std::string>> fields = {};
  std::string body = {};
  bool inChunks = false;
  std::string trailer = {};  ///< header lines after the last chunk, each with its line break
  std::optional<std::size_t> announcedBytes = {};  ///< a false Content-Length
  Ending ending = Ending::complete;
  std::size_t sentBodyBytes = 0;      ///< number of bytes sent before the early end
  bool byTrickles = false;            ///< send a byte of the body every 50 ms
  std::size_t burstBytes = 1;         ///< send this many every 4 s instead, if more than 1
  std::shared_ptr<Latch> latch = {};  ///< nothing is sent before it opens; may be null

  static Answer json(std::string text, int status = 200) {
    return {status, {{"Content-Type", "application/json"}}, std::move(text)};
  }
  static Answer html(std::string text, int status = 200) {
    return {status, {{"Content-Type", "text/html"}}, std::move(text)};
  }
  static Answer redirect(std::string location, int status = 302) {
    return html("<p>Moved", status).with("Location", std::move(location));
  }

  Answer with(std::string name, std::string value) const;
  Answer next(const std::string& uri) const;  ///< adds a Link header with the relation "next"
  Answer gzipped() const;                     ///< compresses the body
  Answer chunked() const { return changed(&Answer::inChunks, true); }
  Answer closedAfter(std::size_t bodyBytes) const {
    return changed(&Answer::ending, Ending::closed).changed(&Answer::sentBodyBytes, bodyBytes);
  }
  Answer resetAfter(std::size_t bodyBytes) const {
    return closedAfter(bodyBytes).changed(&Answer::ending, Ending::reset);
  }
  Answer trickled(std::size_t bytes = 1) const {
    return changed(&Answer::byTrickles, true).changed(&Answer::burstBytes, bytes);
  }
  Answer held(std::shared_ptr<Latch> opener) const {
    return changed(&Answer::latch, std::move(opener));
  }

 private:
  template <class Value>
  Answer changed(Value Answer::*field, Value value) const {
    Answer answer = *this;
    answer.*field = std::move(value);
    return answer;
  }
};

/// The bytes compressed to one gzip member.
std::string gzipped(const std::string& bytes);

/// Serves from construction to destruction on its own thread. Requests for paths without a script
/// are answered with 404 and a JSON object. Thread-safe, also while requests are served.
class MisbehavingServer {
 public:
  using Script = std::function<Answer(const ReceivedRequest&)>;

  /// Serves HTTPS if `certificate` names a file; the key is next to it, with the extension .key.
  explicit MisbehavingServer(const std::filesystem::path& certificate = {});
  ~MisbehavingServer();
  MisbehavingServer(const MisbehavingServer&) = delete;
  MisbehavingServer& operator=(const MisbehavingServer&) = delete;

  /// The script runs on the server's thread.
  void on(const std::string& path, Script script);
  void on(const std::string& path, Answer answer);

  /// Sends these responses in turn, and repeats the last one.
  void on(const std::string& path, std::vector<Answer> answers);

  /// The API root, such as "http://127.0.0.1:43210/1/", or another path on this server.
  std::string root(const std::string& path = "/1/") const;
  /// The same URL with another name of this machine, which clients treat as another host.
  std::string rootByName(const std::string& path = "/1/") const;

  /// A root URL at which no server listens, so that connections are refused.
  static std::string refusingRoot();

  /// All requests so far in the order of arrival, or only those for one path.
  std::vector<ReceivedRequest> requests() const;
  std::vector<ReceivedRequest> requests(const std::string& path) const;
  /// Blocks until `count` requests for the path have arrived. Returns false after `patience`.
  [[nodiscard]] bool waitForRequests(const std::string& path, std::size_t count) const;

  /// Clears the recorded requests.
  void forgetRequests();

  std::size_t connectionCount() const;
  /// Blocks until `count` connections have ended. Returns false after `patience`.
  [[nodiscard]] bool waitForEndedConnections(std::size_t count) const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::test

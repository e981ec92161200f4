// A real HTTP/1.1 server on loopback that answers by script: late, damaged, cut short or not at
// all, as a test wants it.
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

/// A request as it came over the wire.
struct ReceivedRequest {
  std::string method;
  std::string target;  ///< the request target as written, such as "/1/node?venue=a"
  std::string path;    ///< up to the "?"
  std::string query;   ///< behind the "?"; empty without one
  std::vector<std::pair<std::string, std::string>> fields;

  /// The value of a field, whatever the case of its name; nothing when it was not sent.
  std::optional<std::string> field(std::string_view name) const;
};

/// What a request gets. Built by chaining: Answer::json("[1]").next("/b").held(latch).
struct Answer {
  enum class Ending {
    complete,
    closed,  ///< the connection is closed before the end of the body
    reset    ///< as `closed`, by a TCP reset
  };

  int status = 200;
  std::vector<std::pair<std::string, std::string>> fields;
  std::string body;
  bool inChunks = false;
  std::string trailer;  ///< field lines behind the last chunk, each with its line break
  std::optional<std::size_t> announcedBytes;  ///< the Content-Length when it is not the truth
  Ending ending = Ending::complete;
  std::size_t sentBodyBytes = 0;  ///< before the early end
  bool byTrickles = false;        ///< a byte of the body every 50 ms
  std::size_t burstBytes = 1;     ///< in place of that byte, every 4 s
  std::shared_ptr<Latch> latch;   ///< nothing is sent before it opens; may be null

  static Answer json(std::string text, int status = 200);
  static Answer html(std::string text, int status = 200);
  static Answer redirect(std::string location, int status = 302);

  Answer with(std::string name, std::string value) const;
  Answer next(const std::string& uri) const;  ///< a Link field with the relation "next"
  Answer gzipped() const;                     ///< compresses the body
  Answer chunked() const;
  Answer closedAfter(std::size_t bodyBytes) const;
  Answer trickled(std::size_t burstBytes = 1) const;
  Answer resetAfter(std::size_t bodyBytes) const;
  Answer held(std::shared_ptr<Latch> latch) const;
};

/// The bytes as one gzip member.
std::string gzipped(const std::string& bytes);

/// Serves from construction to destruction on a thread of its own. Paths without a script get 404
/// with a JSON object. All operations are safe from any thread, also while requests are served.
class MisbehavingServer {
 public:
  using Script = std::function<Answer(const ReceivedRequest&)>;

  /// Speaks HTTPS if there is a file with a certificate; its key is beside it, named *.key.
  explicit MisbehavingServer(const std::filesystem::path& certificate = {});
  ~MisbehavingServer();
  MisbehavingServer(const MisbehavingServer&) = delete;
  MisbehavingServer& operator=(const MisbehavingServer&) = delete;

  /// The script runs on the server's thread.
  void on(const std::string& path, Script script);
  void on(const std::string& path, Answer answer);

  /// These answers in turn; the last one again and again.
  void on(const std::string& path, std::vector<Answer> answers);

  /// The API root, such as "http://127.0.0.1:43210/1/", or another path on the same server.
  std::string root(const std::string& path = "/1/") const;
  /// The same place under another name of this machine, which makes it another host.
  std::string rootByName(const std::string& path = "/1/") const;

  /// A root at which nothing listens: connections are refused.
  static std::string refusingRoot();

  /// All requests so far, in the order of arrival, respectively those for one path.
  std::vector<ReceivedRequest> requests() const;
  std::vector<ReceivedRequest> requests(const std::string& path) const;
  /// Blocks until `count` requests for the path have arrived; false when patience ran out.
  [[nodiscard]] bool waitForRequests(const std::string& path, std::size_t count) const;

  /// Starts the record of requests anew.
  void forgetRequests();

  std::size_t connectionCount() const;
  /// Blocks until so many connections have ended; false when patience ran out.
  [[nodiscard]] bool waitForEndedConnections(std::size_t count) const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::test

#include "Tests/Support/MisbehavingServer.hpp"

#include <fmt/format.h>
#include <strings.h>
#include <zlib.h>

#include <algorithm>
#include <boost/asio.hpp>
#include <boost/asio/ssl.hpp>
#include <condition_variable>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <thread>

namespace orivanta::test {

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

constexpr auto reportingErrors = asio::as_tuple(asio::use_awaitable);

ReceivedRequest parsed(std::string_view head) {
  const auto takeLine = [&head] {
    const std::string_view line = head.substr(0, head.find("\r\n"));
    head.remove_prefix(std::min(head.size(), line.size() + 2));
    return line;
  };
  ReceivedRequest request;
  const std::string_view requestLine = takeLine();
  request.method = requestLine.substr(0, requestLine.find(' '));
  const std::size_t start = request.method.size() + 1;
  request.target = requestLine.substr(start, requestLine.find(' ', start) - start);
  const std::size_t mark = std::min(request.target.find('?'), request.target.size());
  request.path = request.target.substr(0, mark);
  request.query = request.target.substr(std::min(mark + 1, request.target.size()));
  for (std::string_view line = takeLine(); !line.empty(); line = takeLine()) {
    const std::size_t colon = line.find(':');
    const std::size_t value = line.find_first_not_of(' ', colon + 1);
    request.fields.emplace_back(line.substr(0, colon), line.substr(std::min(value, line.size())));
  }
  return request;
}

std::string headOf(const Answer& answer) {
  std::string head = fmt::format("HTTP/1.1 {} Scripted\r\n", answer.status);
  for (const auto& [name, value] : answer.fields) head += fmt::format("{}: {}\r\n", name, value);
  if (answer.inChunks)
    head += "Transfer-Encoding: chunked\r\n";
  else
    head +=
        fmt::format("Content-Length: {}\r\n", answer.announcedBytes.value_or(answer.body.size()));
  return head + "\r\n";
}

// The body in chunks of 1,000 bytes, or unchanged.
std::string framedBody(const Answer& answer) {
  if (!answer.inChunks) return answer.body;
  std::string framed;
  for (std::size_t start = 0; start < answer.body.size(); start += 1000) {
    const std::string chunk = answer.body.substr(start, 1000);
    framed += fmt::format("{:x}\r\n{}\r\n", chunk.size(), chunk);
  }
  return framed + "0\r\n" + answer.trailer + "\r\n";
}

}  // namespace

std::optional<std::string> ReceivedRequest::field(std::string_view name) const {
  for (const auto& [fieldName, value] : fields)
    if (strcasecmp(fieldName.c_str(), std::string(name).c_str()) == 0) return value;
  return std::nullopt;
}

Answer Answer::with(std::string name, std::string value) const {
  Answer answer = *this;
  answer.fields.emplace_back(std::move(name), std::move(value));
  return answer;
}

Answer Answer::next(const std::string& uri) const {
  return with("Link", fmt::format("<{}>; rel=\"next\"", uri));
}

Answer Answer::gzipped() const {
  Answer answer = with("Content-Encoding", "gzip");
  answer.body = test::gzipped(body);
  return answer;
}

std::string gzipped(const std::string& bytes) {
  z_stream stream{};
  if (deflateInit2(&stream, 9, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::runtime_error("deflateInit2");
  std::string compressed(deflateBound(&stream, bytes.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(compressed.data());
  stream.avail_out = static_cast<uInt>(compressed.size());
  deflate(&stream, Z_FINISH);
  compressed.resize(stream.total_out);
  deflateEnd(&stream);
  return compressed;
}

class MisbehavingServer::Implementation {
 public:
  explicit Implementation(const std::filesystem::path& certificate)
      : acceptor_(context_, {asio::ip::address_v4::loopback(), 0}) {
    if (!certificate.empty()) {
      tls_.emplace(asio::ssl::context::tls_server);
      tls_->use_certificate_file(certificate, asio::ssl::context::pem);
      tls_->use_private_key_file(certificate.string() + ".key", asio::ssl::context::pem);
    }
    asio::co_spawn(context_, acceptAll(), asio::detached);
    thread_ = std::thread([this] { context_.run(); });
  }

  ~Implementation() {
    context_.stop();
    thread_.join();
  }

  std::string root(const char* host, const std::string& path) const {
    return fmt::format("{}://{}:{}{}", tls_ ? "https" : "http", host, port_, path);
  }

  // Waits until the condition, which is checked while the mutex is held, is true.
  template <class Condition>
  bool waitFor(const Condition& condition) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, patience, condition);
  }

  std::mutex mutex_;  // guards the members that the test's threads use
  std::condition_variable changed_;
  std::map<std::string, Script> scripts_;
  std::vector<ReceivedRequest> requests_;
  std::size_t connectionCount_ = 0;
  std::size_t endedConnectionCount_ = 0;

 private:
  asio::awaitable<void> acceptAll() {
    for (;;) {
      auto [failure, socket] = co_await acceptor_.async_accept(reportingErrors);
      if (!failure) asio::co_spawn(context_, serve(std::move(socket)), asio::detached);
    }
  }

  asio::awaitable<void> serve(tcp::socket socket) {
    counted(connectionCount_);
    if (tls_) {
      asio::ssl::stream<tcp::socket> stream(std::move(socket), *tls_);
      const auto [failure] =
          co_await stream.async_handshake(asio::ssl::stream_base::server, reportingErrors);
      if (!failure) co_await answerAll(stream);
    } else {
      co_await answerAll(socket);
    }
    counted(endedConnectionCount_);
  }

  template <class Stream>
  asio::awaitable<void> answerAll(Stream& socket) {
    std::string received;
    for (;;) {
      const auto [failure, headBytes] = co_await asio::async_read_until(
          socket, asio::dynamic_buffer(received), "\r\n\r\n", reportingErrors);
      if (failure) co_return;
      const Answer answer = answerFor(parsed(std::string_view(received).substr(0, headBytes)));
      received.erase(0, headBytes);
      if (answer.latch) co_await opened(*answer.latch);
      if (!co_await sent(socket, answer)) co_return;
    }
  }

  // Returns whether the connection can serve another request.
  template <class Stream>
  asio::awaitable<bool> sent(Stream& socket, const Answer& answer) {
    const bool complete = answer.ending == Answer::Ending::complete;
    std::string body = framedBody(answer);
    if (!complete) body.resize(std::min(body.size(), answer.sentBodyBytes));
    const std::string bytes = headOf(answer) + body;
    const std::size_t atOnce = bytes.size() - (answer.byTrickles ? body.size() : 0);
    auto [failure, count] =
        co_await asio::async_write(socket, asio::buffer(bytes, atOnce), reportingErrors);
    for (std::size_t i = atOnce, turn = 0; i < bytes.size() && !failure; i += count, ++turn) {
      const std::size_t size = std::min(turn % 80 == 0 ? answer.burstBytes : 1, bytes.size() - i);
      asio::steady_timer timer(context_, std::chrono::milliseconds(50));
      co_await timer.async_wait(reportingErrors);
      std::tie(failure, count) =
          co_await asio::async_write(socket, asio::buffer(&bytes[i], size), reportingErrors);
    }
    boost::system::error_code ignored;
    if (answer.ending == Answer::Ending::reset)
      socket.lowest_layer().set_option(asio::socket_base::linger(true, 0), ignored);
    if (!complete) socket.lowest_layer().close(ignored);
    co_return complete && !failure;
  }

  asio::awaitable<void> opened(Latch& latch) {
    const auto timer =
        std::make_shared<asio::steady_timer>(context_, asio::steady_timer::time_point::max());
    latch.whenOpen([weakTimer = std::weak_ptr(timer)] {
      if (const auto waiting = weakTimer.lock())
        asio::post(waiting->get_executor(), [waiting] { waiting->cancel(); });
    });
    co_await timer->async_wait(reportingErrors);
  }

  void counted(std::size_t& counter) {
    const std::lock_guard lock(mutex_);
    changed_.notify_all();
    ++counter;
  }

  Answer answerFor(const ReceivedRequest& request) {
    Script script;
    {
      const std::lock_guard lock(mutex_);
      const auto entry = scripts_.find(request.path);
      if (entry != scripts_.end()) script = entry->second;
      requests_.push_back(request);
    }
    changed_.notify_all();
    return script ? script(request) : Answer::json(R"({"error": "not found"})", 404);
  }

  std::optional<asio::ssl::context> tls_;
  asio::io_context context_;
  tcp::acceptor acceptor_;
  const unsigned port_ = acceptor_.local_endpoint().port();
  std::thread thread_;
};

MisbehavingServer::MisbehavingServer(const std::filesystem::path& certificate)
    : implementation_(std::make_unique<Implementation>(certificate)) {}
MisbehavingServer::~MisbehavingServer() = default;

void MisbehavingServer::on(const std::string& path, Script script) {
  const std::lock_guard lock(implementation_->mutex_);
  implementation_->scripts_[path] = std::move(script);
}

void MisbehavingServer::on(const std::string& path, Answer answer) {
  on(path, [answer = std::move(answer)](const ReceivedRequest&) { return answer; });
}

void MisbehavingServer::on(const std::string& path, std::vector<Answer> answers) {
  const auto turn = std::make_shared<std::size_t>(0);
  on(path, [answers = std::move(answers), turn](const ReceivedRequest&) {
    return answers[std::min((*turn)++, answers.size() - 1)];
  });
}

std::string MisbehavingServer::root(const std::string& path) const {
  return implementation_->root("127.0.0.1", path);
}

std::string MisbehavingServer::rootByName(const std::string& path) const {
  return implementation_->root("localhost", path);
}

std::string MisbehavingServer::refusingRoot() {
  asio::io_context context;
  const tcp::acceptor briefly(context, {asio::ip::address_v4::loopback(), 0});
  return fmt::format("http://127.0.0.1:{}/1/", briefly.local_endpoint().port());
}

std::vector<ReceivedRequest> MisbehavingServer::requests() const {
  const std::lock_guard lock(implementation_->mutex_);
  return implementation_->requests_;
}

std::vector<ReceivedRequest> MisbehavingServer::requests(const std::string& path) const {
  auto all = requests();
  std::erase_if(all, [&](const auto& request) { return request.path != path; });
  return all;
}

bool MisbehavingServer::waitForRequests(const std::string& path, std::size_t count) const {
  const auto isForPath = [&](const auto& request) { return request.path == path; };
  return implementation_->waitFor([&, &all = implementation_->requests_] {
    return std::count_if(all.begin(), all.end(), isForPath) >= static_cast<std::ptrdiff_t>(count);
  });
}

void MisbehavingServer::forgetRequests() {
  const std::lock_guard lock(implementation_->mutex_);
  implementation_->requests_.clear();
}

std::size_t MisbehavingServer::connectionCount() const {
  const std::lock_guard lock(implementation_->mutex_);
  return implementation_->connectionCount_;
}

bool MisbehavingServer::waitForEndedConnections(std::size_t count) const {
  return implementation_->waitFor([&] { return implementation_->endedConnectionCount_ >= count; });
}

}  // namespace orivanta::test

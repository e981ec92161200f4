#include "Apps/Server/HttpConnection.hpp"

#include <linux/sockios.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <boost/asio/dispatch.hpp>
#include <boost/asio/post.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/serializer.hpp>
#include <boost/beast/http/write.hpp>
#include <exception>
#include <utility>

namespace orivanta::server {

namespace beast = boost::beast;
namespace http = boost::beast::http;
using Clock = std::chrono::steady_clock;
using Phase = ConnectionTable::Phase;

namespace {

// How often the server checks the progress of a response within a rate window.
constexpr unsigned looksPerWindow = 30;

// How often a request is passed to the handler while the handler lacks resources.
constexpr unsigned mostAttempts = 5;
constexpr std::chrono::milliseconds attemptDelay(20);

// How long a response may be computed on another thread, including the time in its queue.
constexpr std::chrono::seconds longestDeferral(30);

std::chrono::milliseconds lookInterval(const ConnectionLimits& limits) {
  return std::max(std::chrono::milliseconds(1), limits.rateWindow / looksPerWindow);
}

std::uint64_t leastInWindow(const ConnectionLimits& limits) {
  return limits.lowestRate * static_cast<std::uint64_t>(limits.rateWindow.count()) / 1000;
}

}  // namespace

ServerContext::ServerContext(RequestHandler answer, const ConnectionLimits& bounds,
                             CrossOrigin allowed)
    : handler(std::move(answer)),
      limits(bounds),
      crossOrigin(std::move(allowed)),
      table(bounds.connections, 2 * lookInterval(bounds), bounds.rateWindow) {}

// A response being sent.
struct HttpConnection::Outgoing {
  explicit Outgoing(WireResponse response) : message(std::move(response)), serializer(message) {}

  WireResponse message;
  http::response_serializer<ResponseBody> serializer;
};

HttpConnection::HttpConnection(boost::asio::ip::tcp::socket socket,
                               std::shared_ptr<ServerContext> context, bool fromTrustedProxy)
    : stream_(std::move(socket)),
      context_(std::move(context)),
      fromTrustedProxy_(fromTrustedProxy),
      rateTimer_(stream_.get_executor()) {}

HttpConnection::~HttpConnection() {
  if (place_) context_->table.leave(*place_);
}

void HttpConnection::start() {
  place_ = context_->table.enter(Clock::now(), [weak = weak_from_this()] {
    if (auto self = weak.lock()) {
      const auto executor = self->stream_.get_executor();
      boost::asio::post(executor, [self = std::move(self)] { self->closeForAnother(); });
    }
  });
  boost::asio::dispatch(stream_.get_executor(),
                        [self = shared_from_this()] { self->readHeader(); });
}

// Returns false if the connection must end.
bool HttpConnection::enter(Phase phase) {
  phase_ = phase;
  return context_->table.update(*place_, phase, Clock::now());
}

void HttpConnection::closeForAnother() { phase_ == Phase::sending ? cutOff() : stream_.close(); }

void HttpConnection::awaitRequest() {
  if (!enter(Phase::idle)) return;
  if (buffer_.size() > 0) return readHeader();
  stream_.expires_after(context_->limits.idleTime);
  stream_.async_read_some(buffer_.prepare(4096),
                          [self = shared_from_this()](const Error& error, std::size_t count) {
                            if (error) return;
                            self->buffer_.commit(count);
                            self->readHeader();
                          });
}

void HttpConnection::readHeader() {
  parser_.emplace();
  parser_->header_limit(context_->limits.headerBytes);
  parser_->body_limit(context_->limits.bodyBytes);
  stream_.expires_after(context_->limits.requestTime);  // partial data does not extend the time
  http::async_read_header(
      stream_, buffer_, *parser_,
      [self = shared_from_this()](const Error& error, std::size_t) { self->headerRead(error); });
}

void HttpConnection::headerRead(const Error& error) {
  if (error) return requestUnread(error);
  if (auto refusal = refusalOf(parser_->get().base())) return refuse(std::move(*refusal));
  if (parser_->is_done()) return answer();
  http::async_read(stream_, buffer_, *parser_,
                   [self = shared_from_this()](const Error& failure, std::size_t) {
                     failure ? self->requestUnread(failure) : self->answer();
                   });
}

void HttpConnection::requestUnread(const Error& error) {
  if (error == http::error::end_of_stream || error == http::error::partial_message) return finish();
  if (error.category() == make_error_code(http::error::end_of_stream).category())
    refuse(unreadableResponse(error));
}

void HttpConnection::answer() {
  if (!enter(Phase::working)) return;
  Response response;
  try {
    const Request request = requestFrom(parser_->get(), fromTrustedProxy_);
    if (auto preflight = context_->crossOrigin.preflight(request))
      return respond(std::move(*preflight));
    response = context_->handler(request);
    if (response.deferred) return answerDeferred(std::move(response));
    if (response.status == 503 && ++attempts_ < mostAttempts) return answerLater();
  } catch (...) {
    computing_ = nullptr;
    return respond(errorResponse(500, "An internal error occurred."));
  }
  respond(std::move(response));
}

void HttpConnection::respond(Response response) {
  const auto& request = parser_->get();
  const bool keepAlive = request.keep_alive() && response.status != 500;
  std::shared_ptr<Outgoing> sent;
  try {
    sent = outgoing(std::move(response), request.version(), keepAlive);
  } catch (...) {
    sent = outgoing(errorResponse(500, "An internal error occurred."), request.version(), false);
  }
  send(std::move(sent));
}

// If the request could not be read, its Origin header may be missing.
std::shared_ptr<HttpConnection::Outgoing> HttpConnection::outgoing(Response response,
                                                                   unsigned version,
                                                                   bool keepAlive) const {
  context_->crossOrigin.addHeaders(originOf(parser_->get()), response);
  return std::make_shared<Outgoing>(messageFrom(std::move(response), version, keepAlive));
}

// The callback holds no reference, because it may be destroyed after the socket's context.
void HttpConnection::answerDeferred(Response response) {
  computing_ = std::make_shared<boost::asio::steady_timer>(stream_.get_executor(), longestDeferral);
  computing_->async_wait([self = shared_from_this(), timer = computing_](const Error& error) {
    if (error || self->computing_ != timer) return;
    self->computing_ = nullptr;
    self->respond(unavailableResponse("The response could not be computed in time."));
  });
  stream_.expires_never();
  response.deferred([weak = weak_from_this(), timer = std::weak_ptr(computing_)](Response result) {
    const auto self = weak.lock();
    if (!self) return;
    const auto executor = self->stream_.get_executor();
    boost::asio::post(executor, [weak, timer, result = std::move(result)]() mutable {
      const auto connection = weak.lock();
      if (!connection || timer.expired() || connection->computing_ != timer.lock()) return;
      std::exchange(connection->computing_, nullptr)->cancel();
      connection->respond(std::move(result));
    });
  });
}

// Slow clients may be holding the missing resources: file descriptors or memory.
void HttpConnection::answerLater() {
  context_->table.closeSender(Clock::now());
  const auto timer =
      std::make_shared<boost::asio::steady_timer>(stream_.get_executor(), attemptDelay);
  timer->async_wait([self = shared_from_this(), timer](const Error&) { self->answer(); });
}

void HttpConnection::refuse(Response response) {
  if (!enter(Phase::working)) return;
  send(outgoing(std::move(response), 11, false));
}

void HttpConnection::send(std::shared_ptr<Outgoing> outgoing) {
  attempts_ = 0;
  enter(Phase::sending);
  recordProgress();
  startRateWindow();
  watchRate();
  stream_.expires_never();
  write(std::move(outgoing));
}

void HttpConnection::write(std::shared_ptr<Outgoing> outgoing) {
  auto& serializer = outgoing->serializer;
  http::async_write_some(stream_, serializer,
                         [self = shared_from_this(), outgoing = std::move(outgoing)](
                             const Error& error, std::size_t count) mutable {
                           if (error) return;
                           self->writtenBytes_ += count;
                           if (!outgoing->serializer.is_done())
                             return self->write(std::move(outgoing));
                           outgoing->message.keep_alive() ? self->awaitRequest() : self->finish();
                         });
}

void HttpConnection::recordProgress() {
  const std::uint64_t taken = takenBytes();
  if (taken > takenBefore_) context_->table.progress(*place_, taken - takenBefore_, Clock::now());
  takenBefore_ = taken;
}

void HttpConnection::startRateWindow() {
  takenAtWindowStart_ = takenBefore_;
  looksInWindow_ = 0;
}

// The timer does not keep the connection alive.
void HttpConnection::watchRate() {
  if (std::exchange(watchesRate_, true)) return;
  rateTimer_.expires_after(lookInterval(context_->limits));
  rateTimer_.async_wait([weak = weak_from_this()](const Error& error) {
    if (const auto self = weak.lock(); self && !error) self->judgeRate();
  });
}

void HttpConnection::judgeRate() {
  watchesRate_ = false;
  if (phase_ != Phase::sending) return;
  recordProgress();
  if (++looksInWindow_ == looksPerWindow) {
    if (takenBefore_ - takenAtWindowStart_ < leastInWindow(context_->limits)) return cutOff();
    startRateWindow();
  }
  watchRate();
}

// Counts the bytes that the client's system has acknowledged; written bytes may still be queued
// here.
std::uint64_t HttpConnection::takenBytes() {
  int waiting = 0;
  if (::ioctl(stream_.socket().native_handle(), SIOCOUTQ, &waiting) != 0) return writtenBytes_;
  return writtenBytes_ - std::min(writtenBytes_, static_cast<std::uint64_t>(waiting));
}

// Without this option, the system would keep sending the queued data.
void HttpConnection::cutOff() {
  Error ignored;
  stream_.socket().set_option(boost::asio::socket_base::linger(true, 0), ignored);
  stream_.close();
}

// Closing while the client still sends would reset the connection and could lose the response, so
// incoming data is read for a short time.
void HttpConnection::finish() {
  if (!enter(Phase::idle)) return;
  Error ignored;
  stream_.socket().shutdown(boost::asio::socket_base::shutdown_send, ignored);
  buffer_.clear();
  stream_.expires_after(
      std::min<std::chrono::milliseconds>(context_->limits.idleTime, std::chrono::seconds(2)));
  discardRest();
}

void HttpConnection::discardRest() {
  stream_.async_read_some(buffer_.prepare(4096),
                          [self = shared_from_this()](const Error& error, std::size_t) {
                            if (!error) self->discardRest();
                          });
}

}  // namespace orivanta::server

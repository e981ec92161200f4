#include "Platform/Network/Curl/CurlLoop.hpp"

#include <curl/curl.h>
#include <pthread.h>
#include <strings.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <string_view>
#include <utility>

namespace orivanta::network {

namespace {

constexpr std::size_t largestBodyBytes = 512U << 20U;
constexpr long mostRedirects = 20;
constexpr long connectSeconds = 60;
constexpr std::size_t keptIdleHandles = 16;

foundation::Error curlError(int code, const char* detail) {
  const char* text = curl_easy_strerror(static_cast<CURLcode>(code));
  return {"curl", code, detail != nullptr && *detail != '\0' ? detail : text};
}

// Signals belong to the application's threads. In particular, a SIGPIPE from a closed connection
// must not end the program.
void blockSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

// Formats a header line. libcurl requires a semicolon after the name for an empty value; with a
// colon it would remove the header.
std::string headerLine(const std::string& name, const std::string& value) {
  return value.empty() ? name + ";" : name + ": " + value;
}

}  // namespace

// Once the transfer is pending, only the loop's thread uses the members other than `canceled_`.
class CurlLoop::Transfer : public std::enable_shared_from_this<Transfer> {
 public:
  Transfer(CurlLoop& loop, UrlRequest request, UrlTransport::Completion completed)
      : loop_(loop), request_(std::move(request)), completed_(std::move(completed)) {
    if (const auto& budget = request_.rules.budget)
      answer_.share = std::make_shared<foundation::BudgetShare>(budget);
  }

  // Call before the transfer is pending.
  void followCancellation() {
    registration_ = request_.cancellation.onCancel([weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->cancel();
    });
  }

  void cancel() {
    canceled_ = true;
    loop_.cancel(shared_from_this());
  }

 private:
  friend class CurlLoop;
  using Clock = std::chrono::steady_clock;

  static std::size_t receiveBody(char* bytes, std::size_t, std::size_t count, void* context) {
    auto& self = *static_cast<Transfer*>(context);
    UrlAnswer& answer = self.answer_;
    if (count > largestBodyBytes - answer.body.size()) return 0;
    return self.received(count, [&] {
      // Counted twice, because both copies exist while the text is moved to a larger buffer.
      if (answer.share) answer.share->take(2 * count);
      answer.body.append(bytes, count);
    });
  }

  // Called for each header line of each response, including redirects.
  static std::size_t receiveHeader(char* bytes, std::size_t, std::size_t count, void* context) {
    std::string_view line(bytes, count);
    while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back())))
      line.remove_suffix(1);
    auto& self = *static_cast<Transfer*>(context);
    return self.received(count, [&] { self.receiveLine(line); });
  }

  // Counts and stores received bytes. No exception may pass through libcurl.
  template <class Keep>
  std::size_t received(std::size_t count, Keep keep) {
    if (!windowStart_) windowStart_ = Clock::now();
    windowBytes_ += count;
    try {
      keep();
    } catch (const std::exception& failure) {
      error_ = foundation::memoryError(failure);
      return 0;
    }
    return count;
  }

  // Called at least once a second. The first window begins with the first bytes of a response.
  // Before that, and again while a redirect is followed, only libcurl's limits apply.
  static int judgeRate(void* context, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& self = *static_cast<Transfer*>(context);
    long redirects = 0;
    curl_easy_getinfo(self.handle_, CURLINFO_REDIRECT_COUNT, &redirects);
    if (std::exchange(self.redirects_, redirects) != redirects) self.windowStart_.reset();
    const LowestRate& rate = self.request_.rules.lowestRate;
    const auto window = std::max(rate.window, std::chrono::seconds(1));
    if (self.windowStart_ && Clock::now() - *self.windowStart_ < window) return 0;
    const std::uint64_t bytes = std::exchange(self.windowBytes_, 0);
    if (!self.windowStart_) return 0;
    self.windowStart_ = Clock::now();
    self.isTooSlow_ = bytes / static_cast<std::uint64_t>(window.count()) < rate.bytesPerSecond;
    return self.isTooSlow_ ? 1 : 0;
  }

  // A status line begins a new response, and an empty line ends its headers. Trailers after the
  // body of a chunked response are ignored.
  void receiveLine(std::string_view line) {
    auto& fields = answer_.response.headerFields;
    const std::size_t colon = line.find(':');
    if (line.starts_with("HTTP/")) {
      fields.clear();
      headComplete_ = false;
      if (request_.rules.staysSecure) keepToHttps();
    } else if (line.empty()) {
      headComplete_ = true;
    } else if (colon != std::string_view::npos && !headComplete_) {
      std::string_view value = line.substr(colon + 1);
      while (!value.empty() && (value.front() == ' ' || value.front() == '\t'))
        value.remove_prefix(1);
      if (answer_.share) answer_.share->take(sizeof(fields[0]) + line.size());
      fields.emplace_back(line.substr(0, colon), value);
    }
  }

  // Called when a response begins. After an HTTPS response, only redirects to HTTPS are followed.
  void keepToHttps() {
    answer_.response.url = currentUrl();
    if (strncasecmp(effectiveUrl(), "https:", 6) == 0)
      curl_easy_setopt(handle_, CURLOPT_REDIR_PROTOCOLS_STR, "https");
  }

  // The URL as libcurl parses it, which is less strict than `Url`.
  const char* effectiveUrl() const {
    const char* text = nullptr;
    curl_easy_getinfo(handle_, CURLINFO_EFFECTIVE_URL, &text);
    return text == nullptr ? "" : text;
  }

  std::optional<foundation::Url> currentUrl() const {
    const auto url = foundation::Url::parse(effectiveUrl());
    return url ? std::optional(url->withoutCredentials()) : std::nullopt;
  }

  foundation::Error errorOf(int outcome) const;

  // libcurl would interpret a reference without a scheme or a host as a host name and send the
  // credentials there.
  bool namesHost() const { return request_.url.isAbsolute() && !request_.url.host().empty(); }

  void setOptions();

  CurlLoop& loop_;
  UrlRequest request_;
  UrlTransport::Completion completed_;
  std::atomic<bool> canceled_ = false;
  foundation::CancellationRegistration registration_;
  UrlAnswer answer_;
  std::optional<foundation::Error> error_;
  CURL* handle_ = nullptr;
  curl_slist* headerList_ = nullptr;
  bool headComplete_ = false;

  // Bytes received, headers and body, since the rate was last checked.
  std::optional<Clock::time_point> windowStart_;
  std::uint64_t windowBytes_ = 0;
  long redirects_ = 0;
  bool isTooSlow_ = false;

  char errorText_[CURL_ERROR_SIZE] = {};
};

CurlLoop& CurlLoop::shared() {
  static auto& instance = *new CurlLoop;
  return instance;
}

CurlLoop::CurlLoop() {
  curl_global_init(CURL_GLOBAL_DEFAULT);
  multi_ = curl_multi_init();
  if (multi_ == nullptr) std::abort();
  curl_multi_setopt(multi_, CURLMOPT_PIPELINING, CURLPIPE_MULTIPLEX);
  curl_multi_setopt(multi_, CURLMOPT_MAXCONNECTS, 32L);
  thread_ = std::thread([this] { run(); });
}

void CurlLoop::start(UrlRequest request, UrlTransport::Completion completed) {
  auto transfer = std::make_shared<Transfer>(*this, std::move(request), std::move(completed));
  transfer->followCancellation();
  {
    const std::lock_guard lock(mutex_);
    pending_.push_back(std::move(transfer));
  }
  curl_multi_wakeup(multi_);
}

void CurlLoop::cancel(std::shared_ptr<Transfer> transfer) {
  {
    const std::lock_guard lock(mutex_);
    canceled_.push_back(std::move(transfer));
  }
  curl_multi_wakeup(multi_);
}

void CurlLoop::run() {
  blockSignals();
  for (;;) {
    startPending();
    stopCanceled();
    int runningCount = 0;
    curl_multi_perform(multi_, &runningCount);
    finishCompleted();
    curl_multi_poll(multi_, nullptr, 0, 60'000, nullptr);
  }
}

void CurlLoop::startPending() {
  std::vector<std::shared_ptr<Transfer>> starting;
  {
    const std::lock_guard lock(mutex_);
    starting.swap(pending_);
  }
  for (const auto& transfer : starting)
    if (!transfer->canceled_) begin(transfer);
}

void CurlLoop::stopCanceled() {
  std::vector<std::shared_ptr<Transfer>> stopping;
  {
    const std::lock_guard lock(mutex_);
    stopping.swap(canceled_);
  }
  for (const auto& transfer : stopping)
    if (running_.erase(transfer) > 0) release(*transfer);
}

void CurlLoop::finishCompleted() {
  int remaining = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi_, &remaining)) {
    if (message->msg != CURLMSG_DONE) continue;
    void* context = nullptr;
    curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &context);
    finish(*static_cast<Transfer*>(context), message->data.result);
  }
}

CURL* CurlLoop::takeHandle() {
  if (idleHandles_.empty()) return curl_easy_init();
  CURL* handle = idleHandles_.back();
  idleHandles_.pop_back();
  return handle;
}

void CurlLoop::begin(const std::shared_ptr<Transfer>& transfer) {
  const auto fail = [&](int code) {
    transfer->completed_(foundation::failure(curlError(code, nullptr)));
    transfer->completed_ = nullptr;
  };
  if (!transfer->namesHost()) return fail(CURLE_URL_MALFORMAT);
  transfer->handle_ = takeHandle();
  if (transfer->handle_ == nullptr) return fail(CURLE_OUT_OF_MEMORY);
  transfer->setOptions();
  if (curl_multi_add_handle(multi_, transfer->handle_) == CURLM_OK) {
    running_.insert(transfer);
  } else {
    release(*transfer);
    fail(CURLE_FAILED_INIT);
  }
}

void CurlLoop::Transfer::setOptions() {
  for (const auto& [name, value] : request_.headerFields)
    headerList_ = curl_slist_append(headerList_, headerLine(name, value).c_str());
  // Set explicitly instead of with CURLOPT_ACCEPT_ENCODING: the body is inflated on another thread,
  // so that this one can serve the other transfers.
  headerList_ = curl_slist_append(headerList_, "Accept-Encoding: gzip");

  curl_easy_setopt(handle_, CURLOPT_URL, request_.url.absoluteString().c_str());
  curl_easy_setopt(handle_, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle_, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
  curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, headerList_);
  curl_easy_setopt(handle_, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(handle_, CURLOPT_MAXREDIRS, mostRedirects);
  curl_easy_setopt(handle_, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(largestBodyBytes));
  curl_easy_setopt(handle_, CURLOPT_CONNECTTIMEOUT, connectSeconds);
  const LowestRate& rate = request_.rules.lowestRate;
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_LIMIT, static_cast<long>(rate.bytesPerSecond));
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_TIME, static_cast<long>(rate.window.count()));
  curl_easy_setopt(handle_, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(handle_, CURLOPT_XFERINFOFUNCTION, &Transfer::judgeRate);
  curl_easy_setopt(handle_, CURLOPT_XFERINFODATA, this);
  const char* certificates = std::getenv("SSL_CERT_FILE");
  if (certificates != nullptr && *certificates != '\0')
    curl_easy_setopt(handle_, CURLOPT_CAINFO, certificates);
  curl_easy_setopt(handle_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle_, CURLOPT_ERRORBUFFER, errorText_);
  curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, &Transfer::receiveBody);
  curl_easy_setopt(handle_, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(handle_, CURLOPT_HEADERFUNCTION, &Transfer::receiveHeader);
  curl_easy_setopt(handle_, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(handle_, CURLOPT_PRIVATE, this);
}

foundation::Error CurlLoop::Transfer::errorOf(int outcome) const {
  const auto& answered = answer_.response.url;
  const auto refused = currentUrl();
  if (outcome == CURLE_UNSUPPORTED_PROTOCOL && answered && refused &&
      leavesHttps(*answered, *refused))
    return insecureStep(*answered, *refused);
  if (isTooSlow_) {
    const LowestRate& rate = request_.rules.lowestRate;
    return {"curl", CURLE_OPERATION_TIMEDOUT,
            "Operation too slow. Less than " + std::to_string(rate.bytesPerSecond) +
                " bytes/sec transferred the last " + std::to_string(rate.window.count()) +
                " seconds"};
  }
  return curlError(outcome, errorText_);
}

void CurlLoop::finish(Transfer& transfer, int outcome) {
  const std::shared_ptr<Transfer> owner = transfer.shared_from_this();
  if (outcome != CURLE_OK && !transfer.error_) transfer.error_ = transfer.errorOf(outcome);
  long status = 0;
  curl_easy_getinfo(transfer.handle_, CURLINFO_RESPONSE_CODE, &status);
  transfer.answer_.response.statusCode = static_cast<int>(status);
  transfer.answer_.response.url = transfer.currentUrl();
  release(transfer);
  running_.erase(owner);
  if (!transfer.canceled_)
    transfer.completed_(transfer.error_
                            ? UrlResult(foundation::failure(std::move(*transfer.error_)))
                            : UrlResult(std::move(transfer.answer_)));
  transfer.completed_ = nullptr;
}

void CurlLoop::release(Transfer& transfer) {
  curl_multi_remove_handle(multi_, transfer.handle_);
  curl_easy_reset(transfer.handle_);  // keeps connections and the session cache
  if (idleHandles_.size() < keptIdleHandles)
    idleHandles_.push_back(transfer.handle_);
  else
    curl_easy_cleanup(transfer.handle_);
  transfer.handle_ = nullptr;
  curl_slist_free_all(transfer.headerList_);
  transfer.headerList_ = nullptr;
}

}  // namespace orivanta::network

#include "Source/UI/Floors/FileRequest.hpp"

#include <fmt/format.h>

#include <exception>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Network/ContentDecoding.hpp"
#include "Platform/Network/DefaultTransport.hpp"
#include "Source/CacheNames.hpp"

namespace orivanta {

namespace {

using network::UrlResult;

// Web pages and JSON begin like this; models, material libraries and pictures do not.
bool isErrorPage(std::string_view body) {
  const std::size_t first = body.find_first_not_of(" \t\r\n\v\f");
  return first != std::string_view::npos && (body[first] == '<' || body[first] == '{');
}

// Describes what is wrong with a response; follows the URL. Empty if the response is valid.
std::string flawOf(const UrlResult& result) {
  if (!result) return fmt::format("cannot be fetched: {}", result.error().description);
  if (const int status = result->response.statusCode; status < 200 || status > 299)
    return fmt::format("returned HTTP status {}", status);
  if (result->body.empty()) return "returned an empty response";
  return isErrorPage(result->body) ? "returned an error page instead of the file" : "";
}

// Returns whether the problem may be temporary.
bool isPassing(const UrlResult& result) {
  if (!result) return true;
  const int status = result->response.statusCode;
  return status < 300 || status == 408 || status == 429 || status >= 500;
}

}  // namespace

void FileRequest::start(Order order, HttpDownloader::FetchCompletion completion) {
  const std::shared_ptr<FileRequest> request(
      new FileRequest(std::move(order), std::move(completion)));
  request->registration_ = request->order_.cancellation.onCancel([weak = std::weak_ptr(request)] {
    HttpDownloader::FetchCompletion discarded;
    if (const auto self = weak.lock()) discarded = self->takeCompletion();
  });
  request->onQueue(&FileRequest::ask);
}

FileRequest::FileRequest(Order order, HttpDownloader::FetchCompletion completion)
    : order_(std::move(order)),
      queue_(foundation::SerialQueue::make()),
      completion_(std::move(completion)) {}

void FileRequest::onQueue(void (FileRequest::*step)()) {
  queue_->async([self = shared_from_this(), step] {
    if (self->order_.cancellation.isCanceled()) return;
    try {
      (*self.*step)();
    } catch (const std::exception& exception) {
      self->end(foundation::failure(
          "fetch", 0, fmt::format("{}: {}", self->order_.url.absoluteString(), exception.what())));
    }
  });
}

void FileRequest::ask() {
  const foundation::Url& url = order_.url;
  if (defaultPort(url).empty()) return end(failed("is not an http or https URL"));
  if (!foundation::cachesDirectory()) return end(failed("cannot be cached: HOME is not set"));
  kept_.emplace(KeptFile::of(url, order_.folder));
  condition_ = kept_->conditionFor(url);
  network::TransferRules rules = network::strictRules();
  rules.budget = std::make_shared<foundation::MemoryBudget>(HttpDownloader::mostFetchBytes);
  network::orDefault(order_.transport)
      ->start({url, condition_.value_or(network::HeaderFields{}), std::move(rules),
               order_.cancellation},
              [self = shared_from_this()](UrlResult result) {
                self->result_ = std::move(result);
                self->onQueue(&FileRequest::receive);
              });
}

void FileRequest::receive() {
  Outcome outcome = outcomeOf(*std::exchange(result_, std::nullopt));
  end(std::move(outcome));  // the body has been released
}

FileRequest::Outcome FileRequest::outcomeOf(UrlResult result) const {
  result = network::decoded(std::move(result));
  const std::string path = kept_->path().string();
  if (condition_ && !condition_->empty() && result && result->response.statusCode == 304) {
    foundation::diagnostic(fmt::format("file has not changed [{}]", path));
    return HttpDownloader::Fetched{path};
  }
  std::string flaw = flawOf(result);
  if (flaw.empty()) {
    const auto written = kept_->save(order_.url, result->response, result->body);
    foundation::diagnostic(written ? fmt::format("file saved [{}]", path) : "error saving file");
    if (written) return HttpDownloader::Fetched{path};
    flaw = fmt::format("cannot be cached: {}", written.error().description);
  }
  if (!condition_ || !isPassing(result)) return failed(flaw);
  std::string remark =
      fmt::format("{} {}; the cached copy is used", order_.url.absoluteString(), flaw);
  foundation::diagnostic(remark);
  return HttpDownloader::Fetched{path, std::move(remark)};
}

FileRequest::Outcome FileRequest::failed(const std::string& flaw) const {
  return foundation::failure("fetch", 0, fmt::format("{} {}", order_.url.absoluteString(), flaw));
}

HttpDownloader::FetchCompletion FileRequest::takeCompletion() {
  const std::lock_guard lock(mutex_);
  return std::exchange(completion_, nullptr);
}

void FileRequest::end(Outcome outcome) {
  if (const auto completion = takeCompletion()) completion(std::move(outcome));
}

}  // namespace orivanta

// Authenticated GET requests for paged JSON collections.
//
//   session.get("node", {{"venue", slug}})
//       .onPage(Nodes(), [](Nodes nodes, const RawData& page) { ...; return nodes; })
//       .onComplete([](Nodes nodes) { ... })
//       .onError([](const foundation::Error& error) { ... });
//
// A request chain runs from its first page to the last: as long as a response carries a `Link`
// header with the relation "next", the page that it names is requested too, and each page is folded
// into an accumulator. A link that leads back to an earlier page is followed like any other, so a
// server can keep a chain running for ever; whoever started it ends it by invalidating the session.
//
// A `Link` header with a parameter that is a single quote stops the program; see HttpLink.hpp.
//
// The HTTP status plays no part: any body that is JSON is a page. The chain's callbacks run on a
// background queue of the chain's own, one after the other, never on the caller's thread.
#pragma once

#include <any>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlSession.hpp"
#include "Source/Fwd.hpp"
#include "Source/RawData.hpp"

namespace orivanta {

/// Collects the bytes of the current request and reports how it ended.
class ORIVANTA_API CustomUrlSessionDelegate : public network::UrlSessionDelegate {
 public:
  /// The body is the delegate's own buffer: what is to outlive the call is copied.
  using SuccessCallback = std::function<void(const network::HttpUrlResponse&, std::string& body)>;
  using ErrorCallback = std::function<void(const foundation::Error&)>;

  CustomUrlSessionDelegate(SuccessCallback success, ErrorCallback error);

  SuccessCallback onSuccess;
  ErrorCallback onError;
  std::string buffer;  ///< cleared, not reallocated, between the pages of a chain

  void didReceiveData(std::string_view bytes) override;
  void didComplete(const network::HttpUrlResponse& response,
                   const std::optional<foundation::Error>& error) override;
};

namespace detail {

/// Holds a session's reports back from the start of a chain until the last handle to the chain is
/// gone, so that an answer that comes at once still finds every callback in place.
class DeliveryHold {
 public:
  explicit DeliveryHold(std::shared_ptr<network::UrlSession> session);
  ~DeliveryHold();
  DeliveryHold(const DeliveryHold&) = delete;
  DeliveryHold& operator=(const DeliveryHold&) = delete;

 private:
  std::shared_ptr<network::UrlSession> session_;
};

/// The part of a handle that does not depend on the accumulator's type.
struct ChainLinks {
  std::shared_ptr<network::UrlSession> session;
  std::shared_ptr<CustomUrlSessionDelegate> sessionDelegate;
};

ORIVANTA_API std::optional<foundation::Url> nextPage(const network::HttpUrlResponse& response);
ORIVANTA_API foundation::Error invalidJson();
/// As `RawData::parse`; the budget pays for the document as long as anybody holds it.
ORIVANTA_API std::optional<RawData> parsedPage(
    std::string_view body, const std::shared_ptr<foundation::MemoryBudget>& budget);

}  // namespace detail

/// A handle to one request chain whose pages are folded into a `T`. Copies refer to the same chain.
/// While any handle exists the chain's results wait; in the usual form, one expression, it is
/// complete when the expression ends.
template <class T>
class HttpResponse {
 public:
  using PageCallback = std::function<T(T accumulated, const RawData& page)>;
  using CompleteCallback = std::function<void(T accumulated)>;
  using ErrorCallback = std::function<void(const foundation::Error&)>;
  using ResponseCallback =
      std::function<void(const network::HttpUrlResponse& response, std::size_t bodyBytes)>;

  /// For `HttpSession`: the handle to a chain just started.
  HttpResponse(detail::ChainLinks links, std::shared_ptr<detail::DeliveryHold> hold)
      : links_(std::move(links)),
        state_(std::make_shared<State>(links_.session)),
        hold_(std::move(hold)) {
    adopt();
  }

  /// Moves the chain to an accumulator of type `U`. Handles of the former type keep the results
  /// waiting, but receive nothing any more.
  template <class U>
  HttpResponse<U> onPage(U initial, typename HttpResponse<U>::PageCallback callback) const {
    HttpResponse<U> response(links_, hold_);
    response.state_->pageBuffer = std::move(initial);
    response.state_->pageCallback = std::move(callback);
    return response;
  }

  /// Receives the accumulator once, after the last page.
  const HttpResponse& onComplete(CompleteCallback callback) const {
    state_->completeCallback = std::move(callback);
    return *this;
  }

  /// Receives the error that ended the chain: the transport's own, domain "" and code 1 for a body
  /// that is no JSON, or domain "memory" if a page does not fit into memory (code 1) or into the
  /// budget (code 2, or 3 if another chain has exceeded it before). `onComplete` is not called
  /// then.
  const HttpResponse& onError(ErrorCallback callback) const {
    state_->errorCallback = std::move(callback);
    return *this;
  }

  /// Receives the head of every response before its body is read, whatever its status.
  const HttpResponse& onResponse(ResponseCallback callback) const {
    state_->responseCallback = std::move(callback);
    return *this;
  }

  /// The session that runs the chain; `invalidateAndCancel` on it ends the chain without a
  /// callback.
  const std::shared_ptr<network::UrlSession>& session() const { return links_.session; }

 private:
  template <class U>
  friend class HttpResponse;

  // Kept alive by the delegate's callbacks, and so by the session until that is invalidated. It
  // must not own the delegate, or the two would keep each other.
  struct State {
    explicit State(std::shared_ptr<network::UrlSession> chainSession)
        : session(std::move(chainSession)) {}

    std::shared_ptr<network::UrlSession> session;
    PageCallback pageCallback;
    CompleteCallback completeCallback;
    ErrorCallback errorCallback;
    ResponseCallback responseCallback;
    std::optional<T> pageBuffer;

    void success(const network::HttpUrlResponse& response, std::string& body);
    void error(const foundation::Error& failure);
    std::optional<T> takePage(const network::HttpUrlResponse& response, std::string& body);
    void foldPage(const RawData& page);
  };

  void adopt() {
    auto& delegate = *links_.sessionDelegate;
    delegate.onSuccess = [state = state_](const network::HttpUrlResponse& response,
                                          std::string& body) { state->success(response, body); };
    delegate.onError = [state = state_](const foundation::Error& failure) {
      state->error(failure);
    };
  }

  detail::ChainLinks links_;
  std::shared_ptr<State> state_;
  std::shared_ptr<detail::DeliveryHold> hold_;
};

/// The API root, the credentials and the language of all requests. Immutable; any thread.
class ORIVANTA_API HttpSession {
 public:
  /// A root that is no URL leaves requests without a base. An absent user name, password or
  /// language stops the program.
  HttpSession(std::string_view rootText, const std::optional<std::string>& username,
              const std::optional<std::string>& password,
              const std::optional<std::string>& languages);

  const std::optional<foundation::Url> root;
  const std::string authString;  ///< the value of "Authorization"
  const std::string language;    ///< the value of "Accept-Language"

  /// Starts a request for `path`, resolved against the root, with the parameters as its query. A
  /// path that is no URL reference stops the program. The bodies of all pages and their documents
  /// are paid for by `budget`, if there is one.
  HttpResponse<std::any> get(std::string_view path, const Dictionary<std::string>& parameters = {},
                             std::shared_ptr<foundation::MemoryBudget> budget = nullptr) const;

  /// The same GET request without a query and without a body, whatever the parameters.
  HttpResponse<std::any> post(std::string_view path,
                              const Dictionary<std::string>& parameters = {}) const;

 private:
  HttpResponse<std::any> start(const foundation::Url& url,
                               std::shared_ptr<foundation::MemoryBudget> budget = nullptr) const;
  foundation::Url resolved(std::string_view path) const;
};

template <class T>
void HttpResponse<T>::State::success(const network::HttpUrlResponse& response, std::string& body) {
  if (responseCallback) responseCallback(response, body.size());
  std::optional<T> finished;
  try {
    finished = takePage(response, body);
  } catch (const std::bad_alloc& failure) {
    return error(foundation::memoryError(failure));
  } catch (const std::length_error& failure) {
    return error(foundation::memoryError(failure));
  }
  if (finished && completeCallback) completeCallback(std::move(*finished));
}

// The accumulator when this was the last page.
template <class T>
std::optional<T> HttpResponse<T>::State::takePage(const network::HttpUrlResponse& response,
                                                  std::string& body) {
  const auto page = detail::parsedPage(body, session->configuration().budget);
  if (!page) {
    error(detail::invalidJson());
    return std::nullopt;
  }
  const auto next = detail::nextPage(response);
  body.clear();
  if (next) {
    session->startDataTask(*next);  // fetched while this page is folded
    foldPage(*page);
    return std::nullopt;
  }
  if (!pageBuffer || !pageCallback) return std::nullopt;
  session->invalidateAndCancel();
  return std::optional<T>(pageCallback(std::move(*pageBuffer), *page));
}

template <class T>
void HttpResponse<T>::State::error(const foundation::Error& failure) {
  session->invalidateAndCancel();
  if (errorCallback) errorCallback(failure);
}

template <class T>
void HttpResponse<T>::State::foldPage(const RawData& page) {
  if (!pageBuffer) return;
  if (pageCallback)
    pageBuffer = pageCallback(std::move(*pageBuffer), page);
  else
    pageBuffer.reset();
}

}  // namespace orivanta

// Authenticated GET requests for paged JSON collections.
//
//   session.get("node", {{"venue", slug}})
//       .onPage(Nodes(), [](Nodes nodes, const RawData& page) { ...; return nodes; })
//       .onComplete([](Nodes nodes) { ... })
//       .onError([](const foundation::Error& error) { ... });
//
// A request chain consists of the requests for the pages of one collection. If a response has a
// `Link` header with the relation "next", the page that it names is requested, and each page is
// folded into an accumulator. A link to an earlier page is followed like any other, so a server can
// keep a chain running forever. To end such a chain, invalidate its session.
//
// A `Link` header with a parameter whose value is a single quote stops the program; see
// HttpLink.hpp.
//
// The HTTP status is ignored: any body that is valid JSON is a page. Each chain has a background
// queue, on which its callbacks run one after the other, never on the caller's thread. Callbacks
// may block, for example to wait for another chain, without delaying other chains; see
// SerialQueue.hpp for the limit.
#pragma once

#include <any>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlSession.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/RawData.hpp"

namespace orivanta {

/// Collects the body of the current request and reports its result.
class ORIVANTA_API CustomUrlSessionDelegate : public network::UrlSessionDelegate {
 public:
  /// `body` is the delegate's buffer; copy what must remain valid after the call.
  using SuccessCallback = std::function<void(const network::HttpUrlResponse&, std::string& body)>;

  /// Receives the error that ended a request.
  using ErrorCallback = std::function<void(const foundation::Error&)>;

  /// Creates a delegate with these callbacks, each of which may be empty.
  CustomUrlSessionDelegate(SuccessCallback success, ErrorCallback error);

  SuccessCallback onSuccess;  ///< called for each complete body
  ErrorCallback onError;      ///< called for each error
  std::string buffer;         ///< cleared, not reallocated, between the pages of a chain

  void didReceiveData(std::string_view bytes) override;
  void didComplete(const network::HttpUrlResponse& response,
                   const std::optional<foundation::Error>& error) override;
  /// Reports the error if there is one.
  void didBecomeInvalid(const std::optional<foundation::Error>& error) override;
  /// Writes the diagnostic line "finishedeventsforbackgroundsession".
  void didFinishBackgroundEvents() override;
};

namespace detail {

/// Suspends the reports of a session from the start of a chain until the last handle to the chain
/// is destroyed, so that a response that arrives immediately finds all callbacks set.
class ORIVANTA_API DeliveryHold {
 public:
  /// Suspends the reports of a session, which may be null.
  explicit DeliveryHold(std::shared_ptr<network::UrlSession> session);
  ~DeliveryHold();
  DeliveryHold(const DeliveryHold&) = delete;
  DeliveryHold& operator=(const DeliveryHold&) = delete;

 private:
  std::shared_ptr<network::UrlSession> session_;
};

/// The session of a chain and its delegate.
struct ChainLinks {
  std::shared_ptr<network::UrlSession> session;  ///< never null

  /// The delegate of the session; never null.
  std::shared_ptr<CustomUrlSessionDelegate> sessionDelegate;
};

/// State that the copies of a handle share and that the chain does not keep.
struct ORIVANTA_API ChainHandle {
  /// Suspends the reports of the session.
  explicit ChainHandle(const ChainLinks& links);

  DeliveryHold hold;  ///< of the session

  /// The delegate of the session; never null.
  std::shared_ptr<CustomUrlSessionDelegate> sessionDelegate;
};

/// Creates a session for a chain that begins at `url`, and its delegate without callbacks.
ORIVANTA_API ChainLinks chainLinks(const foundation::Url& url, const std::string& authString,
                                   const std::string& language,
                                   const network::TransferOptions& options);
ORIVANTA_API std::optional<foundation::Url> nextPage(const network::HttpUrlResponse& response);
/// Fails if the rules of the session forbid the step to the page `next`. If the response has no
/// URL, the step starts from the session's identifier, which `chainLinks` sets to the chain's first
/// URL.
ORIVANTA_API foundation::Result<void> checkStep(const network::UrlSession& session,
                                                const network::HttpUrlResponse& response,
                                                const foundation::Url& next);
ORIVANTA_API foundation::Error invalidJson();

}  // namespace detail

/// A handle to one request chain whose pages are folded into a `T`. While any handle exists, the
/// results of the chain wait. In the usual form, a single expression, the callbacks are set when
/// the expression ends.
///
/// The properties belong to the chain: copies of a handle refer to the same chain and the same
/// properties. Only one thread at a time may access them.
template <class T>
class HttpResponse {
 public:
  /// Returns the new accumulator for the old one and a page.
  using PageCallback = std::function<T(T accumulated, const RawData& page)>;

  /// Receives the accumulator after the last page.
  using CompleteCallback = std::function<void(T accumulated)>;

  /// Receives the error that ended a request.
  using ErrorCallback = std::function<void(const foundation::Error&)>;

  /// Receives the status and header fields of a response and the size of its body.
  using ResponseCallback =
      std::function<void(const network::HttpUrlResponse& response, std::size_t bodyBytes)>;

  /// Receives a response with its body, which is decoded but not parsed.
  using BodyCallback =
      std::function<void(const network::HttpUrlResponse& response, std::string_view body)>;

  /// Starts a chain at `url`. Each request carries the values of "Authorization" and
  /// "Accept-Language" and obeys the transfer rules, as does each step from page to page. Canceling
  /// the token in the options ends the chain without a callback.
  HttpResponse(const foundation::Url& url, const std::string& authString,
               const std::string& language, const network::TransferOptions& options = {})
      : HttpResponse(detail::chainLinks(url, authString, language, options)) {
    session->startDataTask(url);
  }

  /// Sets the callbacks of `delegate`, which must be the delegate of `chainSession`. Starts no
  /// request. Stops the program if either is null.
  HttpResponse(std::shared_ptr<network::UrlSession> chainSession,
               std::shared_ptr<CustomUrlSessionDelegate> delegate)
      : HttpResponse(detail::ChainLinks{std::move(chainSession), std::move(delegate)}) {}

  /// The session that runs the chain. Its `invalidateAndCancel` ends the chain without a callback.
  std::shared_ptr<network::UrlSession>& session;
  /// The delegate whose reports `onPage` receives.
  std::shared_ptr<CustomUrlSessionDelegate>& sessionDelegate;
  PageCallback& pageCallback;          ///< returns the new accumulator
  CompleteCallback& completeCallback;  ///< see `onComplete`
  ErrorCallback& errorCallback;        ///< see `onError`
  /// The result of all pages so far except the last one. If this or `pageCallback` is not set, the
  /// chain ends with the last page without a callback, and the session stays valid.
  std::optional<T>& pageBuffer;

  /// Moves the chain to an accumulator of type `U`. Handles of the previous type still delay the
  /// results, but receive none.
  template <class U>
  HttpResponse<U> onPage(U initial, typename HttpResponse<U>::PageCallback callback) const {
    HttpResponse<U> response(session, sessionDelegate);
    response.pageBuffer = std::move(initial);
    response.pageCallback = std::move(callback);
    return response;
  }

  /// Sets the callback that receives the accumulator once, after the last page. Without it, the
  /// last page is not folded.
  const HttpResponse& onComplete(CompleteCallback callback) const {
    completeCallback = std::move(callback);
    return *this;
  }

  /// Sets the callback that receives the error that ended the chain: the error of the transport;
  /// domain "" and code 1 if a body is not valid JSON; or domain "memory" if a page does not fit
  /// into memory (code 1) or into the budget (code 2, or 3 if another chain exceeded the budget
  /// before). `onComplete` is not called in this case.
  const HttpResponse& onError(ErrorCallback callback) const {
    errorCallback = std::move(callback);
    return *this;
  }

  /// Sets the callback that receives each response, with any status, before its body is parsed.
  const HttpResponse& onResponse(ResponseCallback callback) const {
    state_->responseCallback = std::move(callback);
    return *this;
  }

  /// Like `onResponse`, for the bodies. Called after it.
  const HttpResponse& onBody(BodyCallback callback) const {
    state_->bodyCallback = std::move(callback);
    return *this;
  }

 private:
  // The delegate's callbacks own the state, and the session owns the delegate until it is
  // invalidated. The state must not own the delegate, because that would be an ownership cycle.
  struct State {
    explicit State(std::shared_ptr<network::UrlSession> chainSession)
        : session(std::move(chainSession)) {}

    /// The session of the chain; never null.
    std::shared_ptr<network::UrlSession> session;
    PageCallback pageCallback;
    CompleteCallback completeCallback;
    ErrorCallback errorCallback;
    ResponseCallback responseCallback;
    BodyCallback bodyCallback;
    std::optional<T> pageBuffer;
    std::weak_ptr<detail::ChainHandle> handle;  // expired when no handle exists

    void success(const network::HttpUrlResponse& response, std::string& body);
    void error(const foundation::Error& failure);
    std::optional<T> takePage(const network::HttpUrlResponse& response, std::string& body);
    void foldPage(const RawData& page);
    T lastBuffer();
  };

  explicit HttpResponse(const detail::ChainLinks& links)
      : HttpResponse(std::make_shared<State>(links.session),
                     std::make_shared<detail::ChainHandle>(links)) {
    state_->handle = handle_;
    sessionDelegate->onSuccess = [state = state_](const network::HttpUrlResponse& response,
                                                  std::string& body) {
      state->success(response, body);
    };
    sessionDelegate->onError = [state = state_](const foundation::Error& failure) {
      state->error(failure);
    };
  }

  HttpResponse(std::shared_ptr<State> state, std::shared_ptr<detail::ChainHandle> handle)
      : session(state->session),
        sessionDelegate(handle->sessionDelegate),
        pageCallback(state->pageCallback),
        completeCallback(state->completeCallback),
        errorCallback(state->errorCallback),
        pageBuffer(state->pageBuffer),
        state_(std::move(state)),
        handle_(std::move(handle)) {}

  std::shared_ptr<State> state_;
  std::shared_ptr<detail::ChainHandle> handle_;
};

/// The API root, the credentials and the language of all requests. Immutable and thread-safe.
class ORIVANTA_API HttpSession {
 public:
  /// If `root` is not a valid URL, requests have no base URL. Stops the program if the user name,
  /// the password or the language is absent. If `transport` is null, requests use the default
  /// transport.
  HttpSession(std::string_view rootText, const std::optional<std::string>& username,
              const std::optional<std::string>& password,
              const std::optional<std::string>& languages,
              std::shared_ptr<network::UrlTransport> transportToUse = nullptr);

  /// The API root; absent if it is not a valid URL.
  const std::optional<foundation::Url> root;
  const std::string authString;                            ///< the value of "Authorization"
  const std::string language;                              ///< the value of "Accept-Language"
  const std::shared_ptr<network::UrlTransport> transport;  ///< null for the default transport

  /// Starts a request for `path`, resolved against the root, with the parameters as its query.
  /// Stops the program if `path` is not a valid URL reference. The options apply to all requests of
  /// the chain; the budget of their rules also covers the parsed pages. If the options have no
  /// transport, the session's is used.
  HttpResponse<std::any> get(std::string_view path, const Dictionary<std::string>& parameters = {},
                             network::TransferOptions options = {}) const;

  /// Sends the same GET request without a query and without a body; the parameters are ignored.
  HttpResponse<std::any> post(std::string_view path,
                              const Dictionary<std::string>& parameters = {}) const;

 private:
  foundation::Url resolved(std::string_view path) const;
};

template <class T>
void HttpResponse<T>::State::success(const network::HttpUrlResponse& response, std::string& body) {
  if (responseCallback) responseCallback(response, body.size());
  if (bodyCallback) bodyCallback(response, body);
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

// Returns the accumulator if this was the last page and `completeCallback` is set.
template <class T>
std::optional<T> HttpResponse<T>::State::takePage(const network::HttpUrlResponse& response,
                                                  std::string& body) {
  const auto page = RawData::parse(body, session->configuration().rules.budget);
  if (!page) {
    error(detail::invalidJson());
    return std::nullopt;
  }
  const auto next = detail::nextPage(response);
  body.clear();
  if (next) {
    if (const auto step = detail::checkStep(*session, response, *next); !step) {
      error(step.error());
      return std::nullopt;
    }
    session->startDataTask(*next);  // the transfer runs while this page is folded
    foldPage(*page);
    return std::nullopt;
  }
  if (!pageBuffer || !pageCallback) return std::nullopt;
  session->invalidateAndCancel();
  if (!completeCallback) return std::nullopt;
  return std::optional<T>(pageCallback(lastBuffer(), *page));
}

// `pageBuffer` keeps its value if a handle still exists.
template <class T>
T HttpResponse<T>::State::lastBuffer() {
  if constexpr (std::is_copy_constructible_v<T>)
    if (!handle.expired()) return *pageBuffer;
  return std::move(*pageBuffer);
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

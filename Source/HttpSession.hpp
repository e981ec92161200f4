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
// background queue of the chain's own, one after the other, never on the caller's thread. They may
// block without holding up other chains, also to wait for one: see SerialQueue.hpp for how many.
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

/// Collects the bytes of the current request and reports how it ended.
class ORIVANTA_API CustomUrlSessionDelegate : public network::UrlSessionDelegate {
 public:
  /// The body is the delegate's own buffer: what is to outlive the call is copied.
  using SuccessCallback = std::function<void(const network::HttpUrlResponse&, std::string& body)>;

  /// Receives the error that ended a request.
  using ErrorCallback = std::function<void(const foundation::Error&)>;

  /// A delegate with callbacks, each of which may be empty.
  CustomUrlSessionDelegate(SuccessCallback success, ErrorCallback error);

  SuccessCallback onSuccess;  ///< called for each complete body
  ErrorCallback onError;      ///< called for each error
  std::string buffer;         ///< cleared, not reallocated, between the pages of a chain

  void didReceiveData(std::string_view bytes) override;
  void didComplete(const network::HttpUrlResponse& response,
                   const std::optional<foundation::Error>& error) override;
  /// Reports the error, if there is one.
  void didBecomeInvalid(const std::optional<foundation::Error>& error) override;
  /// Writes the diagnostic line "finishedeventsforbackgroundsession".
  void didFinishBackgroundEvents() override;
};

namespace detail {

/// Holds a session's reports back from the start of a chain until the last handle to the chain is
/// gone, so that an answer that comes at once still finds every callback in place.
class DeliveryHold {
 public:
  /// Suspends the delivery of a session, which may be null.
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

/// What the copies of a handle share and the chain itself does not keep.
struct ORIVANTA_API ChainHandle {
  /// Holds the reports of the session.
  explicit ChainHandle(const ChainLinks& links);

  DeliveryHold hold;  ///< of the session

  /// The delegate of the session; never null.
  std::shared_ptr<CustomUrlSessionDelegate> sessionDelegate;
};

/// A session of its own for a chain that begins at `url`, and its delegate without callbacks.
ORIVANTA_API ChainLinks chainLinks(const foundation::Url& url, const std::string& authString,
                                   const std::string& language,
                                   const network::TransferOptions& options);
ORIVANTA_API std::optional<foundation::Url> nextPage(const network::HttpUrlResponse& response);
/// Fails if the session's rules forbid to go on to that page. A response without a URL counts as
/// one from the session's identifier, which for `chainLinks` is the chain's first URL.
ORIVANTA_API foundation::Result<void> checkStep(const network::UrlSession& session,
                                                const network::HttpUrlResponse& response,
                                                const foundation::Url& next);
ORIVANTA_API foundation::Error invalidJson();

}  // namespace detail

/// A handle to one request chain whose pages are folded into a `T`. Copies refer to the same chain.
/// While any handle exists the chain's results wait; in the usual form, one expression, it is
/// complete when the expression ends.
///
/// The properties belong to the chain: copies of the handle refer to the same ones. One thread at a
/// time reads and writes them.
template <class T>
class HttpResponse {
 public:
  /// Makes the new accumulator from the old one and a page.
  using PageCallback = std::function<T(T accumulated, const RawData& page)>;

  /// Receives the accumulator after the last page.
  using CompleteCallback = std::function<void(T accumulated)>;

  /// Receives the error that ended a request.
  using ErrorCallback = std::function<void(const foundation::Error&)>;

  /// Receives the head of a response and the size of its body.
  using ResponseCallback =
      std::function<void(const network::HttpUrlResponse& response, std::size_t bodyBytes)>;

  /// Starts a chain at `url`. Each of its requests carries the values of "Authorization" and
  /// "Accept-Language" and keeps to the rules, and so does the step from page to page. Canceling
  /// the options' token ends the chain without a callback.
  HttpResponse(const foundation::Url& url, const std::string& authString,
               const std::string& language, const network::TransferOptions& options = {})
      : HttpResponse(detail::chainLinks(url, authString, language, options)) {
    session->startDataTask(url);
  }

  /// Takes over the reports of `delegate`, which is that of `chainSession`. Starts no request. Null
  /// for either stops the program.
  HttpResponse(std::shared_ptr<network::UrlSession> chainSession,
               std::shared_ptr<CustomUrlSessionDelegate> delegate)
      : HttpResponse(detail::ChainLinks{std::move(chainSession), std::move(delegate)}) {}

  /// Runs the chain; `invalidateAndCancel` on it ends the chain without a callback.
  std::shared_ptr<network::UrlSession>& session;
  /// Whose reports `onPage` takes over.
  std::shared_ptr<CustomUrlSessionDelegate>& sessionDelegate;
  PageCallback& pageCallback;          ///< makes the new accumulator from the old one and a page
  CompleteCallback& completeCallback;  ///< see `onComplete`
  ErrorCallback& errorCallback;        ///< see `onError`
  /// The pages folded so far, but for the last one. Without it or without `pageCallback` the last
  /// page ends the chain without a callback, and the session stays valid.
  std::optional<T>& pageBuffer;

  /// Moves the chain to an accumulator of type `U`. Handles of the former type keep the results
  /// waiting, but receive nothing any more.
  template <class U>
  HttpResponse<U> onPage(U initial, typename HttpResponse<U>::PageCallback callback) const {
    HttpResponse<U> response(session, sessionDelegate);
    response.pageBuffer = std::move(initial);
    response.pageCallback = std::move(callback);
    return response;
  }

  /// Receives the accumulator once, after the last page, which is not folded for nobody.
  const HttpResponse& onComplete(CompleteCallback callback) const {
    completeCallback = std::move(callback);
    return *this;
  }

  /// Receives the error that ended the chain: the transport's own, domain "" and code 1 for a body
  /// that is no JSON, or domain "memory" if a page does not fit into memory (code 1) or into the
  /// budget (code 2, or 3 if another chain has exceeded it before). `onComplete` is not called
  /// then.
  const HttpResponse& onError(ErrorCallback callback) const {
    errorCallback = std::move(callback);
    return *this;
  }

  /// Receives the head of every response before its body is read, whatever its status.
  const HttpResponse& onResponse(ResponseCallback callback) const {
    state_->responseCallback = std::move(callback);
    return *this;
  }

 private:
  // Kept alive by the delegate's callbacks, and so by the session until that is invalidated. It
  // must not own the delegate, or the two would keep each other.
  struct State {
    explicit State(std::shared_ptr<network::UrlSession> chainSession)
        : session(std::move(chainSession)) {}

    /// The session of the chain; never null.
    std::shared_ptr<network::UrlSession> session;
    PageCallback pageCallback;
    CompleteCallback completeCallback;
    ErrorCallback errorCallback;
    ResponseCallback responseCallback;
    std::optional<T> pageBuffer;
    std::weak_ptr<detail::ChainHandle> handle;  // expired once no handle shows the properties

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

/// The API root, the credentials and the language of all requests. Immutable; any thread.
class ORIVANTA_API HttpSession {
 public:
  /// A root that is no URL leaves requests without a base. An absent user name, password or
  /// language stops the program. Without a transport requests use the default one.
  HttpSession(std::string_view rootText, const std::optional<std::string>& username,
              const std::optional<std::string>& password,
              const std::optional<std::string>& languages,
              std::shared_ptr<network::UrlTransport> transportToUse = nullptr);

  /// The API root; nothing if it is no URL.
  const std::optional<foundation::Url> root;
  const std::string authString;                            ///< the value of "Authorization"
  const std::string language;                              ///< the value of "Accept-Language"
  const std::shared_ptr<network::UrlTransport> transport;  ///< null for the default transport

  /// Starts a request for `path`, resolved against the root, with the parameters as its query. A
  /// path that is no URL reference stops the program. Every request of the chain follows the
  /// options; the budget of their rules also pays for the documents of the pages. Without a
  /// transport there the session's is used.
  HttpResponse<std::any> get(std::string_view path, const Dictionary<std::string>& parameters = {},
                             network::TransferOptions options = {}) const;

  /// The same GET request without a query and without a body, whatever the parameters.
  HttpResponse<std::any> post(std::string_view path,
                              const Dictionary<std::string>& parameters = {}) const;

 private:
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

// The accumulator, if this was the last page and somebody waits for it.
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
    session->startDataTask(*next);  // fetched while this page is folded
    foldPage(*page);
    return std::nullopt;
  }
  if (!pageBuffer || !pageCallback) return std::nullopt;
  session->invalidateAndCancel();
  if (!completeCallback) return std::nullopt;
  return std::optional<T>(pageCallback(lastBuffer(), *page));
}

// `pageBuffer` keeps its value if a handle still shows it.
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

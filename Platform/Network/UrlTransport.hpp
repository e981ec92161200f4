// The port to an HTTP client. Applications can replace libcurl with another transport, for example
// to use a proxy, to pin certificates, or to respond without a network:
//
//   struct Offline : network::UrlTransport {
//     void start(network::UrlRequest request, Completion completed) override {
//       completed(network::UrlAnswer{{request.url, 200, {}}, fileFor(request.url)});
//     }
//   };
//   setApiSettings({.endpoint = endpoint, .transport = std::make_shared<Offline>()});
// Public header.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Platform/Network/TransferRules.hpp"

namespace orivanta::network {

/// Names and values of header fields, in the order in which they are sent.
using HeaderFields = std::vector<std::pair<std::string, std::string>>;

/// A GET request.
struct UrlRequest {
  foundation::Url url;        ///< absolute
  HeaderFields headerFields;  ///< sent in addition to those of the transport

  /// The limits that the request must keep.
  TransferRules rules = {};
  foundation::CancellationToken cancellation = {};  ///< cancels the request
};

/// The response of the server.
struct UrlAnswer {
  HttpUrlResponse response;  ///< status and header fields
  std::string body;          ///< as received: still compressed if "Content-Encoding" says so
  /// The bytes that the body has taken from the request's budget. Null if the request has no
  /// budget.
  std::shared_ptr<foundation::BudgetShare> share = nullptr;
};

/// The response of a request, or its error.
using UrlResult = foundation::Result<UrlAnswer>;

/// An HTTP client. An application can implement it.
class UrlTransport {
 public:
  /// Receives the result of a request.
  using Completion = std::function<void(UrlResult)>;

  virtual ~UrlTransport() = default;

  /// Starts a GET request and returns immediately. Sends the request's header fields and keeps its
  /// rules. Calls `completed` once, on any thread and possibly before `start` returns. A canceled
  /// request should end soon; `completed` need not be called for it. `completed` returns quickly.
  /// May be called concurrently from any thread.
  virtual void start(UrlRequest request, Completion completed) = 0;
};

/// The options of the requests of a session.
struct TransferOptions {
  /// The limits that the requests must keep.
  TransferRules rules = {};
  std::shared_ptr<UrlTransport> transport = nullptr;  ///< null for the default transport
  foundation::CancellationToken cancellation = {};    ///< cancels the requests
};

}  // namespace orivanta::network

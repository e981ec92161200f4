// The port to an HTTP client, and the transports that applications put in the place of libcurl: for
// a proxy, for pinned certificates, or to answer without a network, as here.
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
  HeaderFields headerFields;  ///< sent besides those that the transport adds

  /// The conditions under which the request goes on.
  TransferRules rules = {};
  foundation::CancellationToken cancellation = {};  ///< ends the request
};

/// What the server answered.
struct UrlAnswer {
  HttpUrlResponse response;  ///< status and header fields
  std::string body;          ///< as received: still compressed if "Content-Encoding" says so
  /// What the body has taken from the request's budget. Null if the request has none.
  std::shared_ptr<foundation::BudgetShare> share = nullptr;
};

/// How a request ended.
using UrlResult = foundation::Result<UrlAnswer>;

/// An HTTP client. An application may provide its own.
class UrlTransport {
 public:
  /// Receives how a request ended.
  using Completion = std::function<void(UrlResult)>;

  virtual ~UrlTransport() = default;

  /// Starts a GET request, whose header fields and rules it follows, and returns at once. Calls
  /// `completed` once, on any thread and possibly before it returns. A request that is canceled
  /// should end soon; then `completed` need not be called. `completed` returns quickly. Any thread,
  /// several at once.
  virtual void start(UrlRequest request, Completion completed) = 0;
};

/// How the requests of a session are carried out.
struct TransferOptions {
  /// The conditions under which the requests go on.
  TransferRules rules = {};
  std::shared_ptr<UrlTransport> transport = nullptr;  ///< null for the default transport
  foundation::CancellationToken cancellation = {};    ///< ends the requests
};

}  // namespace orivanta::network

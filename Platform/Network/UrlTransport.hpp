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

using HeaderFields = std::vector<std::pair<std::string, std::string>>;

struct UrlRequest {
  foundation::Url url;
  HeaderFields headerFields;
  TransferRules rules = {};
  foundation::CancellationToken cancellation = {};
};

/// What the server answered.
struct UrlAnswer {
  HttpUrlResponse response;
  std::string body;  ///< as received: still compressed if "Content-Encoding" says so
  /// What the body has taken from the request's budget. Null if the request has none.
  std::shared_ptr<foundation::BudgetShare> share = nullptr;
};

/// How a request ended.
using UrlResult = foundation::Result<UrlAnswer>;

class UrlTransport {
 public:
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
  TransferRules rules = {};
  std::shared_ptr<UrlTransport> transport = nullptr;  ///< null for the default transport
  foundation::CancellationToken cancellation = {};    ///< ends the requests
};

}  // namespace orivanta::network

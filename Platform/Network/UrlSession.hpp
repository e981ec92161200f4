// URL sessions: requests that share header fields and report, one after the other, to a delegate
// on a background queue of the session's own.
// Public header.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Receives what happens to a session's tasks. Called on the session's serial queue, never on two
/// threads at once and never on the main thread.
class UrlSessionDelegate {
 public:
  virtual ~UrlSessionDelegate() = default;

  /// The whole body, decoded. Not called if the body is empty.
  virtual void didReceiveData(std::string_view bytes) = 0;
  /// `response` is empty if there is an error.
  virtual void didComplete(const HttpUrlResponse& response,
                           const std::optional<foundation::Error>& error) = 0;
  /// The last report: the session has been invalidated, without an error if the application did so.
  virtual void didBecomeInvalid(const std::optional<foundation::Error>& /*error*/) {}
  /// For transports that go on while the program does not run. The one over libcurl does not, and
  /// never calls this.
  virtual void didFinishBackgroundEvents() {}
};

/// What the requests of a session have in common.
struct UrlSessionConfiguration {
  std::string identifier = {};  ///< any text of the caller
  /// Sent with every request of the session.
  HeaderFields additionalHeaders = {};
  /// For every request of the session. The budget also pays for the delivered bodies, and for a
  /// buffer of the delegate as large as the largest of them.
  TransferRules rules = {};
  std::shared_ptr<UrlTransport> transport = nullptr;  ///< null for the default transport
  /// Canceling it invalidates the session.
  foundation::CancellationToken cancellation = {};
};

/// Shared by reference. A session that has not been invalidated stays alive without an owner, and
/// keeps its delegate; invalidating it releases both.
class ORIVANTA_API UrlSession : public std::enable_shared_from_this<UrlSession> {
 public:
  /// A valid session, with a queue of its own.
  static std::shared_ptr<UrlSession> make(UrlSessionConfiguration configuration,
                                          std::shared_ptr<UrlSessionDelegate> delegate);

  /// What the session was made with.
  const UrlSessionConfiguration& configuration() const { return configuration_; }

  /// Starts a GET request. Does nothing on an invalidated session. Any thread.
  ///
  /// The request follows up to 20 redirects, within HTTP and HTTPS; header fields that carry
  /// credentials stay behind when a redirect leaves the host. It ends with an error when it breaks
  /// the session's rules, or when the body is larger than 512 MiB. Servers prove who they are to
  /// the certificates of the system, or to those of the file that the environment variable
  /// SSL_CERT_FILE names.
  void startDataTask(const foundation::Url& url);

  /// Cancels everything outstanding. Nothing is reported afterwards, except what is being reported
  /// just now and then, as the last, that the session is invalid; the delegate is released after
  /// that. Any thread; more than once is harmless.
  void invalidateAndCancel();

  /// Whether the session has not been invalidated. Any thread.
  bool isValid() const;

  /// Holds back, respectively lets through, what is to be reported to the delegate. Calls nest.
  void suspendDelivery() { queue_->suspend(); }

  /// Undoes one `suspendDelivery`.
  void resumeDelivery() { queue_->resume(); }

 private:
  UrlSession(UrlSessionConfiguration configuration, std::shared_ptr<UrlSessionDelegate> delegate);
  void deliver(UrlResult result);
  std::shared_ptr<UrlSessionDelegate> delegate() const;

  const UrlSessionConfiguration configuration_;
  const std::shared_ptr<foundation::SerialQueue> queue_;
  mutable std::mutex mutex_;
  std::shared_ptr<UrlSessionDelegate> delegate_;  // empty once invalidated
  const foundation::CancellationSource requests_;
  foundation::CancellationRegistration registration_;  // set once, by `make`
  foundation::BudgetShare delivered_;                  // used on the queue alone
};

}  // namespace orivanta::network

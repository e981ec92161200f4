// URL sessions. The requests of a session share header fields and report to a delegate, one at a
// time, on the session's background queue.
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

/// Receives the results of a session's tasks. Called on the session's serial queue, never
/// concurrently and never on the main thread.
class UrlSessionDelegate {
 public:
  virtual ~UrlSessionDelegate() = default;

  /// Receives the whole body, decoded. Not called if the body is empty.
  virtual void didReceiveData(std::string_view bytes) = 0;
  /// Called when a task is complete. `response` is empty if there is an error.
  virtual void didComplete(const HttpUrlResponse& response,
                           const std::optional<foundation::Error>& error) = 0;
  /// Called when the session has been invalidated. This is the last callback. There is no error if
  /// the application invalidated the session.
  virtual void didBecomeInvalid(const std::optional<foundation::Error>& /*error*/) {}
  /// For transports that continue while the program is not running. The transport that uses libcurl
  /// does not, and never calls this.
  virtual void didFinishBackgroundEvents() {}
};

/// The settings that the requests of a session share.
struct UrlSessionConfiguration {
  std::string identifier = {};  ///< any text that the caller chooses
  /// Sent with every request of the session.
  HeaderFields additionalHeaders = {};
  /// Applied to every request of the session. The delivered bodies also count toward the budget,
  /// and so does a buffer of the delegate that is as large as the largest of them.
  TransferRules rules = {};
  std::shared_ptr<UrlTransport> transport = nullptr;  ///< null for the default transport
  /// Canceling it invalidates the session.
  foundation::CancellationToken cancellation = {};
};

/// A session, shared by reference. A session that has not been invalidated stays alive without an
/// owner and keeps its delegate. Invalidating it releases both.
class ORIVANTA_API UrlSession : public std::enable_shared_from_this<UrlSession> {
 public:
  /// Creates a valid session with a new queue.
  static std::shared_ptr<UrlSession> make(UrlSessionConfiguration configuration,
                                          std::shared_ptr<UrlSessionDelegate> delegate);

  /// Returns the configuration that the session was created with.
  const UrlSessionConfiguration& configuration() const { return configuration_; }

  /// Starts a GET request. Does nothing on an invalidated session. Any thread.
  ///
  /// The request follows up to 20 redirects to HTTP and HTTPS URLs. Header fields with credentials
  /// are not sent to another host after a redirect. The request ends with an error if it breaks the
  /// session's rules, or if the body is larger than 512 MiB. Server certificates are verified with
  /// the system's certificates, or with those of the file that the environment variable
  /// SSL_CERT_FILE names.
  void startDataTask(const foundation::Url& url);

  /// Cancels all pending tasks. After that, only a callback that is already running is completed,
  /// and then `didBecomeInvalid` is called. The delegate is released after that. Further calls do
  /// nothing. Any thread.
  void invalidateAndCancel();

  /// Returns whether the session has not been invalidated. Any thread.
  bool isValid() const;

  /// Suspends the callbacks of the delegate. Calls nest.
  void suspendDelivery() { queue_->suspend(); }

  /// Reverts one call of `suspendDelivery`.
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
  foundation::BudgetShare delivered_;                  // used only on the queue
};

}  // namespace orivanta::network

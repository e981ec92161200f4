// The client of the venue web API: one call per collection.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/HttpSession.hpp"

namespace orivanta {

/// Watches the requests of a session, for progress and for reasons that the collections themselves
/// do not tell. Called on the chains' background queues, several at once.
class ORIVANTA_API WebApiObserver {
 public:
  virtual ~WebApiObserver() = default;
  /// A page has arrived; `collection` is the resource's name in the API, such as "node".
  virtual void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                            std::size_t bodyBytes) = 0;
  /// The collection is complete, or it has failed and counts as empty.
  virtual void collectionEnded(std::string_view collection,
                               const foundation::Result<void>& outcome) = 0;
};

/// What one load may take unless told otherwise: enough for a venue of 300,000 nodes, and so little
/// that a hostile load stays below 1 GB of resident memory. A million nodes need 2.5 GiB.
constexpr std::size_t defaultLoadBytes = std::size_t{800} << 20U;

/// Every call returns at once. Its callback is called once, on a background queue of that call:
/// with the collection, or with an empty one when a request failed. Elements that form no record
/// are left out; of two with the same identifier the later one counts. Canceling the session's
/// token
/// (`canceledBy`) ends its calls without a callback.
///
/// A call takes no more memory than the session's `loadBytes`: received and decoded bodies, parsed
/// JSON, records. If that is exceeded, the request counts as failed, with an error of the domain
/// "memory". A load of a venue has one budget for its six calls and for what it
/// builds of them.
///
/// Any thread; holds no mutable state.
class ORIVANTA_API WebApiSession {
 public:
  /// Receives a collection.
  template <class Record>
  using Callback = std::function<void(Collection<Record>)>;

  /// An absent language stops the program. Without a transport requests use the default one.
  WebApiSession(std::string_view root, const std::string& username, const std::string& password,
                const std::optional<std::string>& language,
                std::shared_ptr<WebApiObserver> observer = nullptr,
                std::size_t loadBytes = defaultLoadBytes,
                std::shared_ptr<network::UrlTransport> transport = nullptr);

  /// The same with another observer, or none.
  WebApiSession observedBy(std::shared_ptr<WebApiObserver> observer) const {
    WebApiSession session = *this;
    session.observer_ = std::move(observer);
    return session;
  }

  /// The same with one budget for all its calls.
  WebApiSession within(std::shared_ptr<foundation::MemoryBudget> budget) const {
    WebApiSession session = *this;
    session.rules_.budget = std::move(budget);
    return session;
  }

  /// The same whose calls end when the token is canceled.
  WebApiSession canceledBy(foundation::CancellationToken cancellation) const {
    WebApiSession session = *this;
    session.cancellation_ = std::move(cancellation);
    return session;
  }

  /// The same whose venues become the active venue when they are loaded, as with `APISession`.
  WebApiSession fillingActiveVenue() const {
    WebApiSession session = *this;
    session.fillsActiveVenue_ = true;
    return session;
  }

  /// Whether `loadVenue` and `loadVenueReporting` make their venue the active one.
  bool fillsActiveVenue() const { return fillsActiveVenue_; }

  /// The memory that one load may take, in bytes.
  std::size_t loadBytes() const { return loadBytes_; }

  /// The same with another rate below which the loads of `loadVenuesReporting` and
  /// `loadVenueReporting` fail.
  WebApiSession withLowestRate(network::LowestRate rate) const {
    WebApiSession session = *this;
    session.lowestRate_ = rate;
    return session;
  }

  /// By default 100 bytes a second, judged over a minute.
  network::LowestRate lowestRate() const { return lowestRate_; }

  /// The same whose calls fail when the server goes below the lowest rate or from HTTPS to HTTP,
  /// with another observer.
  WebApiSession strictlyObservedBy(std::shared_ptr<WebApiObserver> observer) const {
    WebApiSession session = observedBy(std::move(observer));
    session.rules_.lowestRate = lowestRate_;
    session.rules_.staysSecure = true;
    return session;
  }

  const HttpSession ApiHttpSession;  ///< makes the requests

  /// All venues that the account may see.
  void venues(Callback<Venue> callback) const;

  // The collections of one venue, named by its slug.
  /// The locations of a venue, which its slug names. Like the following, without links to other
  /// records.
  void locations(const std::string& venue, Callback<Location> callback) const;

  /// The categories of a venue.
  void categories(const std::string& venue, Callback<Category> callback) const;

  /// The floors of a venue.
  void maps(const std::string& venue, Callback<Map> callback) const;

  /// The nodes of a venue.
  void nodes(const std::string& venue, Callback<Node> callback) const;

  /// The connectors of a venue.
  void vortices(const std::string& venue, Callback<Vortex> callback) const;

  /// The polygons of a venue.
  void polygons(const std::string& venue, Callback<Polygon> callback) const;

 private:
  template <class Record>
  void collection(const char* path, const Dictionary<std::string>& parameters,
                  Callback<Record> callback) const;

  std::shared_ptr<WebApiObserver> observer_;
  std::size_t loadBytes_;
  network::LowestRate lowestRate_ = network::strictRules().lowestRate;
  network::TransferRules rules_;  // without a budget each call has one of its own
  foundation::CancellationToken cancellation_;
  bool fillsActiveVenue_ = false;
};

}  // namespace orivanta

// The client of the venue web API, with one call per collection.
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

/// Observes the requests of a session, for progress and for errors that the collections do not
/// report. Called on the background queues of the chains, possibly concurrently.
class ORIVANTA_API WebApiObserver {
 public:
  virtual ~WebApiObserver() = default;
  /// Called when a page has arrived. `collection` is the name of the resource in the API, such as
  /// "node".
  virtual void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                            std::size_t bodyBytes) = 0;
  /// Called when the collection is complete, or when it has failed and counts as empty.
  virtual void collectionEnded(std::string_view collection,
                               const foundation::Result<void>& outcome) = 0;
};

class AnswerRecorder;
class VenueStore;

/// The default memory limit of a load. It suffices for a venue of 300,000 nodes and keeps a hostile
/// load below 1 GB of resident memory. A million nodes need 2.5 GiB.
constexpr std::size_t defaultLoadBytes = std::size_t{800} << 20U;

/// Each call returns immediately. Its callback is called once, on a background queue of that call,
/// with the collection, or with an empty collection if a request failed. Elements that are not
/// valid records are skipped; if two elements have the same identifier, the later one is used.
/// Canceling the session's token (`canceledBy`) ends its calls without a callback.
///
/// A call uses at most `loadBytes` of memory for received and decoded bodies, parsed JSON and
/// records. A request that exceeds this limit fails with an error of the domain "memory". A load of
/// a venue has one budget for its six calls and for the records and links that it creates.
///
/// Thread-safe; has no mutable state.
class ORIVANTA_API WebApiSession {
 public:
  /// Receives a collection.
  template <class Record>
  using Callback = std::function<void(Collection<Record>)>;

  /// Stops the program if the language is absent. If `transport` is null, requests use the default
  /// transport.
  WebApiSession(std::string_view root, const std::string& username, const std::string& password,
                const std::optional<std::string>& language,
                std::shared_ptr<WebApiObserver> observer = nullptr,
                std::size_t loadBytes = defaultLoadBytes,
                std::shared_ptr<network::UrlTransport> transport = nullptr);

  /// Returns the same session with another observer, which may be null.
  WebApiSession observedBy(std::shared_ptr<WebApiObserver> observer) const {
    WebApiSession session = *this;
    session.observer_ = std::move(observer);
    return session;
  }

  /// Returns the same session with one budget for all its calls.
  WebApiSession within(std::shared_ptr<foundation::MemoryBudget> budget) const {
    WebApiSession session = *this;
    session.rules_.budget = std::move(budget);
    return session;
  }

  /// Returns the same session whose calls end when the token is canceled.
  WebApiSession canceledBy(foundation::CancellationToken cancellation) const {
    WebApiSession session = *this;
    session.cancellation_ = std::move(cancellation);
    return session;
  }

  /// The token of `canceledBy`.
  const foundation::CancellationToken& cancellation() const { return cancellation_; }

  /// Returns the same session whose venues become the active venue when they are loaded, as with
  /// `APISession`.
  WebApiSession fillingActiveVenue() const {
    WebApiSession session = *this;
    session.fillsActiveVenue_ = true;
    return session;
  }

  /// Returns whether `loadVenue` and `loadVenueReporting` make their venue the active one.
  bool fillsActiveVenue() const { return fillsActiveVenue_; }

  /// Returns the same session whose complete loads are stored; see VenueStore.hpp. `store` may be
  /// null.
  WebApiSession storingIn(std::shared_ptr<VenueStore> store) const {
    WebApiSession session = *this;
    session.store_ = std::move(store);
    return session;
  }

  /// Returns the store, or null.
  const std::shared_ptr<VenueStore>& store() const { return store_; }

  /// Returns the user name of the requests.
  const std::string& username() const { return username_; }

  /// Returns the same session with a recorder of its responses. Used by the loads that store.
  WebApiSession recordedBy(std::shared_ptr<AnswerRecorder> recorder) const {
    WebApiSession session = *this;
    session.recorder_ = std::move(recorder);
    return session;
  }

  /// Returns the maximum memory of one load, in bytes.
  std::size_t loadBytes() const { return loadBytes_; }

  /// Returns the same session with another lowest rate, below which the loads of
  /// `loadVenuesReporting` and `loadVenueReporting` fail.
  WebApiSession withLowestRate(network::LowestRate rate) const {
    WebApiSession session = *this;
    session.lowestRate_ = rate;
    return session;
  }

  /// Returns the lowest rate. The default is 100 bytes per second, measured over a minute.
  network::LowestRate lowestRate() const { return lowestRate_; }

  /// Returns the same session with another observer, whose calls fail if the server is slower than
  /// the lowest rate or leads from HTTPS to HTTP.
  WebApiSession strictlyObservedBy(std::shared_ptr<WebApiObserver> observer) const {
    WebApiSession session = observedBy(std::move(observer));
    session.rules_.lowestRate = lowestRate_;
    session.rules_.staysSecure = true;
    return session;
  }

  const HttpSession ApiHttpSession;  ///< sends the requests

  /// Requests all venues that the account can access.
  void venues(Callback<Venue> callback) const;

  // The collections of one venue, named by its slug.
  /// Requests the locations of the venue with this slug. Like the following calls, returns records
  /// without links to other records.
  void locations(const std::string& venue, Callback<Location> callback) const;

  /// Requests the categories of a venue.
  void categories(const std::string& venue, Callback<Category> callback) const;

  /// Requests the floors of a venue.
  void maps(const std::string& venue, Callback<Map> callback) const;

  /// Requests the nodes of a venue.
  void nodes(const std::string& venue, Callback<Node> callback) const;

  /// Requests the connectors of a venue.
  void vortices(const std::string& venue, Callback<Vortex> callback) const;

  /// Requests the polygons of a venue.
  void polygons(const std::string& venue, Callback<Polygon> callback) const;

 private:
  template <class Record>
  void collection(const char* path, const Dictionary<std::string>& parameters,
                  Callback<Record> callback) const;

  std::shared_ptr<WebApiObserver> observer_;
  std::size_t loadBytes_;
  network::LowestRate lowestRate_ = network::strictRules().lowestRate;
  network::TransferRules rules_;  // without a budget, each call creates one
  foundation::CancellationToken cancellation_;
  bool fillsActiveVenue_ = false;
  std::string username_;
  std::shared_ptr<VenueStore> store_;
  std::shared_ptr<AnswerRecorder> recorder_;
};

}  // namespace orivanta

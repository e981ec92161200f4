// One load of a venue: stores the six collections and runs the joins when enough of them have
// arrived.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Foundation/Error.hpp"
#include "Source/Loading/VenueJoin.hpp"

namespace orivanta {

/// The pending requests keep the load alive. Only one thread at a time may use it; several loads
/// may run concurrently on different threads.
class VenueLoad {
 public:
  struct Options {
    /// Called with the reason if a load ends because memory or the budget is exhausted; nothing is
    /// published in this case. If empty, an empty venue is published and the reason is written as a
    /// diagnostic line.
    std::function<void(const foundation::Error&)> failed = nullptr;
    /// The budget of the collections and the joins; may be null.
    std::shared_ptr<foundation::MemoryBudget> budget = nullptr;
  };

  /// When the joins are complete, `publish` is called, and then `callback` with the venue that it
  /// returned, unless that is null.
  VenueLoad(bool accessible, Publish publish, std::function<void(std::shared_ptr<Venue>)> callback,
            Options options);
  VenueLoad(bool accessible, Publish publish, std::function<void(std::shared_ptr<Venue>)> callback)
      : VenueLoad(accessible, std::move(publish), std::move(callback), Options()) {}
  VenueLoad(const VenueLoad&) = delete;
  VenueLoad& operator=(const VenueLoad&) = delete;

  /// Stores a collection, as in `receive(&CollectionDictionary::nodes, nodes)`, and runs the joins
  /// if they are ready. The first collection after the budget was exceeded ends the load.
  template <class Record>
  void receive(std::optional<Collection<Record>> CollectionDictionary::*field,
               Collection<Record> records) {
    if (ended_) return;
    if (collections_.*field)
      for (Join& join : joins_) join.ranEarly = false;
    collections_.*field = std::move(records);
    collectionReady();
  }

 private:
  /// Runs all joins, in order, if the five collections other than the polygons have arrived. If the
  /// polygons arrive last, this happens twice.
  void collectionReady();
  void runJoins();
  void endWithout(const std::exception& reason);

  struct Join {
    std::function<bool(CollectionDictionary&)> run;
    bool early = false;     ///< may run before the others, because it does not depend on them
    bool ranEarly = false;  ///< the first round skips it
  };

  const Publish publish_;
  const std::function<void(std::shared_ptr<Venue>)> callback_;
  const Options options_;
  CollectionDictionary collections_;
  CollectionDictionary empty_;  ///< allocated in advance, for use when memory runs out
  std::vector<Join> joins_;
  std::shared_ptr<Venue> published_;  ///< the argument of the callback
  bool ended_ = false;
};

}  // namespace orivanta

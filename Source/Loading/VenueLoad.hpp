// One load of a venue: collects the six answers and runs the joins when enough of them are there.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Foundation/Error.hpp"
#include "Source/Loading/VenueJoin.hpp"

namespace orivanta {

/// Kept alive by whoever still has an answer to deliver. One thread at a time. Several loads may
/// run at once, on one thread each.
class VenueLoad {
 public:
  struct Options {
    /// Told why a load ended for lack of memory or because its budget is exceeded; then nothing is
    /// published. Without it an empty venue is published, and a diagnostic line tells the reason.
    std::function<void(const foundation::Error&)> failed = nullptr;
    /// What the answers and the joins may take; may be null.
    std::shared_ptr<foundation::MemoryBudget> budget = nullptr;
  };

  /// `publish` is called when everything is joined, and `callback` then with the venue that it
  /// returned, unless that is null.
  VenueLoad(bool accessible, Publish publish, std::function<void(std::shared_ptr<Venue>)> callback,
            Options options);
  VenueLoad(bool accessible, Publish publish, std::function<void(std::shared_ptr<Venue>)> callback)
      : VenueLoad(accessible, std::move(publish), std::move(callback), Options()) {}
  VenueLoad(const VenueLoad&) = delete;
  VenueLoad& operator=(const VenueLoad&) = delete;

  /// Stores an answer, such as `receive(&CollectionDictionary::nodes, nodes)`, and runs the gate.
  /// The first answer after the budget was exceeded ends the load.
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
  /// Runs all joins, in order, whenever the five collections other than the polygons are there;
  /// when the polygons come last, that is twice.
  void collectionReady();
  void runJoins();
  void endWithout(const std::exception& reason);

  struct Join {
    std::function<bool(CollectionDictionary&)> run;
    bool early = false;  ///< may run before the gate opens: what it links does not depend on others
    bool ranEarly = false;  ///< so the first pass leaves it out
  };

  const Publish publish_;
  const std::function<void(std::shared_ptr<Venue>)> callback_;
  const Options options_;
  CollectionDictionary collections_;
  CollectionDictionary empty_;  ///< made beforehand: what is left when memory runs out
  std::vector<Join> joins_;
  std::shared_ptr<Venue> published_;  ///< to be handed to the callback
  bool ended_ = false;
};

}  // namespace orivanta

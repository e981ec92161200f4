// One load of a venue: collects the six answers and runs the joins when enough of them are there.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Foundation/Error.hpp"
#include "Source/Loading/VenueJoin.hpp"

namespace orivanta {

/// Kept alive by whoever still has an answer to deliver. One thread at a time; several loads may
/// run at once, on one thread each. The joins of all loads run one after the other.
class VenueLoad {
 public:
  /// Runs a step, or leaves it out when the load is not wanted any more.
  using Guard = std::function<void(const std::function<void()>& step)>;

  struct Options {
    /// The venue is published within the guard; without one always.
    Guard guard = nullptr;
    /// Told why a load ended for lack of memory or because its budget is exceeded; then nothing is
    /// published. Without it an empty venue is published, and a diagnostic line tells the reason.
    std::function<void(const foundation::Error&)> failed = nullptr;
    /// What the answers and the joins may take; may be null.
    std::shared_ptr<foundation::MemoryBudget> budget = nullptr;
  };

  /// `callback` is called when the venue has been published.
  VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback, Options options);
  VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback)
      : VenueLoad(accessible, std::move(callback), Options()) {}
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
  void publish();

  struct Join {
    std::function<bool(CollectionDictionary&)> run;
    bool early = false;  ///< may run before the gate opens: what it links does not depend on others
    bool ranEarly = false;  ///< so the first pass leaves it out
  };

  const std::function<void(std::shared_ptr<Venue>)> callback_;
  const Options options_;
  CollectionDictionary collections_;
  CollectionDictionary empty_;  ///< made beforehand: what is left when memory runs out
  std::vector<Join> joins_;
  std::shared_ptr<Venue> published_;  ///< to be handed to the callback
  bool ended_ = false;
};

}  // namespace orivanta

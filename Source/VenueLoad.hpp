// One load of a venue: collects the six answers and runs the joins when enough of them are there.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Source/VenueJoin.hpp"

namespace orivanta {

/// Kept alive by whoever still has an answer to deliver. One thread at a time.
class VenueLoad {
 public:
  /// Runs a step, or leaves it out when the load is not wanted any more.
  using Guard = std::function<void(const std::function<void()>& step)>;

  /// The venue is published, and `callback` called, within `guard`; without one always.
  VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback,
            Guard guard = nullptr);

  /// Stores an answer, such as `receive(&CollectionDictionary::nodes, nodes)`, and runs the gate.
  template <class Record>
  void receive(std::optional<Collection<Record>> CollectionDictionary::*field,
               Collection<Record> records) {
    if (collections_.*field)
      for (Join& join : joins_) join.ranEarly = false;
    collections_.*field = std::move(records);
    collectionReady();
  }

 private:
  /// Runs all joins, in order, whenever the five collections other than the polygons are there;
  /// when the polygons come last, that is twice.
  void collectionReady();

  struct Join {
    std::function<bool(CollectionDictionary&)> run;
    bool early = false;  ///< may run before the gate opens: what it links does not depend on others
    bool ranEarly = false;  ///< so the first pass leaves it out
  };

  CollectionDictionary collections_;
  std::vector<Join> joins_;
};

}  // namespace orivanta

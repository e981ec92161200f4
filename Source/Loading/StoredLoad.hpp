// Loads an entry of a VenueStore.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/Loading/CollectionPage.hpp"
#include "Source/Loading/StoredAnswers.hpp"
#include "Source/Loading/VenuePublishing.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// An entry that was read from the session's store, or the absence of one. Used on one thread.
class StoredLoad {
 public:
  /// Uses the entry and returns whether it is sound. If not, it is removed. Must not throw.
  using Use = std::function<bool(StoredLoad& stored)>;

  /// Reads an entry in the background, and calls `use` and then `finished` once on a background
  /// thread, also if there is no entry. `slug` is empty for the list of venues.
  static void start(const WebApiSession& session, std::string_view slug, Use use,
                    std::function<void()> finished);

  /// Receives the venue and its contents.
  using PublishStored =
      std::function<void(const std::shared_ptr<Venue>& venue, VenueContents contents)>;

  /// Joins the collections of a venue and passes them to `publish`. `progressed` is called after
  /// each collection. Returns false if the entry is missing or damaged. If the memory or the budget
  /// of the session is not sufficient, returns true without calling `publish`.
  bool readVenue(bool accessible, const PublishStored& publish,
                 const std::function<void(std::string_view collection)>& progressed);

  /// Returns a collection of the entry. Returns nothing if the entry is missing or damaged. Throws
  /// `BudgetExceeded`.
  template <class Record>
  std::optional<Collection<Record>> read(std::string_view collection) {
    const auto pages = answers_ ? answers_->pages(collection) : std::vector<std::string_view>();
    if (pages.empty()) return std::nullopt;
    Collection<Record> records;
    for (const std::string_view text : pages) {
      const auto page = RawData::parse(text, budget_);
      if (!page) return std::nullopt;
      records = withPage(std::move(records), *page, *budget_);
    }
    return records;
  }

  VenueStorage::Time storedAt() const { return storedAt_; }
  const std::vector<std::string>& files() const { return answers_->files(); }

  /// Keeps the entry as long as the venue exists.
  void protect(const std::shared_ptr<Venue>& venue) const;

 private:
  StoredLoad(const WebApiSession& session, std::string_view slug);

  const StoredIdentity identity_;
  const std::shared_ptr<VenueStore> store_;  // null for none
  const std::shared_ptr<foundation::MemoryBudget> budget_;
  std::optional<StoredAnswers> answers_;
  VenueStorage::Time storedAt_;
};

}  // namespace orivanta

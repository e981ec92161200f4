#include "Source/Orivanta.hpp"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/Loading/AnswerRecorder.hpp"
#include "Source/Loading/LoadMonitor.hpp"
#include "Source/Loading/StoredAnswers.hpp"
#include "Source/Loading/StoredLoad.hpp"
#include "Source/Loading/VenueLoad.hpp"
#include "Source/Loading/VenuePublishing.hpp"
#include "Source/Venue.hpp"
#include "Source/VenueStore.hpp"

namespace orivanta {

namespace {

// Requests the six collections and passes each response to the load, one at a time.
void startRequests(const WebApiSession& session, const std::string& slug,
                   const std::shared_ptr<VenueLoad>& load) {
  const auto queue = foundation::SerialQueue::make();
  const auto receiver = [queue, load](auto field) {
    return [queue, load, field](auto records) {
      queue->async([load, field, records = std::move(records)]() mutable {
        load->receive(field, std::move(records));
      });
    };
  };
  session.locations(slug, receiver(&CollectionDictionary::locations));
  session.categories(slug, receiver(&CollectionDictionary::categories));
  session.maps(slug, receiver(&CollectionDictionary::maps));
  session.nodes(slug, receiver(&CollectionDictionary::nodes));
  session.vortices(slug, receiver(&CollectionDictionary::vortices));
  session.polygons(slug, receiver(&CollectionDictionary::polygons));
}

// Clears the venue, or the previously active one, and returns the function that fills the venue.
Publish prepare(const WebApiSession& session, const std::shared_ptr<Venue>& venue) {
  if (session.fillsActiveVenue()) {
    makeActive(venue);
    return fillActiveVenue;
  }
  clearVenue(venue);
  return [venue](VenueContents contents) { return fillVenue(venue, std::move(contents)); };
}

using VenueCallback = std::function<void(std::shared_ptr<Venue>)>;

constexpr std::size_t collectionCount = 6;

std::shared_ptr<AnswerRecorder> recorderFor(const WebApiSession& session, std::size_t collections) {
  if (!session.store()) return nullptr;
  return std::make_shared<AnswerRecorder>(collections, session.store()->mostBytes());
}

// Returns a callback that stores the venue if it is complete.
VenueCallback storing(const WebApiSession& session, const std::string& slug,
                      std::shared_ptr<AnswerRecorder> recorder, VenueCallback callback) {
  if (!recorder) return callback;
  return [store = session.store(), identity = StoredIdentity(session, slug), slug,
          recorder = std::move(recorder),
          callback = std::move(callback)](const std::shared_ptr<Venue>& venue) {
    // A concurrent load may have filled the venue of this one.
    const bool isComplete = venue->slug == slug && venue->maps && !venue->maps->empty();
    if (const auto pages = isComplete ? recorder->pages() : std::nullopt) {
      store->protect(identity.key(), venue);
      store->save(identity.key(), entryOf(identity, *venue, *pages));
    }
    callback(venue);
  };
}

// The same for a list of venues. An empty list is not stored.
void requestVenues(const WebApiSession& session,
                   std::function<void(const Collection<Venue>&)> callback) {
  const auto recorder = recorderFor(session, 1);
  session.recordedBy(recorder).venues(
      [store = session.store(), identity = StoredIdentity(session, ""), recorder,
       callback = std::move(callback)](const Collection<Venue>& venues) {
        if (const auto pages = recorder && !venues.empty() ? recorder->pages() : std::nullopt)
          store->save(identity.key(), entryOf(identity, *pages));
        callback(venues);
      });
}

// Removes the venues of a list that are not stored, and finds the one that was used last.
void keepStored(StoredListReport& report, const WebApiSession& session,
                const std::vector<VenueStorage::Listed>& entries) {
  std::optional<VenueStorage::Time> latest;
  std::erase_if(report.venues, [&](const std::shared_ptr<Venue>& venue) {
    const std::string key = StoredIdentity(session, venue->slug.value_or("")).key();
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& each) { return each.key == key; });
    if (entry == entries.end()) return true;
    if (!latest || entry->usedAt > *latest) {
      latest = entry->usedAt;
      report.latest = venue;
    }
    return false;
  });
}

void startLoad(const WebApiSession& session, const std::string& slug, bool accessible,
               Publish publish, VenueCallback callback, VenueLoad::Options options = {}) {
  options.budget = std::make_shared<foundation::MemoryBudget>(session.loadBytes());
  auto recorder = recorderFor(session, collectionCount);
  const WebApiSession budgeted = session.within(options.budget).recordedBy(recorder);
  callback = storing(session, slug, std::move(recorder), std::move(callback));
  startRequests(budgeted, slug,
                std::make_shared<VenueLoad>(accessible, std::move(publish), std::move(callback),
                                            std::move(options)));
}

std::string slugOf(const std::shared_ptr<Venue>& venue) {
  return foundation::unwrap(foundation::unwrap(venue).slug);
}

std::vector<std::shared_ptr<Venue>> listOf(const Collection<Venue>& venues) {
  std::vector<std::shared_ptr<Venue>> list;
  for (const auto& entry : venues) list.push_back(entry.second);
  return list;
}

std::string endpointOf(const WebApiSession& session) {
  const auto& root = session.ApiHttpSession.root;
  return root ? root->withoutCredentials().absoluteString() : "";
}

}  // namespace

void getVenues(std::function<void(std::vector<std::shared_ptr<Venue>>)> callback) {
  requestVenues(APISession(), [callback = std::move(callback)](const Collection<Venue>& venues) {
    callback(listOf(venues));
  });
}

void getVenue(const std::shared_ptr<Venue>& venue, bool accessible,
              std::function<void(std::shared_ptr<Venue>)> callback) {
  loadVenue(APISession(), venue, accessible, std::move(callback));
}

void getVenue(const std::shared_ptr<Venue>& venue,
              std::function<void(std::shared_ptr<Venue>)> callback) {
  getVenue(venue, false, std::move(callback));
}

void loadVenue(const WebApiSession& session, const std::shared_ptr<Venue>& venue, bool accessible,
               std::function<void(std::shared_ptr<Venue>)> callback) {
  const std::string slug = slugOf(venue);
  startLoad(session, slug, accessible, prepare(session, venue), std::move(callback));
}

std::shared_ptr<LoadHandle> loadVenuesReporting(const WebApiSession& session,
                                                LoadHandlers<VenueListReport> handlers) {
  const auto list = std::make_shared<std::vector<std::shared_ptr<Venue>>>();
  const auto load = std::make_shared<LoadMonitor>(
      endpointOf(session), 1, session.lowestRate(),
      LoadMonitor::Handlers{
          std::move(handlers.progressed),
          [list, ended = std::move(handlers.ended)](std::vector<LoadFailure> failures, bool) {
            if (ended) ended({std::move(*list), std::move(failures)});
          },
          std::move(handlers.executor)});
  load->start();
  load->cancelWith(session.cancellation());
  requestVenues(session.strictlyObservedBy(load).canceledBy(load->cancellation()),
                [list, load](const Collection<Venue>& venues) {
                  load->unlessOver([&] { *list = listOf(venues); });
                  load->finish();
                });
  return load;
}

std::shared_ptr<LoadHandle> loadVenueReporting(const WebApiSession& session,
                                               const std::shared_ptr<Venue>& venue, bool accessible,
                                               LoadHandlers<VenueLoadReport> handlers) {
  const std::string slug = slugOf(venue);
  const auto load = std::make_shared<LoadMonitor>(
      endpointOf(session), collectionCount, session.lowestRate(),
      LoadMonitor::Handlers{std::move(handlers.progressed),
                            [venue, ended = std::move(handlers.ended)](
                                std::vector<LoadFailure> failures, bool complete) {
                              if (ended) ended({venue, std::move(failures), complete});
                            },
                            std::move(handlers.executor)});
  load->start();
  load->cancelWith(session.cancellation());
  const auto publish = [load, fill = prepare(session, venue)](VenueContents contents) {
    std::shared_ptr<Venue> published;
    load->unlessOver([&] { published = fill(std::move(contents)); });
    return published;
  };
  startLoad(session.strictlyObservedBy(load).canceledBy(load->cancellation()), slug, accessible,
            publish, [load](const auto&) { load->finish(); },
            {[load](const foundation::Error& reason) { load->fail(reason); }});
  return load;
}

std::shared_ptr<LoadHandle> loadStoredVenues(const WebApiSession& session,
                                             LoadHandlers<StoredListReport> handlers) {
  const auto report = std::make_shared<StoredListReport>();
  const auto load = std::make_shared<LoadMonitor>(
      endpointOf(session), 1, session.lowestRate(),
      LoadMonitor::Handlers{std::move(handlers.progressed),
                            [report, ended = std::move(handlers.ended)](auto, bool) {
                              if (ended) ended(std::move(*report));
                            },
                            std::move(handlers.executor)});
  load->start();
  load->cancelWith(session.cancellation());
  const auto use = [report](StoredLoad& stored) {
    try {
      const auto venues = stored.read<Venue>("venue");
      if (venues) *report = {listOf(*venues), nullptr, stored.storedAt()};
      return venues.has_value();
    } catch (const std::bad_alloc&) {  // the entry may be sound
      return true;
    }
  };
  StoredLoad::start(session, "", use, [session, report, load] {
    if (!session.store()) return load->finish();
    session.store()->list([session, report, load](const auto& entries) {
      keepStored(*report, session, entries);
      load->finish();
    });
  });
  return load;
}

std::shared_ptr<LoadHandle> loadStoredVenue(const WebApiSession& session, const std::string& slug,
                                            bool accessible,
                                            LoadHandlers<StoredVenueReport> handlers) {
  const auto report = std::make_shared<StoredVenueReport>();
  const auto load = std::make_shared<LoadMonitor>(
      endpointOf(session), collectionCount, session.lowestRate(),
      LoadMonitor::Handlers{std::move(handlers.progressed),
                            [report, ended = std::move(handlers.ended)](auto, bool) {
                              if (ended) ended(std::move(*report));
                            },
                            std::move(handlers.executor)});
  load->start();
  load->cancelWith(session.cancellation());
  const auto use = [session, accessible, report, load](StoredLoad& stored) {
    const auto publish = [&](const std::shared_ptr<Venue>& venue, VenueContents contents) {
      load->unlessOver([&] {
        stored.protect(venue);
        report->venue = prepare(session, venue)(std::move(contents));
        report->storedAt = stored.storedAt();
        report->files = stored.files();
      });
    };
    return stored.readVenue(accessible, publish, [&](std::string_view collection) {
      load->collectionEnded(collection, {});
    });
  };
  StoredLoad::start(session, slug, use, [load] { load->finish(); });
  return load;
}

}  // namespace orivanta

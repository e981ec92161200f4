#include "Source/Loading/StoredLoad.hpp"

#include <new>
#include <stdexcept>

#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/Loading/VenueLoad.hpp"
#include "Source/Venue.hpp"
#include "Source/VenueStore.hpp"

namespace orivanta {

StoredLoad::StoredLoad(const WebApiSession& session, std::string_view slug)
    : identity_(session, slug),
      store_(session.store()),
      budget_(std::make_shared<foundation::MemoryBudget>(session.loadBytes())) {}

void StoredLoad::start(const WebApiSession& session, std::string_view slug, Use use,
                       std::function<void()> finished) {
  const std::shared_ptr<StoredLoad> load(new StoredLoad(session, slug));
  const auto read = [load, use = std::move(use),
                     finished = std::move(finished)](std::optional<VenueStorage::Loaded> entry) {
    bool isReadable = entry.has_value();
    try {
      if (entry) {
        load->storedAt_ = entry->savedAt;
        load->answers_ = StoredAnswers::in(std::move(entry->bytes), load->identity_);
      }
    } catch (const std::bad_alloc&) {
      isReadable = false;
    }
    if (!use(*load) && isReadable) load->store_->remove(load->identity_.key());
    finished();
  };
  if (load->store_)
    load->store_->load(load->identity_.key(), read);
  else
    foundation::SerialQueue::make()->async([read] { read(std::nullopt); });
}

bool StoredLoad::readVenue(bool accessible, const PublishStored& publish,
                           const std::function<void(std::string_view collection)>& progressed) {
  auto venue = answers_ ? Venue::make(answers_->venue()) : nullptr;
  if (!venue) return false;
  VenueLoad load(
      accessible,
      [&](VenueContents contents) {
        publish(venue, std::move(contents));
        return venue;
      },
      [](const auto&) {}, {[](const foundation::Error&) {}, budget_});
  const auto receive = [&](std::string_view name, auto field, auto collection) {
    if (!collection) return false;
    load.receive(field, std::move(*collection));
    progressed(name);
    return true;
  };
  using Contents = CollectionDictionary;
  try {
    // The polygons must not be last, since joins would run twice.
    return receive("polygon", &Contents::polygons, read<Polygon>("polygon")) &&
           receive("location", &Contents::locations, read<Location>("location")) &&
           receive("category", &Contents::categories, read<Category>("category")) &&
           receive("map", &Contents::maps, read<Map>("map")) &&
           receive("node", &Contents::nodes, read<Node>("node")) &&
           receive("vortex", &Contents::vortices, read<Vortex>("vortex"));
  } catch (const std::bad_alloc&) {
    return true;
  }
}

void StoredLoad::protect(const std::shared_ptr<Venue>& venue) const {
  store_->protect(identity_.key(), venue);
}

}  // namespace orivanta

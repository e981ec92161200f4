// What the search panel shows for browsing: kinds of places, and the places of a kind.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/Content/PlaceCatalog.hpp"
#include "Apps/Viewer/Panels/ChoiceList.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Makes the sections of the pages. The catalog of the venue is made for the first page.
class BrowsePages {
 public:
  enum class Show {
    start,  ///< nearest places, kinds of places and recent places
    group,  ///< the places of one kind
    all     ///< all places
  };

  /// A page.
  struct Page {
    Show show = Show::start;
    std::size_t group = 0;    ///< index of a group of the catalog
    bool showsKinds = false;  ///< whether the start shows all kinds and not only the first ones
  };

  /// What the pages do when something is chosen.
  struct Actions {
    std::function<void(const NearestChoice&)> nearest;
    std::function<void(Page)> turn;     ///< another page is to be shown
    std::function<void()> back;         ///< the start is to be shown again
    std::function<void()> clearRecent;  ///< the recent places are to be removed
  };

  /// The venue must outlive the object.
  BrowsePages(const Venue& venue, const guidance::InterfaceTexts& texts, Actions actions);

  /// Returns a page. The other arguments are for the start.
  std::vector<ChoiceSection> sections(const Page& page, const std::vector<NearestChoice>& nearest,
                                      const std::vector<std::shared_ptr<Location>>& recent);

  /// Returns the rows of groups of places, with their titles if there are several groups.
  std::vector<ChoiceSection> rowsOf(const std::vector<PlaceGroup>& groups) const;

  /// Completes the texts and the icon of a place.
  void describe(Choice& choice) const;

 private:
  const PlaceCatalog& catalog();
  void addNearest(std::vector<ChoiceSection>& sections,
                  const std::vector<NearestChoice>& nearest) const;
  ChoiceSection tiles(bool showsAll);
  void addRecent(std::vector<ChoiceSection>& sections,
                 const std::vector<std::shared_ptr<Location>>& recent) const;
  ChoiceSection wayBack(const std::string& title, std::size_t count) const;
  std::vector<ChoiceSection> groupPage(const CatalogGroup& group) const;
  std::vector<ChoiceSection> allPlaces();

  const Venue& venue_;
  const guidance::InterfaceTexts texts_;
  const Actions actions_;
  const KindWords words_;
  std::optional<PlaceCatalog> catalog_;
};

}  // namespace orivanta::viewer

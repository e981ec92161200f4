// A building or site: the root record that a load fills.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// A building or site. Owns its records and its graph.
class ORIVANTA_API Venue {
 public:
  /// Returns null unless there are strings under "id", "slug" and "name".
  static std::shared_ptr<Venue> make(const RawData& data);
  Venue(RecordToken, const RawData& data);  ///< for `make`
  Venue(const Venue&) = delete;
  Venue& operator=(const Venue&) = delete;

  RawData _data;                                      ///< the JSON of which the record was made
  std::optional<std::string> id;                      ///< the identifier; never absent after `make`
  std::optional<std::string> slug;                    ///< the venue's key in the web API
  std::optional<std::string> name;                    ///< never absent after `make`
  std::shared_ptr<const ImageCollection> logo;        ///< null if there is none
  std::shared_ptr<const ImageCollection> coverImage;  ///< null if there is none

  /// The polygons by identifier. This field and the following ones are absent until a load has
  /// published them, and again when the next load starts.
  std::optional<Collection<Polygon>> polygonDictionary;
  std::optional<std::vector<std::shared_ptr<Location>>> locations;   ///< the places
  std::optional<std::vector<std::shared_ptr<Category>>> categories;  ///< the categories
  std::optional<std::vector<std::shared_ptr<Map>>> maps;             ///< the floors
  std::optional<std::vector<std::shared_ptr<Node>>> nodes;  ///< the nodes of the navigation graph
  std::optional<std::vector<std::shared_ptr<Vortex>>> vortices;   ///< the connectors
  std::optional<std::vector<std::shared_ptr<Polygon>>> polygons;  ///< the areas that can be tapped
  std::shared_ptr<NavigationGraph> navigationGraph;  ///< null until a load has published it
};

}  // namespace orivanta

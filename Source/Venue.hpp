// One building or site: the root that venue loading fills.
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

class ORIVANTA_API Venue {
 public:
  /// Needs texts under "id", "slug" and "name"; null without them.
  static std::shared_ptr<Venue> make(const RawData& data);
  Venue(RecordToken, const RawData& data);
  Venue(const Venue&) = delete;
  Venue& operator=(const Venue&) = delete;

  RawData _data;
  std::optional<std::string> id;
  std::optional<std::string> slug;  ///< the venue's key in the web API
  std::optional<std::string> name;
  std::shared_ptr<const ImageCollection> logo;
  std::shared_ptr<const ImageCollection> coverImage;

  // Absent until a load has published them, and again from the start of the next load.
  std::optional<Collection<Polygon>> polygonDictionary;
  std::optional<std::vector<std::shared_ptr<Location>>> locations;
  std::optional<std::vector<std::shared_ptr<Category>>> categories;
  std::optional<std::vector<std::shared_ptr<Map>>> maps;
  std::optional<std::vector<std::shared_ptr<Node>>> nodes;
  std::optional<std::vector<std::shared_ptr<Vortex>>> vortices;
  std::optional<std::vector<std::shared_ptr<Polygon>>> polygons;
  std::shared_ptr<NavigationGraph> navigationGraph;
};

}  // namespace orivanta

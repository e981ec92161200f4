// How a page wants a map to look.
#pragma once

#include <boost/json/object.hpp>
#include <memory>
#include <string>

#include "Source/UI/Display/MapStyle.hpp"

namespace orivanta::web {

/// The look of a map. The page changes single members.
struct MapLook {
  std::string theme = "light";  ///< "light", "dark" or "plain": the colors of the models
  double textSize = 1;          ///< factor of the sizes of texts, 0.5 to 4
  bool highContrast = false;    ///< see `MapTheme::withHighContrast`
  bool labels = true;           ///< names and icons
  bool reducedMotion = false;   ///< moves at once; arrows of routes stand still
  bool still = false;           ///< for single pictures, see `MapStyle::setStill`
  std::string language = "en";  ///< of the texts on the map that are no names
  MapFurniture furniture{.compass = true, .scaleBar = true, .attribution = true};

  /// Takes the members that an object has, by the same names; those of `furniture` are its own.
  /// Members of another type are ignored.
  void update(const boost::json::object& object);

  /// Applies what differs from a former look to a style and to the camera of its map view.
  void apply(const MapLook& former, MapStyle& style, MapCamera& camera) const;

  friend bool operator==(const MapLook&, const MapLook&) = default;
};

}  // namespace orivanta::web

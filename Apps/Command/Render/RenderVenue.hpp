// The subcommand `render`: draws images of a venue's floors, without a display.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Render/LegendView.hpp"
#include "Apps/Command/Settings.hpp"

namespace orivanta::command {

struct RenderVenueOptions {
  ConnectionOptions connection;
  bool json = false;
  std::string slug;
  std::string map;  ///< name, short name, identifier, index or "all"; if empty, those of the route,
                    ///< or the one with most places; in plain images the first one
  std::string size = "1280x800";        ///< points
  double scale = 1.0;                   ///< pixels per point
  double tilt = 0.0;                    ///< degrees from straight down
  double turn = 0.0;                    ///< degrees, counterclockwise
  std::optional<double> zoom;           ///< factor
  std::string style = "light";          ///< light, dark, plain or the file of a theme
  std::vector<std::string> highlights;  ///< PLACE=COLOR
  std::vector<LegendEntry> legend;      ///< what the colors mean; shown if not empty
  std::vector<std::string> route;       ///< start and destination, or empty
  bool accessible = false;           ///< excludes connectors that are not accessible from the route
  std::vector<std::string> markers;  ///< places
  bool labels = false;               ///< shows names and icons also in plain images
  bool noLabels = false;             ///< shows no names and icons in styled images
  std::string attribution = "lower-left";  ///< the corner in which the venue's attribution is shown
  bool noAttribution = false;              ///< omits the attribution
  std::optional<std::string> touchesFile;
  int frames = 0;  ///< number of images of an animation; 0 for a single image
  std::string output = "map.png";
  bool printsFiles = true;  ///< prints the names of the files
};

ExitCode renderVenue(const RenderVenueOptions& options);

}  // namespace orivanta::command

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"

namespace orivanta::command {

void addRender(CLI::App& app, CommandLine& line) {
  RenderVenueOptions& options = line.renderVenue;
  auto& query = addQuery(app, line, "render", "Render the floors of a venue to images",
                         help::renderFooter, options, renderVenue);
  addSlug(query, options.slug);
  query.add_option("--map", options.map, "Name, short name or index of the floor, or all")
      ->type_name("FLOOR");
  query.add_option("--size", options.size, "Size of the image in points")
      ->type_name("WxH")
      ->capture_default_str();
  const auto addNumber = [&](const char* name, double& value, const char* purpose,
                             const char* type) {
    query.add_option(name, value, purpose)->type_name(type)->capture_default_str();
  };
  addNumber("--scale", options.scale, "Pixels per point", "F");
  addNumber("--tilt", options.tilt, "Camera tilt from the vertical, less than 60", "DEGREES");
  addNumber("--turn", options.turn, "Counterclockwise rotation", "DEGREES");
  query.add_flag("--stacked", options.stacked,
                 "Show all floors above each other in one image; requires a style");
  query.add_option("--zoom", options.zoom, "Zoom factor; 1 shows the whole floor")->type_name("F");
  query
      .add_option(
          "--style", options.style,
          "Colors of the floors: light, dark, light-contrast, dark-contrast, plain (those of the "
          "models), or a theme file")
      ->type_name("FILE|NAME")
      ->capture_default_str();
  query
      .add_option("--highlight", options.highlights,
                  "Highlight a location, for example cafe=orange or cafe=#fbac17; may be repeated")
      ->type_name("PLACE=COLOR")
      ->allow_extra_args(false);
  query.add_option("--route", options.route, "Draw a route between two places on each floor")
      ->expected(2)
      ->type_name("FROM TO");
  query.add_flag("--accessible", options.accessible, "Avoid connectors with steps in the route");
  query.add_option("--marker", options.markers, "Mark a location; may be repeated")
      ->type_name("PLACE")
      ->allow_extra_args(false);
  auto* const labels =
      query.add_flag("--labels", options.labels, "Show names, the default except in plain images");
  query.add_flag("--no-labels", options.noLabels, "Show neither names nor icons")->excludes(labels);
  query
      .add_option("--attribution", options.attribution,
                  "Corner for the map's attribution, for example upper-right")
      ->type_name("CORNER")
      ->capture_default_str();
  query.add_flag("--no-attribution", options.noAttribution,
                 "Print the attribution instead of drawing it");
  query.add_option("--touches", options.touchesFile, "Replay recorded touches before rendering")
      ->type_name("FILE");
  query.add_option("--frames", options.frames, "Write N images and an animated GIF of them")
      ->type_name("N");
  query.add_option("-o,--output", options.output, "File to write")
      ->type_name("FILE.png")
      ->capture_default_str();
  addQueryOptions(query, line);
}

}  // namespace orivanta::command

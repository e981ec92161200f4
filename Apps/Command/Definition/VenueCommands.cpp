#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/DemoVenue/Folder.hpp"

namespace orivanta::command {

void addVenues(CLI::App& app, CommandLine& line) {
  auto& query = addQuery(app, line, "venues", "List the venues", help::venuesFooter,
                         line.listVenues, listVenues);
  addQueryOptions(query, line);
}

void addVenue(CLI::App& app, CommandLine& line) {
  ShowVenueOptions& options = line.showVenue;
  auto& query = addQuery(app, line, "venue", "Show the contents of a venue", help::venueFooter,
                         options, showVenue);
  addSlug(query, options.slug);
  query
      .add_option("--locations", options.locations,
                  "List the locations, or those whose name or identifier contains TEXT")
      ->expected(0, 1)
      ->type_name("[TEXT]");
  query.add_flag("--accessible", options.accessible, "Exclude connectors with steps");
  addQueryOptions(query, line);
}

void addSearch(CLI::App& app, CommandLine& line) {
  SearchPlacesOptions& options = line.searchPlaces;
  auto& query = addQuery(app, line, "search", "Find places by what people type", help::searchFooter,
                         options, searchPlaces);
  addSlug(query, options.slug);
  query.add_option("TEXT", options.words, "Words to search for; an empty text lists all places")
      ->type_name("")
      ->required();
  query.add_option("--most", options.most, "Print at most N places")->type_name("N");
  addQueryOptions(query, line);
}

void addView(CLI::App& app, CommandLine& line) {
  ViewVenueOptions& options = line.viewVenue;
  auto& command = *app.add_subcommand("view", "Explore a venue in a window");
  command.footer(help::viewFooter);
  command.add_option("SLUG", options.slug, "Slug of the venue, see `orivanta venues`")
      ->type_name("");
  command.add_option("--size", options.size, "Size of the window in points")
      ->type_name("WxH")
      ->capture_default_str();
  command
      .add_option("--scale", options.scale, "Pixels per point; the default is that of the screen")
      ->type_name("F");
  command
      .add_option("--language", options.language,
                  "Language of the window and of names, such as de; the default is yours")
      ->type_name("TAG");
  command
      .add_option("--text-size", options.textSize, "Size of all texts in percent, see the key T")
      ->type_name("PERCENT")
      ->check(CLI::Range(100, 200))
      ->capture_default_str();
  command
      .add_option_function<std::string>(
          "--contrast",
          [&options](const std::string& contrast) { options.highContrast = contrast == "high"; },
          "Contrast of the panels around the map, normal or high, see the key C")
      ->type_name("NAME")
      ->check(CLI::IsMember({"normal", "high"}));
  command
      .add_option(
          "--style", options.style,
          "Look of the map: light, dark, light-contrast, dark-contrast, plain (the colors of the "
          "models), or a theme file")
      ->type_name("FILE|NAME")
      ->capture_default_str();
  command.add_flag("--reduced-motion", options.reducedMotion,
                   "Jump instead of gliding; let nothing move by itself");
  command.add_flag("--walk", options.walk, "Simulate a walk along each route, see the key W");
  command.add_flag("--times", options.times,
                   "Print timings of loading and drawing to standard error");
  addConnectionOptions(command, line.connection);
  addQuiet(command, line.connection);
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.connection = line.connection;
      options.demoVenue = demo::demoVenueFolder();
      return viewVenue(options);
    };
  });
}

}  // namespace orivanta::command

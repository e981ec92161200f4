// The subcommands of `orivanta`: each function adds the definition of one, and the values that it
// takes from the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "Apps/Command/AuditVenues.hpp"
#include "Apps/Command/CheckSource.hpp"
#include "Apps/Command/FindRoute.hpp"
#include "Apps/Command/ImportBuilding.hpp"
#include "Apps/Command/ListCosts.hpp"
#include "Apps/Command/ListVenues.hpp"
#include "Apps/Command/PublishVenues.hpp"
#include "Apps/Command/Render/RenderVenue.hpp"
#include "Apps/Command/SearchPlaces.hpp"
#include "Apps/Command/Serve.hpp"
#include "Apps/Command/ShowVenue.hpp"
#include "Apps/Command/ViewVenue.hpp"
#include "Apps/Command/WalkRoute.hpp"

namespace orivanta::command {

/// The values from the command line, and the subcommand to run.
struct CommandLine {
  ConnectionOptions connection;
  bool json = false;
  ListVenuesOptions listVenues;
  ShowVenueOptions showVenue;
  SearchPlacesOptions searchPlaces;
  FindRouteOptions findRoute;
  RenderVenueOptions renderVenue;
  ViewVenueOptions viewVenue;
  ImportOptions import;
  ServeOptions serve;
  AuditOptions audit;
  CheckOptions check;
  PublishOptions publish;
  WalkOptions walk;
  CostsOptions costs;
  std::string shell;
  std::string topic;
  std::function<ExitCode()> chosen;
};

// Parsing fills in `line` and sets `line.chosen`. Both arguments must outlive parsing.
void addVenues(CLI::App& app, CommandLine& line);
void addVenue(CLI::App& app, CommandLine& line);
void addSearch(CLI::App& app, CommandLine& line);
void addRoute(CLI::App& app, CommandLine& line);
void addWalk(CLI::App& app, CommandLine& line);
void addCosts(CLI::App& app, CommandLine& line);
void addRender(CLI::App& app, CommandLine& line);
void addView(CLI::App& app, CommandLine& line);
void addImport(CLI::App& app, CommandLine& line);
void addServe(CLI::App& app, CommandLine& line);
void addAudit(CLI::App& app, CommandLine& line);
void addCheck(CLI::App& app, CommandLine& line);
void addPublish(CLI::App& app, CommandLine& line);
void addCompletions(CLI::App& app, CommandLine& line);
void addManual(CLI::App& app, CommandLine& line);
void addHelp(CLI::App& app, CommandLine& line);

}  // namespace orivanta::command

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"

namespace orivanta::command {

namespace {

void addImportChoices(CLI::App& command, ImportOptions& options, const char* group) {
  const auto add = [&](const char* name, auto& value, const char* purpose, const char* type) {
    return command.add_option(name, value, purpose)->type_name(type)->group(group);
  };
  add("--fixes", options.fixes, "Corrections that outlive a new import", "FILE");
  add("--format", options.format, "Format of the source; recognized by default", "FORMAT")
      ->check(CLI::IsMember(importFormats()));
  add("--building", options.building, "Import only this building of the source", "NAME");
  add("--bounds", options.bounds, "Import only what lies within, in degrees", "S,W,N,E");
  add("--language", options.languages, "Languages for the names, best first, such as de,en", "TAGS")
      ->allow_extra_args(false);
  add("--level-shift", options.levelShifts, "Add N to the levels of a building; may be repeated",
      "BUILDING=N")
      ->allow_extra_args(false);
  add("--storey-height", options.storeyHeight, "Meters between floors if the source has no heights",
      "M")
      ->check(CLI::Range(1.0, 100.0))
      ->capture_default_str();
  add("--attribution", options.attribution, "Authors of the data, shown with the map", "TEXT");
  add("--license", options.license, "Conditions of the authors, shown with the map", "TEXT");
  add("--network", options.network,
      "Walking network: auto, source (only the source's) or derive (from the drawn areas)",
      "CHOICE")
      ->check(CLI::IsMember({"auto", "source", "derive"}))
      ->capture_default_str();
  add("--doors", options.doors, "Rooms without a door: guess one, or strict (none)", "CHOICE")
      ->check(CLI::IsMember({"guess", "strict"}))
      ->capture_default_str();
}

}  // namespace

void addImport(CLI::App& app, CommandLine& line) {
  ImportOptions& options = line.import;
  auto& command = *app.add_subcommand("import", "Make a venue package of your own building");
  command.footer(help::importFooter);
  command
      .add_option("SOURCE", options.sources,
                  "Files, folder or archive: IMDF, OpenStreetMap, IndoorGML, station network")
      ->required()
      ->type_name("");
  command.add_option("-o,--output", options.output, "Venue package to write or to replace")
      ->required()
      ->type_name("FOLDER");
  addImportChoices(command, options, "Options");
  command.add_option("--report", options.report, "Write what to look at, with plans")
      ->type_name("FILE.html");
  command.add_flag("--strict", options.strict, "Write nothing if there is something to look at");
  command.add_flag("--json", line.json, "Print a line of JSON for each finding and a summary");
  addQuiet(command, line.connection);
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.json = line.json;
      options.quiet = line.connection.quiet;
      return importBuilding(options);
    };
  });
}

void addCheck(CLI::App& app, CommandLine& line) {
  CheckOptions& options = line.check;
  auto& command = *app.add_subcommand("check", "Find the mistakes in a package or a source");
  command.footer(help::checkFooter);
  command
      .add_option("PATH", options.import.sources,
                  "Venue packages, folders of them, or the files of a source to import")
      ->required()
      ->type_name("");
  command.add_option("--html", options.html, "Write a report with a plan of each storey")
      ->type_name("FILE.html");
  command.add_flag("--strict", options.strict, "Exit with code 1 also for warnings");
  command.add_flag("--json", line.json, "Print a line of JSON for each finding");
  addQuiet(command, line.connection);
  addImportChoices(command, options.import, "Sources");
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.json = line.json;
      options.import.quiet = line.connection.quiet;
      return checkSource(options);
    };
  });
}

void addPublish(CLI::App& app, CommandLine& line) {
  PublishOptions& options = line.publish;
  auto& command = *app.add_subcommand("publish", "Write venues as files for a static web server");
  command.footer(help::publishFooter);
  command.add_option("PACKAGE", options.packages, "Venue packages, or folders of them")
      ->required()
      ->type_name("");
  command.add_option("-o,--output", options.output, "Folder to write or to replace")
      ->required()
      ->type_name("FOLDER");
  command.add_option("--base-url", options.baseUrl, "URL at which clients will find the folder")
      ->required()
      ->type_name("URL");
  command
      .add_option("--allow-origin", options.allowedOrigins,
                  "Origin whose web pages nginx lets read responses, or *; may be repeated")
      ->type_name("URL")
      ->allow_extra_args(false);
  command.add_flag("--force", options.force, "Publish packages with violations");
  command.callback(
      [&line, &options] { line.chosen = [&options] { return publishVenues(options); }; });
}

void addAudit(CLI::App& app, CommandLine& line) {
  AuditOptions& options = line.audit;
  auto& command =
      *app.add_subcommand("audit", "Find the places that some visitors cannot reach or leave");
  command.footer(help::auditFooter);
  command.add_option("FOLDER", options.folders, "Venue packages, or folders of them")
      ->required()
      ->type_name("");
  command.add_option("--picture", options.picture, "Draw the floors, with these places colored")
      ->type_name("FILE.png");
  command.callback(
      [&line, &options] { line.chosen = [&options] { return auditVenues(options); }; });
}

}  // namespace orivanta::command

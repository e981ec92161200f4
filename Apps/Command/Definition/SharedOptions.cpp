#include "Apps/Command/Definition/SharedOptions.hpp"

namespace orivanta::command {

void addText(CLI::App& app, const char* name, std::optional<std::string>& value,
             const char* purpose, const char* type) {
  app.add_option(name, value, purpose)->type_name(type)->group("Connection");
}

void addConnectionOptions(CLI::App& app, ConnectionOptions& options) {
  addText(app, "--settings", options.settingsFolder, "Folder that contains the property lists",
          "FOLDER");
  addText(app, "--endpoint", options.endpoint, "Root URL of the web API (or ORIVANTA_ENDPOINT)",
          "URL");
  addText(app, "--username", options.username, "User name (or ORIVANTA_USERNAME)", "TEXT");
  addText(app, "--password", options.password, "Password (ORIVANTA_PASSWORD is safer)", "TEXT");
  addText(app, "--password-file", options.passwordFile,
          "File that contains the password, or - for standard input", "FILE");
  app.add_flag("--offline", options.offline, "Use what was stored by earlier calls, no network")
      ->group("Connection");
  app.add_flag("--no-store", options.noStore, "Do not store what is loaded, for --offline")
      ->group("Connection");
}

void addQuiet(CLI::App& app, ConnectionOptions& options) {
  app.add_flag("-q,--quiet", options.quiet, "Write no diagnostics to a redirected standard error");
}

void addQueryOptions(CLI::App& app, CommandLine& line) {
  addConnectionOptions(app, line.connection);
  app.add_flag("--json", line.json, "Print JSON");
  addQuiet(app, line.connection);
}

void addSlug(CLI::App& query, std::string& slug) {
  query.add_option("SLUG", slug, "Slug of the venue, see `orivanta venues`")
      ->required()
      ->type_name("");
}

}  // namespace orivanta::command

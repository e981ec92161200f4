#include <filesystem>
#include <fstream>
#include <optional>

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/Settings.hpp"
#include "Apps/DemoVenue/Folder.hpp"
#include "Platform/Foundation/ExecutablePath.hpp"

namespace orivanta::command {

namespace {

// Returns the folder of the web page that is installed with the running program, or else of the one
// that was built in the source tree. Returns nothing if neither can be read.
std::optional<std::filesystem::path> webPageFolder() {
  const auto prefix = foundation::executablePath().parent_path().parent_path();
  for (const auto& folder :
       {prefix / ORIVANTA_WEB_INSTALLED, std::filesystem::path(ORIVANTA_WEB_BUILT)})
    if (std::ifstream(folder / "index.html").is_open()) return folder;
  return std::nullopt;
}

ExitCode serveVenues(ServeOptions& options, const ConnectionOptions& connection) {
  if (options.folders.empty()) {
    const auto folder = demo::demoVenueFolder();
    if (!folder)
      throw CommandError(ExitCode::wrongUse,
                         "the demo venue is missing; specify a folder to serve");
    options.demoVenue = *folder;
  }
  if (!options.web) options.web = webPageFolder();
  options.username = connection.username;
  options.password = givenPassword(connection);
  return static_cast<ExitCode>(serve(options));
}

}  // namespace

void addServe(CLI::App& app, CommandLine& line) {
  ServeOptions& options = line.serve;
  auto& command = *app.add_subcommand("serve", "Serve venues over HTTP");
  command.footer(help::serveFooter);
  command.add_option("FOLDER", options.folders, "Venue packages, or folders that contain them")
      ->type_name("");
  command.add_option("--port", options.port, "TCP port; 0 selects a free one")
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--address", options.address, "IP address to listen on")
      ->type_name("ADDRESS")
      ->capture_default_str();
  command.add_option("--page-size", options.pageSize, "Records per page")
      ->check(CLI::PositiveNumber)
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--origin", options.origin, "Origin of the URLs in responses, see below")
      ->type_name("URL");
  command
      .add_option("--trusted-proxy", options.trustedProxies,
                  "Proxy whose X-Forwarded-* headers are trusted; may be repeated")
      ->type_name("ADDRESS")
      ->allow_extra_args(false);
  command
      .add_option("--allow-origin", options.allowedOrigins,
                  "Origin whose web pages may read responses, or *; may be repeated")
      ->type_name("URL")
      ->allow_extra_args(false);
  command
      .add_option("--web", options.web,
                  "Web page to serve at /; by default, the one that was built")
      ->type_name("FOLDER");
  addText(command, "--username", line.connection.username, "User name that clients must send",
          "TEXT");
  addText(command, "--password", line.connection.password, "Password that clients must send",
          "TEXT");
  addText(command, "--password-file", line.connection.passwordFile,
          "File that contains the password, or - for standard input", "FILE");
  command.callback([&line, &options] {
    line.chosen = [&line, &options] { return serveVenues(options, line.connection); };
  });
}

}  // namespace orivanta::command

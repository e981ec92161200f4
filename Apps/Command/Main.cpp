// The command `orivanta`: parses its command line and runs the chosen subcommand.
#include <fmt/format.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/Inspection.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Apps/Command/Suggestion.hpp"
#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace {

std::string describeUnknown(const CLI::App& command, const std::string& word, bool isCommand) {
  if (!word.starts_with('-'))
    return isCommand ? fmt::format("unknown command \"{}\".{}", word,
                                   didYouMean(word, commandNames(command)))
                     : fmt::format("unexpected argument \"{}\".", word);
  const std::string name = word.substr(0, word.find('='));
  return fmt::format("unknown option \"{}\".{}", name, didYouMean(name, optionNames(command)));
}

std::string describeFailure(const CLI::App* app, const CLI::Error& error) {
  const auto chosen = app->get_subcommands();
  const CLI::App& command = chosen.empty() ? *app : *chosen.front();
  const auto unknown = command.remaining();
  const std::string reason = unknown.empty()
                                 ? std::string(error.what())
                                 : describeUnknown(command, unknown.front(), chosen.empty());
  return fmt::format("orivanta: {}\nRun `orivanta {}--help` for more information.\n",
                     foundation::printable(reason), chosen.empty() ? "" : command.get_name() + " ");
}

void define(CLI::App& app, CommandLine& line) {
  app.footer(help::footer);
  app.set_version_flag("-V,--version", "orivanta " ORIVANTA_VERSION);
  app.require_subcommand(1);
  app.failure_message(describeFailure);
  app.get_formatter()->column_width(28);
  addQueryOptions(app, line);
  addVenues(app, line);
  addVenue(app, line);
  addSearch(app, line);
  addRoute(app, line);
  addWalk(app, line);
  addCosts(app, line);
  addRender(app, line);
  addView(app, line);
  addImport(app, line);
  addServe(app, line);
  addAudit(app, line);
  addCheck(app, line);
  addPublish(app, line);
  addCompletions(app, line);
  addManual(app, line);
  addHelp(app, line);
}

int end(ExitCode code, std::string_view reason) {
  ProgressLine::standardError().clear();
  complain(std::string(reason));
  return static_cast<int>(code);
}

int run(int argc, char** argv) {
  CommandLine line;
  CLI::App app(help::description, "orivanta");
  define(app, line);
  try {
    app.parse(argc, argv);
    return static_cast<int>(line.chosen());
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::wrongUse);
  } catch (const CommandError& error) {
    return end(error.code, error.what());
  } catch (const std::bad_alloc&) {
    return end(ExitCode::failed, "there is not enough memory");
  } catch (const std::exception& error) {
    return end(ExitCode::failed, fmt::format("the command failed unexpectedly: {}", error.what()));
  }
}

}  // namespace

}  // namespace orivanta::command

int main(int argc, char** argv) {
  // If a server or a reader closes the connection, writing fails instead of ending the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  const int code = orivanta::command::run(argc, argv);
  std::cout.flush();
  std::fflush(nullptr);
  // Requests may still be running on background threads, so nothing that they use may be destroyed.
  std::_Exit(code);
}

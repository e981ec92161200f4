#include <fmt/format.h>

#include <iostream>

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/Inspection.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/ManualPage.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ShellCompletions.hpp"
#include "Apps/Command/Suggestion.hpp"

namespace orivanta::command {

void addCompletions(CLI::App& app, CommandLine& line) {
  auto& command = *app.add_subcommand("completions", "Print the completions for a shell");
  command.footer(help::completionsFooter);
  command.add_option("SHELL", line.shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}))
      ->type_name("");
  command.callback([&app, &line] {
    line.chosen = [&app, &line] {
      std::cout << (line.shell == "bash"  ? bashCompletions(app)
                    : line.shell == "zsh" ? zshCompletions(app)
                                          : fishCompletions(app));
      return ExitCode::success;
    };
  });
}

void addManual(CLI::App& app, CommandLine& line) {
  auto& command = *app.add_subcommand("manual", "Print the manual page in man(1) format");
  command.callback([&app, &line] {
    line.chosen = [&app] {
      std::cout << manualPage(app, ORIVANTA_VERSION);
      return ExitCode::success;
    };
  });
}

void addHelp(CLI::App& app, CommandLine& line) {
  auto& command = *app.add_subcommand("help", "Describe a command and its options");
  command.add_option("COMMAND", line.topic, "Name of the command; all commands by default")
      ->type_name("");
  command.callback([&app, &line] {
    line.chosen = [&app, &line] {
      if (line.topic.empty()) {
        // `App::help` would describe the subcommand that was parsed, which is this one.
        std::cout << app.get_formatter()->make_help(&app, app.get_name(),
                                                    CLI::AppFormatMode::Normal);
        return ExitCode::success;
      }
      for (const CLI::App* each : commandsOf(app)) {
        if (each->get_name() != line.topic) continue;
        std::cout << each->help(app.get_name());
        return ExitCode::success;
      }
      throw CommandError(ExitCode::wrongUse,
                         fmt::format("there is no command \"{}\".{}", line.topic,
                                     didYouMean(line.topic, commandNames(app))));
    };
  });
}

}  // namespace orivanta::command

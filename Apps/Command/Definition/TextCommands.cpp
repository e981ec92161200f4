#include <iostream>

#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/ManualPage.hpp"
#include "Apps/Command/ShellCompletions.hpp"

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

}  // namespace orivanta::command

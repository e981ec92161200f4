#include "Apps/Command/ShellCompletions.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "Apps/Command/Definition/Inspection.hpp"

namespace orivanta::command {

namespace {

/// Returns the text in single quotes, with a backslash before each of the characters in `special`.
std::string quoted(std::string_view text, std::string_view special) {
  std::string result = "'";
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) result += '\\';
    result += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return result + "'";
}

bool takesFolders(const CLI::App& command) {
  const auto arguments = argumentsOf(command);
  return std::any_of(arguments.begin(), arguments.end(),
                     [](const auto* argument) { return argument->get_name() == "FOLDER"; });
}

/// Returns the spellings of all options of the program and its subcommands with this kind of value.
std::vector<std::string> optionsWith(OptionValue value, const CLI::App& app) {
  std::vector<const CLI::App*> commands = commandsOf(app);
  commands.push_back(&app);
  std::vector<std::string> names;
  for (const CLI::App* command : commands) {
    for (const CLI::Option* option : optionsOf(*command)) {
      if (valueOf(*option) != value) continue;
      for (const std::string& name : spellings(*option)) names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

std::string bashWords(const CLI::App& command) {
  std::vector<std::string> words = commandNames(command);
  const std::vector<std::string> options = optionNames(command);
  words.insert(words.end(), options.begin(), options.end());
  return fmt::format("{}", fmt::join(words, " "));
}

std::string zshOption(const CLI::Option& option) {
  const auto names = spellings(option);
  const bool repeats = option.get_items_expected_max() >= CLI::detail::expected_max_vector_size;
  std::string line;
  if (repeats) {
    line = "'*'";
  } else if (names.size() > 1) {
    line = fmt::format("'({})'", fmt::join(names, " "));
  }
  line += names.size() > 1 ? fmt::format("{{{}}}", fmt::join(names, ",")) : names.front();
  line += quoted("[" + option.get_description() + "]", ":");
  const std::string name = valueName(option);
  switch (valueOf(option)) {
    case OptionValue::none:
      return line;
    case OptionValue::file:
      return line + quoted(":" + name + ":_files", "");
    case OptionValue::folder:
      return line + quoted(":" + name + ":_files -/", "");
    case OptionValue::other:
      return line + quoted(":" + name + ":", "");
  }
  return line;
}

std::string zshArguments(const CLI::App& command) {
  std::string lines = "_arguments";
  for (const CLI::Option* option : optionsOf(command))
    lines += fmt::format(" \\\n        {}", zshOption(*option));
  // Without an entry for its arguments, zsh does not complete options after them.
  for (const CLI::Option* argument : argumentsOf(command))
    lines +=
        fmt::format(" \\\n        '{}:{}:{}'", argument->get_items_expected_max() > 1 ? "*" : "1",
                    argument->get_name(), argument->get_name() == "FOLDER" ? "_files -/" : "");
  return lines;
}

std::string fishOption(const std::string& condition, const CLI::Option& option) {
  std::string line = fmt::format("complete -c orivanta -n {}", quoted(condition, "\\"));
  for (const std::string& name : option.get_snames()) line += " -s " + name;
  for (const std::string& name : option.get_lnames()) line += " -l " + name;
  switch (valueOf(option)) {
    case OptionValue::none:
      break;
    case OptionValue::file:
      line += " -r -F";
      break;
    case OptionValue::folder:
      line += " -x -a '(__fish_complete_directories)'";
      break;
    case OptionValue::other:
      line += " -x";
      break;
  }
  return line + " -d " + quoted(option.get_description(), "\\") + "\n";
}

}  // namespace

std::string bashCompletions(const CLI::App& app) {
  std::string cases = fmt::format("    '') words='{}' ;;\n", bashWords(app));
  std::vector<std::string> withFolders;
  for (const CLI::App* command : commandsOf(app)) {
    cases += fmt::format("    {}) words='{}' ;;\n", command->get_name(), bashWords(*command));
    if (takesFolders(*command)) withFolders.push_back(command->get_name());
  }
  return fmt::format(R"(# Completions of the command orivanta for bash.
_orivanta() {{
  local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD - 1]}}
  local command='' word words=''
  for word in "${{COMP_WORDS[@]:1:COMP_CWORD-1}}"; do
    case $word in
      {commands}) command=$word; break ;;
    esac
  done
  COMPREPLY=()
  case $previous in
    {files}) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
    {folders}) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    {others}) return ;;
  esac
  case $command in
{cases}  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  if [[ $current != -* && $command =~ ^({withFolders})$ ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
  fi
}}
complete -F _orivanta orivanta
)",
                     fmt::arg("commands", fmt::join(commandNames(app), " | ")),
                     fmt::arg("files", fmt::join(optionsWith(OptionValue::file, app), " | ")),
                     fmt::arg("folders", fmt::join(optionsWith(OptionValue::folder, app), " | ")),
                     fmt::arg("others", fmt::join(optionsWith(OptionValue::other, app), " | ")),
                     fmt::arg("cases", cases),
                     fmt::arg("withFolders", fmt::join(withFolders, "|")));
}

std::string zshCompletions(const CLI::App& app) {
  std::string commands;
  std::string cases;
  for (const CLI::App* command : commandsOf(app)) {
    commands += " " + quoted(command->get_name() + ":" + command->get_description(), "");
    cases += fmt::format("        {}) {} ;;\n", command->get_name(), zshArguments(*command));
  }
  return fmt::format(R"(#compdef orivanta
# Completions of the command orivanta for zsh.
_orivanta() {{
  local curcontext=$curcontext state line
  local -a commands=({commands})
  {arguments} \
        '1:command:->command' '*::argument:->argument'
  case $state in
    command) _describe command commands ;;
    argument)
      case $line[1] in
{cases}      esac ;;
  esac
}}
_orivanta "$@"
)",
                     fmt::arg("commands", commands),
                     fmt::arg("arguments", zshArguments(app).insert(10, " -C")),
                     fmt::arg("cases", cases));
}

std::string fishCompletions(const CLI::App& app) {
  std::string script = "# Completions of the command orivanta for fish.\ncomplete -c orivanta -f\n";
  const std::string none =
      fmt::format("not __fish_seen_subcommand_from {}", fmt::join(commandNames(app), " "));
  for (const CLI::Option* option : optionsOf(app)) script += fishOption(none, *option);
  for (const CLI::App* command : commandsOf(app)) {
    script += fmt::format("complete -c orivanta -n {} -a {} -d {}\n", quoted(none, "\\"),
                          command->get_name(), quoted(command->get_description(), "\\"));
    const std::string chosen = "__fish_seen_subcommand_from " + command->get_name();
    for (const CLI::Option* option : optionsOf(*command)) script += fishOption(chosen, *option);
    if (takesFolders(*command))
      script +=
          fmt::format("complete -c orivanta -n '{}' -a '(__fish_complete_directories)'\n", chosen);
  }
  return script;
}

}  // namespace orivanta::command

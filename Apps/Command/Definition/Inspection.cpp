#include "Apps/Command/Definition/Inspection.hpp"

namespace orivanta::command {

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App*) { return true; });
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : commandsOf(app)) names.push_back(command->get_name());
  return names;
}

std::vector<const CLI::Option*> optionsOf(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::vector<const CLI::Option*> argumentsOf(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<std::string> spellings(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : optionsOf(app))
    for (const std::string& name : spellings(*option)) names.push_back(name);
  return names;
}

std::string valueName(const CLI::Option& option) {
  if (option.get_items_expected_max() == 0) return {};
  const std::string name = option.get_type_name();
  return name.substr(0, name.find(':'));  // the validators follow the colon
}

OptionValue valueOf(const CLI::Option& option) {
  if (option.get_items_expected_min() == 0) return OptionValue::none;
  const std::string name = valueName(option);
  if (name.starts_with("FILE")) return OptionValue::file;
  return name == "FOLDER" ? OptionValue::folder : OptionValue::other;
}

}  // namespace orivanta::command

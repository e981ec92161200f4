#include "Apps/Command/ManualPage.hpp"

#include <fmt/format.h>

#include <sstream>

#include "Apps/Command/Definition/Inspection.hpp"

namespace orivanta::command {

namespace {

/// Returns the text with the special characters of roff escaped.
std::string escaped(std::string_view text) {
  std::string result;
  if (text.starts_with('.') || text.starts_with('\'')) result = "\\&";
  for (const char c : text) {
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
  }
  return result;
}

/// Appends paragraphs, and indented lines with their line breaks.
void appendText(std::string& page, const std::string& text) {
  std::istringstream lines(text);
  bool kept = false;
  for (std::string line; std::getline(lines, line);) {
    const bool keeps = line.starts_with(' ');
    if (keeps != kept) page += keeps ? ".RS 2\n.nf\n" : ".fi\n.RE\n";
    kept = keeps;
    if (line.empty()) {
      page += ".PP\n";
    } else {
      page += escaped(keeps ? std::string_view(line).substr(2) : line) + '\n';
    }
  }
  if (kept) page += ".fi\n.RE\n";
}

void appendOption(std::string& page, const CLI::Option& option) {
  std::string names;
  for (const std::string& name : spellings(option))
    names += fmt::format("{}\\fB{}\\fR", names.empty() ? "" : ", ", escaped(name));
  if (const std::string value = valueName(option); !value.empty())
    names += fmt::format(" \\fI{}\\fR", escaped(value));
  page += fmt::format(".TP\n{}\n{}", names, escaped(option.get_description()));
  if (!option.get_default_str().empty())
    page += fmt::format(" (default: {})", escaped(option.get_default_str()));
  page += '\n';
}

std::string synopsis(const CLI::App& command) {
  std::string line = fmt::format("\\fBorivanta {}\\fR", escaped(command.get_name()));
  for (const CLI::Option* argument : argumentsOf(command)) {
    const std::string name = fmt::format("\\fI{}\\fR", escaped(argument->get_name()));
    const std::string_view more = argument->get_items_expected_max() > 1 ? "..." : "";
    line += argument->get_required() ? " " + name : fmt::format(" [{}{}]", name, more);
  }
  return line + " [\\fIoptions\\fR]";
}

void appendCommand(std::string& page, const CLI::App& command) {
  page += fmt::format(".SS {}\n{}.\n", synopsis(command), escaped(command.get_description()));
  for (const CLI::Option* argument : argumentsOf(command))
    page += fmt::format(".TP\n\\fI{}\\fR\n{}\n", escaped(argument->get_name()),
                        escaped(argument->get_description()));
  for (const CLI::Option* option : optionsOf(command)) appendOption(page, *option);
  page += ".PP\n";
  appendText(page, command.get_footer());
}

}  // namespace

std::string manualPage(const CLI::App& app, std::string_view version) {
  std::string page =
      fmt::format(".TH ORIVANTA 1 \"\" \"orivanta {}\" \"User Commands\"\n", version);
  page += ".SH NAME\norivanta \\- indoor venue maps\n.SH SYNOPSIS\n";
  const char* separator = "";
  for (const CLI::App* command : commandsOf(app)) {
    page += separator + synopsis(*command) + '\n';
    separator = ".br\n";
  }
  page += ".SH DESCRIPTION\n";
  appendText(page, app.get_description());
  page += ".SH OPTIONS\n";
  for (const CLI::Option* option : optionsOf(app)) appendOption(page, *option);
  page += ".SH COMMANDS\n";
  for (const CLI::App* command : commandsOf(app)) appendCommand(page, *command);
  page += ".SH NOTES\n";
  appendText(page, app.get_footer());
  return page;
}

}  // namespace orivanta::command

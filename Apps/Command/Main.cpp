#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
  CLI::App app("Indoor venue maps: list venues, load one, find routes.", "orivanta");
  app.require_subcommand(1);
  CLI11_PARSE(app, argc, argv);
  return 0;
}

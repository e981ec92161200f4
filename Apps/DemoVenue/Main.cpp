// orivanta_demo_venue FOLDER: writes the demo venue's package into a folder.
#include <cstdio>
#include <exception>

#include "Apps/DemoVenue/DemoVenue.hpp"

int main(int argc, char** argv) {
  if (argc != 2 || argv[1][0] == '-') {
    std::fputs("usage: orivanta_demo_venue FOLDER\n", stderr);
    return 2;
  }
  try {
    orivanta::demo::writeDemoVenue(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "orivanta_demo_venue: %s\n", error.what());
    return 1;
  }
  return 0;
}

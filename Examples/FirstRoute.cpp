// Loads the first venue of the web API and prints the directions from its first place to its last.
#include <orivanta/core.hpp>

#include <cstdlib>
#include <future>
#include <iostream>

using namespace orivanta;

int main() {
  if (const char* const endpoint = std::getenv("ORIVANTA_ENDPOINT"))
    setApiSettings({.endpoint = endpoint});
  std::promise<int> exitCode;
  getVenues([&](const auto& venues) {
    if (venues.empty()) {
      std::cerr << "no venue; is ORIVANTA_ENDPOINT set?\n";
      return exitCode.set_value(1);
    }
    getVenue(venues.front(), /*accessible=*/true, [&](const auto& venue) {
      if (venue->locations->empty()) return exitCode.set_value(1);
      const auto& from = venue->locations->front();
      const auto& to = venue->locations->back();
      if (const auto directions = from->directionsTo(*to))
        for (const auto& step : directions->directions) std::cout << step.instruction << '\n';
      exitCode.set_value(0);
    });
  });
  return exitCode.get_future().get();
}

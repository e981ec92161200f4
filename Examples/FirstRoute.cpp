// Loads the first venue of the API and prints the way from its first place to its last.
#include <orivanta/orivanta.hpp>

#include <future>
#include <iostream>

using namespace orivanta;

int main() {
  std::promise<void> finished;
  getVenues([&](const auto& venues) {
    if (venues.empty()) return finished.set_value();
    getVenue(venues.front(), /*accessible=*/true, [&](const auto& venue) {
      if (venue->locations->empty()) return finished.set_value();
      const auto& from = venue->locations->front();
      const auto& to = venue->locations->back();
      if (const auto directions = from->directionsTo(*to))
        for (const auto& step : directions->directions) std::cout << step.instruction << '\n';
      finished.set_value();
    });
  });
  finished.get_future().wait();
}

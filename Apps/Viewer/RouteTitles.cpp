#include "Apps/Viewer/RouteTitles.hpp"

#include <algorithm>
#include <cstddef>
#include <map>

#include "Apps/Viewer/Content/ShownName.hpp"
#include "Source/Location.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

using Texts = std::vector<std::string>;

void addOnce(Texts& list, std::string text) {
  if (!text.empty() && std::find(list.begin(), list.end(), text) == list.end())
    list.push_back(std::move(text));
}

std::string joined(const Texts& list) {
  std::string all;
  for (const std::string& text : list) all += (all.empty() ? "" : ", ") + text;
  return all;
}

class Titling {
 public:
  Titling(const std::vector<GuidedRoute>& routes, const guidance::Guide& guide,
          const guidance::InterfaceTexts& texts)
      : routes_(routes), guide_(guide), texts_(texts) {}

  Texts run() {
    std::map<std::string, std::vector<std::size_t>> equal;
    for (std::size_t i = 0; i < routes_.size(); ++i) {
      titles_.push_back(routes_[i].summary);
      equal[titles_.back()].push_back(i);
    }
    for (const auto& [summary, group] : equal)
      if (group.size() > 1) distinguish(group);
    number();
    return std::move(titles_);
  }

 private:
  void distinguish(const std::vector<std::size_t>& group) {
    for (const auto feature : {&Titling::kinds, &Titling::signs}) {
      Texts found;
      for (const std::size_t route : group) addOnce(found, (this->*feature)(routes_[route]));
      if (found.size() < group.size()) continue;
      for (std::size_t i = 0; i < group.size(); ++i) append(group[i], found[i]);
      return;
    }
    for (const std::size_t route : group) append(route, wayOf(route, group));
  }

  void append(std::size_t route, const std::string& text) {
    if (!text.empty()) titles_[route] += " \u00B7 " + text;
  }

  std::string kinds(const GuidedRoute& route) const {
    Texts kinds;
    for (const guidance::Leg& leg : route.itinerary.legs)
      if (leg.connector) addOnce(kinds, connectorName(*leg.connector, texts_));
    return joined(kinds);
  }

  std::string signs(const GuidedRoute& route) const {
    Texts signs;
    for (const guidance::Leg& leg : route.itinerary.legs)
      if (!leg.sign.empty()) addOnce(signs, texts_.name(leg.sign));
    return joined(signs);
  }

  Texts placesOf(const GuidedRoute& route) const {
    Texts places;
    const auto add = [&](const std::shared_ptr<Location>& place) {
      if (place) addOnce(places, guide_.spokenName(place));
    };
    for (const guidance::Step& step : route.steps) {
      for (const auto& room : step.through) add(room);
      for (const guidance::Passed& passed : step.passed)
        if (!passed.category) add(passed.place);
      if (step.landmark && !step.landmark->category) add(step.landmark->place);
    }
    return places;
  }

  // Returns the first place of a route that no other one of the group mentions.
  std::string wayOf(std::size_t route, const std::vector<std::size_t>& group) const {
    Texts others;
    for (const std::size_t other : group)
      if (other != route)
        for (std::string& place : placesOf(routes_[other])) addOnce(others, std::move(place));
    for (const std::string& place : placesOf(routes_[route]))
      if (std::find(others.begin(), others.end(), place) == others.end())
        return texts_.text("interface.route.via", {{"place", texts_.name(place)}});
    return "";
  }

  // Numbers the titles that are still equal.
  void number() {
    const Texts all = titles_;
    std::map<std::string, int> counts;
    for (std::size_t i = 0; i < all.size(); ++i)
      if (std::count(all.begin(), all.end(), all[i]) > 1)
        append(i, std::to_string(++counts[all[i]]));
  }

  const std::vector<GuidedRoute>& routes_;
  const guidance::Guide& guide_;
  const guidance::InterfaceTexts& texts_;
  Texts titles_;
};

}  // namespace

std::vector<std::string> routeTitles(const std::vector<GuidedRoute>& routes,
                                     const guidance::Guide& guide,
                                     const guidance::InterfaceTexts& texts) {
  return Titling(routes, guide, texts).run();
}

}  // namespace orivanta::viewer

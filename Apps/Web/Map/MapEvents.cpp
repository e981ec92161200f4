#include "Apps/Web/Map/MapEvents.hpp"

#include <boost/json/serialize.hpp>
#include <string>
#include <utility>

#include "Apps/Web/Map/PageFunctions.hpp"

namespace orivanta::web {

void MapEvents::report(const char* type, boost::json::object event) const {
  event["type"] = type;
  const std::string text = boost::json::serialize(event);
  orivantaMapEvent(map_, text.data(), text.size());
}

}  // namespace orivanta::web

#include "Source/Location.hpp"

namespace orivanta {

std::shared_ptr<Location> Location::make(const RawData& data) {
  return makeRecord<Location>(data, {"id", "name", "type"}, {});
}

Location::Location(RecordToken, const RawData& data)
    : _data(data),
      id(data["id"].stringForce()),
      name(data["name"].stringForce()),
      type(data["type"].stringForce()),
      description(data["description"].string()),
      logo(data["logo"].imageCollection()),
      picture(data["picture"].imageCollection()) {}

}  // namespace orivanta

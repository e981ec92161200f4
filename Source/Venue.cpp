#include "Source/Venue.hpp"

namespace orivanta {

std::shared_ptr<Venue> Venue::make(const RawData& data) {
  return makeRecord<Venue>(data, {"id", "slug", "name"}, {});
}

Venue::Venue(RecordToken, const RawData& data)
    : _data(data),
      id(data["id"].stringForce()),
      slug(data["slug"].stringForce()),
      name(data["name"].stringForce()),
      logo(data["logo"].imageCollection()),
      coverImage(data["cover-image"].imageCollection()) {}

}  // namespace orivanta

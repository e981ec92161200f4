#include "Source/Polygon.hpp"

namespace orivanta {

std::shared_ptr<Polygon> Polygon::make(const RawData& data) {
  return makeRecord<Polygon>(data, {"id"}, {});
}

Polygon::Polygon(RecordToken, const RawData& data)
    : _data(data), id(data["id"].stringForce()), hashValue(identityHash(this)) {}

}  // namespace orivanta

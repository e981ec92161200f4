#include "Source/Map.hpp"

namespace orivanta {

std::shared_ptr<Map> Map::make(const RawData& data) { return makeRecord<Map>(data, {"id"}, {}); }

Map::Map(RecordToken, const RawData& data)
    : _data(data),
      id(data["id"].stringForce()),
      name(data["name"].stringValue()),
      shortName(data["shortName"].stringValue()),
      elevation(data["elevation"].doubleValue()),
      obj(data["scene"]["obj"].url()),
      mtl(data["scene"]["mtl"].url()),
      hashValue(identityHash(this)) {}

}  // namespace orivanta

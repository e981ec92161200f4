#include "Source/Category.hpp"

namespace orivanta {

std::shared_ptr<Category> Category::make(const RawData& data) {
  return makeRecord<Category>(data, {"id", "name"}, {});
}

Category::Category(RecordToken, const RawData& data)
    : _data(data), id(data["id"].stringForce()), name(data["name"].stringForce()) {}

}  // namespace orivanta

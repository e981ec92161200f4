#include "Source/Vortex.hpp"

#include "Source/Weights.hpp"

namespace orivanta {

std::shared_ptr<Vortex> Vortex::make(const RawData& data) {
  return makeRecord<Vortex>(data, {"id", "name", "type"}, {});
}

Vortex::Vortex(RecordToken token, const RawData& data)
    : Location(token, data),
      accessible(data["accessible"].bool_().value_or(true)),
      constantWeight(constantWeightOf(data)),
      multiplierWeight(multiplierWeightOf(data)) {}

}  // namespace orivanta

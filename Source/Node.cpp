#include "Source/Node.hpp"

#include "Source/Weights.hpp"

namespace orivanta {

std::shared_ptr<Node> Node::make(const RawData& data) {
  return makeRecord<Node>(data, {"id"}, {"x", "y"});
}

Node::Node(RecordToken, const RawData& data)
    : _data(data),
      id(data["id"].stringForce()),
      x(data["x"].doubleForce()),
      y(data["y"].doubleForce()),
      z(data["z"].doubleValue()),
      constantWeight(constantWeightOf(data)),
      multiplierWeight(multiplierWeightOf(data)),
      hashValue(identityHash(this)) {}

}  // namespace orivanta

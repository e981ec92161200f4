// Compares vectors with a tolerance and converts vertices and indices to bytes.
#pragma once

#include <gtest/gtest.h>

#include <glm/geometric.hpp>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Geometry.hpp"

namespace orivanta::test {

inline testing::AssertionResult areNear(const graphics::Vector3& actual,
                                        const graphics::Vector3& expected,
                                        float tolerance = 1e-4F) {
  if (glm::distance(actual, expected) <= tolerance) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") is not (" << expected.x
         << ", " << expected.y << ", " << expected.z << ")";
}

template <class Value>
scene::SharedBytes bytesOf(std::initializer_list<Value> values) {
  const auto bytes = std::as_bytes(std::span(values.begin(), values.size()));
  return std::make_shared<const std::vector<std::byte>>(bytes.begin(), bytes.end());
}

}  // namespace orivanta::test

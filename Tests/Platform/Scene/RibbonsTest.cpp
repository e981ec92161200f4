#include "Platform/Scene/Ribbons.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace orivanta::scene {
namespace {

TEST(Ribbons, LeaveOutCornersThatAreNotNeeded) {
  const std::vector<std::uint8_t> twoColors{1, 1, 2};
  const struct {
    Ribbons::Line line;
    std::vector<float> corners;  ///< distances
    std::size_t triangles;
  } cases[]{{{{{0, 0, 0}, {1, 0.01F, 0}, {2, 0, 0}, {4, 0, 0}}, {}}, {0, 4}, 2},
            {{{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {4, 0, 0}}, twoColors}, {0, 2, 4}, 4},
            {{{{0, 0, 0}, {2, 0, 0}, {2, 0, 9}, {2.01F, 0, 9}, {4, 0, 9}}, {}}, {0, 2, 13}, 4},
            {{{{0, 0, 0}, {3, 0, 0}, {3, 4, 0}}, {}, true}, {0, 3, 7, 12}, 6},
            {{{{0, 0, 0}, {3, 0, 0}, {3, 4, 0}, {0, 0.01F, 0}}, {}, true}, {0, 3, 7, 12}, 6},
            {{{{0, 0, 0}, {NAN, 0, 0}, {2, 0, 0}}, {}}, {0, 2}, 2},
            {{{{0, 0, 0}, {2, 0, 0}, {0, 0.2F, 0}}, {}, false, true}, {0, 2, 4}, 4 + 4 * 6},
            {{{{0, 0, 0}, {0.01F, 0, 0}}, {}, true}, {}, 0},
            {{{}, {}, true}, {}, 0}};
  for (const auto& each : cases) {
    const auto ribbons = Ribbons::make({&each.line, 1}, 0.02);
    std::set<float> corners;
    for (const auto& vertex : ribbons->vertices()) corners.insert(std::round(vertex.distance));
    EXPECT_EQ(std::vector<float>(corners.begin(), corners.end()), each.corners);
    EXPECT_EQ(ribbons->indices().size(), 3 * each.triangles);
    EXPECT_EQ(ribbons->parts().size(), each.corners.empty() ? 0U : 1U);
    for (const std::uint32_t index : ribbons->indices())
      EXPECT_LT(index, ribbons->vertices().size());
  }
}

}  // namespace
}  // namespace orivanta::scene

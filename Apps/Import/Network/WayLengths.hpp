// The lengths of ways in a network that grows.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Keeps a reference to the network and takes up what is added to it. Ways lead along lines in both
/// directions and through no connector.
class WayLengths {
 public:
  explicit WayLengths(const Network& network) : network_(network) {}

  /// The length of the shortest way between two nodes in meters; infinite if it is longer than
  /// `limit`, and after a great deal of work.
  double between(std::size_t from, std::size_t to, double limit);

 private:
  void takeUp();

  const Network& network_;
  std::vector<std::vector<std::pair<std::size_t, double>>> neighbors_;
  std::vector<double> lengths_;
  std::vector<std::size_t> reached_;
  std::size_t edges_ = 0;              // that were taken up
  std::size_t stepsLeft_ = 1'000'000;  // along lines
};

}  // namespace orivanta::importer

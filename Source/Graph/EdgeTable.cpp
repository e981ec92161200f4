#include "Source/Graph/EdgeTable.hpp"

namespace orivanta {

void EdgeTable::add(std::vector<Block> blocks) {
  std::size_t rowCount = rows_.size();
  for (const Block& block : blocks) rowCount += block.rows.size();
  rows_.reserve(rowCount);
  edges_.reserve(edges_.size() + blocks.size());
  for (Block& block : blocks) {
    for (Row& row : block.rows) rows_.insert(std::move(row));
    edges_.push_back(std::move(block.edges));
  }
}

void EdgeTable::set(const std::shared_ptr<Node>& origin, std::vector<Edge> edges) {
  edges_.push_back(std::move(edges));
  rows_[origin] = edges_.back();
}

std::span<const Edge> EdgeTable::operator[](const Node& node) const {
  const auto row = rows_.find(&node);
  return row == rows_.end() ? std::span<const Edge>() : row->second;
}

}  // namespace orivanta

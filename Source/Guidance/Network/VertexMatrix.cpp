#include "Source/Guidance/Network/VertexMatrix.hpp"

#include <unordered_map>

#include "Platform/Foundation/ParallelFor.hpp"

namespace orivanta::guidance {

VertexMatrix::VertexMatrix(const SearchContext& context, const CostTable& costs,
                           const std::vector<const Ends*>& stops)
    : context_(context), costs_(costs), stops_(stops) {
  for (std::size_t stop = 0; stop < stops.size(); ++stop) {
    first_.push_back(vertices_.size());
    for (const Index vertex : stops[stop]->vertices) {
      vertices_.push_back(vertex);
      stopOf_.push_back(stop);
    }
  }
  first_.push_back(vertices_.size());
  values_.assign(vertices_.size() * vertices_.size(), impossible);
  foundation::parallelFor(first_[stops.size() - 1], [&](std::size_t row) { fill(row); });
}

void VertexMatrix::fill(std::size_t row) {
  if (context_.token.isCanceled()) return;
  const Ends& start = *stops_[stopOf_[row]];
  std::unordered_multimap<Index, std::size_t> columns;
  NetworkSearch search(context_, costs_, stops_.size());
  for (std::size_t column = 0; column < size(); ++column)
    if (stopOf_[column] != stopOf_[row]) columns.emplace(vertices_[column], column);
  for (std::size_t stop = 0; stop < stops_.size(); ++stop)
    if (stop != stopOf_[row]) search.aimAt(*stops_[stop]);
  search.startFrom(start, vertices_[row]);
  for (std::size_t left = columns.size(); left != 0;) {
    const auto vertex = search.next();
    if (!vertex) break;
    const auto [begin, end] = columns.equal_range(*vertex);
    for (auto entry = begin; entry != end; ++entry) {
      std::int64_t& value = values_[row * size() + entry->second];
      if (value == impossible) --left;
      value = search.cost(*vertex);
    }
  }
}

}  // namespace orivanta::guidance

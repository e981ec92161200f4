// Finds records by the identifiers that a person may use for them.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace orivanta::importer {

/// The positions of records by their own identifier and by that of their source.
class IdIndex {
 public:
  template <class Records>
  explicit IdIndex(const Records& records) {
    for (std::size_t i = 0; i < records.size(); ++i) add(records[i], i);
  }

  template <class Record>
  void add(const Record& record, std::size_t position) {
    positions_[record.id].push_back(position);
    if constexpr (requires { record.source; })
      if (record.source != record.id && !record.source.empty())
        positions_[record.source].push_back(position);
  }

  /// Ascending. Valid until the next record is added.
  const std::vector<std::size_t>& of(const std::string& id) const {
    static const std::vector<std::size_t> none;
    const auto found = positions_.find(id);
    return found == positions_.end() ? none : found->second;
  }

  bool contains(const std::string& id) const { return positions_.contains(id); }

 private:
  std::unordered_map<std::string, std::vector<std::size_t>> positions_;
};

}  // namespace orivanta::importer

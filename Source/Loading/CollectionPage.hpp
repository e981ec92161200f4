// Reads the records of one page of a collection.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <memory>
#include <string>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/RawData.hpp"
#include "Source/RecordMemory.hpp"

namespace orivanta {

/// Adds the records of a page to a collection. Skips elements that are not valid records. Throws
/// `BudgetExceeded`.
template <class Record>
Collection<Record> withPage(Collection<Record> records, const RawData& page,
                            foundation::MemoryBudget& budget) {
  const boost::json::array* elements = page.data()->if_array();
  if (elements == nullptr) return records;
  for (const boost::json::value& element : *elements)
    if (auto record = Record::make(
            RawData(std::shared_ptr<const boost::json::value>(page.data(), &element)))) {
      budget.take(memoryOfRecord(*record));
      const std::string& id = foundation::unwrap(record->id);
      records.insert_or_assign(id, std::move(record));
    }
  return records;
}

}  // namespace orivanta

// A grouping of locations, arranged in a hierarchy.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// The venue owns its categories; the links below do not, since they form cycles. A link whose
/// record is gone with its venue locks to null.
class ORIVANTA_API Category {
 public:
  /// Needs texts under "id" and "name"; null without them.
  static std::shared_ptr<Category> make(const RawData& data);
  Category(RecordToken, const RawData& data);  ///< for `make`
  Category(const Category&) = delete;
  Category& operator=(const Category&) = delete;

  RawData _data;                                   ///< the JSON of which the record was made
  std::optional<std::string> id;                   ///< the identifier; never absent after `make`
  std::optional<std::string> name;                 ///< never absent after `make`
  std::vector<std::weak_ptr<Category>> parents;    ///< the categories that this one belongs to
  std::vector<std::weak_ptr<Category>> children;   ///< the categories that belong to this one
  std::vector<std::weak_ptr<Location>> locations;  ///< the locations of the category
};

}  // namespace orivanta

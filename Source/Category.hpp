// A category of locations; categories form a hierarchy.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// The venue owns its categories. The links are weak references because they form cycles; `lock`
/// returns null when the record no longer exists.
class ORIVANTA_API Category {
 public:
  /// Returns null unless there are strings under "id" and "name".
  static std::shared_ptr<Category> make(const RawData& data);
  Category(RecordToken, const RawData& data);  ///< for `make`
  Category(const Category&) = delete;
  Category& operator=(const Category&) = delete;

  RawData _data;                                   ///< the JSON of which the record was made
  std::optional<std::string> id;                   ///< never absent after `make`
  std::optional<std::string> name;                 ///< never absent after `make`
  std::vector<std::weak_ptr<Category>> parents;    ///< the categories that contain this one
  std::vector<std::weak_ptr<Category>> children;   ///< the categories that this one contains
  std::vector<std::weak_ptr<Location>> locations;  ///< the locations of the category
};

}  // namespace orivanta

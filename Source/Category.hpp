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
  Category(RecordToken, const RawData& data);
  Category(const Category&) = delete;
  Category& operator=(const Category&) = delete;

  RawData _data;
  std::optional<std::string> id;
  std::optional<std::string> name;
  std::vector<std::weak_ptr<Category>> parents;
  std::vector<std::weak_ptr<Category>> children;
  std::vector<std::weak_ptr<Location>> locations;
};

}  // namespace orivanta

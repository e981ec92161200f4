// The identifiers by which one record's JSON refers to others: a text, a list of texts, or a list
// of objects with a text each. Read in place, since a large venue has hundreds of thousands.
#pragma once

#include <boost/json/value.hpp>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta {

using JsonHandle = std::shared_ptr<const boost::json::value>;

/// A function that is called with each identifier; it must not keep the view beyond the data.
class ReferenceVisitor {
 public:
  // Not explicit, so that call sites may write a lambda.
  template <class Function>
  ReferenceVisitor(Function&& function)  // NOLINT
      : context_(&function), call_([](void* context, std::string_view id) {
          (*static_cast<std::remove_reference_t<Function>*>(context))(id);
        }) {}
  void operator()(std::string_view id) const { call_(context_, id); }

 private:
  void* context_;
  void (*call_)(void*, std::string_view);
};

/// The text under a key of an object. Returns nothing if there is none or for a null pointer.
std::optional<std::string_view> referenceIn(const boost::json::value* object, std::string_view key);

/// Visits the texts under `member` of the elements of the array under a key of an object, in order.
/// Elements without such a text are skipped. An empty `member` means the elements themselves.
void forEachReference(const boost::json::value* object, std::string_view key,
                      std::string_view member, ReferenceVisitor visit);

/// The identifiers of several objects, concatenated. Those of object i end at `ends[i]`.
struct References {
  std::vector<std::string_view> ids;
  std::vector<std::size_t> ends;
};

/// What `forEachReference` visits for each object. Much faster than one by one when the JSON is not
/// in the cache. `share` takes 64 bytes for each element of the arrays, for the identifiers and for
/// what the caller looks up with them.
References referencesOf(std::span<const JsonHandle* const> objects, std::string_view key,
                        std::string_view member, foundation::BudgetShare& share);

}  // namespace orivanta

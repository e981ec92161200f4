// The identifiers by which the JSON of one record refers to other records: a string, a list of
// strings, or a list of objects with a string each. They are read in place because a large venue
// has hundreds of thousands.
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

/// A function that is called with each identifier. It must not use the view after the JSON is
/// released.
class ReferenceVisitor {
 public:
  // Not explicit, so that callers can pass a lambda.
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

/// Returns the string under a key of an object. Returns nothing if there is none or if `object` is
/// null.
std::optional<std::string_view> referenceIn(const boost::json::value* object, std::string_view key);

/// Visits the strings under `member` of the elements of the array under a key of an object, in
/// order. Elements without such a string are skipped. If `member` is empty, the elements are the
/// strings.
void forEachReference(const boost::json::value* object, std::string_view key,
                      std::string_view member, ReferenceVisitor visit);

/// The identifiers of several objects, concatenated. The identifiers of object i end at `ends[i]`.
struct References {
  std::vector<std::string_view> ids;
  std::vector<std::size_t> ends;
};

/// Returns the identifiers that `forEachReference` visits for each object. Much faster than
/// separate calls if the JSON is not in the cache. `share` takes 64 bytes per element of the
/// arrays, for the identifiers and for the records that the caller looks up.
References referencesOf(std::span<const JsonHandle* const> objects, std::string_view key,
                        std::string_view member, foundation::BudgetShare& share);

}  // namespace orivanta

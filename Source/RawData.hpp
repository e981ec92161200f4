// A JSON value or no value, with access by key and typed readers.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/Fwd.hpp"

namespace boost::json {
class value;
}

namespace orivanta {

namespace foundation {
class MemoryBudget;
}

/// Thrown by the readers whose name ends in `Force`.
class ORIVANTA_API RawDataError : public std::exception {
 public:
  /// The kinds of errors.
  enum Case {
    CantForceCast  ///< the value is missing or of another kind
  };

  /// Creates an error of this kind.
  explicit RawDataError(Case which) : case_(which) {}

  /// Returns a description for users.
  const char* what() const noexcept override;

  friend bool operator==(const RawDataError& left, const RawDataError& right) {
    return left.case_ == right.case_;
  }

  /// Returns a hash of the kind.
  std::size_t hashValue() const { return static_cast<std::size_t>(case_); }

 private:
  Case case_;
};

/// A handle to an immutable JSON value in a parsed document. Copies share the value, and each copy
/// keeps the whole document alive. Thread-safe.
///
/// Each reader has up to three variants that accept the same values. If the value is missing, null
/// or of another kind, the plain reader returns nothing, the reader ending in `Value` returns a
/// fixed default, and the reader ending in `Force` throws `RawDataError`.
class ORIVANTA_API RawData {
 public:
  /// Parses a response body: UTF-8 JSON (RFC 8259) with an object or an array at the top level.
  /// Returns nothing for any other input: a number or a string at the top level, invalid UTF-8, a
  /// number outside the range of a double, or more than 1,000 levels of nesting. If a key occurs
  /// twice, the last value is used. The result does not refer to the bytes.
  static std::optional<RawData> parse(std::string_view bytes);

  /// Parses within a budget, which may be null. The document counts against the budget as long as a
  /// handle exists, and the temporary memory of the parser during the call. Throws `std::bad_alloc`
  /// if the memory or the budget is not sufficient.
  static std::optional<RawData> parse(std::string_view bytes,
                                      const std::shared_ptr<foundation::MemoryBudget>& budget);

  /// Creates a handle without a value.
  RawData() = default;

  /// Creates a handle to a value; null means no value.
  explicit RawData(std::shared_ptr<const boost::json::value> value) : data_(std::move(value)) {}

  /// Returns the value, or null if there is none. Include <boost/json/value.hpp> to use it.
  const std::shared_ptr<const boost::json::value>& data() const { return data_; }

  /// Returns the elements of an array, including nulls. Returns an empty list for any other value.
  std::vector<RawData> arrayValue() const;

  /// Returns the value under this exact key of an object. The result has no value if there is none.
  RawData operator[](std::string_view key) const;

  /// Returns a boolean. A number is true if it is not zero.
  std::optional<bool> bool_() const;

  /// Returns a string. A number is not converted.
  std::optional<std::string> string() const;
  std::string stringValue() const;  ///< default ""
  std::string stringForce() const;  ///< throws if there is no string

  /// Returns a number; true is 1 and false is 0. A string is not converted.
  std::optional<double> double_() const;
  double doubleValue() const;  ///< default 0.0
  double doubleForce() const;  ///< throws if there is no number

  std::shared_ptr<const ImageCollection> imageCollection() const;       ///< null if there is none
  std::shared_ptr<const ImageCollection> imageCollectionForce() const;  ///< throws if there is none

  /// Returns a string that is a valid URL, which may be relative. Nothing is escaped.
  std::optional<foundation::Url> url() const;

 private:
  std::optional<std::string_view> text() const;  // valid while a handle to the document exists

  std::shared_ptr<const boost::json::value> data_;
};

}  // namespace orivanta

/// Hash of an error, by its kind.
template <>
struct std::hash<orivanta::RawDataError> {
  /// Returns the hash.
  std::size_t operator()(const orivanta::RawDataError& error) const { return error.hashValue(); }
};

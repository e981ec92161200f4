// One JSON value, or nothing, with navigation by key and typed readers.
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

  /// An error of this kind.
  explicit RawDataError(Case which) : case_(which) {}

  /// A text for people.
  const char* what() const noexcept override;

  friend bool operator==(const RawDataError& left, const RawDataError& right) {
    return left.case_ == right.case_;
  }

  /// The hash, by the case.
  std::size_t hashValue() const { return static_cast<std::size_t>(case_); }

 private:
  Case case_;
};

/// A handle to an immutable JSON value inside a parsed document. Copies share the value, and each
/// keeps the whole document alive. All operations are pure and may be called from several threads
/// at once.
///
/// Each reader comes in up to three flavors that accept the same values: the plain one yields
/// nothing when the value is missing, null or of another kind; the one ending in `Value` yields a
/// fixed default instead; the one ending in `Force` throws `RawDataError`.
class ORIVANTA_API RawData {
 public:
  /// Parses a response body: UTF-8 JSON (RFC 8259) with an object or an array at the top level.
  /// Nothing when it is anything else: a bare number or text, damaged UTF-8, a number beyond the
  /// range of a double, nesting deeper than 1,000 levels. Of a key given twice the last value
  /// counts. The bytes are not referred to afterwards.
  static std::optional<RawData> parse(std::string_view bytes);

  /// The same within a budget, which may be null. It pays for the document as long as anybody holds
  /// it, and for what parsing needs beside it. Throws `std::bad_alloc` if memory or budget do not
  /// suffice.
  static std::optional<RawData> parse(std::string_view bytes,
                                      const std::shared_ptr<foundation::MemoryBudget>& budget);

  /// Wraps nothing.
  RawData() = default;

  /// Wraps a value; null wraps nothing.
  explicit RawData(std::shared_ptr<const boost::json::value> value) : data_(std::move(value)) {}

  /// The wrapped value, or null for nothing. To look into it, include <boost/json/value.hpp>.
  const std::shared_ptr<const boost::json::value>& data() const { return data_; }

  /// The elements of an array, nulls included; empty for anything else.
  std::vector<RawData> arrayValue() const;

  /// The value under exactly this key of an object; wraps nothing when there is none.
  RawData operator[](std::string_view key) const;

  /// A boolean; of a number, whether it is not zero.
  std::optional<bool> bool_() const;

  /// A text; never a number turned into text.
  std::optional<std::string> string() const;
  std::string stringValue() const;  ///< default ""
  std::string stringForce() const;  ///< throws without a text

  /// A number; true is 1 and false is 0. Never a text turned into a number.
  std::optional<double> double_() const;
  double doubleValue() const;  ///< default 0.0
  double doubleForce() const;  ///< throws without a number

  std::shared_ptr<const ImageCollection> imageCollection() const;       ///< null for nothing
  std::shared_ptr<const ImageCollection> imageCollectionForce() const;  ///< throws without images

  /// A text that is a well-formed URL as it stands, relative ones included.
  std::optional<foundation::Url> url() const;

 private:
  std::optional<std::string_view> text() const;  // valid as long as a handle to the document

  std::shared_ptr<const boost::json::value> data_;
};

}  // namespace orivanta

/// Hash of an error, by its case.
template <>
struct std::hash<orivanta::RawDataError> {
  /// The hash.
  std::size_t operator()(const orivanta::RawDataError& error) const { return error.hashValue(); }
};

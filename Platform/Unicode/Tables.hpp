// The tables that make-tables writes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orivanta::unicode {

/// The properties of a code point, with the numbers of utf8proc.
struct Properties {
  std::uint8_t category;        ///< `utf8proc_category_t`
  std::uint8_t combiningClass;  ///< 0 for all but marks
  std::uint8_t bidiClass;       ///< `utf8proc_bidi_class_t`
  std::uint8_t isIgnorable;     ///< 1 if it has no visible form
  std::uint8_t width;           ///< in columns of a terminal
  std::uint8_t graphemeClass;   ///< `utf8proc_boundclass_t`
};

/// The size of a block of the table of properties.
constexpr std::size_t blockSize = 128;

extern const Properties properties[];        ///< the distinct ones
extern const std::uint8_t propertyBlocks[];  ///< indices into `properties`, in blocks
extern const std::uint16_t blockNumbers[];   ///< the block of each `blockSize` code points
extern const std::size_t expandedCount;      ///< the number of code points that are expanded
extern const std::uint16_t expandedGaps[];   ///< these, each as the difference from the one before
extern const std::uint8_t expansionLengths[];  ///< the lengths of their expansions
extern const std::size_t compositionCount;     ///< the number of pairs that are composed

// Packed numbers, see `PackedNumbers`, which compress to a fifth of plain ones.
extern const std::uint8_t
    expansionFirsts[];  ///< the first point of each expansion, less the expanded one
extern const std::uint8_t expansionRests[];      ///< all other points of all expansions
extern const std::uint8_t compositionFirsts[];   ///< the base of each pair
extern const std::uint8_t compositionSeconds[];  ///< the mark of each pair
extern const std::uint8_t composedPoints[];      ///< what each pair is composed to, ascending

/// Reads numbers that make-tables has packed.
class PackedNumbers {
 public:
  /// Starts with the first number.
  explicit PackedNumbers(const std::uint8_t* bytes) : bytes_(bytes) {}

  /// Returns the next number. There must be one.
  std::int32_t next() {
    std::uint32_t difference = 0;
    for (unsigned shift = 0;; shift += 7) {
      const std::uint8_t byte = *bytes_++;
      difference |= (byte & 0x7FU) << shift;
      if (byte < 0x80) break;
    }
    const auto half = static_cast<std::int32_t>(difference >> 1U);
    last_ += (difference & 1U) == 0 ? half : -half - 1;
    return last_;
  }

 private:
  const std::uint8_t* bytes_;
  std::int32_t last_ = 0;
};

}  // namespace orivanta::unicode

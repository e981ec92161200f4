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

/// Two code points that are composed to one.
struct Composition {
  std::uint32_t first;     ///< the base
  std::uint32_t second;    ///< the mark
  std::uint32_t composed;  ///< the result
};

/// The size of a block of the table of properties.
constexpr std::size_t blockSize = 128;

extern const Properties properties[];        ///< the distinct ones
extern const std::uint8_t propertyBlocks[];  ///< indices into `properties`, in blocks
extern const std::uint16_t blockNumbers[];   ///< the block of each `blockSize` code points
extern const std::size_t expandedCount;      ///< the number of code points that are expanded
extern const std::uint16_t expandedGaps[];   ///< these, each as the difference from the one before
extern const std::uint8_t expansionLengths[];  ///< the lengths of their expansions
extern const std::uint32_t expansions[];       ///< all expansions, folded and decomposed
extern const std::size_t compositionCount;     ///< the number of pairs
extern const Composition compositions[];       ///< sorted by both parts

}  // namespace orivanta::unicode

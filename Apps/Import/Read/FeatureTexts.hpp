// Finds the elements of the array of a JSON file, such as the features of GeoJSON, so that they can
// be parsed one by one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::importer {

/// The parts of a text. They refer to it.
struct FeatureTexts {
  std::string frame;           ///< the text with an empty array of features
  std::size_t frameStart = 0;  ///< how many bytes of the frame are before the features
  std::vector<std::string_view> features;
  bool found = false;  ///< the text has an array of features
  bool cut = false;    ///< the text ends within the array
  bool tooMany = false;
};

/// Splits the text of an object at the elements of its member `array`, or the text of an array at
/// its elements. The elements need not be valid. Stops with `tooMany` after `most` elements. Takes
/// time in proportion to the length of the text, at any depth of nesting.
FeatureTexts splitFeatures(std::string_view text, std::size_t most,
                           std::string_view array = "features");

}  // namespace orivanta::importer

// Finds the storeys of an IndoorGML document.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

/// The value of a key in a description such as `storey="1":indoor="stair":` or `level=1;desc=;`;
/// empty if there is none. The key is in lower case.
std::string descriptionValue(std::string_view description, std::string_view key);

/// The ordinal in a text such as "1", "B2", "3F" or "1-2" (the first one).
std::optional<double> ordinalIn(std::string_view text);

/// What a cell says about its storey; empty if it says nothing.
std::string statedStorey(const GmlSpace& cell);

class GmlStoreys {
 public:
  struct Storey {
    double ordinal = 0.0;
    double z = 0.0;         ///< in the units of the document
    std::string shortName;  ///< as in the document; may be empty
  };

  /// From the storeys that cells state, or else from their heights.
  explicit GmlStoreys(const GmlDocument& document);

  /// Ascending.
  const std::vector<Storey>& all() const { return storeys_; }

  /// The ordinal of a cell.
  double of(const GmlSpace& cell) const;

  /// The ordinal of the storey whose height is the nearest.
  double at(double z) const;

  /// From one storey to the next, in the units of the document; 0 if it is not known.
  double height() const { return height_; }

  /// Whether the cells state their storeys.
  bool stated() const { return stated_; }

 private:
  void readStated(const GmlDocument& document);
  void cluster(const GmlDocument& document);
  void measure(const GmlDocument& document);

  std::vector<Storey> storeys_;
  double height_ = 0.0;
  bool stated_ = false;
};

}  // namespace orivanta::importer

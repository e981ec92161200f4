// What is wrong or doubtful in a source or a package, and what a person can do about it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

enum class Severity { info, warning, violation };

/// One thing to look at. All texts are whole sentences except where stated. Make one with
/// designated initializers: `findings.add({.rule = "room-without-door", .source = id, .message =
/// "..."})`.
struct Finding {
  Severity severity = Severity::warning;
  std::string rule = {};    ///< a stable name, such as "room-without-door"
  std::string source = {};  ///< the identifier of the record in the source; empty for a whole file
  std::string file = {};    ///< the name of the file; may be empty
  std::string field = {};   ///< the member or tag, such as "level"; may be empty
  std::optional<double> level = {};      ///< ordinal of the storey
  std::optional<Point> position = {};    ///< meters; of a package, the venue's units
  std::string message = {};              ///< what is wrong, with the values concerned
  std::string effect = {};               ///< what happens because of it; may be empty
  std::string advice = {};               ///< what to do; may be empty
  std::optional<std::size_t> line = {};  ///< of the file, from 1; where the record begins
  std::string map = {};                  ///< the floor's identifier, in findings about a package
};

/// Collects findings. Of each rule it keeps the first 1,000 and counts the others.
class Findings {
 public:
  void add(Finding finding);

  /// Ordered by severity, worst first, then by storey, rule and identifier.
  std::vector<Finding> sorted() const;

  /// How many were added, those that were not kept included.
  std::size_t count() const;
  std::size_t count(Severity severity) const;
  std::size_t countOf(const std::string& rule) const;

 private:
  std::vector<Finding> kept_;
  std::map<std::string, std::size_t> counts_;
  std::map<Severity, std::size_t> severities_;
};

}  // namespace orivanta::importer

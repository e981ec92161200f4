// The values in a file of corrections, and findings about them.
#pragma once

#include <boost/json/object.hpp>
#include <boost/json/value.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// The number in a member; nothing if there is none.
std::optional<double> fixNumber(const boost::json::object& object, std::string_view key);

/// The kind of area that a word such as "corridor" means.
std::optional<AreaKind> fixedKind(std::string_view word);

/// The names in the value of "name": a text, or an object of texts by language.
std::optional<Names> namesIn(const boost::json::value& value);

/// Reports that a correction is ignored. `field` may be empty.
void addIgnoredFix(Findings& findings, const char* rule, const std::string& file,
                   const std::string& id, std::string_view field, std::string message,
                   std::string advice);

}  // namespace orivanta::importer

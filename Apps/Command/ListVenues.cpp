#include "Apps/Command/ListVenues.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Command/Table.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

using foundation::label;
using foundation::printable;

ExitCode listVenues(const ListVenuesOptions& options) {
  const auto venues = Session(options.connection).fetchVenues();
  boost::json::array array;
  Table table({Alignment::left, Alignment::left});
  for (const auto& venue : venues) {
    array.push_back({{"id", *venue->id}, {"slug", *venue->slug}, {"name", *venue->name}});
    table.add({printable(*venue->slug), label(*venue->name)});
  }
  writeOutput(options.json ? text::jsonText(array) + '\n' : table.text());
  if (venues.empty()) complain("the server has no venues for this account");
  return ExitCode::success;
}

}  // namespace orivanta::command

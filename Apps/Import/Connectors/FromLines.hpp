// Connectors from drawn lines and from the source's own network.
#pragma once

#include <string_view>
#include <vector>

#include "Apps/Import/Connectors/Surroundings.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// The word for a kind in identifiers, such as "stairs".
std::string_view wordOf(ConnectorKind kind);

/// The word for a kind in sentences, such as "moving walkway".
std::string_view wordFor(ConnectorKind kind);

/// The connector of a line; nothing for lines of other kinds. A line on one storey joins its ends.
std::optional<Connector> connectorOf(const Line& line, const Surroundings& surroundings,
                                     Findings& findings);

/// One connector for each group of links of one kind that touch each other. Its stops are the nodes
/// where people walk on, or else its open ends. `areas` are searched for the polygons of the stops.
std::vector<Connector> connectorsOfLinks(const Building& building);

}  // namespace orivanta::importer

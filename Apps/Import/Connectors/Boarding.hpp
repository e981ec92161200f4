// At which sides of a piece people can board it.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"
#include "Apps/Import/Connectors/Surroundings.hpp"

namespace orivanta::importer {

using Contacts = std::vector<Contact>;

/// The doors and openings between the piece and other areas on its storey, or else, if `anywhere`
/// is true, those that lead anywhere.
Contacts doorsOf(const Piece& piece, const Surroundings& surroundings, bool anywhere);

/// Doors to other areas, or else the sides with steps, or else the short sides, or else all sides,
/// or else any doors. The sides are those that touch the space.
Contacts boardable(const Piece& piece, const Surroundings& surroundings);

/// Where steps at one side show that a piece is boarded, even if nothing is drawn beside it.
/// `contacts` are those of `boardable`.
std::optional<Point> endWithSteps(const Piece& piece, const Contacts& contacts);

/// Two contacts on different sides. Opposite sides are better, then long contacts.
std::optional<std::pair<Contact, Contact>> bestPair(const Contacts& first, const Contacts& second);

}  // namespace orivanta::importer

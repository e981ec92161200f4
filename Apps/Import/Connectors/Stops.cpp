#include "Apps/Import/Connectors/Stops.hpp"

#include <algorithm>
#include <optional>

#include "Apps/Import/Connectors/Boarding.hpp"
#include "Apps/Import/Connectors/StepEdges.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

namespace {

constexpr double mostOverlap = 0.25;  // of a flight with the space that it leads to

const Contact& longest(const Contacts& contacts) {
  return *std::max_element(contacts.begin(), contacts.end(),
                           [](const Contact& a, const Contact& b) { return a.length < b.length; });
}

const Contact& farthest(const Contacts& contacts, Point from) {
  return *std::max_element(
      contacts.begin(), contacts.end(), [&](const Contact& a, const Contact& b) {
        return package::distance(a.position, from) < package::distance(b.position, from);
      });
}

Stop stopAt(const Piece& piece, double level, Point position) {
  Stop stop;
  stop.spot = {level, position};
  if (piece.area != nullptr && piece.level == level) stop.area = piece.area->id;
  return stop;
}

bool hasLeaf(const Contacts& contacts) {
  return std::any_of(contacts.begin(), contacts.end(),
                     [](const Contact& contact) { return contact.leaf; });
}

// The end of a flight that leads away from the next flight, if they do not lie on each other: that
// is where it is boarded, even if the space is drawn a little away from it.
std::optional<Point> outerEnd(const Piece& piece, const Piece& next, const Contacts& contacts,
                              const Surroundings& surroundings) {
  constexpr double besideSpace = 4.0;
  if (piece.area == nullptr || next.area == nullptr || contains(piece.shape, next.box.center) ||
      contains(next.shape, piece.box.center))
    return std::nullopt;
  const bool ahead = package::distance(piece.box.end(1.0), next.box.center) >
                     package::distance(piece.box.end(-1.0), next.box.center);
  for (const Contact& contact : contacts)
    if (contact.side == (ahead ? Side::end : Side::start)) return contact.position;
  const Point end = piece.box.end(ahead ? 1.0 : -1.0);
  // Without any contact, the flight leads out of what is drawn.
  const bool usable = contacts.empty() || surroundings.distance(piece.level, end) < besideSpace;
  return usable ? std::optional(end) : std::nullopt;
}

struct Ends {
  Point lower;
  Point upper;
};

// The opposite ends of two straight flights that lie on each other, if only one way round leads
// from space to space.
std::optional<Ends> oppositeEnds(const std::vector<const Piece*>& pieces,
                                 const std::vector<Contacts>& contacts,
                                 const Surroundings& surroundings) {
  const Piece& lower = *pieces[0];
  const Piece& upper = *pieces[1];
  constexpr double straight = 1.5;
  const double turn = package::dot(lower.box.along, upper.box.along);
  if (lower.area == nullptr || upper.area == nullptr || std::abs(turn) < 0.95 ||
      lower.box.length < straight * lower.box.width ||
      upper.box.length < straight * upper.box.width ||
      !(contains(lower.shape, upper.box.center) || contains(upper.shape, lower.box.center)))
    return std::nullopt;
  const auto endOf = [](const Piece& piece, const Contacts& all, double sign) {
    for (const Contact& contact : all)
      if (contact.side == (sign > 0.0 ? Side::end : Side::start)) return contact.position;
    return piece.box.end(sign);
  };
  const auto ends = [&](double sign) {
    return Ends{endOf(lower, contacts[0], sign),
                endOf(upper, contacts[1], turn > 0.0 ? -sign : sign)};
  };
  const auto cost = [&](const Ends& one) {
    return surroundings.distance(lower.level, one.lower) +
           surroundings.distance(upper.level, one.upper);
  };
  constexpr double clearly = 1.5;  // meters
  const Ends forward = ends(1.0);
  const Ends backward = ends(-1.0);
  const double difference = cost(forward) - cost(backward);
  if (std::abs(difference) < clearly) return std::nullopt;
  return difference < 0.0 ? forward : backward;
}

// Where a piece without contact is left: a straight flight at the other end than it is entered.
Point exitOf(const Piece& piece, std::optional<Point> entered, const Surroundings& surroundings) {
  const Point nearest = nearestTo(piece, surroundings.space(piece.level));
  const bool straight =
      piece.kind != ConnectorKind::elevator && piece.box.length > 2.2 * piece.box.width;
  if (!entered || !straight || surroundings.distance(piece.level, nearest) < 2.0) return nearest;
  const Point start = piece.box.end(-1.0);
  const Point end = piece.box.end(1.0);
  return package::distance(start, *entered) > package::distance(end, *entered) ? start : end;
}

}  // namespace

std::vector<Stop> stopsOf(const std::vector<const Piece*>& pieces,
                          const Surroundings& surroundings) {
  std::vector<Contacts> contacts;
  contacts.reserve(pieces.size());
  for (const Piece* piece : pieces) contacts.push_back(boardable(*piece, surroundings));
  std::vector<std::optional<Point>> marked;
  marked.reserve(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i)
    marked.push_back(endWithSteps(*pieces[i], contacts[i]));
  if (pieces.size() == 2 && !marked[0] && !marked[1] &&
      pieces[0]->kind != ConnectorKind::elevator && !hasLeaf(contacts[0]) && !hasLeaf(contacts[1]))
    if (const auto ends = oppositeEnds(pieces, contacts, surroundings))
      return {stopAt(*pieces[0], pieces[0]->level, ends->lower),
              stopAt(*pieces[1], pieces[1]->level, ends->upper)};
  std::vector<Stop> stops;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Piece& piece = *pieces[i];
    std::optional<Point> end = marked[i];
    if (!end && piece.kind != ConnectorKind::elevator && pieces.size() == 2 &&
        !hasLeaf(contacts[i]))
      end = outerEnd(piece, *pieces[1 - i], contacts[i], surroundings);
    if (end) {
      stops.push_back(stopAt(piece, piece.level, *end));
    } else if (contacts[i].empty()) {
      std::optional<Point> other;
      if (!stops.empty()) other = stops.back().spot.position;
      if (!other && i + 1 < pieces.size() && !contacts[i + 1].empty())
        other = longest(contacts[i + 1]).position;
      stops.push_back(stopAt(piece, piece.level, exitOf(piece, other, surroundings)));
    } else if (piece.kind == ConnectorKind::elevator || hasLeaf(contacts[i])) {
      // All doors of a shaft or a stairwell can be used.
      if (!contacts[i].front().door) contacts[i] = {longest(contacts[i])};
      for (const Contact& contact : contacts[i])
        stops.push_back(stopAt(piece, piece.level, contact.position));
    } else {
      // A flight is left at the other end than it is entered, unless only one end is open.
      std::optional<Point> other;
      if (!stops.empty()) other = stops.back().spot.position;
      if (!other && i + 1 < pieces.size() && contacts[i + 1].size() == 1)
        other = contacts[i + 1].front().position;
      const Contact& chosen = other ? farthest(contacts[i], *other) : longest(contacts[i]);
      stops.push_back(stopAt(piece, piece.level, chosen.position));
    }
  }
  return stops;
}

bool joinsItsStorey(const Piece& piece, const Surroundings& surroundings) {
  if (piece.kind == ConnectorKind::elevator || !hasStepsAcross(piece)) return false;
  const Contacts contacts = boardable(piece, surroundings);
  const auto pair = bestPair(contacts, contacts);
  return pair && pair->first.steps && pair->first.side == opposite(pair->second.side);
}

std::vector<Stop> stopsOnStorey(const Piece& piece, const Surroundings& surroundings) {
  if (piece.area == nullptr) return {};
  const bool between =
      doorsOf(piece, surroundings, false).size() >= 2 || joinsItsStorey(piece, surroundings);
  const Contacts all =
      between ? boardable(piece, surroundings) : contactsOf(piece, surroundings.space(piece.level));
  const auto isAlong = [&](const Contact& contact) {
    return !isShort(contact.side) && contact.length > 0.5 * piece.box.length;
  };
  // Beside an escalator that leads to another height, people do not walk along.
  if (piece.kind == ConnectorKind::escalator && std::any_of(all.begin(), all.end(), isAlong))
    return {};
  const auto pair = bestPair(all, all);
  if (!pair) return {};
  return {stopAt(piece, piece.level, pair->first.position),
          stopAt(piece, piece.level, pair->second.position)};
}

std::vector<Stop> stopsOfSingle(const Piece& piece, const Surroundings& surroundings) {
  const Contacts own = boardable(piece, surroundings);
  const bool between = doorsOf(piece, surroundings, false).size() >= 2;
  const bool flight =
      !between && (piece.kind == ConnectorKind::stairs || piece.kind == ConnectorKind::escalator);
  if (flight && piece.area != nullptr && !own.empty() && !joinsItsStorey(piece, surroundings))
    for (const int steps : {1, -1, 2, -2})
      for (const double level : surroundings.neighbors(piece.level, steps)) {
        if (shareWithin(piece, surroundings.space(level)) >= mostOverlap) continue;
        const auto pair = bestPair(own, contactsOf(piece, surroundings.space(level)));
        if (!pair) continue;
        std::vector<Stop> stops = {stopAt(piece, piece.level, pair->first.position),
                                   stopAt(piece, level, pair->second.position)};
        if (steps < 0) std::reverse(stops.begin(), stops.end());
        return stops;
      }
  if (piece.kind != ConnectorKind::elevator && piece.kind != ConnectorKind::escalator)
    if (std::vector<Stop> stops = stopsOnStorey(piece, surroundings); !stops.empty()) return stops;
  return stopsOf({&piece}, surroundings);
}

void applyDirection(std::vector<Stop>& stops, Direction direction) {
  if (stops.size() < 2 || (direction != Direction::forward && direction != Direction::backward))
    return;
  Stop& start = direction == Direction::forward ? stops.front() : stops.back();
  Stop& end = direction == Direction::forward ? stops.back() : stops.front();
  start.leave = false;
  end.enter = false;
}

}  // namespace orivanta::importer

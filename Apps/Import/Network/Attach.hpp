// Hangs doors, connectors and places on the main lines of a network.
#pragma once

#include <optional>
#include <vector>

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Works on the lines that the draft has when it is made; lines that it adds are stubs, to which
/// nothing else is attached. Nodes may be added to the draft meanwhile, but no lines removed.
class Attach {
 public:
  /// Whether lines may bend to a door beside them.
  enum class Lines { keep, bend };

  /// Keeps references to its arguments.
  Attach(Draft& draft, const Space& space, Ways& ways, Lines lines);

  /// Joins a node of the draft with the nearest line in sight, otherwise by the shortest way round
  /// corners. A door beside a line in the open becomes a point of the line. Returns false if there
  /// is no way.
  bool attach(std::uint32_t node);

  /// Joins a node with the nearest line without regard to borders. Returns false if there is none
  /// within a distance.
  bool attachAnyhow(std::uint32_t node, double within);

  /// The distance to the nearest line; `atMost` if there is none within it.
  double distanceToLine(Point point, double atMost) const;

  /// Divides the lines at the points where something was attached. Call it once, at the end.
  void finish();

 private:
  // A point on a line. Lines beyond the edges of the draft are single nodes.
  struct Foot {
    std::size_t line;
    double fraction;
    Point position;
    double distance;
  };
  struct Attachment {
    double fraction;
    Point position;
    std::uint32_t node;
    bool onLine;  // the node itself becomes a point of the line
  };

  std::vector<Foot> feetNear(Point point, double within) const;
  std::optional<Foot> footInSight(const DraftNode& node, double within) const;
  void record(const Foot& foot, std::uint32_t node);
  bool isSingle(std::size_t line) const { return line >= edges_.size(); }
  bool canBeOnLine(const Foot& foot, const DraftNode& node) const;
  void addStub(std::uint32_t node, std::uint32_t foot);
  void divide(std::size_t line);

  Draft& draft_;
  const Space& space_;
  Ways& ways_;
  std::vector<std::size_t> edges_;      // of the lines, in the draft
  std::vector<std::uint32_t> singles_;  // nodes without lines
  SegmentGrid grid_;                    // of the lines
  Lines mayBend_;
  std::vector<std::vector<Attachment>> attachments_;  // of each line
};

/// Adds nodes so that no point of the space is more than 9 m away from all lines.
void coverSpace(const Shape& shape, const Space& space, Draft& draft, Attach& attach);

}  // namespace orivanta::importer

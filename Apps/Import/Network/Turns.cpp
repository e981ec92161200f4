#include "Apps/Import/Network/Turns.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <queue>
#include <utility>

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr Index noNode = std::numeric_limits<Index>::max();
constexpr double notReached = std::numeric_limits<double>::infinity();
constexpr std::size_t mostReached = 200;      // nodes from each end
constexpr std::size_t mostExamined = 2'000;   // examined from each end
constexpr std::size_t mostTurnsAtNode = 128;  // at a node

class TurnCounter {
 public:
  explicit TurnCounter(const Draft& draft)
      : lines_(draft.nodes.size()), reached_(draft.nodes.size()), turns_(draft.nodes.size()) {
    std::vector<bool> isOnLine(draft.nodes.size());
    for (const DraftEdge& edge : draft.edges) {
      if (edge.inRoom || edge.from == edge.to) continue;
      const double length = draft.lengthOf(edge);
      lines_[edge.from].push_back({edge.to, length});
      lines_[edge.to].push_back({edge.from, length});
      if (!edge.stub) isOnLine[edge.from] = isOnLine[edge.to] = true;
    }
    for (Index i = 0; i < lines_.size(); ++i) {
      reached_[i].isEnd = draft.nodes[i].kind != NodeKind::way;
      reached_[i].isClosed = reached_[i].isEnd && !isOnLine[i];
    }
  }

  std::vector<std::vector<Turn>> run() {
    for (Index i = 0; i < lines_.size(); ++i)
      if (reached_[i].isEnd && !lines_[i].empty()) {
        search(i);
        count(i);
      }
    return std::move(turns_);
  }

 private:
  struct Line {
    Index to;
    double length;
  };
  struct Reached {
    double length = notReached;
    Index before = noNode;
    Index ends = 0;  // behind the node
    bool isEnd = false;
    bool isClosed = false;  // ways do not lead through the node
  };

  // Reaches nodes in the order of their distances.
  void search(Index start) {
    for (const Index node : touched_) {
      reached_[node].length = notReached;
      reached_[node].before = noNode;
      reached_[node].ends = 0;
    }
    touched_.assign(1, start);
    order_.clear();
    reached_[start].length = 0.0;
    using Entry = std::pair<double, Index>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    open.emplace(0.0, start);
    std::size_t examined = 0;
    while (!open.empty() && order_.size() < mostReached && examined < mostExamined) {
      const auto [length, node] = open.top();
      open.pop();
      if (length > reached_[node].length) continue;
      order_.push_back(node);
      if (reached_[node].isClosed && node != start) continue;
      for (const Line& line : lines_[node]) {
        if (++examined > mostExamined) break;
        Reached& next = reached_[line.to];
        const double all = length + line.length;
        if (all >= next.length) continue;
        if (next.length == notReached) touched_.push_back(line.to);
        next.length = all;
        next.before = node;
        open.emplace(all, line.to);
      }
    }
  }

  // Each way is counted once: from the end with the lower number.
  void count(Index start) {
    for (std::size_t i = order_.size(); i-- > 1;) {
      const Index node = order_[i];
      Reached& reached = reached_[node];
      if (reached.isEnd && node > start) ++reached.ends;
      if (reached.ends == 0) continue;
      const Index middle = reached.before;
      if (middle == start) continue;
      reached_[middle].ends += reached.ends;
      add(middle, reached_[middle].before, node, reached.ends);
    }
  }

  void add(Index node, Index from, Index to, Index uses) {
    if (from > to) std::swap(from, to);
    std::vector<Turn>& turns = turns_[node];
    const auto known = std::find_if(turns.begin(), turns.end(), [&](const Turn& turn) {
      return turn.from == from && turn.to == to;
    });
    if (known != turns.end())
      known->uses += uses;
    else if (turns.size() < mostTurnsAtNode)
      turns.push_back({from, to, static_cast<double>(uses)});
  }

  std::vector<std::vector<Line>> lines_;
  std::vector<Reached> reached_;
  std::vector<Index> touched_;
  std::vector<Index> order_;
  std::vector<std::vector<Turn>> turns_;
};

}  // namespace

std::vector<std::vector<Turn>> countTurns(const Draft& draft) { return TurnCounter(draft).run(); }

}  // namespace orivanta::importer

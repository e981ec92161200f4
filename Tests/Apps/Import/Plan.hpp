// Buildings drawn with characters, and questions about the networks that are made from them.
//
// One character is a square: '.' is a walkway, '#' a wall, '+' a door in a wall, 'o' an obstacle,
// ' ' nothing, and every other character belongs to the room of that name.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <queue>
#include <string>
#include <vector>

#include "Apps/Import/Geometry/Shapes.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

class Plan {
 public:
  Plan(std::vector<std::string> rows, double cell = 1.0) : rows_(std::move(rows)), cell_(cell) {
    std::map<char, Shape> shapes;
    for (std::size_t y = 0; y < rows_.size(); ++y)
      for (std::size_t x = 0; x < rows_[y].size(); ++x) add(x, y, shapes);
    for (const auto& [name, shape] : shapes) {
      Area area;
      area.id = area.source = std::string(1, name);
      area.kind = name == '.'   ? AreaKind::walkway
                  : name == 'o' ? AreaKind::obstacle
                                : AreaKind::room;
      area.shape = united(snapped(shape, 1e-4));
      building.areas.push_back(std::move(area));
    }
  }

  Plan& make(Options options = {}) {
    repairShapes(building, options, findings);
    joinDoors(building, options, findings);
    makeNetwork(building, options, findings);
    return *this;
  }

  /// The middle of the first square with a character, or of the n-th.
  Point find(char name, int n = 0) const {
    for (std::size_t y = 0; y < rows_.size(); ++y)
      for (std::size_t x = 0; x < rows_[y].size(); ++x)
        if (rows_[y][x] == name && n-- == 0) return middle(x, y);
    return {};
  }

  std::size_t nodeOf(const std::string& id) const {
    for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
      if (building.network.nodes[i].id == id) return i;
    ADD_FAILURE() << "no node " << id;
    return 0;
  }

  /// The length of the shortest way between two nodes; -1 if there is none.
  double way(const std::string& from, const std::string& to) const {
    const auto& [nodes, edges] = building.network;
    std::vector<double> lengths(nodes.size(), 1e9);
    lengths[nodeOf(from)] = 0.0;
    for (bool changed = true; changed;) {
      changed = false;
      for (const Edge& edge : edges) {
        const double length = package::distance(nodes[edge.from].position, nodes[edge.to].position);
        for (const auto& [a, b] : {std::pair(edge.from, edge.to), std::pair(edge.to, edge.from)}) {
          if (lengths[a] + length >= lengths[b] - 1e-9) continue;
          if (edge.oneWay && a != edge.from) continue;
          lengths[b] = lengths[a] + length;
          changed = true;
        }
      }
    }
    const double length = lengths[nodeOf(to)];
    return length < 1e9 ? length : -1.0;
  }

  /// How many lines pass a wall, an obstacle or nothing.
  int linesThroughWalls() const {
    int count = 0;
    const auto& [nodes, edges] = building.network;
    for (const Edge& edge : edges) {
      const Point a = nodes[edge.from].position;
      const Point b = nodes[edge.to].position;
      bool blocked = false;
      for (int i = 0; i <= 200 && !blocked; ++i) blocked = isBlocked(a + (b - a) * (i / 200.0));
      if (blocked) ++count;
    }
    return count;
  }

  bool isBlocked(Point point) const {
    const double x = point.x / cell_;
    const double y = static_cast<double>(rows_.size()) - point.y / cell_;
    if (x < 0 || y < 0 || y >= static_cast<double>(rows_.size())) return true;
    const std::string& row = rows_[static_cast<std::size_t>(y)];
    const auto column = static_cast<std::size_t>(x);
    return column >= row.size() || std::string("# o").find(row[column]) != std::string::npos;
  }

  Building building;
  Findings findings;

 private:
  Point middle(std::size_t x, std::size_t y) const {
    return Point{static_cast<double>(x) + 0.5, static_cast<double>(rows_.size() - y) - 0.5} * cell_;
  }

  void add(std::size_t x, std::size_t y, std::map<char, Shape>& shapes) {
    const char name = rows_[y][x];
    const Point at = middle(x, y);
    if (name == '+') {
      Door door;
      door.id = door.source = "door" + std::to_string(building.doors.size() + 1);
      door.position = at;
      building.doors.push_back(door);
    } else if (name != ' ' && name != '#') {
      const double half = cell_ / 2.0;
      shapes[name].push_back(
          {package::rectangle(at.x - half, at.y - half, at.x + half, at.y + half), {}});
    }
    // An obstacle stands on a walkway.
    if (name == 'o') rows_[y][x] = '.', add(x, y, shapes), rows_[y][x] = 'o';
  }

  std::vector<std::string> rows_;
  double cell_;
};

}  // namespace orivanta::importer

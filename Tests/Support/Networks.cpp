#include "Tests/Support/Networks.hpp"

#include <fmt/format.h>

#include <cctype>
#include <vector>

#include "Source/Vortex.hpp"

namespace orivanta::test {

namespace {

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines(1);
  for (const char character : text)
    if (character == '\n')
      lines.emplace_back();
    else
      lines.back() += character;
  return lines;
}

class Drawing {
 public:
  explicit Drawing(std::string_view text) : lines_(linesOf(text)) {}

  template <class Visit>
  void forEachNode(const Visit& visit) const {
    for (int line = 0; line < static_cast<int>(lines_.size()); ++line)
      for (int column = 0; column < static_cast<int>(lines_[std::size_t(line)].size()); ++column)
        if (isNode(at(column, line))) visit(at(column, line), column, line);
  }

  /// The JSON list of the nodes that can be reached directly from a node.
  std::string pathsFrom(int column, int line) const {
    std::string paths;
    for (const auto& [dx, dy, way, against] :
         {Step{1, 0, '-', '<'}, Step{0, 1, '|', '^'}, Step{-1, 0, '-', '>'}, Step{0, -1, '|', 'v'}})
      if (const char node = follow(column, line, {dx, dy, way, against}))
        paths += fmt::format(R"({}{{"node": "{}"}})", paths.empty() ? "" : ", ", node);
    return "[" + paths + "]";
  }

 private:
  struct Step {
    int dx, dy;
    char way, against;
  };

  static bool isNode(char character) {
    return std::isupper(static_cast<unsigned char>(character)) != 0 ||
           std::isdigit(static_cast<unsigned char>(character)) != 0;
  }

  char at(int column, int line) const {
    if (line < 0 || line >= static_cast<int>(lines_.size())) return ' ';
    const std::string& text = lines_[std::size_t(line)];
    return column < 0 || column >= static_cast<int>(text.size()) ? ' ' : text[std::size_t(column)];
  }

  // The node at the other end of a connection, or 0.
  char follow(int column, int line, const Step& step) const {
    const std::string_view heads = step.way == '-' ? "<>" : "^v";
    while (true) {
      column += step.dx;
      line += step.dy;
      const char character = at(column, line);
      if (isNode(character)) return character;
      if (character == step.against) return 0;
      if (character != step.way && heads.find(character) == std::string_view::npos) return 0;
    }
  }

  std::vector<std::string> lines_;
};

}  // namespace

std::shared_ptr<Node> makeNode(double x, double y, double z, const std::string& id) {
  static const auto data = RawData::parse(R"({"id": "node", "x": 0, "y": 0})");
  auto node = Node::make(*data);
  node->id = id;
  node->x = x;
  node->y = y;
  node->z = z;
  return node;
}

DrawnNetwork::DrawnNetwork(std::string_view text, const std::map<char, double>& weights) {
  const Drawing drawing(text);
  drawing.forEachNode([&](char name, int column, int line) {
    const auto weight = weights.find(name);
    const auto json = RawData::parse(fmt::format(
        R"({{"id": "{}", "x": {}, "y": {}, "weight": {}, "paths": {}}})", name, column, line,
        weight == weights.end() ? 0.0 : weight->second, drawing.pathsFrom(column, line)));
    nodes.insert({std::string(1, name), Node::make(*json)});
  });
  graph = std::make_unique<NavigationGraph>(nodes, Collection<Vortex>{}, false);
}

NodeList DrawnNetwork::operator()(std::string_view names) const {
  NodeList list;
  for (const char name : names) list.push_back(nodes.at(std::string(1, name)));
  return list;
}

std::string namesOf(const NodeList& path) {
  std::string names;
  for (const auto& node : path) names += node->id.value_or("?");
  return names;
}

}  // namespace orivanta::test

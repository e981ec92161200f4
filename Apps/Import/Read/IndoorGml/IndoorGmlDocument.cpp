#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Read/IndoorGml/GmlLayers.hpp"
#include "Apps/Import/Read/IndoorGml/GmlNodes.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// References lead to faces, or to surfaces with faces, not further.
constexpr int deepestReference = 3;

bool isFace(std::string_view name) {
  return name == "Polygon" || name == "PolygonPatch" || name == "Triangle" || name == "Rectangle";
}

std::size_t lineAt(const std::string& text, std::ptrdiff_t offset) {
  const auto end = text.begin() + std::min(offset, static_cast<std::ptrdiff_t>(text.size()));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

class Reader {
 public:
  Reader(const SourceFile& file, const Limits& limits, std::size_t& vertices, Findings& findings)
      : file_(file), limits_(limits), vertices_(vertices), findings_(findings) {
    result_.file = file.name;
  }

  GmlDocument read() {
    parse();
    const pugi::xml_node root = document_.document_element();
    if (localName(root.name()) != "IndoorFeatures")
      fail(
          fmt::format("the root element is \"{}\", not IndoorFeatures; is this IndoorGML 1.0 or "
                      "1.1?",
                      localName(root.name())));
    result_.name = childText(root, "name");
    forElementsIn(root, [&](pugi::xml_node element) {
      if (const std::string id = attributeOf(element, "id"); !id.empty())
        byId_.emplace(id, element);
      if (result_.reference.empty()) result_.reference = attributeOf(element, "srsName");
      return true;
    });
    forElementsIn(root, [&](pugi::xml_node element) { return readElement(element); });
    chooseGmlLayers(result_, findings_);
    return std::move(result_);
  }

 private:
  [[noreturn]] void fail(const std::string& cause) const {
    throw SourceError(file_.name + ": " + cause);
  }

  // The parser needs about 64 bytes for each element, text and attribute. Elements have two
  // brackets.
  void parse() {
    const std::size_t pieces = static_cast<std::size_t>(
        std::count_if(file_.bytes.begin(), file_.bytes.end(),
                      [](char character) { return character == '<' || character == '='; }));
    if (pieces > 2 * limits_.vertices)
      fail(
          fmt::format("there are more than {} tags and attributes, which take too much memory; "
                      "import a part of the building",
                      2 * limits_.vertices));
    const pugi::xml_parse_result parsed =
        document_.load_buffer(file_.bytes.data(), file_.bytes.size(), pugi::parse_default);
    if (parsed) return;
    fail(
        fmt::format("line {} is no valid XML ({}); the file may be cut off, so fetch or export it "
                    "again",
                    lineAt(file_.bytes, parsed.offset), parsed.description()));
  }

  [[noreturn]] void failForSize() const {
    fail(fmt::format("there are more than {} positions; import a part of the building",
                     limits_.vertices));
  }

  void report(const std::string& id, const char* message) {
    Finding finding;
    finding.rule = "feature-unreadable";
    finding.source = id;
    finding.file = file_.name;
    finding.message = message;
    finding.effect = "It is left out.";
    finding.advice = "Correct it, or export the file again.";
    findings_.add(std::move(finding));
  }

  // Returns whether the contents are of interest.
  bool readElement(pugi::xml_node element) {
    const std::string_view member = localName(element.parent().name());
    const std::string_view name = localName(element.name());
    if (member == "cellSpaceMember") return readSpace(element, result_.cells);
    if (member == "cellSpaceBoundaryMember") return readSpace(element, result_.boundaries);
    if (isGmlState(name)) return readState(element);
    if (name == "Transition" || name == "Edge")
      return readTransition(element, {"connects", "start", "end"});
    if (name == "SpaceLayer" || name == "DualSpaceLayer") ++layer_;
    return name != "InterLayerConnection" || readTransition(element, {"interConnects"});
  }

  bool readSpace(pugi::xml_node element, std::vector<GmlSpace>& spaces) {
    GmlSpace space;
    space.id = attributeOf(element, "id");
    space.element = localName(element.name());
    space.name = childText(element, "name");
    if (space.name.empty()) space.name = childText(element, "cellSpaceName");
    space.description = childText(element, "description");
    for (const char* key : {"storey", "level", "floor"}) {
      if (space.storey.empty()) space.storey = attributeOf(element, key);
      if (space.storey.empty()) space.storey = childText(element, key);
    }
    for (const char* key : {"function", "usage", "class"})
      if (space.function.empty()) space.function = childText(element, key);
    space.duality = dualityOf(element);
    if (space.id.empty()) space.id = fmt::format("{}-{}", space.element, spaces.size());
    if (!addFaces(element, space.faces, 0)) report(space.id, "A face of it cannot be read.");
    spaces.push_back(std::move(space));
    return false;
  }

  // Follows references only from elements that stand for a surface.
  bool addFaces(pugi::xml_node root, std::vector<GmlFace>& faces, int depth) {
    bool valid = true;
    forElementsIn(root, [&](pugi::xml_node element) {
      const std::string_view name = localName(element.name());
      if (depth > 0) count(1);
      if (isFace(name)) {
        valid = addFace(element, faces) && valid;
        return false;
      }
      if ((name == "surfaceMember" || name == "baseSurface" || name == "exterior") &&
          depth < deepestReference)
        valid = addReferenced(referencedId(element), faces, depth) && valid;
      return name != "duality" && name != "partialboundedBy" && name != "boundedBy";
    });
    return valid;
  }

  bool addReferenced(const std::string& id, std::vector<GmlFace>& faces, int depth) {
    if (id.empty()) return true;
    count(1);
    const auto found = byId_.find(id);
    if (found == byId_.end()) return false;
    return isFace(localName(found->second.name())) ? addFace(found->second, faces)
                                                   : addFaces(found->second, faces, depth + 1);
  }

  bool addFace(pugi::xml_node element, std::vector<GmlFace>& faces) {
    GmlFace face;
    bool valid = true;
    for (const pugi::xml_node border : element.children()) {
      const std::string_view name = localName(border.name());
      if (name == "exterior" || name == "outerBoundaryIs")
        valid = addRing(border, face.outer) && valid;
      if (name == "interior" || name == "innerBoundaryIs")
        valid = addRing(border, face.holes.emplace_back()) && valid;
    }
    if (valid && !face.outer.empty()) faces.push_back(std::move(face));
    return valid;
  }

  bool addRing(pugi::xml_node border, std::vector<GmlPosition>& ring) {
    const bool valid = readPositions(border, ring);
    count(ring.size());
    return valid;
  }

  void count(std::size_t positions) {
    vertices_ += positions;
    if (vertices_ > limits_.vertices) failForSize();
  }

  bool readState(pugi::xml_node element) {
    GmlState state;
    state.id = attributeOf(element, "id");
    state.name = childText(element, "name");
    state.layer = layer_;
    state.duality = dualityOf(element);
    const bool valid = readPositions(element, state.positions);
    count(1 + state.positions.size());
    if (!valid || state.id.empty())
      report(state.id, "The state has no identifier, or its position cannot be read.");
    else
      result_.states.push_back(std::move(state));
    return false;
  }

  // `ends`: the names of the elements that name its states, themselves or by an element in them.
  bool readTransition(pugi::xml_node element, std::initializer_list<std::string_view> ends) {
    GmlTransition transition;
    transition.joinsLayers = ends.size() == 1;
    transition.layer = layer_;
    transition.id = attributeOf(element, "id");
    transition.duality = dualityOf(element);
    for (const pugi::xml_node child : element.children())
      if (std::find(ends.begin(), ends.end(), localName(child.name())) != ends.end())
        for (const pugi::xml_node& end : {child, child.first_child()})
          if (std::string id = referencedId(end); !id.empty())
            transition.connects.push_back(std::move(id));
    const bool valid = readPositions(element, transition.line);
    count(1 + transition.line.size());
    if (transition.joinsLayers && transition.connects.size() != 2) return false;
    if (!valid || transition.connects.size() != 2)
      report(transition.id,
             "The transition does not connect two states, or its line cannot be read.");
    else
      result_.transitions.push_back(std::move(transition));
    return false;
  }

  const SourceFile& file_;
  const Limits& limits_;
  std::size_t& vertices_;
  Findings& findings_;
  pugi::xml_document document_;
  std::unordered_map<std::string, pugi::xml_node> byId_;
  std::size_t layer_ = 0;  // counts them
  GmlDocument result_;
};

}  // namespace

GmlDocument readGmlDocument(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                            Findings& findings) {
  return Reader(file, limits, vertices, findings).read();
}

}  // namespace orivanta::importer

// Walks through GML.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

/// The name of an element or an attribute without its prefix.
std::string_view localName(const char* name);

/// Calls `visit` with each element within another one, in the order of the document. If it returns
/// false, the contents of the element are skipped. Does not recurse.
template <class Visit>
void forElementsIn(pugi::xml_node root, const Visit& visit) {
  pugi::xml_node node = root.first_child();
  while (node) {
    const bool enter = node.type() == pugi::node_element && visit(node);
    if (enter && node.first_child()) {
      node = node.first_child();
      continue;
    }
    while (node != root && !node.next_sibling()) node = node.parent();
    if (node == root) return;
    node = node.next_sibling();
  }
}

/// The attribute with a local name; empty if there is none.
std::string attributeOf(pugi::xml_node node, std::string_view name);

/// The trimmed text of the first child with a local name; empty if there is none.
std::string childText(pugi::xml_node node, std::string_view name);

/// The identifier that a reference such as "#C1" refers to; empty if there is none, or for an
/// address without a fragment. The number sign may be missing.
std::string referencedId(pugi::xml_node node);

/// Whether the local name is that of a state, which IndoorGML 2.0 calls a node.
inline bool isGmlState(std::string_view name) { return name == "State" || name == "Node"; }

/// The identifier of the dual of a cell, a state, a boundary or a transition; empty if there is
/// none.
std::string dualityOf(pugi::xml_node node);

/// Appends all positions within an element: of pos, posList and coordinates. Returns false if one
/// is not two or three finite numbers.
bool readPositions(pugi::xml_node node, std::vector<GmlPosition>& positions);

}  // namespace orivanta::importer

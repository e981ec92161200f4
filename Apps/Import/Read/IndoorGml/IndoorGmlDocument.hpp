// The contents of an IndoorGML document, before they are understood.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

/// In the units of the document.
struct GmlPosition {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

struct GmlFace {
  std::vector<GmlPosition> outer;
  std::vector<std::vector<GmlPosition>> holes;
};

/// A CellSpace or a CellSpaceBoundary of any kind.
struct GmlSpace {
  std::string id;
  std::string element;      ///< the local name, such as "GeneralSpace"
  std::string name;         ///< may be empty
  std::string description;  ///< may be empty
  std::string storey;    ///< of an element or attribute "storey", "level" or "floor"; may be empty
  std::string function;  ///< or the usage, or else the class; a code or a word, may be empty
  std::string duality;   ///< the identifier of its state or transition; may be empty
  std::vector<GmlFace> faces;
};

struct GmlState {
  std::string id;
  std::string name;                    ///< may be empty
  std::string duality;                 ///< the identifier of its cell; may be empty
  std::vector<GmlPosition> positions;  ///< one, or none
  std::size_t layer = 0;               ///< its number in the document
};

struct GmlTransition {
  std::string id;
  std::string duality;                ///< the identifier of its boundary; may be empty
  std::vector<std::string> connects;  ///< the identifiers of states
  std::vector<GmlPosition> line;      ///< may be empty
  bool joinsLayers = false;           ///< an InterLayerConnection
  std::size_t layer = 0;              ///< its number in the document
};

struct GmlDocument {
  std::string file;
  std::string name;       ///< may be empty
  std::string reference;  ///< the first srsName; may be empty
  std::vector<GmlSpace> cells;
  std::vector<GmlSpace> boundaries;
  std::vector<GmlState> states;  ///< of the layers that `chooseGmlLayers` keeps
  std::vector<GmlTransition> transitions;
};

/// Reads a document in any dialect, and what IndoorGML 2.0 only calls otherwise: prefixes,
/// positions and references by xlink:href may be written in all ways that the standard allows.
/// Throws `SourceError` if it is no XML, no IndoorGML or too large.
GmlDocument readGmlDocument(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                            Findings& findings);

}  // namespace orivanta::importer

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

#include "Apps/Import/Read/IndoorGml/GmlImport.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// The storey with the ordinal 0, or else the one with 1, or else the lowest.
double groundOf(const std::vector<GmlStoreys::Storey>& storeys) {
  for (const double ordinal : {0.0, 1.0})
    for (const GmlStoreys::Storey& each : storeys)
      if (each.ordinal == ordinal) return each.z;
  return storeys.front().z;
}

void addStoreys(const GmlStoreys& storeys, const GmlScale& scale, Building& building) {
  const double ground = groundOf(storeys.all());
  const double metersPerUnit = scale.georeference() ? 1.0 : scale.metersPerUnit();
  for (const GmlStoreys::Storey& each : storeys.all()) {
    Storey storey;
    storey.id = fmt::format("storey {}", each.ordinal);
    storey.ordinal = each.ordinal;
    storey.shortName = each.shortName;
    if (storeys.height() > 0.0) storey.elevation = (each.z - ground) * metersPerUnit;
    building.storeys.push_back(std::move(storey));
  }
}

// The file with the document; others, such as schemas, are ignored.
const SourceFile& documentIn(const std::vector<SourceFile>& files) {
  std::vector<const SourceFile*> found;
  for (const char* extension : {".gml", ".xml"}) {
    if (!found.empty()) break;
    for (const SourceFile& file : files)
      if (lowerCase(file.name).ends_with(extension)) found.push_back(&file);
  }
  if (files.size() == 1) return files.front();
  if (found.size() == 1) return *found.front();
  if (found.empty())
    throw SourceError(files.empty() ? "there is no file"
                                    : files.front().name + ": there is no .gml file");
  throw SourceError(found[0]->name + " and " + found[1]->name +
                    ": there are several IndoorGML documents; name one of them");
}

}  // namespace

void GmlImport::report(Severity severity, const char* rule, const std::string& source,
                       std::string message, const char* effect, const char* advice) {
  Finding finding;
  finding.severity = severity;
  finding.rule = rule;
  finding.source = source;
  finding.file = document.file;
  finding.message = std::move(message);
  finding.effect = effect;
  finding.advice = advice;
  findings.add(std::move(finding));
}

Building readIndoorGml(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  std::size_t vertices = 0;
  const GmlDocument document =
      readGmlDocument(documentIn(files), options.limits, vertices, findings);
  for (SourceFile& file : files) file.release();
  if (document.cells.empty() && document.states.empty())
    throw SourceError(document.file +
                      ": the document has neither cells nor states; is this IndoorGML 1.0 or 1.1?");
  const GmlStoreys storeys(document);
  const GmlScale scale(document, storeys, options, findings);
  const GmlGraph graph(document);
  Building building;
  building.id = std::filesystem::path(document.file).stem().string();
  building.names = {document.name.empty() ? building.id : document.name, {}, document.name.empty()};
  building.metersPerUnit = scale.metersPerUnit();
  building.scaleKnown = scale.isKnown();
  building.georeference = scale.georeference();
  GmlImport import{document, storeys, scale, graph, building, findings, {}, {}, {}};
  if (!storeys.stated() && storeys.all().size() > 1)
    import.report(Severity::info, "level-guessed", {},
                  fmt::format("No cell states its storey; by their heights there are {}.",
                              storeys.all().size()),
                  "The storeys are numbered from the ground floor.",
                  "Write storey=\"1\" into the descriptions of the cells.");
  if (!options.building.empty())
    import.report(Severity::warning, "building-ignored", {},
                  "An IndoorGML document does not tell buildings apart.", "Everything is imported.",
                  "Leave out --building.");
  addStoreys(storeys, scale, building);
  decideGmlKinds(import);
  readGmlAreas(import);
  readGmlDoors(import);
  readGmlConnectors(import);
  readGmlNetwork(import);
  return building;
}

}  // namespace orivanta::importer

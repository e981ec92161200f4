#include "Apps/Import/Read/Stations/Shapefile.hpp"

#include <shapefil.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Stations/MemoryFiles.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"
#include "Apps/Import/Read/Stations/TextEncoding.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

constexpr std::size_t headerBytes = 100;
constexpr double largestCoordinate = 1e8;

std::uint32_t bigEndian(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t each = 0; each < 4; ++each)
    number = number << 8U | static_cast<unsigned char>(bytes[at + each]);
  return number;
}

void append(std::string& bytes, std::uint32_t number) {
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes += static_cast<char>(number >> shift & 255U);
}

// The index of the records, made from the records themselves: an .shx file may be missing or may
// not fit.
std::string indexOf(std::string_view shp) {
  std::string records;
  std::size_t at = headerBytes;
  while (at + 8 <= shp.size()) {
    const std::uint32_t words = bigEndian(shp, at + 4);
    const std::size_t next = at + 8 + std::size_t{words} * 2;
    if (next > shp.size()) break;
    append(records, static_cast<std::uint32_t>(at / 2));
    append(records, words);
    at = next;
  }
  std::string index(shp.substr(0, 24));
  append(index, static_cast<std::uint32_t>((headerBytes + records.size()) / 2));
  index += shp.substr(28, headerBytes - 28);
  return index + records;
}

using ShapeObject = std::unique_ptr<SHPObject, decltype(&SHPDestroyObject)>;

std::vector<std::vector<Point>> partsOf(const SHPObject& shape) {
  std::vector<std::vector<Point>> parts;
  const int count = std::max(shape.nParts, shape.nVertices > 0 ? 1 : 0);
  for (int part = 0; part < count; ++part) {
    const int start = shape.nParts > 0 ? shape.panPartStart[part] : 0;
    const int end = part + 1 < shape.nParts ? shape.panPartStart[part + 1] : shape.nVertices;
    std::vector<Point>& points = parts.emplace_back();
    for (int each = start; each < end; ++each)
      if (std::abs(shape.padfX[each]) <= largestCoordinate &&
          std::abs(shape.padfY[each]) <= largestCoordinate)
        points.push_back({shape.padfX[each], shape.padfY[each]});
  }
  return parts;
}

// Outer rings are clockwise and holes are counterclockwise. A hole belongs to the last outer ring
// before it that contains it; if finding that takes too long, to the last one.
void addPolygons(std::vector<std::vector<Point>> rings, GeoGeometry& geometry) {
  constexpr std::size_t triedRings = 64;
  std::size_t effort = 20'000'000;
  std::vector<Polygon>& polygons = geometry.polygons;
  for (std::vector<Point>& ring : rings) {
    if (ring.empty()) continue;
    if (polygons.empty() || package::signedArea(ring) <= 0.0) {
      polygons.push_back({std::move(ring), {}});
      continue;
    }
    std::size_t owner = polygons.size() - 1;
    for (std::size_t back = 0; back < std::min(polygons.size(), triedRings); ++back) {
      const Outline& outer = polygons[polygons.size() - 1 - back].outer;
      if (outer.size() > effort) break;
      effort -= outer.size();
      if (!package::contains(outer, ring.front())) continue;
      owner = polygons.size() - 1 - back;
      break;
    }
    polygons[owner].holes.push_back(std::move(ring));
  }
}

GeoGeometry geometryOf(const SHPObject& shape) {
  GeoGeometry geometry;
  switch (shape.nSHPType) {
    case SHPT_POINT:
    case SHPT_POINTZ:
    case SHPT_POINTM:
    case SHPT_MULTIPOINT:
    case SHPT_MULTIPOINTZ:
    case SHPT_MULTIPOINTM:
      for (const auto& part : partsOf(shape))
        geometry.points.insert(geometry.points.end(), part.begin(), part.end());
      break;
    case SHPT_ARC:
    case SHPT_ARCZ:
    case SHPT_ARCM:
      geometry.lines = partsOf(shape);
      break;
    case SHPT_POLYGON:
    case SHPT_POLYGONZ:
    case SHPT_POLYGONM:
      addPolygons(partsOf(shape), geometry);
      break;
    default:
      break;
  }
  return geometry;
}

// Codes may be written as 4.000.
std::string_view withoutZeros(std::string_view number) {
  if (number.find('.') == number.npos || number.find_first_of("eE") != number.npos) return number;
  number = number.substr(0, number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.remove_suffix(1);
  return number;
}

class Reader {
 public:
  Reader(const Shapefile& file, const Limits& limits, std::size_t& vertices, TextPool& texts,
         Findings& findings)
      : file_(file), limits_(limits), vertices_(vertices), texts_(texts), findings_(findings) {}

  std::vector<StationFeature> read() {
    if (file_.shp.size() < headerBytes) fail("the file has no complete header; fetch it again");
    const std::string index = indexOf(file_.shp);
    MemoryFiles memory({{"layer.shp", file_.shp}, {"layer.shx", index}, {"layer.dbf", file_.dbf}});
    const std::unique_ptr<SHPInfo, decltype(&SHPClose)> shapes(
        SHPOpenLL("layer.shp", "rb", memory.hooks()), SHPClose);
    if (!shapes) fail("this is no Shapefile, or it is damaged; fetch it again");
    if (bigEndian(file_.shp, 24) * std::size_t{2} > file_.shp.size())
      report("The file is cut off.", "Shapes at its end are left out.", "Fetch the file again.");
    readShapes(*shapes);
    const std::unique_ptr<DBFInfo, decltype(&DBFClose)> table(
        DBFOpenLL("layer.dbf", "rb", memory.hooks()), DBFClose);
    if (table)
      readFields(*table);
    else
      report("There is no .dbf file with the attributes, or it is damaged.",
             "The shapes have no identifiers, names or categories.",
             "Put the .dbf file beside the .shp file.");
    return std::move(features_);
  }

 private:
  [[noreturn]] void fail(const std::string& cause) const {
    throw SourceError(file_.name + ": " + cause);
  }

  void report(const char* message, const char* effect, const char* advice) {
    Finding finding;
    finding.rule = "feature-unreadable";
    finding.file = file_.name;
    finding.message = message;
    finding.effect = effect;
    finding.advice = advice;
    findings_.add(std::move(finding));
  }

  void readShapes(SHPInfo& shapes) {
    int count = 0;
    SHPGetInfo(&shapes, &count, nullptr, nullptr, nullptr);
    for (int each = 0; each < count; ++each) {
      const ShapeObject shape(SHPReadObject(&shapes, each), SHPDestroyObject);
      features_.emplace_back();
      ++vertices_;
      if (shape) vertices_ += static_cast<std::size_t>(std::max(shape->nVertices, 0));
      if (vertices_ > limits_.vertices)
        fail("there are more positions than the importer reads; import a part of the file");
      if (shape)
        features_.back().geometry = geometryOf(*shape);
      else
        report("A shape cannot be read.", "It is left out.", "Export the file again.");
    }
  }

  void readFields(DBFInfo& table) {
    struct Column {
      int index;
      std::string name;
      bool isNumeric;
    };
    std::vector<Column> columns;
    for (int each = 0; each < DBFGetFieldCount(&table); ++each) {
      char text[XBASE_FLDNAME_LEN_READ + 1] = {};
      const bool isNumeric = DBFGetFieldInfo(&table, each, text, nullptr, nullptr) == FTDouble;
      std::string name = lowerCase(trimmed(text));
      const bool isKnown = std::any_of(columns.begin(), columns.end(),
                                       [&](const Column& column) { return column.name == name; });
      if (StationFeature::isUsed(name) && !isKnown)
        columns.push_back({each, std::move(name), isNumeric});
    }
    const int rows = std::min(DBFGetRecordCount(&table), static_cast<int>(features_.size()));
    for (int row = 0; row < rows; ++row) {
      for (const Column& column : columns) {
        const char* text = DBFReadStringAttribute(&table, row, column.index);
        std::string_view value = text == nullptr ? "" : trimmed(text);
        if (column.isNumeric) value = withoutZeros(value);
        features_[static_cast<std::size_t>(row)].add(column.name, texts_.keep(value));
      }
      requireMemory(texts_, limits_, file_.name);
    }
    convertTexts();
  }

  void convertTexts() {
    std::string encoding = encodingOf(file_.cpg);
    if (encoding.empty()) {
      bool allUtf8 = true;
      for (StationFeature& feature : features_)
        feature.changeValues([&](std::string_view value) {
          allUtf8 = allUtf8 && isUtf8(value);
          return value;
        });
      encoding = allUtf8 ? "UTF-8" : "CP932";
    }
    for (StationFeature& feature : features_)
      feature.changeValues(
          [&](std::string_view value) { return texts_.keep(toUtf8(value, encoding)); });
  }

  const Shapefile& file_;
  const Limits& limits_;
  std::size_t& vertices_;
  TextPool& texts_;
  Findings& findings_;
  std::vector<StationFeature> features_;
};

}  // namespace

std::vector<Shapefile> findShapefiles(const std::vector<SourceFile>& files) {
  const auto withoutExtension = [](const std::string& name) {
    return name.substr(0, name.rfind('.'));
  };
  std::map<std::string, Shapefile> found;
  for (const SourceFile& file : files) {
    const std::string extension = lowerCase(std::filesystem::path(file.name).extension().string());
    Shapefile& shapefile = found[withoutExtension(file.name)];
    if (extension == ".shp") {
      shapefile.name = file.name;
      shapefile.shp = file.bytes;
    }
    if (extension == ".dbf") shapefile.dbf = file.bytes;
    if (extension == ".prj") shapefile.prj = file.bytes;
    if (extension == ".cpg") shapefile.cpg = file.bytes;
  }
  std::vector<Shapefile> result;
  for (const auto& [name, shapefile] : found)
    if (!shapefile.name.empty()) result.push_back(shapefile);
  return result;
}

std::vector<StationFeature> readShapefile(const Shapefile& file, const Limits& limits,
                                          std::size_t& vertices, TextPool& texts,
                                          Findings& findings) {
  return Reader(file, limits, vertices, texts, findings).read();
}

}  // namespace orivanta::importer

#include "Apps/Import/Read/Stations/Shapefile.hpp"

#include <shapefil.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Stations/MemoryFiles.hpp"
#include "Apps/Import/Read/Stations/ShapefileParts.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"
#include "Apps/Import/Read/TextEncoding.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

using ShapeObject = std::unique_ptr<SHPObject, decltype(&SHPDestroyObject)>;

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
    if (file_.shp.size() < shapefileHeader) fail("the file has no complete header; fetch it again");
    const std::string index = shapefileIndex(file_.shp);
    MemoryFiles memory({{"layer.shp", file_.shp}, {"layer.shx", index}, {"layer.dbf", file_.dbf}});
    const std::unique_ptr<SHPInfo, decltype(&SHPClose)> shapes(
        SHPOpenLL("layer.shp", "rb", memory.hooks()), SHPClose);
    if (!shapes) fail("this is no Shapefile, or it is damaged; fetch it again");
    if (statedSize(file_.shp) > file_.shp.size())
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
        features_.back().geometry = shapefileGeometry(*shape);
      else
        report("A shape cannot be read.", "It is left out.", "Export the file again.");
    }
  }

  void readFields(DBFInfo& table) {
    struct Column {
      int index;
      StationFeature::UsedName used;
      bool isNumeric;
    };
    std::vector<Column> columns;
    for (int each = 0; each < DBFGetFieldCount(&table); ++each) {
      char text[XBASE_FLDNAME_LEN_READ + 1] = {};
      const bool isNumeric = DBFGetFieldInfo(&table, each, text, nullptr, nullptr) == FTDouble;
      const std::string name = lowerCase(trimmed(text));
      const StationFeature::UsedName used = StationFeature::usedName(name);
      const bool isTaken = std::any_of(columns.begin(), columns.end(), [&](const Column& column) {
        return column.used.name == used.name && column.used.known == used.known;
      });
      if (used.known != StationFeature::Known::no && !isTaken)
        columns.push_back({each, used, isNumeric});
    }
    // Values are added once, those of the usual names first.
    std::stable_sort(columns.begin(), columns.end(), [](const Column& first, const Column& second) {
      return first.used.known > second.used.known;
    });
    const int rows = std::min(DBFGetRecordCount(&table), static_cast<int>(features_.size()));
    for (int row = 0; row < rows; ++row) {
      for (const Column& column : columns) {
        const char* text = DBFReadStringAttribute(&table, row, column.index);
        std::string_view value = text == nullptr ? "" : trimmed(text);
        if (column.isNumeric) value = withoutZeros(value);
        features_[static_cast<std::size_t>(row)].add(column.used.name, texts_.keep(value));
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

// The formats that other programs and libraries write.
#include <fmt/format.h>
#include <shapefil.h>

#include <algorithm>
#include <boost/json.hpp>
#include <cstdlib>
#include <filesystem>

#include "Tests/Apps/Import/House/House.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::importer::house {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

double coordinate(const json::value& point, std::size_t axis) {
  return point.as_array().at(axis).to_number<double>();
}

// The lists of positions of a geometry.
std::vector<json::array> partsOf(const json::value& geometry) {
  const json::array& coordinates = geometry.at("coordinates").as_array();
  std::vector<json::array> parts;
  if (geometry.at("type") == "Polygon")
    for (const json::value& ring : coordinates) parts.push_back(ring.as_array());
  else if (geometry.at("type") == "LineString")
    parts.push_back(coordinates);
  else
    parts.emplace_back().push_back(coordinates);
  return parts;
}

class LayerWriter {
 public:
  LayerWriter(const fs::path& path, const json::value& first)
      : type_(first.at("geometry").at("type") == "Polygon"      ? SHPT_POLYGON
              : first.at("geometry").at("type") == "LineString" ? SHPT_ARC
                                                                : SHPT_POINT),
        shapes_(SHPCreate(path.c_str(), type_)),
        table_(DBFCreate(path.c_str())) {
    for (const auto& member : first.at("properties").as_object())
      DBFAddField(table_, std::string(member.key()).c_str(),
                  member.value().is_number() ? FTDouble : FTString, 60, 3);
  }
  ~LayerWriter() {
    SHPClose(shapes_);
    DBFClose(table_);
  }
  LayerWriter(const LayerWriter&) = delete;
  LayerWriter& operator=(const LayerWriter&) = delete;

  void add(const json::value& feature) {
    std::vector<int> starts;
    std::vector<double> xs;
    std::vector<double> ys;
    for (const json::array& part : partsOf(feature.at("geometry"))) {
      starts.push_back(static_cast<int>(xs.size()));
      for (const json::value& point : part) {
        xs.push_back(coordinate(point, 0));
        ys.push_back(coordinate(point, 1));
      }
    }
    SHPObject* shape =
        SHPCreateObject(type_, -1, static_cast<int>(starts.size()), starts.data(), nullptr,
                        static_cast<int>(xs.size()), xs.data(), ys.data(), nullptr, nullptr);
    SHPRewindObject(shapes_, shape);
    const int row = SHPWriteObject(shapes_, -1, shape);
    SHPDestroyObject(shape);
    int field = 0;
    for (const auto& member : feature.at("properties").as_object()) {
      if (member.value().is_number())
        DBFWriteDoubleAttribute(table_, row, field, member.value().to_number<double>());
      else if (member.value().is_string())
        DBFWriteStringAttribute(table_, row, field, member.value().as_string().c_str());
      ++field;
    }
  }

 private:
  int type_;
  SHPHandle shapes_;
  DBFHandle table_;
};

}  // namespace

SourceFile converted(const SourceFile& xml, const std::string& name, const std::string& how) {
  const test::TemporaryFolder folder;
  const fs::path source = folder.write("source.osm", xml.bytes);
  const fs::path target = folder.path() / name;
  const std::string command =
      fmt::format("osmium {} -o '{}' '{}' 2>/dev/null", how, target.string(), source.string());
  if (std::system(command.c_str()) != 0) return {};
  return readFiles({target}, {}).front();
}

std::vector<SourceFile> asOsmPbf(const Building& building) {
  const SourceFile file = converted(asOsmXml(building).front(), "house.osm.pbf", "cat -f pbf");
  return file.bytes.empty() ? std::vector<SourceFile>() : std::vector<SourceFile>{file};
}

std::vector<SourceFile> asShapefile(const Building& building) {
  const test::TemporaryFolder folder;
  for (const SourceFile& file : asStations(building)) {
    const std::string name = file.name.substr(0, file.name.rfind('.'));
    folder.write(name + ".cpg", "UTF-8");
    folder.write(name + ".prj",
                 "PROJCS[\"JGD_2011_Japan_Zone_9\",GEOGCS[\"GCS_JGD_2011\"],PROJECTION["
                 "\"Transverse_Mercator\"],UNIT[\"Meter\",1.0]]");
    const json::value collection = json::parse(file.bytes);
    const json::array& features = collection.at("features").as_array();
    LayerWriter layer(folder.path() / name, features.front());
    for (const json::value& feature : features) layer.add(feature);
  }
  return readFiles({folder.path()}, {});
}

}  // namespace orivanta::importer::house

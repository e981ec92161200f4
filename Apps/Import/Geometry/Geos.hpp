// Shapes as geometries of GEOS. Only the files of this folder that compute with GEOS include it.
#pragma once

#include <geos_c.h>

#include <memory>
#include <vector>

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer::geos {

/// The handle of a thread: GEOS is reentrant with one handle per thread.
GEOSContextHandle_t handle();

struct Destroy {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(handle(), geometry); }
  void operator()(GEOSMakeValidParams* params) const {
    GEOSMakeValidParams_destroy_r(handle(), params);
  }
};

using Geometry = std::unique_ptr<GEOSGeometry, Destroy>;

/// Takes ownership. Throws `std::runtime_error` for null, which GEOS returns if it fails.
Geometry owned(GEOSGeometry* geometry);

Geometry lineOf(const std::vector<Point>& points);
Geometry geometryOf(const Polygon& polygon);
Geometry geometryOf(const Shape& shape);
Geometry collectionOf(int type, std::vector<Geometry> parts);

/// All polygons of a geometry. Lines and points in it are left out.
Shape shapeOf(const Geometry& geometry);

/// The result of an operation, or what it was applied to if it failed.
Shape shapeOr(GEOSGeometry* result, const Shape& otherwise);

}  // namespace orivanta::importer::geos

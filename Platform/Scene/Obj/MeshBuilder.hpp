// Builds a mesh from the faces of a model: vertices, normals, and triangles grouped by material.
#pragma once

#include "Platform/Scene/Obj/Model.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"

namespace orivanta::scene::obj {

/// Builds the model. The materials have names, but no appearance yet.
Model buildMesh(ModelStatements& statements);

}  // namespace orivanta::scene::obj

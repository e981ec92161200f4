// Puts the faces of a model together: vertices, normals, triangles by material.
#pragma once

#include "Platform/Scene/Obj/Model.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"

namespace orivanta::scene::obj {

/// The model of the statements, its materials as yet without their looks.
Model buildMesh(ModelStatements& statements);

}  // namespace orivanta::scene::obj

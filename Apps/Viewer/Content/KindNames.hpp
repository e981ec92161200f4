// The names that categories of toilets, exits and entrances have.
#pragma once

#include "Apps/Viewer/Content/CategoryFit.hpp"

namespace orivanta::viewer {

/// A kind of places that categories are searched for.
enum class NamedKind {
  toilet,
  exit,     ///< not an emergency exit
  entrance  ///< also one that serves as an exit
};

/// Returns the names of a kind in all languages of the library, in their search form, English ones
/// first. Thread-safe.
const Words& namesOf(NamedKind kind);

/// Returns whether each of the words begins a word for exits or entrances. Thread-safe.
bool meanExits(const Words& words);

/// Returns whether a category is one of emergency exits, according to its name or identifier.
/// Thread-safe.
bool isEmergencyExit(const CategoryForms& category);

}  // namespace orivanta::viewer

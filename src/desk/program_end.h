#pragma once

namespace oravin {

/// Thrown where the program ends itself; only a front end's entry catches it.
struct ProgramEnd {};

}  // namespace oravin

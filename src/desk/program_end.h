#pragma once

namespace oravin {

/// Ends the program; caught only by a front end's entry point.
struct ProgramEnd {};

}  // namespace oravin

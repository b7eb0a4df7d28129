#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace oravin {

/// The exit status of the command line.
inline constexpr int exitDone = 0;
inline constexpr int exitFailed = 1;  ///< a box told of a failure, or a name matched nothing
inline constexpr int exitWrongUsage = 2;
inline constexpr int exitProgramEnd = 3;  ///< the program ended itself

/// The whole command line: reads it, starts up, does the command and tells the result.
///
/// @param words without the program's name, UTF-8
/// @param out the result, or nothing where there is none
/// @param err boxes, questions, progress and errors
/// @param in a person's answers
/// @param terminal a person sits at `err` and `in`
/// @return the exit status
int RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err, std::istream& in,
               bool terminal);

}  // namespace oravin

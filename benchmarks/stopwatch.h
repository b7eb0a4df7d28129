#pragma once

#include <functional>
#include <string>

namespace oravin::bench {

/// Elapsed time of a procedure in seconds.
double Seconds(const std::function<void()>& work);

/// Processor time of a procedure in seconds, without waiting for the disk.
double OwnSeconds(const std::function<void()>& work);

/// The median of several runs, by one of the two clocks.
double MedianOf(int runs, const std::function<void()>& work,
                double (*clock)(const std::function<void()>& work) = Seconds);

/// Runs a command of the shell; a failure ends the program.
void RunShell(const std::string& command);

/// Registers a figure, or one of its yardsticks, that returns its own time in seconds.
/// @param name "figure/oravin" or "figure/yardstick"
void Register(const std::string& name, std::function<double()> once);

/// Registers a figure and its yardstick.
void RegisterPair(const std::string& figure, const std::string& yardstick, std::function<double()> ours,
                  std::function<double()> theirs);

/// Prints a figure and its limit.
void PrintLimit(const char* figure, double seconds, double may);

}  // namespace oravin::bench

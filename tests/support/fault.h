#pragma once

#include <functional>
#include <string>

#include "files/files.h"

namespace oravin::test {

/// Thrown where the process is said to stop. No error trap catches it, so nothing is tidied up after it.
struct ProcessStopped {};

enum class FaultKind {
  failure,  ///< the operation fails with a FileError, as a full disk would make it
  stop,     ///< the process stops just before the operation
};

/// What a failing operation gives as its reason.
inline constexpr const char* faultReason = "the test lets it fail";

/// Counts the file operations of a run and makes one of them go wrong.
struct Fault {
  FaultKind kind = FaultKind::failure;
  int at = 0;             ///< the number of the operation that goes wrong, from 1; 0 for none
  int count = 0;          ///< how many operations there have been
  bool happened = false;  ///< the operation came and went wrong
  std::string what;       ///< which operation that was: "write Z:\\..."
};

/// Puts the fault on a host's files, from the next operation on; the fault must outlive their use.
void Watch(Files& files, Fault& fault);

/// Runs something that may be stopped by a fault; returns whether it was.
bool Stopped(const std::function<void()>& run);

/// Runs an attempt with a fault at operation 1, 2, 3, ... until one goes through without the fault having come. The
/// attempt sets its stage up anew each time, watches its files with the fault it is given, runs and checks.
/// @return the number of operations of the run that went through
int AtEachOperation(FaultKind kind, const std::function<void(Fault&)>& attempt);

/// An operation in words.
std::string InWords(const FileOperation& operation);

}  // namespace oravin::test

// Fuzzes the reader of statistics texts: fifteen single-precision numbers, or a FileError.

#include <cmath>

#include "base/bytes.h"
#include "base/file_error.h"
#include "input_file.h"
#include "stats/ship_stats.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("ship.txt", {data, size});
  Files files;
  const std::string path = fuzz::Folder().windows + "ship.txt";
  try {
    const ShipStats stats = ReadImportStats(files, path);
    fuzz::Require(size >= 29, "fifteen numbers take fifteen digits and fourteen separators");
    for (const float value : stats.values) fuzz::Require(std::isfinite(value), "every value is a finite number");
  } catch (const FileError& error) {
    fuzz::Require(error.path == path && !error.reason.empty(), "a refused text is named with a reason");
    fuzz::Require(error.kind != ErrorKind::missing, "the text is there");
  }
  fuzz::Require(files.open == 0, "the text is closed");
  fuzz::Require(fuzz::ReadInput("ship.txt") == Bytes(data, data + size), "nothing is written");
  return 0;
}

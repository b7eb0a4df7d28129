// Fuzzes the reader of statistics texts: fifteen single-precision numbers, or one box and nothing taken.

#include <cmath>

#include "base/bytes.h"
#include "input_file.h"
#include "stats/ship_stats.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("ship.txt", {data, size});
  fuzz::CountingHost here;
  std::string path = fuzz::Folder().windows + "ship.txt";
  ShipStats before;
  before.values.fill(-12345);
  ShipStats stats = before;
  const bool read = GetImportStats(here.host, path, stats);
  fuzz::Require(here.boxes == (read ? 0 : 1), "a refused text has its one box");
  fuzz::Require(read || stats == before, "a refused text leaves the statistics as they were");
  fuzz::Require(!read || size >= 29, "fifteen numbers take fifteen digits and fourteen separators");
  for (const float value : stats.values) fuzz::Require(std::isfinite(value), "every value is a finite number");
  fuzz::Require(fuzz::ReadInput("ship.txt") == Bytes(data, data + size), "nothing is written");
  return 0;
}

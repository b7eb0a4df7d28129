#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "cli/json_forms.h"
#include "demo/sample.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace oravin::test {

inline constexpr const char* enableQuestionText =
    "Enabling these features will require about 6 MB of storage space\n"
    "and will make reversable modifications to key StarLancer files.\n"
    "StarLancer must not be open and it may take up to 20 seconds\n"
    "to make all the Necessary changes. \n"
    "You should read the readme.txt before enabling these options.\n"
    "Are you sure you want to continue?";

/// What a run of the command line left.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;

  /// The JSON document on standard output.
  [[nodiscard]] Json Document() const { return Json::parse(out); }
  /// The JSON lines on standard error.
  [[nodiscard]] std::vector<Json> ErrorLines() const;
};

/// Runs the command line within this process.
/// @param typed what a person types; only read with `terminal`
Outcome RunWords(const std::vector<std::string>& words, const std::string& typed = "", bool terminal = false);

/// {"box":{..}} as the command line writes it.
Json BoxLine(const std::string& title, const std::string& text, const std::string& icon, const std::string& buttons,
             const std::string& answer);

/// A fresh sample installation of a dozen stock records, which start-up's search finds. By name:
///
///   0, 1 Predator (two parts)   2 Sabrewing   3, 4 Longbow (two parts)   5 Scimitar   6, 7 Kindjal (two parts)
///   8 Ascension Carrier and 9 Boyar Battle Cruiser (capital ships)   10 Nightjar   11 Kestrel
///   12 Manta   13 Wraithwing   14 Colossus Carrier (capital ship): imported
class SampleRuns : public testing::Test {
 protected:
  SampleRuns();

  /// Enables the features and expects that to succeed.
  void Enable();

  /// Replaces a text of the ship list once.
  void EditShipList(const std::string& from, const std::string& to);

  TemporaryFolder folder;
  demo::Sample sample;
  Environment config;
  Environment prefix;
};

/// The same with the features enabled.
class EnabledRuns : public SampleRuns {
 protected:
  EnabledRuns() { Enable(); }
};

}  // namespace oravin::test

#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tabs/about_tab.h"

namespace oravin {
namespace {

using Kind = CommandLine::Kind;

std::optional<Result> Nothing(Session&, const Values&) { return std::nullopt; }

/// Commands of the shapes that there are: a verb alone, a group, several arguments, one that may be left out, one that
/// takes any number, options that may be given once or several times.
const std::vector<Command>& MadeUp() {
  static const std::vector<Command> commands = {
      {"", "look", {}, "Looks.", Nothing},
      {"stats", "set", {{"SHIP", "a ship"}, {"LABEL", "a label"}, {"VALUE", "a value"}}, "Sets.", Nothing},
      {"stats", "show", {{"SHIP", "a ship"}}, "Shows.", Nothing},
      {"weapons",
       "set",
       {{"SHIP", "a ship"}, {"TYPE", "a type"}, {"CODE", "a code", WordKind::text, false, true}},
       "Changes.",
       Nothing},
      {"pack",
       "make",
       {{"FILE", "a file", WordKind::path}, {"NAME", "names", WordKind::text, true}},
       "Makes.",
       Nothing,
       {{"--only", "NAME", "a name", WordKind::text, false, true},
        {"--from", "DIR", "a folder", WordKind::path, true, true},
        {"--to", "TEXT", "a text"},
        {"--quick", "", "quick"}}}};
  return commands;
}

CommandLine Read(const std::vector<std::string>& words) { return ReadCommandLine(MadeUp(), words); }

void ExpectWrong(const std::vector<std::string>& words, const std::string& what) {
  const CommandLine line = Read(words);
  EXPECT_EQ(line.kind, Kind::wrong);
  EXPECT_EQ(line.text, "oravin-cli: " + what + "\n\"oravin-cli --help\" shows how it is used.\n");
}

TEST(CommandLine, AVerbWithoutAGroup) {
  const CommandLine line = Read({"look"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.command, &MadeUp()[0]);
  EXPECT_FALSE(line.json);
  EXPECT_EQ(line.answers.always, std::nullopt);
}

TEST(CommandLine, AVerbOfAGroupWithItsArgumentsInOrder) {
  const CommandLine line = Read({"stats", "set", "Predator", "Max Speed", "12"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.command, &MadeUp()[1]);
  EXPECT_EQ(line.values.arguments, (std::vector<std::string>{"Predator", "Max Speed", "12"}));
}

TEST(CommandLine, OptionsStandBeforeTheGroup) {
  const CommandLine line = Read({"--json", "--yes", "stats", "show", "Predator"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_TRUE(line.json);
  EXPECT_EQ(line.answers.always, true);
}

TEST(CommandLine, OptionsStandBetweenGroupAndVerb) {
  const CommandLine line = Read({"stats", "--json", "show", "Predator"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_TRUE(line.json);
}

TEST(CommandLine, OptionsStandBehindTheVerbAndBetweenTheArguments) {
  const CommandLine line = Read({"stats", "set", "--no", "Predator", "Ammo", "--json", "5"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_TRUE(line.json);
  EXPECT_EQ(line.answers.always, false);
  EXPECT_EQ(line.values.arguments, (std::vector<std::string>{"Predator", "Ammo", "5"}));
}

TEST(CommandLine, ANegativeNumberIsAValue) {
  for (const std::string number : {"-5", "-0.25", "-.5", "-1e-3", "-12,5"}) {
    const CommandLine line = Read({"stats", "set", "Predator", "Ammo", number, "--json"});
    ASSERT_EQ(line.kind, Kind::run) << number << ": " << line.text;
    EXPECT_EQ(line.values.arguments.back(), number == "-.5" ? "-0.5" : number);
    EXPECT_TRUE(line.json);
  }
}

TEST(CommandLine, AfterTwoDashesANegativeNumberStaysAsItWasTyped) {
  EXPECT_EQ(Read({"stats", "set", "Predator", "Ammo", "--", "-.5"}).values.arguments.back(), "-.5");
}

TEST(CommandLine, SeveralNegativeNumbersAreValues) {
  const CommandLine line = Read({"stats", "set", "-1", "-2", "-3"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.values.arguments, (std::vector<std::string>{"-1", "-2", "-3"}));
}

TEST(CommandLine, OneNegativeNumberTooManyIsNamedAsItWasTyped) {
  ExpectWrong({"stats", "show", "Predator", "-5"}, "The following argument was not expected: -5");
}

TEST(CommandLine, AnUnknownOptionIsNoValue) {
  EXPECT_EQ(Read({"stats", "show", "--frob"}).kind, Kind::wrong);
  EXPECT_EQ(Read({"stats", "show", "-x"}).kind, Kind::wrong);
  EXPECT_EQ(Read({"stats", "show", "-.x"}).kind, Kind::wrong);
}

TEST(CommandLine, BehindTwoDashesAllWordsAreValues) {
  const CommandLine line = Read({"stats", "set", "--", "--json", "-x", "-5"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.values.arguments, (std::vector<std::string>{"--json", "-x", "-5"}));
  EXPECT_FALSE(line.json);
}

TEST(CommandLine, AnArgumentMayBeTheNameOfACommand) {
  const CommandLine line = Read({"stats", "set", "look", "stats", "show"});
  ASSERT_EQ(line.kind, Kind::run) << line.text;
  EXPECT_EQ(line.command, &MadeUp()[1]);
  EXPECT_EQ(line.values.arguments, (std::vector<std::string>{"look", "stats", "show"}));
}

TEST(CommandLine, AnArgumentMayBeEmpty) {
  const CommandLine line = Read({"stats", "show", ""});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.values.arguments, std::vector<std::string>{""});
}

TEST(CommandLine, AnOptionalArgumentMayBeLeftOutAndIsToldFromAnEmptyOne) {
  const CommandLine without = Read({"weapons", "set", "Predator", "missile"});
  ASSERT_EQ(without.kind, Kind::run) << without.text;
  EXPECT_EQ(without.values.arguments, (std::vector<std::string>{"Predator", "missile"}));
  const CommandLine with = Read({"weapons", "set", "Predator", "--json", "gun", "15"});
  ASSERT_EQ(with.kind, Kind::run) << with.text;
  EXPECT_EQ(with.values.arguments, (std::vector<std::string>{"Predator", "gun", "15"}));
  EXPECT_TRUE(with.json);
  const CommandLine empty = Read({"weapons", "set", "Predator", "gun", ""});
  ASSERT_EQ(empty.kind, Kind::run) << empty.text;
  EXPECT_EQ(empty.values.arguments, (std::vector<std::string>{"Predator", "gun", ""}));
}

TEST(CommandLine, AnArgumentBeforeAnOptionalOneMayNotBeLeftOut) {
  ExpectWrong({"weapons", "set", "Predator"}, "TYPE is required");
}

TEST(CommandLine, AnArgumentBehindAnOptionalOneIsNamed) {
  ExpectWrong({"weapons", "set", "Predator", "gun", "1", "2"}, "The following argument was not expected: 2");
}

TEST(CommandLine, AnOptionalArgumentMayBeANegativeNumber) {
  EXPECT_EQ(Read({"weapons", "set", "Predator", "gun", "-1"}).values.arguments.back(), "-1");
}

TEST(CommandLine, AnOptionMayBeGivenSeveralTimes) {
  const CommandLine line = Read({"pack", "make", "--only", "Manta", "/a.pak", "--from", "/one", "--only=Sch\xC3\xBCtze",
                                 "first", "--from", "/two", "second", "--only", "", "--only", "-5"});
  ASSERT_EQ(line.kind, Kind::run) << line.text;
  EXPECT_EQ(line.values.EveryOf("--only"), (std::vector<std::string>{"Manta", "Sch\xFCtze", "", "-5"}));
  EXPECT_EQ(line.values.EveryOf("--from"), (std::vector<std::string>{"Z:\\one", "Z:\\two"}));
  EXPECT_EQ(line.values.Of("--only"), "Manta");
  EXPECT_EQ(line.values.arguments, std::vector<std::string>{"Z:\\a.pak"}) << "an option takes one word each time";
  EXPECT_EQ(line.values.several, (std::vector<std::string>{"first", "second"}));
}

TEST(CommandLine, AnOptionOfSeveralThatIsGivenOnceOrNotAtAll) {
  const CommandLine line = Read({"pack", "make", "a", "--from", "b"});
  ASSERT_EQ(line.kind, Kind::run) << line.text;
  EXPECT_EQ(line.values.EveryOf("--from").size(), 1U);
  EXPECT_FALSE(line.values.Has("--only"));
  EXPECT_TRUE(line.values.EveryOf("--only").empty());
  ExpectWrong({"pack", "make", "a"}, "--from is required");
}

TEST(CommandLine, AnOptionOfSeveralWithoutItsValueIsWrong) {
  ExpectWrong({"pack", "make", "a", "--from", "b", "--only"}, "--only: 1 required NAME missing");
  ExpectWrong({"pack", "make", "a", "--from", "b", "--to", "x", "--to", "y"},
              "--to: At Most 1 required but received 2");
}

TEST(CommandLine, AnOptionWithoutAValueIsGivenOrNot) {
  EXPECT_TRUE(Read({"pack", "make", "a", "--from", "b", "--quick"}).values.Has("--quick"));
  EXPECT_FALSE(Read({"pack", "make", "a", "--from", "b"}).values.Has("--quick"));
}

TEST(CommandLine, ArgumentsComeInTheCodePageOfTheCore) {
  EXPECT_EQ(Read({"stats", "show", "Sch\xC3\xBCtze \xE2\x82\xAC"}).values.arguments,
            std::vector<std::string>{"Sch\xFCtze \x80"});
}

TEST(CommandLine, FoldersAreTakenAsWindowsPaths) {
  const CommandLine line = Read({"--game", "/games/lancer", "look", "--program", "C:\\Oravin\\"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.folders.game, "Z:\\games\\lancer");
  EXPECT_EQ(line.folders.program, "C:\\Oravin\\");
}

TEST(CommandLine, ARelativeFolderIsTakenFromTheCurrentOne) {
  std::string here = std::filesystem::current_path().string();
  for (char& c : here) {
    if (c == '/') c = '\\';
  }
  EXPECT_EQ(Read({"--game", "lancer", "look"}).folders.game, "Z:" + here + "\\lancer");
}

TEST(CommandLine, AnOptionsValueMayStandBehindAnEqualsSign) {
  const CommandLine line = Read({"--game=/lancer", "--answers=yes", "look"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.folders.game, "Z:\\lancer");
  EXPECT_EQ(line.answers.inOrder, std::vector<Answer>{Answer::yes});
}

TEST(CommandLine, AnswersAreTakenInOrder) {
  const CommandLine line = Read({"--answers", "yes,no,cancel", "look"});
  ASSERT_EQ(line.kind, Kind::run);
  EXPECT_EQ(line.answers.always, std::nullopt);
  EXPECT_EQ(line.answers.inOrder, (std::vector<Answer>{Answer::yes, Answer::no, Answer::cancel}));
}

TEST(CommandLine, YesNoAndAnswersExcludeEachOther) {
  ExpectWrong({"look", "--yes", "--no"}, "--yes excludes --no");
  ExpectWrong({"look", "--yes", "--answers", "no"}, "--yes excludes --answers");
  ExpectWrong({"look", "--no", "--answers", "no"}, "--no excludes --answers");
}

TEST(CommandLine, AnAnswerThatIsNoneIsWrong) {
  ExpectWrong({"look", "--answers", "yes,maybe"},
              "--answers: only yes, no, ok and cancel, separated by commas, are answers");
}

TEST(CommandLine, AnEmptyFolderIsWrong) {
  ExpectWrong({"look", "--game", ""}, "--game: the folder is empty");
  ExpectWrong({"look", "--program", ""}, "--program: the folder is empty");
}

TEST(CommandLine, AnOptionWithoutItsValueOrGivenTwiceIsWrong) {
  ExpectWrong({"look", "--game"}, "--game: 1 required DIR missing");
  ExpectWrong({"look", "--game", "a", "--game", "b"}, "--game: At Most 1 required but received 2");
}

TEST(CommandLine, NoCommandIsWrong) {
  ExpectWrong({}, "a command is missing");
  ExpectWrong({"--json"}, "a command is missing");
}

TEST(CommandLine, AGroupWithoutAVerbIsWrong) { ExpectWrong({"stats"}, "a verb is missing after \"stats\""); }

TEST(CommandLine, AnUnknownCommandIsNamed) {
  ExpectWrong({"fly"}, "there is no command \"fly\"");
  ExpectWrong({"stats", "fly"}, "there is no command \"stats fly\"");
}

TEST(CommandLine, CommandsAreNotAbbreviated) {
  EXPECT_EQ(Read({"stats", "sho", "Predator"}).kind, Kind::wrong);
  EXPECT_EQ(Read({"loo"}).kind, Kind::wrong);
}

TEST(CommandLine, AMissingArgumentIsNamed) { ExpectWrong({"stats", "set", "Predator", "Ammo"}, "VALUE is required"); }

TEST(CommandLine, AnArgumentTooManyIsNamed) {
  ExpectWrong({"look", "here"}, "The following argument was not expected: here");
}

TEST(CommandLine, VersionIsToldWithoutACommand) {
  const CommandLine line = Read({"--version"});
  EXPECT_EQ(line.kind, Kind::show);
  EXPECT_EQ(line.text, "oravin-cli " + PlainVersion() + "\n");
}

/// The lines of the help that the words ask for.
std::vector<std::string> HelpLines(std::span<const Command> commands, const std::vector<std::string>& words) {
  const CommandLine line = ReadCommandLine(commands, words);
  EXPECT_EQ(line.kind, Kind::show);
  std::istringstream text(line.text);
  std::vector<std::string> lines;
  for (std::string one; std::getline(text, one);) lines.push_back(one);
  return lines;
}

bool HasLine(const std::vector<std::string>& lines, const std::string& start) {
  return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return line.starts_with(start); });
}

TEST(CommandLine, HelpIsShownWithoutACommand) {
  const auto lines = HelpLines(MadeUp(), {"--help"});
  EXPECT_TRUE(HasLine(lines, "Usage: oravin-cli [options] [COMMAND]"));
  EXPECT_EQ(HelpLines(MadeUp(), {"-h"}), lines);
}

TEST(CommandLine, HelpOfACommandNeedsNoArguments) {
  const auto lines = HelpLines(MadeUp(), {"stats", "set", "--help"});
  EXPECT_EQ(lines.at(0), "Sets.");
  EXPECT_EQ(lines.at(1), "Usage: oravin-cli stats set [options] SHIP LABEL VALUE");
  for (const char* word :
       {"  SHIP              a ship", "  LABEL             a label", "  VALUE             a value"}) {
    EXPECT_TRUE(HasLine(lines, word)) << word;
  }
}

TEST(CommandLine, HelpOfAGroupNamesItsVerbs) {
  const auto lines = HelpLines(MadeUp(), {"stats", "-h"});
  EXPECT_TRUE(HasLine(lines, "Usage: oravin-cli stats "));
  EXPECT_TRUE(HasLine(lines, "  Sets."));
  EXPECT_FALSE(HasLine(lines, "  Looks."));
}

TEST(CommandLine, HelpMarksWhatMayBeLeftOutOrGivenSeveralTimes) {
  EXPECT_EQ(HelpLines(MadeUp(), {"weapons", "set", "-h"}).at(1),
            "Usage: oravin-cli weapons set [options] SHIP TYPE [CODE]");
  const auto lines = HelpLines(MadeUp(), {"pack", "make", "-h"});
  EXPECT_EQ(lines.at(1), "Usage: oravin-cli pack make [options] FILE [NAME...]");
  for (const char* option : {"  --only NAME ...", "  --from DIR ... REQUIRED", "  --to TEXT  ", "  --quick  "}) {
    EXPECT_TRUE(HasLine(lines, option)) << option;
  }
}

TEST(CommandLine, HelpNamesEveryCommandAndOptionAndFitsATerminal) {
  const auto lines = HelpLines(Commands(), {"--help"});
  for (const Command& command : Commands()) {
    EXPECT_TRUE(HasLine(lines, command.group.empty() ? command.verb : command.group)) << NameOf(command);
    EXPECT_TRUE(command.group.empty() || HasLine(lines, "    " + command.verb + " ")) << NameOf(command);
  }
  for (const char* option :
       {"--game DIR", "--program DIR", "--yes", "--no", "--answers LIST", "--json", "-h,--help", "--version"}) {
    EXPECT_TRUE(HasLine(lines, std::string("  ") + option)) << option;
  }
  for (const std::string& line : lines) EXPECT_LE(line.size(), 80U) << line;
}

TEST(Commands, AreThoseOfTheProgram) {
  std::vector<std::string> names;
  for (const Command& command : Commands()) names.push_back(NameOf(command));
  for (const char* name :
       {"status", "enable", "disable", "ships list", "ships swap", "ships unswap", "ships unswap-all", "stats show",
        "stats set", "stats copy", "stats restore", "stats restore-all", "weapons list", "weapons set",
        "weapons restore", "cloak show", "cloak toggle", "model textures"}) {
    EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << name;
  }
}

}  // namespace
}  // namespace oravin

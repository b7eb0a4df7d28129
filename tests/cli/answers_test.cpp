#include "cli/answers.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(AnswersFrom, ReadsTheFourWordsInOrder) {
  EXPECT_EQ(AnswersFrom("yes,no,ok,cancel"),
            (std::vector<Answer>{Answer::yes, Answer::no, Answer::ok, Answer::cancel}));
}

TEST(AnswersFrom, CaseAndBlanksDoNotMatter) {
  EXPECT_EQ(AnswersFrom("YES, No "), (std::vector<Answer>{Answer::yes, Answer::no}));
}

TEST(AnswersFrom, AnUnknownWordMakesTheListInvalid) { EXPECT_EQ(AnswersFrom("yes,maybe"), std::nullopt); }

TEST(AnswersFrom, EmptyListsAndEmptyPlacesAreInvalid) {
  EXPECT_EQ(AnswersFrom(""), std::nullopt);
  EXPECT_EQ(AnswersFrom("yes,"), std::nullopt);
  EXPECT_EQ(AnswersFrom(",yes"), std::nullopt);
  EXPECT_EQ(AnswersFrom("yes,,no"), std::nullopt);
}

TEST(FittingAnswer, AnOfferedAnswerIsTaken) {
  EXPECT_EQ(FittingAnswer(Answer::cancel, Buttons::yesNoCancel), Answer::cancel);
  EXPECT_EQ(FittingAnswer(Answer::no, Buttons::yesNoCancel), Answer::no);
  EXPECT_EQ(FittingAnswer(Answer::yes, Buttons::yesNo), Answer::yes);
}

TEST(FittingAnswer, YesAndOkStandForEachOther) {
  EXPECT_EQ(FittingAnswer(Answer::yes, Buttons::okCancel), Answer::ok);
  EXPECT_EQ(FittingAnswer(Answer::ok, Buttons::yesNo), Answer::yes);
  EXPECT_EQ(FittingAnswer(Answer::ok, Buttons::yesNoCancel), Answer::yes);
}

TEST(FittingAnswer, NoAndCancelStandForEachOther) {
  EXPECT_EQ(FittingAnswer(Answer::no, Buttons::okCancel), Answer::cancel);
  EXPECT_EQ(FittingAnswer(Answer::cancel, Buttons::yesNo), Answer::no);
}

TEST(SafeAnswer, IsNoForYesNoAndCancelWhereThereIsOne) {
  EXPECT_EQ(SafeAnswer(Buttons::yesNo), Answer::no);
  EXPECT_EQ(SafeAnswer(Buttons::yesNoCancel), Answer::cancel);
  EXPECT_EQ(SafeAnswer(Buttons::okCancel), Answer::cancel);
  EXPECT_EQ(SafeAnswer(Buttons::ok), Answer::ok);
}

TEST(PlannedAnswer, YesAffirmsEveryQuestion) {
  AnswerPlan plan{true, {}};
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), Answer::yes);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNoCancel), Answer::yes);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::okCancel), Answer::ok);
}

TEST(PlannedAnswer, NoAnswersYesNoCancelWithNoAndOkCancelWithCancel) {
  AnswerPlan plan{false, {}};
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), Answer::no);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNoCancel), Answer::no);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::okCancel), Answer::cancel);
}

TEST(PlannedAnswer, TheListIsGivenInOrderAndThenNothingIsPlanned) {
  AnswerPlan plan{std::nullopt, {Answer::no, Answer::yes, Answer::cancel}};
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), Answer::no);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), Answer::yes);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNoCancel), Answer::cancel);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), std::nullopt);
}

TEST(PlannedAnswer, AMessageWithOkAloneIsAnsweredOkAndUsesUpNothing) {
  AnswerPlan plan{std::nullopt, {Answer::no}};
  EXPECT_EQ(PlannedAnswer(plan, Buttons::ok), Answer::ok);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), Answer::no);
}

TEST(PlannedAnswer, WithoutAPlanQuestionsAreOpen) {
  AnswerPlan plan;
  EXPECT_EQ(PlannedAnswer(plan, Buttons::yesNo), std::nullopt);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::okCancel), std::nullopt);
  EXPECT_EQ(PlannedAnswer(plan, Buttons::ok), Answer::ok);
}

TEST(TypedAnswer, TakesWordsAndTheirBeginnings) {
  EXPECT_EQ(TypedAnswer("yes", Buttons::yesNo), Answer::yes);
  EXPECT_EQ(TypedAnswer(" N ", Buttons::yesNo), Answer::no);
  EXPECT_EQ(TypedAnswer("can", Buttons::yesNoCancel), Answer::cancel);
  EXPECT_EQ(TypedAnswer("O", Buttons::okCancel), Answer::ok);
}

TEST(TypedAnswer, RefusesWhatTheBoxDoesNotOffer) {
  EXPECT_EQ(TypedAnswer("cancel", Buttons::yesNo), std::nullopt);
  EXPECT_EQ(TypedAnswer("yesterday", Buttons::yesNo), std::nullopt);
  EXPECT_EQ(TypedAnswer("", Buttons::yesNo), std::nullopt);
}

}  // namespace
}  // namespace oravin

#include "run/reported_steps.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/headless/headless_desktop.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

// Each step adds its letter; the second fails for as long as its failures last.
TEST(ReportedStepsTest, TheAnswerSaysWhereTheStepsGoOn) {
  using Answer = MessageBoxAnswer;
  struct Case {
    std::vector<Answer> answers;
    const char* run;
    bool finished;
  };
  for (const Case& c : {Case{{}, "abc", true},
                        {{Answer::kIgnore}, "abc", true},
                        {{Answer::kRetry}, "abbc", true},
                        {{Answer::kRetry, Answer::kIgnore}, "abbc", true},
                        {{Answer::kRetry, Answer::kRetry, Answer::kRetry}, "abbbbc", true},
                        {{Answer::kAbort}, "ab", false},
                        {{Answer::kRetry, Answer::kAbort}, "abb", false},
                        {{Answer::kNone}, "ab", false},
                        {{Answer::kOk}, "ab", false},
                        {{Answer::kYes}, "ab", false}}) {
    HeadlessDesktop desktop;
    Application app(desktop);
    for (const Answer answer : c.answers) desktop.boxes.Answer(answer);
    std::string run;
    std::size_t failures = c.answers.size();
    const bool finished = RunReportedSteps(app, {[&] { run += 'a'; },
                                                 [&] {
                                                   run += 'b';
                                                   if (failures-- > 0) throw Failure(FailureNumber::kNotFound, "", "");
                                                   failures = 0;
                                                 },
                                                 [&] { run += 'c'; }});
    EXPECT_EQ(run, c.run);
    EXPECT_EQ(finished, c.finished);
    EXPECT_EQ(desktop.boxes.shown.size(), c.answers.size());
  }
}

TEST(ReportedStepsTest, ALibrarysExceptionIsReportedAndTheProcessesEndIsNot) {
  HeadlessDesktop desktop;
  Application app(desktop);
  EXPECT_THROW(RunReportedSteps(app, {[] { throw ProcessEnded(); }}), ProcessEnded);
  EXPECT_TRUE(desktop.boxes.shown.empty());
  desktop.boxes.Answer(MessageBoxAnswer::kIgnore);
  EXPECT_TRUE(RunReportedSteps(app, {[] { throw std::bad_alloc(); }}));
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_NE(desktop.boxes.shown[0].text.find("\r12: "), std::string::npos);
}

}  // namespace
}  // namespace quorvale

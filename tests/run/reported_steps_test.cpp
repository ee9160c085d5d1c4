#include "run/reported_steps.h"

#include <gtest/gtest.h>

#include <new>

#include "base/failure.h"
#include "platform/headless/headless_desktop.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

// Each step adds its letter; the second fails for as long as its failures last.
TEST(ReportedStepsTest, RetriesIgnoresOrAborts) {
  using Answer = MessageBoxAnswer;
  const std::tuple<std::vector<Answer>, const char*, bool> cases[] = {
      {{}, "abc", true},
      {{Answer::kIgnore}, "abc", true},
      {{Answer::kRetry}, "abbc", true},
      {{Answer::kRetry, Answer::kIgnore}, "abbc", true},
      {{Answer::kRetry, Answer::kRetry, Answer::kRetry}, "abbbbc", true},
      {{Answer::kAbort}, "ab", false},
      {{Answer::kRetry, Answer::kAbort}, "abb", false},
      {{Answer::kNone}, "ab", false},
      {{Answer::kOk}, "ab", false},
      {{Answer::kYes}, "ab", false}};
  for (const auto& [answers, steps, goes_on] : cases) {
    HeadlessDesktop desktop;
    Application app(desktop);
    for (const Answer answer : answers) desktop.boxes.Answer(answer);
    std::string run;
    std::size_t failures = answers.size();
    const bool finished = RunReportedSteps(app, {[&] { run += 'a'; },
                                                 [&] {
                                                   run += 'b';
                                                   if (failures-- > 0) throw Failure(FailureNumber::kNotFound, "", "");
                                                   failures = 0;
                                                 },
                                                 [&] { run += 'c'; }});
    EXPECT_EQ(run, steps);
    EXPECT_EQ(finished, goes_on);
    EXPECT_EQ(desktop.boxes.shown.size(), answers.size());
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

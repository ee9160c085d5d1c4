#include "run/reported_steps.h"

#include <gtest/gtest.h>

#include <new>

#include "platform/headless/headless_desktop.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

// Memory that ran out in a load handler took the whole program down, without a word.
TEST(ReportedStepsTest, AnExceptionOfALibraryIsReportedToo) {
  HeadlessDesktop desktop;
  Application app(desktop);
  desktop.boxes.Answer(MessageBoxAnswer::kIgnore);
  bool went_on = false;
  EXPECT_TRUE(RunReportedSteps(app, {[] { throw std::bad_alloc(); }, [&] { went_on = true; }}));
  EXPECT_TRUE(went_on);
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_NE(desktop.boxes.shown[0].text.find("\r12: "), std::string::npos);
}

}  // namespace
}  // namespace quorvale

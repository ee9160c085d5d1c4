#include "process/rules.h"

#include <gtest/gtest.h>

#include <string>

#include "base/failure.h"
#include "process/show_state.h"

namespace quorvale {
namespace {

bool Fail() { throw Failure(FailureNumber::kInvalidValue, "No", "Test"); }

TEST(RulesTest, AStepDropsAFailureAndNothingElse) {
  std::string run;
  Step([&] {
    run += 'a';
    Fail();
    run += 'b';
  });
  Step([&] { run += 'c'; });
  EXPECT_EQ(run, "ac");
  EXPECT_THROW(Step([] { throw ProcessEnded(); }), ProcessEnded);
}

TEST(RulesTest, ABranchIsTakenWhenItsTestFails) {
  std::string run;
  const auto add = [&](char c) { return [&run, c] { run += c; }; };
  StepIf([] { return true; }, add('a'));
  StepIf([] { return false; }, add('b'));
  StepIf(Fail, add('c'));
  StepIf(Fail, add('d'), add('e'));
  StepIf([] { return false; }, add('f'), add('g'));
  EXPECT_EQ(run, "acdg");
  EXPECT_THROW(StepIf([] { return true; }, Fail), Failure) << "the body is not covered";
  EXPECT_THROW(StepIf([]() -> bool { throw ProcessEnded(); }, add('h')), ProcessEnded);
}

TEST(CollectionTest, PositionsCountFromOne) {
  Collection collection({"a", "b"});
  EXPECT_EQ(collection.Item(1) + collection.Item(2), "ab");
  for (const int index : {-1, 0, 3}) EXPECT_THROW(collection.Item(index), Failure) << index;
}

}  // namespace
}  // namespace quorvale

#include "engine/pitch/splice_plan.h"

#include <gtest/gtest.h>

#include <vector>

namespace tandem {
namespace {

constexpr Frames kNow = 100000;
constexpr double kMs = kSampleRate / 1000.0;

ReadHead head_with(double lead_ms, double ratio) { return {kNow, static_cast<double>(kNow) + lead_ms * kMs, ratio}; }
Frames in(double ms) { return kNow + static_cast<Frames>(ms * kMs); }

TEST(ReadHead, KnowsHowFarItWillBeAheadAtAFrame) {
  const ReadHead head{1000, 1100.0, 1.25};
  EXPECT_EQ(head.lead(), 100.0);
  // 100 frames of the song take 80.
  EXPECT_DOUBLE_EQ(head.lead_at(1200.0), 120.0);
  EXPECT_DOUBLE_EQ(head.position_for(1200.0, 120.0), 1100.0);
}

TEST(SplicePlan, WhileTheLeadIsSmallThereIsNone) {
  EXPECT_EQ(plan_splice(head_with(2.0, 1.1), {}).fade, 0);
  EXPECT_EQ(plan_splice(head_with(-2.0, 0.9), {}).fade, 0);
}

TEST(SplicePlan, AtRatioOneThereIsNone) { EXPECT_EQ(plan_splice(head_with(11.0, 1.0), {}).fade, 0); }

TEST(SplicePlan, AReadingThatComesBackByItselfIsLeftAlone) {
  EXPECT_EQ(plan_splice(head_with(-9.0, 1.1), {}).fade, 0);
  EXPECT_EQ(plan_splice(head_with(9.0, 0.9), {}).fade, 0);
}

TEST(SplicePlan, TheLaterItIsTheLessAlikeThePlacesNeedBe) {
  const SplicePlan early = plan_splice(head_with(4.0, 1.1), {});
  const SplicePlan later = plan_splice(head_with(6.0, 1.1), {});
  const SplicePlan due = plan_splice(head_with(7.5, 1.1), {});
  EXPECT_FALSE(early.urgent);
  EXPECT_GT(early.enough, later.enough);
  EXPECT_TRUE(due.urgent);
  EXPECT_EQ(due.fade, SplicePlan::kLongestFade);
}

TEST(SplicePlan, AReadingThatLeadsGoesBackAndOneThatLagsGoesForward) {
  const ReadHead leads = head_with(7.5, 1.1);
  EXPECT_LT(static_cast<double>(plan_splice(leads, {}).range.high), leads.position);
  const ReadHead lags = head_with(-7.5, 0.9);
  EXPECT_GT(static_cast<double>(plan_splice(lags, {}).range.low), lags.position);
}

// What sounds while a splice lasts: from the lower place to the higher one and the fade.
void expect_clear_of(const ReadHead& head, const SplicePlan& plan, Frames onset) {
  ASSERT_GT(plan.fade, 0);
  const double length = static_cast<double>(plan.fade) * head.ratio;
  for (const Frames place : {plan.range.low, plan.range.high}) {
    const double from = std::min(head.position, static_cast<double>(place));
    const double to = std::max(head.position, static_cast<double>(place)) + length;
    const auto at = static_cast<double>(onset);
    EXPECT_TRUE(at <= from || at >= to) << "onset at " << at << ", splice from " << from << " to " << to;
  }
}

TEST(SplicePlan, NoOnsetLiesWithinASplice) {
  for (const double ratio : {0.8, 0.9, 1.1, 1.25}) {
    for (double ms = -40.0; ms < 80.0; ms += 0.7) {
      for (const double lead : {3.5, 5.0, 7.5, 10.0}) {
        const ReadHead head = head_with(ratio > 1.0 ? lead : -lead, ratio);
        const std::vector<Frames> onsets{in(ms)};
        const SplicePlan plan = plan_splice(head, onsets);
        if (plan.fade > 0) expect_clear_of(head, plan, onsets.front());
      }
    }
  }
}

TEST(SplicePlan, ASpliceWaitsForAnAttackToPass) {
  const std::vector<Frames> onsets{in(8.0)};
  EXPECT_EQ(plan_splice(head_with(7.5, 1.05), onsets).fade, 0);
}

TEST(SplicePlan, AnOnsetThatWouldBeHeardTooEarlyIsSplicedForBeforeItComes) {
  const ReadHead head = head_with(2.0, 1.25);
  const std::vector<Frames> onsets{in(32.0)};
  EXPECT_GT(head.lead_at(static_cast<double>(onsets.front())), 4.0 * kMs);
  const SplicePlan plan = plan_splice(head, onsets);
  ASSERT_TRUE(plan.urgent);
  for (const Frames place : {plan.range.low, plan.range.high}) {
    const ReadHead after{head.time, static_cast<double>(place), head.ratio};
    EXPECT_NEAR(after.lead_at(static_cast<double>(onsets.front())), 0.0, 4.1 * kMs);
  }
}

TEST(SplicePlan, AnOnsetThatWouldBeHeardTooLateIsSplicedForToo) {
  const std::vector<Frames> onsets{in(28.0)};
  const SplicePlan plan = plan_splice(head_with(-9.0, 1.05), onsets);
  EXPECT_TRUE(plan.urgent);
  EXPECT_GT(plan.range.low, in(-9.0));
}

TEST(SplicePlan, AmongCloseOnsetsFadesAreShort) {
  const std::vector<Frames> onsets{in(-20.0), in(22.0)};
  const SplicePlan plan = plan_splice(head_with(10.0, 1.05), onsets);
  ASSERT_GT(plan.fade, 0);
  EXPECT_LT(plan.fade, SplicePlan::kLongestFade);
  expect_clear_of(head_with(10.0, 1.05), plan, onsets.back());
}

TEST(SplicePlan, ALeadTooGreatIsTakenBackWhateverBeginsThere) {
  std::vector<Frames> onsets;
  for (double ms = -40.0; ms < 80.0; ms += 10.0) onsets.push_back(in(ms));
  EXPECT_EQ(plan_splice(head_with(9.0, 1.1), onsets).fade, 0);
  EXPECT_EQ(plan_splice(head_with(12.5, 1.1), onsets).fade, SplicePlan::kShortestFade);
}

TEST(SplicePlan, TheWayBackAimsAtNoLeadAndKeepsClearOfOnsets) {
  const ReadHead head = head_with(5.0, 1.0);
  const SplicePlan plan = plan_return(head, {});
  EXPECT_TRUE(plan.urgent);
  EXPECT_EQ(plan.range.centre, static_cast<double>(kNow));
  const std::vector<Frames> onsets{in(10.0)};
  EXPECT_EQ(plan_return(head, onsets).fade, 0);
}

}  // namespace
}  // namespace tandem

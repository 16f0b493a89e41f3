#include "AutoReverseFixture.h"

#include "motion/AutoReversePreview.h"

using namespace korval;
using namespace korval::testing;

// The preview makes the program as a test would, against its own virtual controller: a start
// here is zeroed there, so the return goes to 0 whatever the box held, and the messages of the
// making come with it.
TEST(AutoReversePreview, MadeAndRunOnItsOwnController) {
    AutoReverseSettings s;
    s.TxtHomePosition = "400"; // left from a limit start; this start reads it afresh
    s.CmbMovePosition = MoveMode::ToPositiveLimit;
    s.TxtMoveSpeed = "2500";
    s.TxtRepeat = "2";
    sim::PreviewOptions o;
    o.travel = 600;
    const auto p = PreviewAutoReverse(s, ProjectFormatter, o);
    EXPECT_EQ(p.program, Program("F, PM-0, LM0, S1M2000, I1M0, S1M2000, IA1M0, LA2, setDM1, R"));
    EXPECT_EQ(p.messages, std::vector<std::string>{"Error: Moving Speed: Speed Too High"});
    ASSERT_EQ(p.result.verdict, sim::PreviewVerdict::Ends);
    EXPECT_EQ(p.result.passes, 2);
    ASSERT_EQ(p.result.traces.size(), 1u);
    EXPECT_EQ(p.result.traces[0].points.back().position, 0) << "back where it started";
    int switches = 0;
    for (const auto& m : p.result.marks) {
        switches += m.kind == sim::PreviewMarkKind::LimitSwitch && m.position == 600 ? 1 : 0;
    }
    EXPECT_EQ(switches, 2) << "the + switch, once each cycle";
    // 600 steps out and back at 2000 a second, and their ramps.
    EXPECT_GT(*p.result.cycleSeconds, 0.6);
    EXPECT_LT(*p.result.cycleSeconds, 0.7);
}

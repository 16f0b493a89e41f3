// A long script on its way to the controller: where it is cut, how it is paced and stopped,
// and what the controller's program memory can hold.
#include "scripts/PacedSend.h"
#include "scripts/ProgramMemory.h"
#include "sim/KdxChain.h"
#include "support/FakeText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

using namespace korval;

TEST(PacedSend, PiecesEndAtLineEndsThenCommasOutsideCommentsThenAnywhere) {
    const struct {
        const char* text;
        std::size_t limit;
        std::vector<std::size_t> ends;
    } cases[] = {
        {"C,\r\nS1M2000,\r\nI1M400,R", 11, {4, 14, 22}},  // behind CR LF, never between them
        {"C,\rS1M2000,\rR", 9, {3, 12, 13}},              // behind a lone CR
        {"S1M2000,I1M400,R", 10, {8, 16}},                // behind a comma
        {"S1M20;a,b,c,d\r\nR", 10, {10, 16}},             // a comment's commas are no place to cut
        {"S1M20;a,b,c,d,e,f,g,h\r\nR", 10, {10, 20, 24}}, // within a comment, anywhere
        {"ABCDEFGHIJKLMN", 5, {5, 10, 14}},
        {"short", 10, {5}},
        {"", 10, {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(PieceEnds(c.text, c.limit), c.ends) << c.text;
    }
}

TEST(PacedSend, ProgressSaysBytesAndTheTimeLeftAtTheBaud) {
    const struct {
        SendProgress progress;
        const char* text;
    } cases[] = {
        {{0, 960, 9600}, "Sent 0 of 960 bytes, 1 s left at 9600 baud"},
        {{100, 96100, 9600}, "Sent 100 of 96100 bytes, 1 min 40 s left at 9600 baud"},
        {{960, 960, 9600}, "Sent 960 of 960 bytes, 0 s left at 9600 baud"},
        {{0, 38400, 38400}, "Sent 0 of 38400 bytes, 10 s left at 38400 baud"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.progress.Text(), c.text);
    }
}

namespace {

std::vector<std::pair<std::string, long>> sends; // what went, and when (milliseconds)
long nowMs = 0;

struct VirtualClock final : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        t += budget;
        nowMs = static_cast<long>(
            std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count());
    }
};

} // namespace

// 100 lines of 40 bytes: 9600 baud carries them in about 4.2 s. Each piece goes once the line
// has carried the ones before it; a stop ends the sending with a CR, a refused piece ends it.
TEST(PacedSend, PiecesGoAtTheLinesRateUntilAllIsSentOrItStops) {
    VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx kdx{delay};
    KdxDriverTable t;
    t.SendToPort = [](const char* text, std::int32_t n) {
        sends.emplace_back(FakeArg(text, n), nowMs);
        return std::int32_t{sends.back().first != "refused" ? 1 : 0};
    };
    kdx.AttachTable(t);
    std::string text;
    for (int i = 0; i < 100; ++i) {
        text += "S1M2000,\t\t;Motor 1 speed 2000 steps\r\n";
    }
    const struct {
        int stopAt; // the number of the question that says stop; 0: never
        SendEnd end;
        std::size_t pieces;
    } cases[] = {{0, SendEnd::Sent, 50}, {5, SendEnd::Stopped, 5}};
    for (const auto& c : cases) {
        sends.clear();
        int asked = 0;
        std::size_t lastSeen = 0;
        EXPECT_EQ(SendPaced(kdx, delay, text, 9600,
                            [&](const SendProgress& p) {
                                lastSeen = p.sent;
                                return ++asked != c.stopAt;
                            }),
                  c.end);
        ASSERT_EQ(sends.size(), c.pieces);
        std::string arrived;
        for (const auto& [piece, atMs] : sends) {
            EXPECT_NEAR(static_cast<double>(atMs - sends[0].second),
                        static_cast<double>(arrived.size()) * 10000 / 9600, 6);
            arrived += piece;
        }
        EXPECT_EQ(arrived, c.end == SendEnd::Sent ? text : text.substr(0, lastSeen) + "\r");
    }
    sends.clear();
    EXPECT_EQ(SendPaced(kdx, delay, "refused", 9600, [](const SendProgress&) { return true; }),
              SendEnd::LineFailed);
}

// The units each program takes, as the virtual controller counts them when it is sent the
// same script: the two must agree, or a script that fits would be refused.
TEST(ProgramMemory, UnitsAsTheControllerCountsThem) {
    const struct {
        const char* script;
        int units;
        int program;
    } cases[] = {
        {"C,S1M2000,I1M400,R", 8, 0},
        {"S1M500,\r\nI1M-0,\r\nIA2M-0,\r\nIA2M300,\r\nP15,\r\nLA5,\r\nLM0,\r\nL0,\r\nU90,", 23, 0},
        {"C,(S1M100,I1M10,S2M100,I2M10),R", 18, 0},
        {"S1M100, ;S1M100,S1M100\r\nI1M0,rsm", 7, 0},
        {"PM-2,S1M1,S1M2,PM-3,S1M1,PM2,S1M3", 12, 2},
        {"S1M1,S1M1,S1M1,C,S1M1", 4, 0},
        {"setI7,getD0,?,rsm", 0, 0},
    };
    for (const auto& c : cases) {
        sim::KdxChain chain;
        chain.receive(std::string("F,") + c.script + "\r");
        int used = 0;
        int program = 0;
        for (int p = 0; p < ProgramCount; ++p) {
            const int units = ProgramMemoryUnits - chain.freeMemory(p);
            if (units > used) {
                used = units;
                program = p;
            }
        }
        EXPECT_EQ(used, c.units) << "the controller's count of " << c.script;
        EXPECT_EQ(program, c.program) << "the controller's program of " << c.script;
        const auto use = LargestProgram(c.script, 0);
        EXPECT_EQ(use.units, c.units) << c.script;
        EXPECT_EQ(use.units == 0 ? 0 : use.program, c.program) << c.script;
    }
}

TEST(ProgramMemory, AScriptTooLargeIsToldWithItsSizeAndWhatTheControllerHolds) {
    std::string big;
    for (int i = 0; i < 65; ++i) {
        big += "I1M400,\r\n"; // 4 units each
    }
    EXPECT_EQ(MemoryProblem("PM-4," + big), "The script is too large for the KDX: it needs 260 "
                                            "memory units for program 4, and the KDX holds 256 "
                                            "units in each of its 5 programs. Nothing was sent.");
    EXPECT_EQ(MemoryProblem(big.substr(9) + "C,\r\n" + big.substr(9)), "")
        << "64 moves fill a program exactly, and C empties it again";
}

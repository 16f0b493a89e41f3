#pragma once
// A driver table that records every call the axis rules make, in order, and answers from
// fields a test sets. Calls are written the way the wire would carry them ("setM2M3").
#include "link/ClsDriverKdx.h"
#include "support/FakeText.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace korval::testing {

struct FakeKdx {
    std::vector<std::string> calls;
    std::map<int, int> motor{{1, 0}, {2, 0}, {3, 0}, {4, 0}}; // what GetMotor reads
    std::map<int, int> limit{{1, 0}, {2, 0}, {3, 0}, {4, 0}};
    int setFailures = 0; // how many SetMotor and SetLimit calls to come go unanswered (0)
    int runResult = 1;
    int waitResult = 1;
    int possible = 2;
    int actual = 2;
    std::string status = "ONLINEREADY";
    std::vector<std::string> positions; // read in turn; "0" once they run out
};

inline FakeKdx fake;

inline KdxDriverTable FakeTable() {
    fake = FakeKdx{};
    KdxDriverTable t;
    t.FreeText = [](char* text) { std::free(text); };
    t.SendToPort = [](const char* text, std::int32_t n) {
        fake.calls.push_back("send " + FakeArg(text, n));
        return std::int32_t{1};
    };
    t.ClearPort = [] {
        fake.calls.push_back("clear");
        return std::int32_t{1};
    };
    t.SetMotor = [](std::int32_t m, std::int32_t v) {
        fake.calls.push_back("setM" + std::to_string(m) + "M" + std::to_string(v));
        if (fake.setFailures > 0) {
            --fake.setFailures;
            return std::int32_t{0};
        }
        fake.motor[m] = v;
        return std::int32_t{1};
    };
    t.SetLimit = [](std::int32_t m, std::int32_t v) {
        fake.calls.push_back("setL" + std::to_string(m) + "M" + std::to_string(v));
        if (fake.setFailures > 0) {
            --fake.setFailures;
            return std::int32_t{0};
        }
        fake.limit[m] = v;
        return std::int32_t{1};
    };
    t.GetMotor = [](std::int32_t m) {
        fake.calls.push_back("getM" + std::to_string(m));
        return std::int32_t{fake.motor[m]};
    };
    t.GetLimit = [](std::int32_t m) {
        fake.calls.push_back("getL" + std::to_string(m));
        return std::int32_t{fake.limit[m]};
    };
    t.RunProgramAndWaitForFinish = [](std::int64_t limit) {
        fake.calls.push_back("run " + std::to_string(limit));
        return std::int32_t{fake.runResult};
    };
    t.WaitForChar = [](const char* text, std::int32_t n, std::int64_t limit) {
        fake.calls.push_back("wait " + FakeArg(text, n) + " " + std::to_string(limit));
        return std::int32_t{fake.waitResult};
    };
    t.GetMotorPosition = [](std::int32_t m, std::int32_t* n) {
        fake.calls.push_back("position " + std::to_string(m));
        if (fake.positions.empty()) {
            return FakeText("0", n);
        }
        const auto text = fake.positions.front();
        fake.positions.erase(fake.positions.begin());
        return FakeText(text, n);
    };
    t.VerifyControlStatus = [](std::int32_t* n) { return FakeText(fake.status, n); };
    t.PossibleNumOfMotors = [] {
        fake.calls.push_back("possible");
        return std::int32_t{fake.possible};
    };
    t.ActualNumOfMotors = [] {
        fake.calls.push_back("actual");
        return std::int32_t{fake.actual};
    };
    return t;
}

// Time that passes only when a pause asks for it, so tests wait for nothing.
struct VirtualClock final : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override { t += budget; }
};

} // namespace korval::testing

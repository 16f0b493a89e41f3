#pragma once
// A driver table that records every call the axis rules make, in order, and answers from
// fields a test sets. Calls are written the way the wire would carry them ("setM2M3").
#include "link/ClsDriverKdx.h"

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
    int setResult = 1; // what SetMotor and SetLimit give: 0 is a write the controller missed
    int runResult = 1;
    int waitResult = 1;
    int possible = 2;
    int actual = 2;
    std::string status = "ONLINEREADY";
    std::string position = "0";
};

inline FakeKdx fake;

inline char* fakeText(const std::string& text) {
    return strdup(text.c_str());
}

inline KdxDriverTable FakeTable() {
    fake = FakeKdx{};
    KdxDriverTable t;
    t.FreeText = [](char* text) { std::free(text); };
    t.SendToPort = [](char* text) {
        fake.calls.push_back(std::string("send ") + text);
        return std::int32_t{1};
    };
    t.SetMotor = [](std::int32_t m, std::int32_t v) {
        fake.calls.push_back("setM" + std::to_string(m) + "M" + std::to_string(v));
        if (fake.setResult == 1) {
            fake.motor[m] = v;
        }
        return std::int32_t{fake.setResult};
    };
    t.SetLimit = [](std::int32_t m, std::int32_t v) {
        fake.calls.push_back("setL" + std::to_string(m) + "M" + std::to_string(v));
        if (fake.setResult == 1) {
            fake.limit[m] = v;
        }
        return std::int32_t{fake.setResult};
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
    t.WaitForChar = [](char* text, std::int64_t limit) {
        fake.calls.push_back(std::string("wait ") + text + " " + std::to_string(limit));
        return std::int32_t{fake.waitResult};
    };
    t.GetMotorPosition = [](std::int32_t m) {
        fake.calls.push_back("position " + std::to_string(m));
        return fakeText(fake.position);
    };
    t.VerifyControlStatus = [] { return fakeText(fake.status); };
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

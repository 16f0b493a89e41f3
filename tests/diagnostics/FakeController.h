#pragma once
// A controller behind a fake driver table: it answers canned replies keyed by the exact text
// sent (they wait at the port beside what came before), records every call in order, and stamps
// each send with the virtual time.
#include "diagnostics/ClsKdxDiagnostic.h"
#include "support/FakeText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace korval::testing {

struct Controller {
    std::map<std::string, std::string> replies;
    std::vector<std::string> calls;                  // "clear", "send <text>", "read", "read+clear"
    std::vector<std::pair<std::string, long>> sends; // text, milliseconds since the start
    std::string pending;
    long nowMs = 0;
    long portLostAtMs = -1; // the port fails at that moment; -1: never
    // Bytes that follow the reply to a text this many milliseconds after it was sent.
    std::map<std::string, std::pair<std::string, long>> late;
    std::vector<std::pair<std::string, long>> due; // late bytes on their way, and when they come
};

inline Controller controller;

// Late bytes whose time has come join what waits at the port.
inline void arrive() {
    std::erase_if(controller.due, [](const auto& d) {
        if (d.second > controller.nowMs) {
            return false;
        }
        controller.pending += d.first;
        return true;
    });
}

inline KdxDriverTable FakeTable() {
    KdxDriverTable t;
    t.SendToPort = [](const char* bytes, std::int32_t n) {
        auto& c = controller;
        const auto text = FakeArg(bytes, n);
        c.calls.push_back("send " + text);
        c.sends.emplace_back(text, c.nowMs);
        const auto found = c.replies.find(text);
        c.pending += found == c.replies.end() ? std::string() : found->second;
        if (const auto late = c.late.find(text); late != c.late.end()) {
            c.due.emplace_back(late->second.first, c.nowMs + late->second.second);
        }
        return std::int32_t{1};
    };
    t.ClearPort = [] {
        arrive();
        controller.calls.push_back("clear");
        controller.pending.clear();
        return std::int32_t{1};
    };
    t.ReadFromPort = [](std::int32_t* n) {
        arrive();
        controller.calls.push_back("read");
        return FakeText(controller.pending, n);
    };
    t.ReadAndThenClearFromPort = [](std::int32_t* n) {
        arrive();
        controller.calls.push_back("read+clear");
        auto* text = FakeText(controller.pending, n);
        controller.pending.clear();
        return text;
    };
    t.IsPortOpen = [] {
        const auto& c = controller;
        return std::int32_t{c.portLostAtMs < 0 || c.nowMs < c.portLostAtMs ? 1 : 0};
    };
    t.FreeText = [](char* text) { std::free(text); };
    return t;
}

struct VirtualClock final : WaitContext {
    Clock::time_point t{};
    Clock::time_point now() override { return t; }
    void runEvents(Clock::duration budget) override {
        t += budget;
        controller.nowMs = static_cast<long>(
            std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count());
    }
    long elapsedMs() const {
        return static_cast<long>(
            std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count());
    }
};

struct PointerSpy final : BusyPointer {
    std::vector<bool> changes;
    void SetBusy(bool busy) override { changes.push_back(busy); }
};

// Each text as a line of a report, CR LF ended.
inline std::string lines(std::initializer_list<const char*> each) {
    std::string text;
    for (const auto* line : each) {
        text += std::string(line) + "\r\n";
    }
    return text;
}

// Lays a listing out one command a line with a comment, as the commands library does.
inline std::string FakeFormatter(const std::string& text, int flag) {
    std::string out;
    std::string item;
    for (const char c : text + ",") {
        if (c == ',' || c == '\r') {
            if (!item.empty()) {
                out += item + "," + (flag == 1 ? ";M" + item : "") + "\r";
            }
            item.clear();
        } else {
            item += c;
        }
    }
    return out;
}

struct DiagnosticFixture : ::testing::Test {
    VirtualClock clock;
    ClsTimeDelay delay{clock};
    ClsDriverKdx driver{delay};
    PointerSpy pointer;
    ClsKdxDiagnostic diagnostic{driver, delay, FakeFormatter, &pointer};

    void SetUp() override {
        controller = {};
        clock.t = {};
        driver.AttachTable(FakeTable());
    }
    // Only the texts sent, in order.
    std::vector<std::string> sent() const {
        std::vector<std::string> out;
        for (const auto& s : controller.sends) {
            out.push_back(s.first);
        }
        return out;
    }
    // A two-motor or four-motor controller with a setting for every query.
    void FillController(bool fourMotors);
};

inline void DiagnosticFixture::FillController(bool fourMotors) {
    auto& r = controller.replies;
    r = {
        {"getD0,", "1.22\r"}, {"getD1,", "03/14/05\r"}, {"getD2,", "2\r"},  {"getDM,", "129\r"},
        {"PM,", "0\r"},       {"PMA,", "4\r"},          {"getDA,", "20\r"}, {"getPA,", "10\r"},
        {"getI,", "7\r"},     {"@", "512\r"},           {"$,", "\x05"},     {"O,", "1\r"},
        {"~,", "\xFF"},       {"?,", "\xFC"},           {"PM\r", "0\r"},
    };
    r["getM3M,"] = fourMotors ? "2000\r"
                              : "\xCB"
                                "B";
    for (int m = 1; m <= (fourMotors ? 4 : 2); ++m) {
        const auto n = std::to_string(m);
        r["getM" + n + "M,"] = std::to_string(1000 * m) + "\r";
        r["getL" + n + "M,"] = std::to_string(m) + "\r";
        r["getj" + n + "M,"] = std::to_string(100 * m) + "\r";
        r["getJ" + n + "M,"] = std::to_string(50 * m) + "\r";
        r["getjA" + n + "M,"] = std::to_string(m) + "\r";
        r["getJA" + n + "M,"] = std::to_string(20 + m) + "\r";
        r["getP" + n + "M,"] = std::to_string(10 * m) + "\r";
    }
    for (int p = 0; p <= 4; ++p) {
        r["PM" + std::to_string(p) + ",lst,"] = p == 4 ? "" : "C,S1M" + std::to_string(p) + ",R";
    }
}

} // namespace korval::testing

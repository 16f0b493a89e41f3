#pragma once
// The real driver library, loaded by path, talking through a real pseudo-terminal to the
// virtual controller, as a bench meets them.
#include "link/ClsDriverKdx.h"
#include "link/Mailbox.h"
#include "sim/PtyHost.h"

#include "core/ui/QtWaitContext.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace korval::testing {

// Qt's event loop, with a hook the test runs at each round of a pause.
struct HookedWait final : WaitContext {
    QtWaitContext qt;
    std::function<void()> hook;
    Clock::time_point now() override { return qt.now(); }
    void runEvents(Clock::duration budget) override {
        qt.runEvents(budget);
        if (hook) {
            hook();
        }
    }
};

struct SimLink : ::testing::Test {
    HookedWait wait;
    ClsTimeDelay delay{wait};
    ClsDriverKdx kdx{delay};
    Mailbox mailbox; // for what the driver writes from its own threads
    std::unique_ptr<sim::PtyHost> host;

    void SetUp() override {
        ASSERT_NE(kdx.LoadDriver(std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Serial Driver.so"),
                  0);
        kdx.EscapeDriverFunctionFalse(); // the library outlives each test: start clean
    }
    void TearDown() override {
        kdx.PortClose();
        host.reset();
    }
    // The virtual controller, with kdx-sim's option text, on a pseudo-terminal of its own.
    void startSim(const std::string& options = "") {
        sim::SimOptions o;
        std::string error;
        ASSERT_TRUE(sim::ParseSimOptions(options, o, error)) << error;
        host = std::make_unique<sim::PtyHost>(o);
        ASSERT_TRUE(host->start(error)) << error;
    }
    void online(int baud = 9600) {
        ASSERT_EQ(kdx.PortOpenByName(host->device(), baud), 1);
        kdx.BringOnline();
    }
    void setSilent(bool silent) {
        host->withChain([silent](sim::KdxChain& chain) { chain.setSilent(silent); });
    }
    std::string query(const std::string& text) {
        kdx.ClearPortChars();
        kdx.SendCommandsToPort(text);
        delay.TimeDelay(0.15);
        return kdx.ReadReplyAndClearPort();
    }
};

} // namespace korval::testing

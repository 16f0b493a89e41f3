#include "link/PortMap.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace korval;

namespace {

struct PortMapFixture : ::testing::Test {
    TempFolder links;
    TempFolder dev;
    PortMap map{links.file("ports"), dev.path()};

    void device(const std::string& name) { std::ofstream(dev.file(name)) << ""; }
};

} // namespace

TEST_F(PortMapFixture, NumbersTheMachinesDevicesUsbAdaptersFirst) {
    for (const char* name :
         {"ttyS1", "ttyS0", "ttyUSB10", "ttyUSB2", "ttyACM0", "ttyprintk", "ttyUSBx", "null"}) {
        device(name);
    }
    const struct {
        int port;
        const char* device;
    } cases[] = {{1, "ttyUSB2"}, {2, "ttyUSB10"}, {3, "ttyACM0"}, {4, "ttyS0"}, {5, "ttyS1"}};
    for (const auto& c : cases) {
        EXPECT_EQ(map.resolve(c.port), dev.file(c.device)) << c.port;
    }
    EXPECT_EQ(map.resolve(6), "");
    EXPECT_EQ(map.resolve(0), "");
    EXPECT_EQ(map.resolve(256), "");
    EXPECT_EQ(map.list().size(), 5u);
}

TEST_F(PortMapFixture, ALinkOverridesTheFallbackAndCanBeRemoved) {
    device("ttyUSB0");
    ASSERT_TRUE(map.registerPort(1, "/dev/pts/9"));
    ASSERT_TRUE(map.registerPort(7, "/dev/pts/3"));
    ASSERT_TRUE(map.registerPort(7, "/dev/pts/4")); // a restarted controller takes its number back
    EXPECT_EQ(map.resolve(1), "/dev/pts/9");
    EXPECT_EQ(map.resolve(7), "/dev/pts/4");
    const auto entries = map.list();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[1].port, 7);
    EXPECT_TRUE(entries[1].linked);
    map.unregisterPort(1);
    EXPECT_EQ(map.resolve(1), dev.file("ttyUSB0"));
}

TEST_F(PortMapFixture, AcceptsNumbersNamesAndDevicePaths) {
    map.registerPort(3, "/dev/pts/5");
    const struct {
        const char* text;
        const char* device;
    } cases[] = {{"3", "/dev/pts/5"},
                 {"Com3", "/dev/pts/5"},
                 {"COM3", "/dev/pts/5"},
                 {"/dev/ttyX", "/dev/ttyX"},
                 {"x3", ""},
                 {"", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(map.resolve(std::string(c.text)), c.device) << c.text;
    }
}

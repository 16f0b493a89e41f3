#include "link/PortMap.h"
#include "link/PortLabels.h"
#include "link/PortReplug.h"

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

TEST_F(PortMapFixture, LabelsNameTheDeviceAndTheAdapterBehindEachNumber) {
    device("ttyUSB0");
    device("ttyUSB1");
    device("ttyS0");
    std::filesystem::create_directories(dev.file("serial/by-id"));
    std::filesystem::create_symlink(dev.file("ttyUSB1"), dev.file("serial/by-id/usb-FTDI-if00"));
    map.registerPort(7, dev.file("serial/by-id/usb-FTDI-if00"));
    map.registerPort(9, dev.file("pts/9")); // a controller that has gone
    const auto real = [&](const char* name) {
        return std::filesystem::canonical(dev.file(name)).string();
    };
    const std::vector<SerialDevice> known = {
        {real("ttyUSB0"), "FT232R USB UART", "FTDI", "A1", 0x0403, 0x6001},
        {real("ttyUSB1"), "", "Prolific", "", 0x067B, 0x2303},
        {real("ttyS0"), "ttyS0", "", "", -1, -1}, // not USB: no description shown
    };
    const std::vector<std::string> expected = {
        "Com1  " + real("ttyUSB0") + "  FT232R USB UART",
        "Com2  " + real("ttyUSB1") + "  Prolific",
        "Com3  " + real("ttyS0"),
        "Com7  " + real("ttyUSB1") + "  Prolific", // through the lasting name
        "Com9  " + dev.file("pts/9") + " (missing)",
    };
    std::vector<std::string> labels;
    for (const auto& p : LabelPorts(map, known)) {
        labels.push_back(p.label);
    }
    EXPECT_EQ(labels, expected);
    EXPECT_EQ(AdapterAt(dev.file("serial/by-id/usb-FTDI-if00"), known), &known[1]);
    EXPECT_EQ(AdapterAt(dev.file("ttyS0"), known), nullptr);
}

TEST(PortReplug, WaitsForTheSameDeviceUnlessClosedOnPurpose) {
    const SerialDevice ftdi{"/dev/ttyUSB0", "FT232R USB UART", "FTDI", "A1", 0x0403, 0x6001};
    auto other = ftdi;
    other.serialNumber = "B7";
    PortReplug replug;
    EXPECT_FALSE(replug.Lost()) << "nothing was open";
    replug.Opened({3, 9600, "/dev/ttyUSB0", ftdi});
    ASSERT_TRUE(replug.Lost());
    EXPECT_FALSE(replug.Lost()) << "one loss, one wait";
    EXPECT_FALSE(replug.Returned(false, nullptr));
    EXPECT_FALSE(replug.Returned(true, nullptr)) << "a device the system cannot name";
    EXPECT_FALSE(replug.Returned(true, &other)) << "another adapter of the same make";
    EXPECT_TRUE(replug.Returned(true, &ftdi));
    replug.Closed();
    EXPECT_FALSE(replug.Returned(true, &ftdi)) << "the user closed it meanwhile";
    EXPECT_FALSE(replug.Lost()) << "a report after closing is no loss";

    replug.Opened({1, 19200, "/dev/pts/4", std::nullopt}); // nothing tells a pty apart
    ASSERT_TRUE(replug.Lost());
    EXPECT_TRUE(replug.Returned(true, nullptr));
}

// The device settings sent to the virtual controller through the real driver, and read back
// with the diagnostic queries.
#include "SimLink.h"
#include "axis/DeviceSettings.h"

using namespace korval;
using namespace korval::testing;

namespace {
struct DeviceSettingsSim : SimLink {};
} // namespace

TEST_F(DeviceSettingsSim, EachDeviceSettingIsStoredAsSentAndReadsBack) {
    startSim("arrangement=2+2");
    const struct {
        std::string setting;
        std::string query;
        std::string reply;
    } cases[] = {
        {[] {
             std::string v = "7000";
             return JogButtonsSetting(3, v, false);
         }(),
         "getj3M,getJ3M,", "6000\r6000\r"},
        {[] {
             std::string v = "1500";
             return JogButtonsSetting(1, v, true);
         }(),
         "getj1M,getJ1M,", "0\r0\r"},
        {[] {
             std::string p = "3000", s = "1200";
             return *DigitalJoystickSetting(4, p, s, false);
         }(),
         "getj4M,getJ4M,", "3000\r1200\r"},
        {AnalogJoystickSetting(2, 4, 12), "getjA2M,getJA2M,", "4\r12\r"},
        {AnalogJoystickSetting(2, 0, 12), "getjA2M,getJA2M,", "0\r0\r"},
        {[] {
             std::string d = "7";
             return DeadBandSetting(d);
         }(),
         "getDA,", "20\r"},
        {ThumbwheelSetting(true), "getI,", "67\r"},
        {ThumbwheelSetting(false), "getI,", "7\r"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(SendSetting(kdx, c.setting)) << c.setting;
        EXPECT_EQ(query(c.query), c.reply) << c.setting;
    }
}

TEST_F(DeviceSettingsSim, ASettingTheControllerNeverAnswersIsNotConfirmed) {
    startSim();
    setSilent(true);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(SendSetting(kdx, ThumbwheelSetting(true)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    setSilent(false);
    EXPECT_EQ(query("getI,"), "3\r") << "nothing was stored";
}

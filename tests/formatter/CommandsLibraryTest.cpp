// The commands library as the program loads it: whatever text it is given, an answer comes
// back across its C interface and nothing is thrown through it.
#include "link/ClsKdxCommands.h"

#include <gtest/gtest.h>

using korval::ClsKdxCommands;

TEST(CommandsLibrary, AnyListingIsFormattedAcrossTheCInterface) {
    ClsKdxCommands commands;
    ASSERT_NE(commands.LoadDll(std::string(KORVAL_DRIVER_DIR) + "/Tavrin KDX Commands.so"), 0);
    const struct {
        std::string listing;
        std::string formatted;
    } cases[] = {
        {"S2M-6606566065,R", "S2M-6606566065,;Motor 2 analog speed, unknown range 6606566065\r"
                             "R;Run the current program\r"},
        {"P" + std::string(400, '9'),
         "P" + std::string(400, '9') + ",;Pause " + std::string(399, '9') + ".9 seconds\r"},
        {std::string(30000, 'x'), std::string(30000, 'x') + ",;Unknown command\r"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(commands.AutoFormatCommands(c.listing, 1), c.formatted)
            << c.listing.substr(0, 20);
    }
}

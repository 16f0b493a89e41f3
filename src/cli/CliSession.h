#pragma once
// One run of the command line against a controller: the two libraries loaded from the
// program's Driver folder, the sinks wired through a mailbox, the port opened and closed in the
// program's fixed order.
#include "DrainingWait.h"

#include "core/ClsTimeDelay.h"
#include "link/ClsDriverKdx.h"
#include "link/ClsKdxCommands.h"
#include "link/Mailbox.h"

#include <string>

namespace korval::cli {

class CliSession {
public:
    CliSession();
    ~CliSession(); // off line, receive thread closed, escape, libraries released

    // Empty on success, else the one-line reason.
    std::string loadLibraries(const std::string& driverFolder);
    // A port number ("3", "Com3") or a device path; empty on success, else the reason.
    std::string openPort(const std::string& port, int baud);

    ClsDriverKdx& kdx() { return kdx_; }
    ClsKdxCommands& commands() { return commands_; }
    ClsTimeDelay& delay() { return delay_; }
    Mailbox& mailbox() { return mailbox_; }

private:
    Mailbox mailbox_;
    DrainingWait wait_{mailbox_};
    ClsTimeDelay delay_{wait_};
    ClsDriverKdx kdx_{delay_};
    ClsKdxCommands commands_{&wait_};
    bool opened_ = false;
};

// The folder "Driver" beside the running program.
std::string driverFolder();

} // namespace korval::cli

// korval-cli as a user runs it: a real process, its output and its exit status.
#include "CliProcess.h"

#include "sim/PtyHost.h"
#include "sim/SimControl.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

using namespace korval::test;

TEST(CliRun, ExitStatusesAndMessages) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const struct {
        std::string args;
        int status;
        const char* message;
    } cases[] = {
        {"fly", 2, "korval-cli: unknown command fly"},
        {"--baud 1200 status", 2, "korval-cli: --baud must be 9600"},
        {"--sim info colour", 2, "korval-cli: unknown subject colour"},
        {"--sim=arrangement=3 status", 2, "korval-cli: --sim:"},
        {"--port /nonexistent/tty status", 1, "korval-cli: cannot open port /nonexistent/tty"},
        {"--sim --baud 19200 info processor", 1,
         "korval-cli: warning: the controller does not answer the status query"},
        {"--sim diag --output /nonexistent/folder/r", 1, "korval-cli: cannot write the report"},
        {"--sim axis 5", 2, "korval-cli: axis takes an axis number from 1 to 4 first"},
        {"--sim axis 1 --motor-setting 7 --test", 2, "korval-cli: --motor-setting takes a motor"},
        {"--sim axis 1 --limit-setting 3 --test", 2, "korval-cli: --limit-setting takes a limit"},
        {"--sim axis 1 --keep", 2, "korval-cli: settings are written only by a motor test"},
        {"--sim=arrangement=1 axis 2", 1, "korval-cli: axis 2 gives no motor setting"},
        {"--sim wizard --answer maybe", 2, "korval-cli: --answer takes yes or no"},
        {"--sim watch switches", 2, "korval-cli: watch takes limits, inputs"},
        {"--sim watch inputs --seconds 0", 2, "korval-cli: watch takes limits, inputs"},
        {"--sim=firmware=1.21 watch outputs --seconds 2", 1,
         "korval-cli: Outputs Troubleshooter cannot be used with a KDX version lower than 1.22"},
        {"calc-motor --wires six --current 1 --inductance 1", 2, "korval-cli: --wires takes"},
        {"calc-motor --wires 6 --current 1", 2, "korval-cli: calc-motor takes --wires W"},
        {"--sim attach 5 jog --velocity 1", 2, "korval-cli: attach takes AXIS (1 to 4)"},
        {"--sim attach 1 jog", 2, "korval-cli: attach jog takes --velocity V, or --disable"},
        {"--sim attach 1 digital --primary 2000 --secondary 2001", 2,
         "korval-cli: Speed Error: Secondary speed can not be higher than primary speed"},
        {"--sim attach 1 analog --primary 25", 2, "korval-cli: --primary takes a row from 0 to 24"},
        {"--sim attach 1 thumbwheel maybe", 2,
         "korval-cli: attach AXIS thumbwheel takes on or off"},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(c.args) + " 2>" + errors);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_EQ(slurp(errors).rfind(c.message, 0), 0u) << c.args << ": " << slurp(errors);
    }
    EXPECT_FALSE(std::ifstream("/nonexistent/folder/r.txt"));
}

TEST(CliRun, EveryCommandWorksOnTheBuiltInController) {
    EXPECT_EQ(run(cli("--sim status")).out, "ONLINEREADY\n");
    EXPECT_EQ(run(cli("--sim send getD0,")).out, "1.22\n");
    EXPECT_EQ(run(cli("--sim=firmware=1.21 info outputs")).out,
              "Version 1.22 or higher is needed for this option. Your Version is: 1.21\n");
    EXPECT_EQ(run(cli("--sim=baud=38400 detect 2>/dev/null")).out, "Com1 38400\n");
    const auto axis = run(cli("--sim=arrangement=2 info axis")).out;
    EXPECT_NE(axis.find("Axis 2:\nSetting for Motor2: "), std::string::npos) << axis;
    EXPECT_NE(axis.find("Axis 3:\n\nAxis 4:\n\n"), std::string::npos) << "a two-motor chain";
}

// A controller built from the command language alone knows nothing of the driver's own words:
// the scan still gives the whole report, byte for byte, over a real port.
TEST(CliRun, ALanguageOnlyControllerOnARealPortGivesTheSameReport) {
    TempFolder dir;
    const auto builtIn = run(cli("--sim=arrangement=2+2 diag 2>/dev/null"));
    ASSERT_EQ(builtIn.status, 0);
    EXPECT_EQ(builtIn.out.rfind(std::string(20, '*') + " Diagnostic Results", 0), 0u);
    EXPECT_NE(builtIn.out.find("\r\n"), std::string::npos);

    // The same controller as its own program on a pseudo-terminal, reached by device path.
    const auto device = dir.file("device");
    const auto control = dir.file("control");
    ASSERT_EQ(std::system(("mkfifo " + control).c_str()), 0);
    const std::string sim = std::string(KDX_SIM) + " --arrangement 2+2 --language-only on < " +
                            control + " > " + device + " 2>/dev/null & exec 3>" + control + "; ";
    const auto r = run("bash -c '" + sim + "for i in $(seq 50); do [ -s " + device +
                       " ] && break; sleep 0.1; done; " +
                       cli("--port $(head -1 " + device + ") diag --output " +
                           dir.file("report.txt.txt") + " 2>" + dir.file("err")) +
                       "; echo quit >&3'");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(slurp(dir.file("report.txt")), builtIn.out) << "byte for byte";
    const auto progress = slurp(dir.file("err"));
    EXPECT_EQ(progress.rfind("korval-cli: warning: the controller does not answer the status", 0),
              0u)
        << progress;
    EXPECT_TRUE(progress.ends_with("Scan Complete\nGenerating Report\nReport saved to " +
                                   dir.file("report.txt") + "\n"))
        << progress;
}

TEST(CliRun, CtrlCEndsTheScanBetweenQueriesAndWritesNothing) {
    TempFolder dir;
    const auto r = run("bash -c '" + cli("--sim --exact-timing diag --output " + dir.file("r")) +
                       " 2>" + dir.file("err") + " & sleep 1.5; kill -INT $!; wait $!; echo $?'");
    EXPECT_EQ(r.out, "130\n");
    const auto err = slurp(dir.file("err"));
    EXPECT_NE(err.find("korval-cli: interrupted during \"Scanning "), std::string::npos) << err;
    EXPECT_TRUE(err.ends_with("\"; no report written\n")) << err;
    EXPECT_EQ(dir.names(), std::vector<std::string>{"err"}) << "nothing half written";
}

TEST(CliRun, ABusyPortSaysWhoHoldsIt) {
    TempFolder dir;
    const auto device = dir.file("device");
    const auto control = dir.file("control");
    ASSERT_EQ(std::system(("mkfifo " + control).c_str()), 0);
    const std::string sim = std::string(KDX_SIM) + " < " + control + " > " + device +
                            " 2>/dev/null & exec 3>" + control + "; ";
    const std::string line = "$(head -1 " + device + ")";
    const auto r =
        run("bash -c '" + sim + "for i in $(seq 50); do [ -s " + device +
            " ] && break; sleep 0.1; done; " + cli("--port " + line + " --exact-timing diag") +
            " >/dev/null 2>&1 & sleep 1; " + cli("--port " + line + " status") +
            " 2>&1; kill -INT $!; wait $!; echo quit >&3'");
    EXPECT_EQ(r.out.rfind("korval-cli: cannot open port /dev/pts/", 0), 0u) << r.out;
    EXPECT_NE(r.out.find(" is in use by "), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("korval-cli (process "), std::string::npos) << r.out;
}

TEST(CliRun, PortsNameTheDeviceBehindEachNumber) {
    TempFolder dir;
    std::ofstream(dir.file("tty-bench")) << "";
    std::filesystem::create_directories(dir.file("ports"));
    std::filesystem::create_symlink(dir.file("tty-bench"), dir.file("ports/Com7"));
    std::filesystem::create_symlink(dir.file("gone"), dir.file("ports/Com9"));
    const auto out = run("KORVAL_PORTS='" + dir.file("ports") + "' " + cli("ports")).out;
    const auto real = std::filesystem::canonical(dir.file("tty-bench")).string();
    EXPECT_NE(out.find("Com7  " + real + "\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Com9  " + dir.file("gone") + " (missing)\n"), std::string::npos) << out;
}

TEST(CliRun, AxesMoveAndTellWhereTheyStand) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const struct {
        std::string args;
        int status;
        const char* out;
        const char* message;
    } cases[] = {
        {"move 1 2000 400", 0, "1 400\n", ""},
        {"move 2 2000 -150", 0, "2 -150\n", ""},
        {"move 1 50.8 10.16 --units-per-step 0.0254", 0, "1 10.16\n", ""},
        {"=arrangement=2+2 move 4 1500 -250 2 2000 400", 0, "2 400\n4 -250\n", ""},
        {"=arrangement=2+1 move 1 20 4 --units-per-step=0.01 3 20 -2.5", 0, "1 4\n3 -2.5\n", ""},
        {"move 3 2000 400", 2, "",
         "korval-cli: axis 3 is not on this controller; nothing was sent"},
        {"=arrangement=1+1 move 2 2000 400", 2, "", "korval-cli: axis 2 is not on this controller"},
        {"move 1 2000 400 2 2000 400", 2, "", "korval-cli: two axes move together as one of"},
        {"move 1 2000 0.4", 2, "", "korval-cli: Nothing to move"},
        {"move 1 2000 400 --units-per-step 0.00004", 2, "", "korval-cli: --units-per-step takes"},
        {"move 1 2000", 2, "", "korval-cli: move takes AXIS VELOCITY DISTANCE"},
        {"move 0 2000 400", 2, "", "korval-cli: an axis is 1, 2, 3 or 4, not 0"},
        {"position", 0, "1 0\n2 0\n", ""},
        {"=arrangement=1+1 position", 0, "1 0\n3 0\n", ""},
        {"position 2 --units-per-step 0.5", 0, "0\n", ""},
        {"position 4", 2, "", "korval-cli: axis 4 is not on this controller"},
        {"=silent=2 position 2", 1, "", "korval-cli: axis 2 does not answer"},
        {"jog 3 + --speed 500 --seconds 1", 2, "", "korval-cli: axis 3 is not on this controller"},
        {"jog 1 + --speed 7000 --seconds 1", 2, "", "korval-cli: --speed takes steps per second"},
        {"jog 1 + --speed 500 --seconds 0", 2, "", "korval-cli: --seconds takes a time above 0"},
        {"jog 1 up --speed 500 --seconds 1", 2, "", "korval-cli: jog takes AXIS +|- --speed V"},
    };
    for (const auto& c : cases) {
        // "=OPTIONS move ..." gives the built-in controller options.
        const auto r = run(cli(std::string("--sim") + (c.args[0] == '=' ? "" : " ") + c.args) +
                           " 2>" + errors);
        EXPECT_EQ(r.status, c.status) << c.args << ": " << slurp(errors);
        EXPECT_EQ(r.out, c.out) << c.args;
        if (*c.message == '\0') {
            EXPECT_EQ(slurp(errors), "") << c.args;
        } else {
            EXPECT_EQ(slurp(errors).rfind(c.message, 0), 0u) << c.args << ": " << slurp(errors);
        }
    }
}

TEST(CliRun, AJogStopsWhenItsTimeIsUpOrAtAnInterrupt) {
    const auto jogged = run(cli("--sim jog 2 - --speed 1000 --seconds 0.5"));
    ASSERT_EQ(jogged.status, 0);
    ASSERT_EQ(jogged.out.rfind("2 -", 0), 0u) << jogged.out;
    EXPECT_GT(std::stol(jogged.out.substr(2)), -2000) << "stopped, not run on to the limit";

    // Ctrl-C a minute early: the axis stops and says where.
    const auto interrupted = run("sh -c '" + cli("--sim jog 1 + --speed 1000 --seconds 60") +
                                 " & p=$!; sleep 1; kill -INT $p; wait $p'");
    ASSERT_EQ(interrupted.status, 0);
    ASSERT_EQ(interrupted.out.rfind("1 ", 0), 0u) << interrupted.out;
    EXPECT_LT(std::stol(interrupted.out.substr(2)), 5000) << interrupted.out;
}

// The set-up commands through the same rules as the windows, on the built-in controller.
TEST(CliRun, TheWizardAndTheAxisCommandsReportWhatTheWindowsWouldShow) {
    TempFolder dir;
    const auto errors = dir.file("err");
    const std::string slide = "motor setting 0, limit setting 1 (Tavrin Slide)\n";
    const auto wizard = run(cli("--sim=arrangement=2+2,silent=4 wizard --answer no 2>" + errors));
    EXPECT_EQ(wizard.status, 0);
    EXPECT_EQ(wizard.out, "Possible motors: 4\n"
                          "Arrangement code: 104 (axes 1, 2 and 3 certain, axis 4 in doubt)\n"
                          "Axis menus on: 1 2 3 4\n"
                          "Axis 1: " +
                              slide + "Axis 2: " + slide + "Axis 3: " + slide);
    EXPECT_NE(slurp(errors).find("Axis Setup: Do you have a motor 2 on the 2nd KDX? no\n"
                                 "Set-Up Wizard: KDX is now configured\n"),
              std::string::npos);

    const auto unanswered = run(cli("--sim=arrangement=2,silent=2 wizard </dev/null 2>" + errors));
    EXPECT_EQ(unanswered.status, 2);
    EXPECT_NE(slurp(errors).find("korval-cli: no answer for \"Axis Setup: Do you have a motor 2 "
                                 "on the 1st KDX?\""),
              std::string::npos);

    const auto kept =
        run(cli("--sim axis 2 --motor-setting 3 --limit-setting 0 --test --keep 2>/dev/null"));
    EXPECT_EQ(kept.status, 0);
    EXPECT_EQ(kept.out, "Axis 2: " + slide + "Position: 400\nPosition: 0\n" +
                            "Kept: motor setting 3 (Vexta PK264-03), limit setting 0 " +
                            "(Auto-Detect)\n");
    const auto tried = run(cli("--sim axis 2 --motor-setting 5 --test </dev/null 2>/dev/null"));
    EXPECT_EQ(tried.status, 0);
    EXPECT_EQ(tried.out, "Axis 2: " + slide + "Position: 400\nPosition: 0\nRestored: " + slide);
}

TEST(CliRun, WatchPrintsEachSwitchChangeAsALine) {
    korval::sim::PtyHost host;
    std::string error;
    ASSERT_TRUE(host.start(error)) << error;
    const auto bench = [&host](const char* line) {
        host.withChain([line](korval::sim::KdxChain& chain) {
            std::string answer;
            korval::sim::ApplyControl(chain, line, answer);
        });
    };
    std::thread presses([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        bench("input 1 on");
        std::this_thread::sleep_for(std::chrono::milliseconds(700));
        bench("input 1 off");
    });
    const auto r = run(cli("--port " + host.device() + " watch inputs --seconds 3"));
    presses.join();
    EXPECT_EQ(r.status, 0);
    const auto on = r.out.find(" s  bit 4  Input 1  1 -> 0\n");
    const auto off = r.out.find(" s  bit 4  Input 1  0 -> 1\n");
    ASSERT_NE(on, std::string::npos) << r.out;
    ASSERT_NE(off, std::string::npos) << r.out;
    EXPECT_LT(on, off);
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 2) << "nothing but the changes";
    const double pressedAt = std::stod(r.out.substr(0, on));
    EXPECT_GT(pressedAt, 0.5) << r.out;
    EXPECT_LT(pressedAt, 2.5) << r.out;
}

TEST(CliRun, CalcMotorPrintsWhatTheCalculatorShows) {
    const std::string contact = "Contact Tavrin Sales for a Motor that may be used\n";
    const std::string wires = "Motor Cannot be used, Invalid Number of Wires. " + contact;
    const struct {
        const char* args;
        std::string out;
    } cases[] = {
        {"--wires 6 --current 1 --inductance 2",
         "Calculated value = 0.7404, use KDX Motor Setting = 1\n"},
        {"--inductance 2 --current 1 --wires 8",
         "Calculated value = 0.7404, use KDX Motor Setting = 1\n"},
        {"--wires 0 --current 1 --inductance 2", wires},
        {"--wires 4 --current 1 --inductance 2", wires},
        {"--wires 8 --current 0.395 --inductance 1", "\n"},
        {"--wires 6 --current -1 --inductance -2", "\n"},
        {"--wires 6 --current abc --inductance 2",
         "Motor Cannot be used, Current Spec too Low. " + contact},
        {"--wires 6 --current 5 --inductance 4",
         "Motor Cannot be used, I*L Product Invalid.(Val=20), " + contact},
        {"--wires 6 --current 4.7001 --inductance 1",
         "Motor Cannot be used, Current Spec too High. " + contact},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(std::string("calc-motor ") + c.args));
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

TEST(CliRun, AttachSendsWhatTheDeviceWindowsSend) {
    const struct {
        const char* args;
        const char* out;
    } cases[] = {
        {"3 jog --velocity 7000", "C,setj3M6000,setJ3M6000,,rsm\n"},
        {"1 jog --disable", "C,setj1M0,setJ1M0,,rsm\n"},
        {"4 digital --primary 3000 --secondary 1500", "C,setj4M3000,setJ4M1500,,rsm\n"},
        {"2 analog --primary 4 --secondary 0 --deadband 7",
         "setDA20,rsm\nC,setjA2M4,setJA2M1,,rsm\n"},
        {"2 analog", "setDA50,rsm\nC,setjA2M1,setJA2M10,,rsm\n"},
        {"1 thumbwheel off", "C,setI7,rsm\n"},
    };
    for (const auto& c : cases) {
        const auto r = run(cli(std::string("--sim=arrangement=2+2 attach ") + c.args));
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

// A controller that answers late and slowly, within the fixed waits: over a real port the
// quick mode and --exact-timing both give the report of a prompt controller, byte for byte.
TEST(CliRun, ALateControllerGivesTheSameReportInBothTimings) {
    const auto prompt = run(cli("--sim=arrangement=2+2 diag 2>/dev/null"));
    ASSERT_EQ(prompt.status, 0);
    const char* late = "--sim=arrangement=2+2,reply-delay=20,char-spacing=3 ";
    for (const char* timing : {"", "--exact-timing "}) {
        const auto r = run(cli(late + std::string(timing) + "diag 2>/dev/null"));
        EXPECT_EQ(r.status, 0) << timing;
        EXPECT_EQ(r.out, prompt.out) << timing;
    }
}

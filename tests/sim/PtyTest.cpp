// The chain on a real pseudo-terminal, opened the way a host opens a serial port.
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "sim/PtyHost.h"
#include "support/TempFolder.h"

using namespace korval::sim;
using Clock = std::chrono::steady_clock;

namespace {

speed_t speedOf(int baud) {
    return baud == 38400 ? B38400 : baud == 19200 ? B19200 : baud == 4800 ? B4800 : B9600;
}

// Opens the device raw at a baud rate, as a serial port is opened.
int openLine(const std::string& device, int baud) {
    const int fd = ::open(device.c_str(), O_RDWR | O_NOCTTY);
    if (fd < 0) {
        return -1;
    }
    termios tio{};
    tcgetattr(fd, &tio);
    cfmakeraw(&tio);
    cfsetispeed(&tio, speedOf(baud));
    cfsetospeed(&tio, speedOf(baud));
    tcsetattr(fd, TCSANOW, &tio);
    return fd;
}

// Reads until `count` bytes came or nothing arrives for `quietMs`.
std::string readLine(int fd, std::size_t count, int quietMs) {
    std::string got;
    while (got.size() < count) {
        pollfd p{fd, POLLIN, 0};
        if (::poll(&p, 1, quietMs) <= 0 || !(p.revents & POLLIN)) {
            break;
        }
        char buf[256];
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n <= 0) {
            break;
        }
        got.append(buf, static_cast<std::size_t>(n));
    }
    return got;
}

void send(int fd, const std::string& text) {
    ASSERT_EQ(::write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

} // namespace

TEST(SimPty, AnswersOnlyAtItsOwnBaudRate) {
    struct Case {
        int controller;
        int line;
        bool answers;
    } cases[] = {{9600, 9600, true},   {9600, 19200, false}, {9600, 38400, false},
                 {19200, 19200, true}, {19200, 9600, false}, {38400, 38400, true},
                 {38400, 4800, false}};
    for (const auto& c : cases) {
        SimOptions options;
        options.baud = c.controller;
        PtyHost host(options);
        std::string error;
        ASSERT_TRUE(host.start(error)) << error;
        const int fd = openLine(host.device(), c.line);
        ASSERT_GE(fd, 0);
        send(fd, "getD0,");
        const std::string reply = readLine(fd, 5, c.answers ? 1000 : 150);
        EXPECT_EQ(reply, c.answers ? "1.22\r" : "") << c.controller << " at " << c.line;
        // What it heard at a foreign rate was noise: nothing of it is acted on later either.
        host.withChain([&](KdxChain& chain) { EXPECT_EQ(chain.takeOutput(), ""); });
        ::close(fd);
    }
}

TEST(SimPty, OutputIsPacedAtTenBitsACharacter) {
    SimOptions options;
    options.echo = true;
    PtyHost host(options);
    std::string error;
    ASSERT_TRUE(host.start(error)) << error;
    const int fd = openLine(host.device(), 9600);
    ASSERT_GE(fd, 0);
    const auto start = Clock::now();
    send(fd, std::string(150, 'V')); // 150 echoes and 150 answers: 300 characters, 312 ms
    const std::string reply = readLine(fd, 300, 1000);
    const auto ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    EXPECT_EQ(reply.size(), 300u);
    EXPECT_EQ(reply.substr(0, 4), "VRVR");
    EXPECT_GE(ms, 280);
    EXPECT_LE(ms, 2000); // generous: the machine may be busy
    ::close(fd);
}

TEST(SimPty, TheLineSurvivesReopeningAndHangUpClosesIt) {
    PtyHost host;
    std::string error;
    ASSERT_TRUE(host.start(error)) << error;
    const std::string device = host.device();
    for (int i = 0; i < 2; ++i) {
        const int fd = openLine(device, 9600);
        ASSERT_GE(fd, 0);
        send(fd, "V,");
        EXPECT_EQ(readLine(fd, 1, 1000), "R");
        ::close(fd);
    }
    const int fd = openLine(device, 9600);
    ASSERT_GE(fd, 0);
    host.hangUp();
    EXPECT_FALSE(host.running());
    char c = 0;
    EXPECT_LE(::read(fd, &c, 1), 0); // end of file or an error: the far side is gone
    ::close(fd);
    EXPECT_FALSE(std::filesystem::exists(device));
    host.stop(); // a second stop is harmless
}

TEST(SimPty, KdxSimPrintsItsDeviceRegistersItsPortAndLeavesCleanly) {
    TempFolder ports;
    int toChild[2];
    int fromChild[2];
    ASSERT_EQ(::pipe(toChild), 0);
    ASSERT_EQ(::pipe(fromChild), 0);
    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        ::dup2(toChild[0], 0);
        ::dup2(fromChild[1], 1);
        ::close(toChild[1]);
        ::close(fromChild[0]);
        ::setenv("KORVAL_PORTS", ports.path().c_str(), 1);
        ::execl(KDX_SIM_PATH, "kdx-sim", "--port", "7", "--options=arrangement=2+2,firmware=1.21",
                static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(toChild[0]);
    ::close(fromChild[1]);
    std::string first = readLine(fromChild[0], 1, 2000);
    while (!first.empty() && first.back() != '\n') {
        const std::string more = readLine(fromChild[0], 1, 2000);
        if (more.empty()) {
            break;
        }
        first += more;
    }
    ASSERT_FALSE(first.empty());
    const std::string device = first.substr(0, first.find('\n'));
    EXPECT_EQ(device.rfind("/dev/", 0), 0u) << device;
    // The port map link appears once the program is up.
    const auto link = std::filesystem::path(ports.path()) / "Com7";
    for (int i = 0; i < 100 && !std::filesystem::is_symlink(link); ++i) {
        ::usleep(10000);
    }
    ASSERT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(std::filesystem::read_symlink(link).string(), device);

    const int fd = openLine(device, 9600);
    ASSERT_GE(fd, 0);
    send(fd, "getD0,getM4M,");
    EXPECT_EQ(readLine(fd, 7, 1000), "1.21\r0\r");
    // A control line reaches the same chain.
    const std::string control = "limit 2 - on\n";
    ASSERT_EQ(::write(toChild[1], control.data(), control.size()),
              static_cast<ssize_t>(control.size()));
    EXPECT_EQ(readLine(fromChild[0], 3, 1000), "ok\n");
    send(fd, "?,");
    EXPECT_EQ(readLine(fd, 1, 1000), std::string(1, static_cast<char>(0xFB)));
    ::close(fd);

    const std::string quit = "quit\n";
    ASSERT_EQ(::write(toChild[1], quit.data(), quit.size()), static_cast<ssize_t>(quit.size()));
    int status = -1;
    for (int i = 0; i < 300 && ::waitpid(pid, &status, WNOHANG) == 0; ++i) {
        ::usleep(10000);
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    ::close(toChild[1]);
    ::close(fromChild[0]);
}

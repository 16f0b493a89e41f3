#include "CliSession.h"

#include <QCoreApplication>

#include <filesystem>

namespace korval::cli {

std::string driverFolder() {
    return (std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / "Driver")
        .string();
}

CliSession::CliSession() = default;

CliSession::~CliSession() {
    if (kdx_.DriverModule == 0) {
        return;
    }
    if (opened_) {
        kdx_.PortClose();
    }
    kdx_.ClosePortReceiveThread();
    kdx_.DebugWindowHide();
    kdx_.EscapeDriverFunctionTrue();
    kdx_.UnLoadDriver();
    mailbox_.drain();
}

std::string CliSession::loadLibraries(const std::string& folder) {
    const auto driver = folder + "/Tavrin KDX Serial Driver.so";
    if (kdx_.LoadDriver(driver) == 0) {
        return "cannot load the serial driver " + driver;
    }
    const auto commands = folder + "/Tavrin KDX Commands.so";
    if (commands_.LoadDll(commands) == 0) {
        return "cannot load the commands library " + commands;
    }
    return {};
}

std::string CliSession::openPort(const std::string& port, int baud) {
    const bool isPath = port.find('/') != std::string::npos;
    if (isPath) {
        kdx_.PortOpenByName(port, baud);
    } else {
        auto digits = port;
        if (digits.starts_with("Com") || digits.starts_with("COM")) {
            digits = digits.substr(3);
        }
        if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos ||
            digits.size() > 3) {
            return "not a port: " + port;
        }
        kdx_.PortOpen(std::stoi(digits), baud);
    }
    opened_ = kdx_.IsSerialPortOpen();
    if (opened_) {
        return {};
    }
    const auto problem = kdx_.PortProblem();
    return "cannot open port " + port + " at " + std::to_string(baud) +
           (problem.empty() ? "" : ": " + problem);
}

} // namespace korval::cli

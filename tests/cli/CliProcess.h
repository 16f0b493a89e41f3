#pragma once
// korval-cli as a user runs it: a real process, its output and its exit status.
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace korval::test {

struct CliResult {
    int status;
    std::string out;
};

// Runs a shell command line; stdout is captured, stderr goes where the line sends it.
inline CliResult run(const std::string& command) {
    std::string out;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> buf{};
    while (pipe != nullptr) {
        const auto n = std::fread(buf.data(), 1, buf.size(), pipe);
        if (n == 0) {
            break;
        }
        out.append(buf.data(), n);
    }
    const int status = pipe != nullptr ? ::pclose(pipe) : -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

inline std::string cli(const std::string& args) {
    return std::string(KORVAL_CLI) + " " + args;
}

inline std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace korval::test

// The complete diagnostic from the command line against kdx-sim at 9600 baud, as a bench user
// runs it: both as separate programs, the report through a real pseudo-terminal. One run scans
// in the quick mode and then with --exact-timing, checks that the two reports are the same
// byte for byte, and reports each mode's time (quick_s, exact_s), their ratio, and the
// wire-time limit (wire_s): the time the line needs to carry the quick scan's bytes, ten bits
// a character, as kdx-sim counted them.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr double Baud = 9600;

// kdx-sim with its control lines on a fifo and its answers read back.
class Simulator {
public:
    explicit Simulator(const std::string& options) {
        char pattern[] = "/tmp/korval-bench-XXXXXX";
        folder_ = ::mkdtemp(pattern) != nullptr ? pattern : "";
        const auto fifo = folder_ + "/ctl";
        ::mkfifo(fifo.c_str(), 0600);
        out_ = ::popen((KDX_SIM " " + options + " < " + fifo + " 2>/dev/null").c_str(), "r");
        control_ = ::open(fifo.c_str(), O_WRONLY);
        device_ = line();
    }
    ~Simulator() {
        say("quit");
        ::close(control_);
        if (out_ != nullptr) {
            ::pclose(out_);
        }
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    const std::string& device() const { return device_; }
    // Bytes heard and said so far.
    long traffic() {
        say("traffic");
        long heard = 0;
        long said = 0;
        std::sscanf(line().c_str(), "heard %ld said %ld", &heard, &said);
        return heard + said;
    }

private:
    void say(const std::string& text) {
        const auto l = text + "\n";
        [[maybe_unused]] const auto n = ::write(control_, l.data(), l.size());
    }
    std::string line() {
        char buf[256] = {};
        if (out_ == nullptr || std::fgets(buf, sizeof buf, out_) == nullptr) {
            return {};
        }
        std::string text = buf;
        while (!text.empty() && text.back() == '\n') {
            text.pop_back();
        }
        return text;
    }

    std::string folder_;
    FILE* out_ = nullptr;
    int control_ = -1;
    std::string device_;
};

struct Scan {
    std::string report;
    double seconds = 0;
};

Scan diag(const std::string& device, const std::string& timing) {
    const auto start = std::chrono::steady_clock::now();
    FILE* pipe =
        ::popen((KORVAL_CLI " --port " + device + " " + timing + " diag 2>/dev/null").c_str(), "r");
    Scan scan;
    char buf[4096];
    for (std::size_t n; pipe != nullptr && (n = std::fread(buf, 1, sizeof buf, pipe)) > 0;) {
        scan.report.append(buf, n);
    }
    if (pipe != nullptr) {
        ::pclose(pipe);
    }
    scan.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return scan;
}

void BM_CompleteDiagnosticBothModes(benchmark::State& state, const char* simOptions) {
    for (auto _ : state) {
        Simulator sim(simOptions);
        if (sim.device().empty()) {
            state.SkipWithError("kdx-sim did not start");
            return;
        }
        // A scan leaves program 4 current: one first, so that both timed scans find the same.
        diag(sim.device(), "");
        const long before = sim.traffic();
        const auto quick = diag(sim.device(), "");
        const long bytes = sim.traffic() - before;
        const auto exact = diag(sim.device(), "--exact-timing");
        if (quick.report.empty() || quick.report != exact.report) {
            state.SkipWithError("the two modes gave different reports");
            return;
        }
        state.counters["quick_s"] = quick.seconds;
        state.counters["exact_s"] = exact.seconds;
        state.counters["ratio"] = exact.seconds / quick.seconds;
        state.counters["wire_s"] = static_cast<double>(bytes) * 10 / Baud;
        state.counters["report_bytes"] = static_cast<double>(quick.report.size());
    }
}
BENCHMARK_CAPTURE(BM_CompleteDiagnosticBothModes, four_motors, "--arrangement 2+2")
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_CompleteDiagnosticBothModes, two_motors, "--arrangement 2")
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_CompleteDiagnosticBothModes, four_motors_late_replies,
                  "--arrangement 2+2 --reply-delay 30 --char-spacing 5")
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();

} // namespace

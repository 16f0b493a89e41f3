// The complete diagnostic from the command line against kdx-sim at 9600 baud, as a bench user
// runs it: both as separate programs, the report through a real pseudo-terminal.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

void BM_CliDiagAgainstKdxSim(benchmark::State& state) {
    const std::string script =
        "set -e; d=$(mktemp -d); mkfifo $d/ctl; " KDX_SIM " --arrangement 2+2 < $d/ctl > $d/dev "
        "2>/dev/null & exec 3>$d/ctl; for i in $(seq 50); do [ -s $d/dev ] && break; sleep 0.1; "
        "done; " KORVAL_CLI
        " --port $(head -1 $d/dev) diag > $d/report 2>/dev/null; echo quit >&3; "
        "wc -c < $d/report; rm -rf $d";
    std::size_t bytes = 0;
    for (auto _ : state) {
        FILE* pipe = ::popen(("bash -c '" + script + "'").c_str(), "r");
        char buf[64] = {};
        if (pipe == nullptr || std::fgets(buf, sizeof buf, pipe) == nullptr) {
            state.SkipWithError("the run failed");
        }
        bytes = static_cast<std::size_t>(std::atol(buf));
        if (pipe != nullptr) {
            ::pclose(pipe);
        }
    }
    state.counters["report_bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_CliDiagAgainstKdxSim)->Iterations(2)->Unit(benchmark::kSecond)->UseRealTime();

} // namespace

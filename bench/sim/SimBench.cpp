// How fast the virtual controller reads and runs what a host sends.
#include <benchmark/benchmark.h>

#include "sim/KdxChain.h"

using korval::sim::KdxChain;

namespace {

// A generated program as the host sends it: homing, a marked loop, moves and pauses.
const std::string Program = "F,PM-0,S1M500,I1M-0,IA1M-0,IA1M400,LM0,P15,S1M2000,I1M1000,"
                            "S1M2000,IA1M400,LA5,setDM1,";

void BM_ReadProgramText(benchmark::State& state) {
    KdxChain chain;
    std::size_t bytes = 0;
    for (auto _ : state) {
        chain.receive(Program);
        chain.receive("C,");
        bytes += Program.size() + 2;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(BM_ReadProgramText);

void BM_AnswerQueries(benchmark::State& state) {
    KdxChain chain;
    const std::string queries = "getD0,getM1M,getL2M,?,~,$,@,PM,N,#V,#X1,";
    for (auto _ : state) {
        chain.receive(queries);
        benchmark::DoNotOptimize(chain.takeOutput());
    }
    state.SetItemsProcessed(state.iterations() * 11);
}
BENCHMARK(BM_AnswerQueries);

// Simulated seconds of a looping two-axis program per real second.
void BM_RunLoopingProgram(benchmark::State& state) {
    KdxChain chain;
    chain.receive("C,(S1M3000,I1M3000,S2M2000,I2M-2000),P5,(I1M-3000,I2M2000),U5,U4,L0,R");
    for (auto _ : state) {
        chain.advanceMs(1000);
    }
    state.counters["sim_s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_RunLoopingProgram);

} // namespace

// Start-up restores every control of every window from the settings file, one read each; this
// measures those reads and the saves at shutdown on a file of realistic size.
#include "core/AtomicFile.h"
#include "core/ClsIniFile.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

constexpr int Windows = 40;
constexpr int ControlsPerWindow = 40;

std::string makeSettingsFile() {
    const auto path = (std::filesystem::temp_directory_path() / "korval-bench.ini").string();
    std::filesystem::remove(path);
    korval::ClsIniFile ini;
    for (int w = 0; w < Windows; ++w) {
        for (int c = 0; c < ControlsPerWindow; ++c) {
            ini.ProfileSaveItem("FrmWindow" + std::to_string(w),
                                "\tCtrl" + std::to_string(c) + ".Value", std::to_string(c), path);
        }
    }
    return path;
}

void BM_RestoreAllControls(benchmark::State& state) {
    const auto path = makeSettingsFile();
    for (auto _ : state) {
        korval::ClsIniFile ini; // a fresh start-up: the first read parses the file
        for (int w = 0; w < Windows; ++w) {
            for (int c = 0; c < ControlsPerWindow; ++c) {
                benchmark::DoNotOptimize(ini.ProfileGetItem("FrmWindow" + std::to_string(w),
                                                            "Ctrl" + std::to_string(c) + ".Value",
                                                            "", path));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * Windows * ControlsPerWindow);
}
BENCHMARK(BM_RestoreAllControls)->Unit(benchmark::kMillisecond);

void BM_SaveOneItem(benchmark::State& state) {
    const auto path = makeSettingsFile();
    korval::ClsIniFile ini;
    int n = 0;
    for (auto _ : state) {
        ini.ProfileSaveItem("FrmWindow7", "\tCtrl3.Value", std::to_string(n++), path);
    }
}
BENCHMARK(BM_SaveOneItem)->Unit(benchmark::kMicrosecond);

// A damaged file of junk lines and sections up to the size the store still reads: start-up
// reads it once and looks up every control; the time grows with the file, not its square.
void BM_StartUpOnAJunkFile(benchmark::State& state) {
    const auto path = (std::filesystem::temp_directory_path() / "korval-bench-junk.ini").string();
    std::string junk;
    const auto size = static_cast<std::size_t>(state.range(0));
    for (int n = 0; junk.size() + 40 < size; ++n) {
        junk += n % 3 == 0   ? "[FrmWindow" + std::to_string(n % 997) + "]\r\n"
                : n % 3 == 1 ? "\tCtrl" + std::to_string(n) + ".Value=" + std::to_string(n) + "\r\n"
                             : "junk line without an equals sign\r\n";
    }
    korval::writeFileAtomically(path, junk);
    for (auto _ : state) {
        korval::ClsIniFile ini;
        for (int w = 0; w < Windows; ++w) {
            for (int c = 0; c < ControlsPerWindow; ++c) {
                benchmark::DoNotOptimize(ini.ProfileGetItem("FrmWindow" + std::to_string(w),
                                                            "Ctrl" + std::to_string(c) + ".Value",
                                                            "", path));
            }
        }
        ini.ProfileSaveItem("Run", "Times", "1", path); // CheckFirstRun's save
        state.PauseTiming();
        korval::writeFileAtomically(path, junk);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_StartUpOnAJunkFile)
    ->RangeMultiplier(2)
    ->Range(512 << 10, korval::ClsIniFile::LargestFile)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace

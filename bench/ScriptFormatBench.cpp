// A script of 1 MB in the script editor: how long formatting it takes (format_s), with and
// without comments, and opening it for editing, and the longest time the window does not get to
// its events meanwhile (max_stall_ms).
#include "KorvalStartup.h"
#include "ProgramFolder.h"
#include "core/AtomicFile.h"
#include "core/Prompts.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/ScriptMenus.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <optional>

namespace {

struct OpenPrompts : korval::Prompts {
    std::optional<std::string> file;
    Answer Message(const std::string&, const std::string&, Icon, Buttons) override {
        return Answer::Ok;
    }
    std::optional<std::string> OpenFile(const FileDialog&) override { return file; }
    std::optional<std::string> SaveFile(const FileDialog&) override { return std::nullopt; }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }
};

// About 1 MB of a program as people write one: commands, blank lines and comments.
std::string megabyteScript() {
    const char* lines[] = {"C,\t\t;start again",
                           "S1M2000,\t\t;fast",
                           "I1M400,",
                           "P15,\t\t;settle",
                           "S2M-11,",
                           "IA2M-0,",
                           "LA5, ;five times",
                           "U90,",
                           "I2M-12000,",
                           "",
                           "getD0,",
                           "R"};
    std::string text;
    for (std::size_t i = 0;; ++i) {
        const auto line = std::string(lines[i % std::size(lines)]) + "\r\n";
        if (text.size() + line.size() > 1024 * 1024) {
            return text; // the largest file that opens for editing
        }
        text += line;
    }
}

// The longest gap between two rounds of the window's events while `work` runs.
qint64 longestStall(const std::function<void()>& work) {
    qint64 worst = 0;
    QElapsedTimer sinceTick;
    sinceTick.start();
    QTimer probe;
    probe.setInterval(1);
    QObject::connect(&probe, &QTimer::timeout,
                     [&] { worst = std::max(worst, sinceTick.restart()); });
    probe.start();
    QApplication::processEvents();
    sinceTick.restart();
    work();
    worst = std::max(worst, sinceTick.elapsed());
    return worst;
}

void BM_ScriptOfOneMegabyte(benchmark::State& state) {
    TempFolder folder;
    MakeProgramFolder(folder);
    OpenPrompts prompts;
    korval::KorvalStartup program(prompts, korval::FoldersFor(folder.path()));
    auto& app = program.services();
    if (!program.Main()) {
        state.SkipWithError("start-up failed");
        return;
    }
    auto* editor = app.Form<korval::FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
    editor->ShowWindow();
    const auto script = megabyteScript();
    korval::writeFileAtomically(folder.file("big.txt"), script);
    prompts.file = folder.file("big.txt");

    const int action = static_cast<int>(state.range(0));
    qint64 stall = 0;
    double seconds = 0;
    for (auto _ : state) {
        editor->SetText(script);
        QElapsedTimer clock;
        clock.start();
        stall = longestStall([&] {
            if (action == 2) {
                korval::OpenScriptForEditing();
            } else {
                editor->FormatCode(action == 1);
            }
        });
        seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    }
    state.counters["format_s"] = seconds;
    state.counters["max_stall_ms"] = static_cast<double>(stall);
    state.counters["script_bytes"] = static_cast<double>(script.size());
    state.counters["result_bytes"] = static_cast<double>(editor->Text().size());
    state.SetLabel(action == 2 ? "open for editing" : action == 1 ? "with comments" : "plain");
    program.Shutdown();
}
BENCHMARK(BM_ScriptOfOneMegabyte)
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

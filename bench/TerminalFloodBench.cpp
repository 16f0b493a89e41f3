// A controller that talks without pause at 38400 baud into the open terminal: how long is the
// longest time the window does not get to its events? Reported as max_stall_ms.
#include "KorvalStartup.h"
#include "ProgramFolder.h"
#include "core/Prompts.h"
#include "core/ui/MdiKorval.h"
#include "link/PortMap.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "support/PtyPeer.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include <benchmark/benchmark.h>

namespace {

struct NoPrompts : korval::Prompts {
    Answer Message(const std::string&, const std::string&, Icon, Buttons) override {
        return Answer::Ok;
    }
    std::optional<std::string> OpenFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> SaveFile(const FileDialog&) override { return std::nullopt; }
    std::string InputBox(const std::string&, const std::string&) override { return {}; }
};

void BM_TerminalFlood38400(benchmark::State& state) {
    TempFolder folder;
    MakeProgramFolder(folder);
    PtyPeer peer(answerStatus([] { return std::string("R"); }));
    korval::PortMap().registerPort(1, peer.device());
    NoPrompts prompts;
    korval::KorvalStartup program(prompts, korval::FoldersFor(folder.path()));
    auto& app = program.services();
    if (!program.Main()) {
        state.SkipWithError("start-up failed");
        return;
    }
    auto* terminal = app.Form<korval::FrmKdxToolTerminal>("FrmKdxToolTerminal");
    if (state.range(1) != 0) { // the transcript with every option, and the session logged
        terminal->TxtLogFile()->setText(QString::fromStdString(folder.file("log.txt")));
        for (auto* option : {terminal->ChkShowSent(), terminal->ChkTimeStamps(),
                             terminal->ChkShowCodes(), terminal->ChkLogSession()}) {
            option->setChecked(true);
        }
    }
    terminal->ShowWindow();
    terminal->SetActive(true);

    // 38400 baud is 3840 characters a second: a line of 64 every 1/60 s.
    const std::string line = std::string(62, 'x') + "\r\n";
    std::atomic<bool> flooding{true};
    std::thread talker([&] {
        while (flooding) {
            peer.send(line);
            std::this_thread::sleep_for(std::chrono::microseconds(1000000 * 64 / 3840));
        }
    });

    const double seconds = static_cast<double>(state.range(0));
    qint64 worst = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        QElapsedTimer sinceTick;
        sinceTick.start();
        QTimer probe;
        probe.setInterval(1);
        QObject::connect(&probe, &QTimer::timeout,
                         [&] { worst = std::max(worst, sinceTick.restart()); });
        probe.start();
        while (clock.elapsed() < static_cast<qint64>(seconds * 1000)) {
            QApplication::processEvents(QEventLoop::AllEvents, 5);
        }
    }
    flooding = false;
    talker.join();
    state.counters["max_stall_ms"] = static_cast<double>(worst);
    state.counters["shown_chars"] =
        static_cast<double>(terminal->TxtReceive()->toPlainText().size());
    program.Shutdown();
}
// Arguments: seconds, and 1 for every terminal option on.
BENCHMARK(BM_TerminalFlood38400)
    ->Args({20, 0})
    ->Args({20, 1})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

} // namespace

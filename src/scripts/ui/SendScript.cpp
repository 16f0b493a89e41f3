#include "SendScript.h"

#include "core/qt/Latin1.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/LineHold.h"
#include "core/ui/MdiKorval.h"
#include "scripts/ProgramMemory.h"

#include <QProgressDialog>

namespace korval {

namespace {

constexpr int Steps = 1000;
constexpr int DefaultBaud = 9600;

bool sending = false;

} // namespace

bool SendingScript() {
    return sending;
}

bool ScriptFits(const std::string& text, const std::string& title) {
    const auto problem = MemoryProblem(text);
    if (!problem.empty()) {
        App().prompts.Message(problem, title, Prompts::Icon::Warning, Prompts::Buttons::Ok);
    }
    return problem.empty();
}

bool SendScript(const std::string& text, const std::string& title) {
    auto& app = App();
    const int baud = app.kdx.GetBaud() > 0 ? app.kdx.GetBaud() : DefaultBaud;
    // Not modal: the main window's Stop button must stay in reach.
    QProgressDialog progress(QString(), "Cancel", 0, Steps, app.mdi);
    progress.setObjectName("DlgSendProgress");
    progress.setWindowTitle(Latin1(title));
    progress.setWindowModality(Qt::NonModal);
    progress.setMinimumDuration(500);
    progress.setAutoClose(false);
    bool stopped = false;
    const int subscription =
        app.mdi != nullptr ? app.mdi->Stopped.subscribe([&stopped] { stopped = true; }) : 0;
    SendEnd end = SendEnd::Sent;
    {
        const LineHold hold; // the terminal's reader and the pollers keep off meanwhile
        sending = true;
        end = SendPaced(app.kdx, app.delay, text, baud, [&](const SendProgress& p) {
            progress.setLabelText(Latin1(p.Text()));
            progress.setValue(p.total == 0 ? Steps : static_cast<int>(p.sent * Steps / p.total));
            return !stopped && !progress.wasCanceled();
        });
        sending = false;
    }
    if (app.mdi != nullptr) {
        app.mdi->Stopped.unsubscribe(subscription);
    }
    if (end == SendEnd::LineFailed) {
        app.prompts.Message("The script was not sent whole: the port refused it part way.", title,
                            Prompts::Icon::Warning, Prompts::Buttons::Ok);
    }
    return end == SendEnd::Sent;
}

} // namespace korval

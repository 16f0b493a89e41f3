#include "FrmKdxDriverCallback.h"

#include "FrmKdxToolSetPort.h"

#include "core/ui/FocusKeeper.h"
#include "core/ui/FrmDriverDebug.h"
#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

namespace korval {

FrmKdxDriverCallback::FrmKdxDriverCallback()
    : FormBase("FrmKdxDriverCallback", "KDX Driver Callback Form") {
    auto& app = App();
    auto& mail = app.mailbox;
    using Mode = Mailbox::Mode;
    statusReport_ = &mail.addBox(
        Mode::Replace, [this](const std::string& t) { TxtCallbackStatusReport_Change(t); });
    terminal_ = &mail.addBox(Mode::ReplaceLatestOnly,
                             [this](const std::string& t) { TxtCallbackTerminal_Change(t); });
    buffer_ = &mail.addBox(
        Mode::Append, [this](const std::string& t) { TxtCallbackBuffer_Change(t); }, TextBoxLimit);
    tempBuffer_ = &mail.addBox(Mode::ReplaceLatestOnly); // nothing reads it
    traffic_ = &mail.addBox(Mode::Replace, [&app](const std::string& t) {
        auto* debug = app.Form<FrmDriverDebug>("FrmDriverDebug");
        if (debug != nullptr && !t.empty()) {
            debug->Append(t);
        }
    });
    app.statusReport = statusReport_;
    app.kdx.SetCallbackTempBuffer(tempBuffer_->sink());
    app.kdx.SetCallbackBuffer(buffer_->sink());
    app.kdx.SetCallbackTerminal(terminal_->sink());
    app.kdx.SetCallbackReport(statusReport_->sink());
    app.kdx.SetCallbackTraffic(traffic_->sink());
}

FrmKdxDriverCallback::~FrmKdxDriverCallback() {
    App().statusReport = nullptr;
    auto& kdx = App().kdx;
    kdx.SetCallbackTempBuffer(nullptr);
    kdx.SetCallbackBuffer(nullptr);
    kdx.SetCallbackTerminal(nullptr);
    kdx.SetCallbackReport(nullptr);
    kdx.SetCallbackTraffic(nullptr);
    for (auto* box : {statusReport_, terminal_, buffer_, tempBuffer_, traffic_}) {
        box->setHandler({});
    }
}

void FrmKdxDriverCallback::PrepareForSave() {
    for (auto* box : {statusReport_, terminal_, buffer_, tempBuffer_}) {
        box->setText("");
    }
}

void FrmKdxDriverCallback::TxtCallbackStatusReport_Change(const std::string& text) {
    auto& app = App();
    FocusKeeper focus;
    if (text == KDX_REPORT_PORT_LOST) {
        // Not a status: the port itself went, whoever owns the display just now.
        statusReport_->setText("");
        if (auto* setPort = app.Form<FrmKdxToolSetPort>("FrmKdxToolSetPort")) {
            setPort->PortLost();
        }
        return;
    }
    if (app.IsVisible("FrmKdxToolWizardSetup")) {
        return; // the wizard owns the controller: its display is not to be disturbed
    }
    if (!text.empty()) {
        app.mdi->Display().OnReport(text);
    }
    app.mdi->PicKdxPower()->update();
    app.mdi->PicKdxOnline()->update();
    statusReport_->setText("");
}

void FrmKdxDriverCallback::TxtCallbackTerminal_Change(const std::string& text) {
    App().TerminalText.raise(text);
    if (text.size() >= TextBoxLimit) {
        App().kdx.TerminalClean();
    }
}

void FrmKdxDriverCallback::TxtCallbackBuffer_Change(const std::string& text) {
    if (text.size() >= 20) {
        App().kdx.RemoveCharsFromPort(text.substr(0, 10));
    }
}

} // namespace korval

#pragma once
// What the status panel shows for each report code and status word: the caption, the green
// power lamp, the yellow on-line lamp, and the flash sequences of the errors. The window only
// draws; every decision is here.
#include "core/ClsTimeDelay.h"

#include <functional>
#include <optional>
#include <string>

namespace korval {

class StatusPanel {
public:
    virtual ~StatusPanel() = default;
    virtual std::string Caption() const = 0;
    virtual void SetCaption(const std::string& text) = 0;
    // Lit or dim; the panel changes a lamp only when it differs, so nothing flickers.
    virtual void SetLamps(bool powerLit, bool onlineLit) = 0;
};

class StatusDisplay {
public:
    StatusDisplay(StatusPanel& panel, ClsTimeDelay& delay, std::function<void()> killProgram,
                  std::function<void()> verifyStatus);

    // A report code from the driver (the push route). Unknown codes change nothing.
    void OnReport(const std::string& code);
    // A status word from VerifyStatus (the pull route).
    void OnKdxChanged(const std::string& word);

private:
    enum class Flash { None, Short2, Long10 };
    void lamps(bool power, bool online) { panel_.SetLamps(power, online); }
    void flash(Flash form);
    void busSequence(bool firstTime, const std::function<void()>& ending);
    void handleWord(const std::string& word);

    StatusPanel& panel_;
    ClsTimeDelay& delay_;
    std::function<void()> killProgram_;
    std::function<void()> verifyStatus_;
    bool handlingWord_ = false;
    std::optional<std::string> nextWord_;
};

} // namespace korval

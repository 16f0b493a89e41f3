#include "StatusDisplay.h"

#include "core/StatusLead.h"

namespace korval {

namespace {

struct Steady {
    std::string key;
    const char* caption;
    bool power;
    bool online;
};

// Report codes and status words that only set the panel. A null caption leaves it as it is.
const Steady SteadyReports[] = {
    {"R", "ONLINEREADY", true, true},
    {"J", "OFFLINEREADY", true, false},
    {"B", "BUSY", true, true},
    {"b", "JOGGING", true, false},
    {ErrorCode('S'), "STOP PUSHED", true, true},
};

const Steady SteadyWords[] = {
    {"ONLINEREADY", "ONLINEREADY", true, true},
    {"OFFLINEREADY", "OFFLINEREADY", true, false},
    {"BUSY", "BUSY", true, true},
    {"OFFLINEBUSY", "OFFLINEBUSY", true, false},
    {"JOGGING", "JOGGING", true, false},
    {"ERRORSTOPBUTTON", "ERRORSTOPBUTTON", true, true},
};

// Errors shown without flashing: the lamps stay as they were.
const Steady CaptionOnlyReports[] = {
    {ErrorCode('F'), "ERRORFLASHROM", false, false},
    {ErrorCode('E'), "ERROREEPROM", false, false},
    {ErrorCode('U'), "ERRORBUFFEROVERFLOW", false, false},
};

const char* const CaptionOnlyWords[] = {"ERRORFLASHROM", "ERROREEPROM", "ERRORINVALIDMOTORNUMBER",
                                        "ERRORBUFFEROVERFLOW"};

template <typename Table> const Steady* find(const Table& table, const std::string& key) {
    for (const auto& row : table) {
        if (key == row.key) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

StatusDisplay::StatusDisplay(StatusPanel& panel, ClsTimeDelay& delay,
                             std::function<void()> killProgram, std::function<void()> verifyStatus)
    : panel_(panel), delay_(delay), killProgram_(std::move(killProgram)),
      verifyStatus_(std::move(verifyStatus)) {}

void StatusDisplay::flash(Flash form) {
    const int rounds = form == Flash::Short2 ? 2 : 10;
    for (int i = 0; i < rounds; ++i) {
        lamps(true, true);
        delay_.TimeDelay(0.1);
        lamps(false, false);
        if (form == Flash::Long10) {
            delay_.TimeDelay(0.1);
        }
    }
}

void StatusDisplay::busSequence(bool firstTime, const std::function<void()>& ending) {
    if (!firstTime) {
        lamps(true, true);
        delay_.TimeDelay(0.25);
        lamps(false, false);
        delay_.TimeDelay(0.25);
        ending();
        return;
    }
    panel_.SetCaption("ERRORBUSS");
    lamps(true, true);
    delay_.TimeDelay(0.1);
    for (int i = 0; i < 10; ++i) {
        lamps(true, false);
        delay_.TimeDelay(0.1);
        lamps(false, false);
        delay_.TimeDelay(0.1);
    }
    lamps(true, false);
    ending();
}

void StatusDisplay::OnReport(const std::string& code) {
    if (const auto* row = find(SteadyReports, code)) {
        panel_.SetCaption(row->caption);
        lamps(row->power, row->online);
    } else if (code == "^") {
        verifyStatus_();
    } else if (code == ErrorCode('B')) {
        const bool firstTime = panel_.Caption() != "ERRORBUSS";
        busSequence(firstTime, [&] {
            killProgram_();
            if (firstTime) {
                delay_.TimeDelay(1);
            }
        });
    } else if (code == ErrorCode('M')) {
        // Always memory full: nested loops and bad motor numbers share the code.
        panel_.SetCaption("ERRORMEMORYFULL");
        flash(Flash::Short2);
        delay_.TimeDelay(0.1);
        verifyStatus_();
    } else if (code == ErrorCode('J') || code == ErrorCode('C')) {
        panel_.SetCaption(code == ErrorCode('J') ? "ERRORJUMPANDRETURN" : "ERRORCONTINUOUSINDEX");
        flash(Flash::Long10);
        delay_.TimeDelay(1);
        verifyStatus_();
    } else if (const auto* error = find(CaptionOnlyReports, code)) {
        panel_.SetCaption(error->caption);
    } else if (code == "ERRORCOMMUNICATIONS") {
        panel_.SetCaption(code);
        lamps(false, false);
    }
}

void StatusDisplay::OnKdxChanged(const std::string& word) {
    // The flashing words end in VerifyStatus, which raises this again as long as the error
    // stays: the blink goes on in this loop instead of nesting one call deeper each round.
    if (handlingWord_) {
        nextWord_ = word;
        return;
    }
    handlingWord_ = true;
    std::optional<std::string> current = word;
    while (current) {
        nextWord_.reset();
        handleWord(*current);
        current = nextWord_;
    }
    handlingWord_ = false;
}

void StatusDisplay::handleWord(const std::string& word) {
    if (const auto* row = find(SteadyWords, word)) {
        panel_.SetCaption(row->caption);
        lamps(row->power, row->online);
    } else if (word == "ERRORBUSS") {
        const bool firstTime = panel_.Caption() != "ERRORBUSS";
        busSequence(firstTime, [&] {
            if (firstTime) {
                delay_.TimeDelay(1);
            }
            verifyStatus_();
        });
    } else if (word == "ERRORMEMORYFULL") {
        panel_.SetCaption(word);
        flash(Flash::Short2);
        delay_.TimeDelay(0.1);
        verifyStatus_();
    } else if (word == "ERRORNESTEDLOOP" || word == "ERRORJUMPANDRETURN" ||
               word == "ERRORCONTINUOUSINDEX") {
        panel_.SetCaption(word);
        flash(Flash::Long10);
        delay_.TimeDelay(1);
        verifyStatus_();
    } else {
        for (const char* w : CaptionOnlyWords) {
            if (word == w) {
                panel_.SetCaption(word);
            }
        }
        // ERRORCOMMUNICATIONS by this route is matched and leaves the panel as it is.
    }
}

} // namespace korval

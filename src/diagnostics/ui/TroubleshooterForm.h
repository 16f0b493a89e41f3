#pragma once
// What the four troubleshooters share: eight rows of a bit digit, a lamp, a value and the row's
// text, the note, the timeline of changes with a copy button, and the timer that polls. Only
// the menu starts the timer; hiding the window, closing the port or opening another
// troubleshooter stops it. While it polls the line is held, so the terminal keeps off it.
#include "core/ui/FormBase.h"
#include "core/ui/LineHold.h"
#include "diagnostics/TroubleshooterReading.h"

#include <array>
#include <optional>

class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QTimer;

namespace korval {

class Lamp;

// The control names a troubleshooter's rows take.
struct TroubleshooterNames {
    const char* timer;    // "ReadLimitsTimer"
    const char* lamp;     // "PicBitVal": items 1 to 8 are bits 0 to 7
    const char* value;    // "LblBitVal"
    const char* text;     // "LblBitDesc"
    const char* bitDigit; // "LblBit"
};

class TroubleshooterForm : public FormBase {
public:
    TroubleshooterForm(const QString& name, TroubleshooterKind kind,
                       const TroubleshooterNames& names);
    ~TroubleshooterForm() override;

    // The menu's part: the timer's interval is set here and nowhere else.
    void StartPolling(int intervalMs);
    void StopPolling();
    bool Polling() const;
    // One tick of the timer.
    void ReadTimer_Timer();
    void CmdCopyTimeline_Click();

    const TroubleshooterReading& Reading() const { return reading_; }
    QTimer* Timer() const { return timer_; }
    Lamp* BitLamp(int bit) const { return lamps_[static_cast<std::size_t>(bit)]; }
    QLabel* BitValue(int bit) const { return values_[static_cast<std::size_t>(bit)]; }
    QPlainTextEdit* TxtTimeline() const { return timeline_; }

    // The timeline is of this sitting only.
    void PrepareForSave() override;

protected:
    void hideEvent(QHideEvent* event) override;
    // A button of the form's own, beside the timeline's.
    void AddButton(QWidget* button);

private:
    void resume();
    void paint();
    void portOpenOrClosed(const std::string& state);

    TroubleshooterReading reading_;
    QTimer* timer_;
    std::array<Lamp*, TroubleshooterReading::Bits> lamps_{};
    std::array<QLabel*, TroubleshooterReading::Bits> values_{};
    QPlainTextEdit* timeline_;
    QHBoxLayout* buttons_;
    std::size_t timelineSeen_ = 0;
    std::optional<LineHold> hold_;
    int intervalMs_ = 0;
    bool clearFirst_ = false; // the next tick starts with the port cleared
    int portSubscription_ = 0;
};

} // namespace korval

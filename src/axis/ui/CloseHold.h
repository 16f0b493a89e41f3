#pragma once
// While a wizard or a motor test is under way, closing the main window would take the windows
// it works with away beneath it: the close is refused and handed to the work in progress
// instead, which ends itself. The user closes again once it has.
#include <QObject>

#include <functional>

namespace korval {

class CloseHold final : public QObject {
public:
    explicit CloseHold(std::function<void()> onClose);
    ~CloseHold() override;
    CloseHold(const CloseHold&) = delete;
    CloseHold& operator=(const CloseHold&) = delete;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onClose_;
};

} // namespace korval

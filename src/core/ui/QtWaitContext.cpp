#include "QtWaitContext.h"

#include <QCoreApplication>
#include <QThread>

#include <chrono>

namespace korval {

void QtWaitContext::runEvents(Clock::duration budget) {
    using namespace std::chrono;
    const auto end = Clock::now() + budget;
    QCoreApplication::processEvents(QEventLoop::AllEvents,
                                    static_cast<int>(duration_cast<milliseconds>(budget).count()));
    // processEvents returns at once when nothing is pending: sleep out the rest of the round.
    const auto rest = duration_cast<microseconds>(end - Clock::now());
    if (rest.count() > 0) {
        QThread::usleep(static_cast<unsigned long>(std::min<long long>(rest.count(), 1000)));
    }
}

} // namespace korval

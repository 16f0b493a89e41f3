#pragma once
// Tells when serial devices may have come or gone: an adapter plugged in or out, a port link
// made or removed. The system makes several files for one adapter; a burst comes out as one
// signal once it has settled.
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace korval {

class DeviceWatcher final : public QObject {
    Q_OBJECT
public:
    explicit DeviceWatcher(QObject* parent = nullptr);

signals:
    void changed();

private:
    void watch();

    QFileSystemWatcher files_;
    QTimer settle_;
};

} // namespace korval

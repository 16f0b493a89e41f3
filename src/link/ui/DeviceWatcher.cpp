#include "DeviceWatcher.h"

#include "link/PortMap.h"

#include <QDir>
#include <QFileInfo>

namespace korval {

namespace {

constexpr int SettleMs = 300;

} // namespace

DeviceWatcher::DeviceWatcher(QObject* parent) : QObject(parent) {
    settle_.setSingleShot(true);
    settle_.setInterval(SettleMs);
    connect(&settle_, &QTimer::timeout, this, &DeviceWatcher::changed);
    connect(&files_, &QFileSystemWatcher::directoryChanged, this, [this] {
        watch(); // a folder may have appeared meanwhile (the first adapter's by-id links)
        settle_.start();
    });
    watch();
}

void DeviceWatcher::watch() {
    const auto map = QString::fromStdString(PortMap::defaultFolder());
    QStringList folders;
    for (const auto& folder :
         {QString("/dev"), QString("/dev/serial/by-id"), map, QFileInfo(map).absolutePath()}) {
        if (QFileInfo(folder).isDir() && !files_.directories().contains(folder)) {
            folders << folder;
        }
    }
    if (!folders.isEmpty()) {
        files_.addPaths(folders);
    }
}

} // namespace korval

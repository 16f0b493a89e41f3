#include "SystemSerialPorts.h"

#include <QSerialPortInfo>

namespace korval {

std::vector<SerialDevice> SystemSerialPorts() {
    std::vector<SerialDevice> devices;
    for (const auto& info : QSerialPortInfo::availablePorts()) {
        SerialDevice d;
        d.location = info.systemLocation().toStdString();
        d.description = info.description().toStdString();
        d.manufacturer = info.manufacturer().toStdString();
        d.serialNumber = info.serialNumber().toStdString();
        if (info.hasVendorIdentifier()) {
            d.vendorId = info.vendorIdentifier();
            d.productId = info.hasProductIdentifier() ? info.productIdentifier() : 0;
        }
        devices.push_back(std::move(d));
    }
    return devices;
}

} // namespace korval

#include "PortReplug.h"

namespace korval {

void PortReplug::Opened(OpenedPort port) {
    port_ = std::move(port);
    open_ = true;
    waiting_ = false;
}

void PortReplug::Closed() {
    open_ = false;
    waiting_ = false;
}

bool PortReplug::Lost() {
    if (!open_) {
        return false; // closed on purpose before the report came
    }
    open_ = false;
    waiting_ = true;
    return true;
}

bool PortReplug::Returned(bool present, const SerialDevice* adapter) const {
    if (!waiting_ || !present) {
        return false;
    }
    if (!port_.adapter) {
        return true; // nothing told it apart: whatever the number names now
    }
    const auto& gone = *port_.adapter;
    return adapter != nullptr && adapter->vendorId == gone.vendorId &&
           adapter->productId == gone.productId && adapter->serialNumber == gone.serialNumber;
}

std::string PortReplug::LostText() const {
    return "Com" + std::to_string(port_.number) + " (" + port_.device +
           ") went away: waiting for it to come back";
}

std::string PortReplug::BackText() const {
    return "Com" + std::to_string(port_.number) + " came back: opened again and brought on line";
}

} // namespace korval

#include "PositionWatch.h"

namespace korval {

namespace {

bool moving(const std::string& status) {
    return status == "BUSY" || status == "JOGGING" || status == "OFFLINEBUSY";
}

} // namespace

void PositionWatch::Restart() {
    awake_ = true;
    refused_.reset();
    last_.reset();
}

bool PositionWatch::ShouldRead(const Now& now) {
    if (now.status != lastStatus_) {
        lastStatus_ = now.status;
        awake_ = true;
    }
    if (!now.shown || now.lineHeld) {
        return false; // a wake stays pending until the view may read again
    }
    if (now.status == "ERRORCOMMUNICATIONS") {
        return false; // every read would only wait for silence
    }
    moving_ = moving(now.status);
    return moving_ || awake_;
}

bool PositionWatch::Asks(int motor) const {
    return motor >= 1 && motor <= 4 && !refused_.test(static_cast<std::size_t>(motor - 1));
}

void PositionWatch::Read(const AxisReadings& readings) {
    for (std::size_t i = 0; i < readings.size(); ++i) {
        if (readings[i].kind == PositionReading::Kind::Refused) {
            refused_.set(i);
        }
    }
    awake_ = moving_ || !last_ || *last_ != readings;
    last_ = readings;
}

} // namespace korval

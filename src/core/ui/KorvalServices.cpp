#include "KorvalServices.h"

#include "MdiKorval.h"

#include <QCoreApplication>

namespace korval {

namespace {

KorvalServices* instance = nullptr;

} // namespace

KorvalServices& App() {
    return *instance;
}

bool AppRunning() {
    return instance != nullptr;
}

KorvalServices::KorvalServices(Prompts& p, ProgramFolders f) : prompts(p), folders(std::move(f)) {
    instance = this;
    // Sink writes arrive on driver threads; their handlers run on the program's thread.
    mailbox.setWake([this] {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { mailbox.drain(); }, Qt::QueuedConnection);
    });
}

KorvalServices::~KorvalServices() {
    mailbox.setWake({});
    instance = nullptr;
}

FormBase* KorvalServices::FindForm(std::string_view name) const {
    for (auto* form : forms) {
        if (form->Name() == name || form->GetVirtualName() == name) {
            return form;
        }
    }
    return nullptr;
}

bool KorvalServices::IsVisible(std::string_view name) const {
    const auto* form = FindForm(name);
    return form != nullptr && form->IsShown();
}

bool KorvalServices::Restoring() const {
    return mdi == nullptr || !mdi->isVisible();
}

bool KorvalServices::PortIsOpen() {
    return kdx.IsSerialPortOpen();
}

} // namespace korval

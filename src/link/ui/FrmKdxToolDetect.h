#pragma once
// The port scan: shows the driver's progress and lets the user abort it.
#include "core/ui/FormBase.h"
#include "link/Mailbox.h"

class QLineEdit;

namespace korval {

class PictureButton;

class FrmKdxToolDetect final : public FormBase {
    Q_OBJECT
public:
    static constexpr int HighestPort = 16;

    FrmKdxToolDetect();
    ~FrmKdxToolDetect() override;
    // The scan from the auto-detect button or menu, with every follow-up.
    void DetectKdx();
    void PicAbort_MouseDown();
    PictureButton* PicAbort() const { return abort_; }
    // The link as the last status word left it: set by ERRORCOMMUNICATIONS, cleared by any
    // other word.
    bool CommunicationsLost = false;

private:
    QLineEdit* status_;
    PictureButton* abort_;
    Mailbox::Box* progress_;
    int kdxChanged_ = 0;
};

} // namespace korval

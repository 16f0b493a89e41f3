#pragma once
#include "core/ui/FormBase.h"

namespace korval {

class PictureButton;

// One button that frees a hung driver.
class FrmKdxDriverRecovery final : public FormBase {
    Q_OBJECT
public:
    FrmKdxDriverRecovery();
    void PicKdxErrorRecoverButton_MouseDown();

private:
    PictureButton* recover_;
};

} // namespace korval

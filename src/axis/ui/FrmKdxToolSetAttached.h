#pragma once
// The chooser of the devices attached to an axis: a box for each device, which shows or hides
// that device's window. Checking a box clears the boxes of the devices it excludes.
#include "axis/AttachedChoice.h"
#include "core/ui/FormBase.h"

#include <array>

class QCheckBox;
class QComboBox;

namespace korval {

class FrmKdxToolSetAttached final : public FormBase {
    Q_OBJECT
public:
    explicit FrmKdxToolSetAttached(int axis);

    QComboBox* CmbAxis() const { return axis_; }
    QCheckBox* Box(AttachedDevice device) const;

    // Hides the device windows of the listed axis and the thumbwheel's, then shows each one
    // whose box is checked. The windows of the other axes stay as they are.
    void ShowForms();

    // The boxes are not kept between runs: the windows they show start hidden.
    void PrepareForSave() override;

private:
    void boxClicked(AttachedDevice device, bool checked);
    void showChecks();

    QComboBox* axis_;
    std::array<QCheckBox*, 5> boxes_{};
    AttachedChecks checks_;
};

} // namespace korval

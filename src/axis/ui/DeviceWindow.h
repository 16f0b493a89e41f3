#pragma once
// What the three per-axis device windows share: the axis list that sets AxisNumber, the save
// button, and the line that tells whether the controller confirmed what the button sent.
#include "ConfirmationLabel.h"

#include "core/ui/FormBase.h"
#include "core/ui/PictureButton.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

class QBoxLayout;
class QComboBox;

namespace korval {

class DeviceWindow : public FormBase {
    Q_OBJECT
public:
    // The axis the settings are sent for, 1 to 4: the axis list's row + 1.
    std::int32_t AxisNumber = 0;

    QComboBox* CmbAxis() const { return axis_; }
    PictureButton* PicSave() const { return save_; }
    ConfirmationLabel* LblConfirmation() const { return confirmation_; }

    void CmbAxis_Click();
    virtual void PicSave_MouseDown() = 0;

protected:
    DeviceWindow(const QString& name, const QString& caption, int axis);

    // The window's own controls go between the axis list and the save button.
    QBoxLayout* Body() const { return body_; }
    // Switches the named controls of this window off or on, addressing the window by its
    // virtual name as any window may address a control of one of the four copies.
    void EnableControls(std::initializer_list<const char*> controls, bool enabled);
    // Sends the settings in turn, and says whether the controller confirmed them all.
    void Send(const std::vector<std::string>& settings);

    // The save button for the span of one press: down and disabled against a second press;
    // up and enabled again however the press ends.
    class SaveRound {
    public:
        explicit SaveRound(DeviceWindow& window);
        ~SaveRound();
        SaveRound(const SaveRound&) = delete;
        SaveRound& operator=(const SaveRound&) = delete;

    private:
        DeviceWindow& window_;
    };

private:
    QComboBox* axis_;
    PictureButton* save_;
    ConfirmationLabel* confirmation_;
    QBoxLayout* body_;
};

} // namespace korval

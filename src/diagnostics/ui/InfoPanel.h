#pragma once
// What the thirteen information panels share: text boxes in named frames, the PicRefresh
// button, and the refresh that empties the boxes, greys the frames and runs the panel's
// queries. A panel shows what it read at its last refresh; it does not poll.
#include "BoxTarget.h"
#include "QtBusyPointer.h"

#include "core/ui/FormBase.h"
#include "diagnostics/ClsKdxDiagnostic.h"
#include "diagnostics/CompleteDiagnostic.h"

#include <memory>
#include <vector>

class QGroupBox;

namespace korval {

class PictureButton;

// One text box of a panel and the frame it stands in.
struct PanelBox {
    const char* box;     // "TxtInfo"
    const char* frame;   // "FrameInfo"
    const char* caption; // the frame's caption, "" for none
};

class InfoPanel : public FormBase {
public:
    InfoPanel(const QString& name, const QString& caption, const std::vector<PanelBox>& boxes);

    // The refresh, as pressing PicRefresh runs it. False when another refresh or the complete
    // diagnostic has the line: the panel then keeps what it shows.
    bool PicRefresh_MouseDown();

    // The texts the complete diagnostic read for this panel.
    virtual void ShowScan(const DiagnosticBoxes& scan) = 0;

    // A box's text as the controller gave it; empty for a name the panel does not have.
    std::string Text(const QString& box) const;

    // Transient: what the controller said is not kept in the settings.
    void PrepareForSave() override;

protected:
    virtual void RunQueries(ClsKdxDiagnostic& diagnostic) = 0;
    BoxTarget* Box(std::size_t index) { return boxes_[index].get(); }
    // Boxes `first` to `first` + 3: the four axes.
    AxisTargets Axes(std::size_t first);
    void ShowAxes(std::size_t first, const std::array<TextBox, 4>& scan);

    // The one box most panels have, and the four axis boxes behind any others.
    static constexpr PanelBox InfoBox = {"TxtInfo", "FrameInfo", ""};
    static std::vector<PanelBox> WithAxes(std::vector<PanelBox> boxes);

private:
    void setFramesGrey(bool grey);

    std::vector<std::unique_ptr<BoxTarget>> boxes_;
    std::vector<QGroupBox*> frames_;
    PictureButton* refresh_;
    QtBusyPointer pointer_;
    ClsKdxDiagnostic diagnostic_;
};

} // namespace korval

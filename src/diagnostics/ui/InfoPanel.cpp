#include "InfoPanel.h"

#include "ScanLine.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/PictureButton.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace korval {

namespace {

constexpr double PressPause = 0.25;

} // namespace

InfoPanel::InfoPanel(const QString& name, const QString& caption,
                     const std::vector<PanelBox>& boxes)
    : FormBase(name, caption), diagnostic_(App().kdx, App().delay, App().commands.AsFormatter(),
                                           &pointer_, &App().replyTiming) {
    auto* grid = new QGridLayout(this);
    const int columns = boxes.size() > 2 ? 2 : 1;
    int at = 0;
    for (const auto& b : boxes) {
        auto* frame = new QGroupBox(b.caption, this);
        frame->setObjectName(b.frame);
        auto* edit = new QPlainTextEdit(frame);
        edit->setObjectName(b.box);
        edit->setReadOnly(true);
        edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        edit->setLineWrapMode(QPlainTextEdit::NoWrap);
        (new QVBoxLayout(frame))->addWidget(edit);
        grid->addWidget(frame, at / columns, at % columns);
        frames_.push_back(frame);
        boxes_.push_back(std::make_unique<BoxTarget>(edit));
        ++at;
    }
    refresh_ = new PictureButton("PicRefresh", Symbol::Recover, this);
    refresh_->setToolTip("Refresh");
    grid->addWidget(refresh_, (at + columns - 1) / columns, columns - 1, Qt::AlignRight);
    connect(refresh_, &PictureButton::pressed, this, [this] { PicRefresh_MouseDown(); });
    resize(columns == 1 ? 420 : 640, boxes.size() > 4 ? 560 : 360);
}

bool InfoPanel::PicRefresh_MouseDown() {
    if (ScanLine::Busy()) {
        return false;
    }
    const ScanLine line;
    refresh_->showDown();
    refresh_->setEnabled(false);
    setFramesGrey(true);
    for (const auto& box : boxes_) {
        box->SetText("");
    }
    App().delay.TimeDelay(PressPause);
    refresh_->showUp();
    RunQueries(diagnostic_);
    setFramesGrey(false);
    refresh_->setEnabled(true);
    return true;
}

std::string InfoPanel::Text(const QString& box) const {
    for (const auto& b : boxes_) {
        if (b->Edit()->objectName() == box) {
            return b->Text();
        }
    }
    return {};
}

void InfoPanel::PrepareForSave() {
    for (const auto& box : boxes_) {
        box->SetText("");
    }
}

AxisTargets InfoPanel::Axes(std::size_t first) {
    return {Box(first), Box(first + 1), Box(first + 2), Box(first + 3)};
}

void InfoPanel::ShowAxes(std::size_t first, const std::array<TextBox, 4>& scan) {
    for (std::size_t m = 0; m < 4; ++m) {
        Box(first + m)->SetText(scan[m].text);
    }
}

std::vector<PanelBox> InfoPanel::WithAxes(std::vector<PanelBox> boxes) {
    boxes.insert(boxes.end(), {{"TxtAxis1", "FrameAxis1", "Axis1"},
                               {"TxtAxis2", "FrameAxis2", "Axis2"},
                               {"TxtAxis3", "FrameAxis3", "Axis3"},
                               {"TxtAxis4", "FrameAxis4", "Axis4"}});
    return boxes;
}

void InfoPanel::setFramesGrey(bool grey) {
    // Greyed like a button face while the panel asks, so stale text is not taken for new.
    const auto base = QApplication::palette().color(grey ? QPalette::Button : QPalette::Base);
    for (const auto& box : boxes_) {
        auto palette = box->Edit()->palette();
        palette.setColor(QPalette::Base, base);
        box->Edit()->setPalette(palette);
    }
}

} // namespace korval

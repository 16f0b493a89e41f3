#include "FrmMsgBox.h"

#include "CentreOnScreen.h"

#include <QLabel>
#include <QVBoxLayout>

namespace korval {

FrmMsgBox::FrmMsgBox() : FormBase("FrmMsgBox", "KORVAL Message") {
    setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint);
    auto* layout = new QVBoxLayout(this);
    message_ = new QLabel("Please Wait", this);
    message_->setObjectName("LblMsg");
    message_->setAlignment(Qt::AlignCenter);
    layout->addWidget(message_);
    resize(280, 90);
    CentreOnScreen(*this);
}

void FrmMsgBox::SetMessage(const QString& text) {
    message_->setText(text);
    message_->repaint();
}

} // namespace korval

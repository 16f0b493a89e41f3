#include "FrmMsgBoxCodeFormat.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace korval {

FrmMsgBoxCodeFormat::FrmMsgBoxCodeFormat(QWidget* parent) : QDialog(parent) {
    setObjectName("FrmMsgBoxCodeFormat");
    setWindowTitle("Code Format Warning");
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout();
    auto* icon = new QLabel(this);
    icon->setObjectName("PicMsgType");
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(40, 40));
    auto* message = new QLabel("Warning\n"
                               "     KORVAL is about to reformat your code.\n"
                               "     Your original code and comments will be lost\n"
                               "\n"
                               "          Do you wish to continue?",
                               this);
    message->setObjectName("LblMsg");
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(message, 1);
    layout->addLayout(row);
    showComments_ = new QCheckBox("Show Comments", this);
    showComments_->setObjectName("ChkShowComments");
    layout->addWidget(showComments_);
    auto* buttons = new QHBoxLayout();
    auto* yes = new QPushButton("Yes", this);
    yes->setObjectName("CmdYes");
    auto* no = new QPushButton("No", this);
    no->setObjectName("CmdNo");
    buttons->addStretch(1);
    buttons->addWidget(yes);
    buttons->addWidget(no);
    layout->addLayout(buttons);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
}

bool FrmMsgBoxCodeFormat::ShowComments() const {
    return showComments_->isChecked();
}

} // namespace korval

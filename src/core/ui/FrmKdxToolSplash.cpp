#include "FrmKdxToolSplash.h"

#include "CentreOnScreen.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace korval {

FrmKdxToolSplash::FrmKdxToolSplash() : FormBase("FrmKdxToolSplash", "KORVAL") {
    setWindowFlags(Qt::SplashScreen);
    auto* layout = new QVBoxLayout(this);
    auto* about = new QLabel("KORVAL\nVersion: 2.0", this);
    about->setObjectName("LblAbout");
    QFont big = about->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    about->setFont(big);
    about->setAlignment(Qt::AlignCenter);
    status_ = new QLabel("Status:", this);
    status_->setObjectName("LblStatus");
    layout->addWidget(about, 1);
    layout->addWidget(status_);
    setStyleSheet("FrmKdxToolSplash { background: #f4f4ef; border: 2px solid #3c5a96; }");
    resize(420, 220);
    CentreOnScreen(*this);
}

void FrmKdxToolSplash::SetStatus(const QString& text) {
    status_->setText(text);
    status_->repaint();
}

QString FrmKdxToolSplash::Status() const {
    return status_->text();
}

void FrmKdxToolSplash::MakeTopMost(bool on) {
    setWindowFlag(Qt::WindowStaysOnTopHint, on);
}

void FrmKdxToolSplash::ShowAbout() {
    about_ = true;
    SetStatus("");
    show();
    raise();
}

void FrmKdxToolSplash::mousePressEvent(QMouseEvent*) {
    if (about_) { // the about box goes away with a click
        about_ = false;
        hide();
    }
}

} // namespace korval

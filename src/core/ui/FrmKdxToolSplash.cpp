#include "FrmKdxToolSplash.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace korval {

namespace {

void centre(QWidget& w) {
    if (const auto* screen = QApplication::primaryScreen()) {
        const auto area = screen->availableGeometry();
        w.move(area.x() + (area.width() - w.width()) / 2,
               area.y() + (area.height() - w.height()) / 2);
    }
}

} // namespace

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
    centre(*this);
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

FrmMsgBox::FrmMsgBox() : FormBase("FrmMsgBox", "KORVAL Message") {
    setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint);
    auto* layout = new QVBoxLayout(this);
    message_ = new QLabel("Please Wait", this);
    message_->setObjectName("LblMsg");
    message_->setAlignment(Qt::AlignCenter);
    layout->addWidget(message_);
    resize(280, 90);
    centre(*this);
}

void FrmMsgBox::SetMessage(const QString& text) {
    message_->setText(text);
    message_->repaint();
}

} // namespace korval

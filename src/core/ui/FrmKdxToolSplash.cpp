#include "FrmKdxToolSplash.h"

#include "CentreOnScreen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
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
    ok_ = new QPushButton("OK", this);
    ok_->setObjectName("CmdOK");
    ok_->hide(); // the splash has no button; the about box has
    connect(ok_, &QPushButton::clicked, this, [this] { CloseAbout(); });
    layout->addWidget(about, 1);
    layout->addWidget(status_);
    layout->addWidget(ok_, 0, Qt::AlignRight);
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
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setWindowTitle("About KORVAL");
    setWindowModality(Qt::ApplicationModal);
    ok_->show();
    show();
    raise();
    activateWindow();
    ok_->setFocus();
}

void FrmKdxToolSplash::CloseAbout() {
    if (!about_) {
        return;
    }
    about_ = false;
    ok_->hide();
    setWindowModality(Qt::NonModal);
    setWindowFlags(Qt::SplashScreen); // hides it, ready to serve as the splash at shutdown
    setWindowTitle("KORVAL");
}

void FrmKdxToolSplash::mousePressEvent(QMouseEvent*) {
    CloseAbout();
}

void FrmKdxToolSplash::keyPressEvent(QKeyEvent* event) {
    if (about_ && event->key() == Qt::Key_Escape) {
        CloseAbout();
        return;
    }
    FormBase::keyPressEvent(event);
}

void FrmKdxToolSplash::closeEvent(QCloseEvent* event) {
    if (about_) { // the title bar's close box: the window is changed back once the event is over
        event->ignore();
        QMetaObject::invokeMethod(this, &FrmKdxToolSplash::CloseAbout, Qt::QueuedConnection);
        return;
    }
    FormBase::closeEvent(event);
}

} // namespace korval

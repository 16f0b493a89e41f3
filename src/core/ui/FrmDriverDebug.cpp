#include "FrmDriverDebug.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace korval {

FrmDriverDebug::FrmDriverDebug() : FormBase("FrmDriverDebug", "KDX Driver Debug") {
    auto* layout = new QVBoxLayout(this);
    traffic_ = new QPlainTextEdit(this);
    traffic_->setObjectName("Traffic"); // not a setting: the walker leaves it alone
    traffic_->setReadOnly(true);
    traffic_->setMaximumBlockCount(5000); // a long session keeps only the recent traffic
    traffic_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(traffic_);
    resize(560, 320);
}

void FrmDriverDebug::Append(const std::string& lines) {
    auto text = QString::fromLatin1(lines.data(), static_cast<qsizetype>(lines.size()));
    text.replace("\r\n", "\n");
    if (text.endsWith('\n')) {
        text.chop(1);
    }
    traffic_->appendPlainText(text);
}

} // namespace korval

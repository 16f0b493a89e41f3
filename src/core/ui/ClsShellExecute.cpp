#include "ClsShellExecute.h"

#include <QDesktopServices>
#include <QUrl>

namespace korval {

bool ClsShellExecute::ShellProgram(const std::string& verb, const std::string& file) {
    return verb == "Open" &&
           QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromLocal8Bit(file.c_str())));
}

} // namespace korval

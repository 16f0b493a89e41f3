#include "QtPrompts.h"

#include "core/qt/Latin1.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

namespace korval {

namespace {

QString q(const std::string& s) {
    // Texts of the program use CR LF; a dialog wants plain line feeds.
    return Latin1(s).replace("\r\n", "\n");
}

std::optional<std::string> chosen(const QString& path, bool accepted) {
    if (!accepted) {
        return std::nullopt;
    }
    return path.toLocal8Bit().toStdString();
}

} // namespace

QString QtFilter(const std::string& filter) {
    const auto parts = q(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The description already names the patterns; Qt reads them from the parentheses.
        const auto& description = parts[i];
        filters << (description.contains('(') ? description
                                              : description + " (" + parts[i + 1] + ")");
    }
    return filters.join(";;");
}

Prompts::Answer QtPrompts::Message(const std::string& text, const std::string& title, Icon icon,
                                   Buttons buttons) {
    QMessageBox box(parent_());
    box.setWindowTitle(q(title));
    box.setText(q(text));
    box.setIcon(icon == Icon::Information ? QMessageBox::Information
                : icon == Icon::Question  ? QMessageBox::Question
                : icon == Icon::Warning   ? QMessageBox::Warning
                                          : QMessageBox::Critical);
    box.setStandardButtons(buttons == Buttons::YesNo ? QMessageBox::Yes | QMessageBox::No
                                                     : QMessageBox::Ok);
    const auto answer = box.exec();
    return answer == QMessageBox::Yes  ? Answer::Yes
           : answer == QMessageBox::No ? Answer::No
                                       : Answer::Ok;
}

std::optional<std::string> QtPrompts::fileDialog(const FileDialog& d, bool save) {
    QFileDialog dialog(parent_(), q(d.title), q(d.initialFolder), QtFilter(d.filter));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.selectFile(q(d.fileName));
    const bool accepted = dialog.exec() == QDialog::Accepted;
    return chosen(dialog.selectedFiles().value(0), accepted);
}

std::optional<std::string> QtPrompts::OpenFile(const FileDialog& d) {
    return fileDialog(d, false);
}

std::optional<std::string> QtPrompts::SaveFile(const FileDialog& d) {
    return fileDialog(d, true);
}

std::string QtPrompts::InputBox(const std::string& prompt, const std::string& title) {
    bool ok = false;
    const auto answer =
        QInputDialog::getText(parent_(), q(title), q(prompt), QLineEdit::Normal, QString(), &ok);
    return ok ? answer.toLatin1().toStdString() : std::string();
}

} // namespace korval

#pragma once
#include <QDialog>

class QCheckBox;

namespace korval {

// "Code Format Warning": reformatting loses the original layout and, unless shown, comments.
class FrmMsgBoxCodeFormat final : public QDialog {
    Q_OBJECT
public:
    explicit FrmMsgBoxCodeFormat(QWidget* parent);
    bool ShowComments() const;

private:
    QCheckBox* showComments_;
};

} // namespace korval

#pragma once
// The settings walker's view of a real window: its controls are found by object name prefix
// (Cmb, Opt, Chk, Txt, and menu actions Mnu) among its children.
#include "core/ClsClassIniFile.h"

#include <QPointer>

#include <memory>
#include <vector>

class QWidget;

namespace korval {

class FormBase;

class WidgetWalker final : public WalkedForm {
public:
    explicit WidgetWalker(FormBase& form) : form_(form) {}
    std::string Name() const override;
    std::string GetVirtualName() const override;
    int Top() const override;
    int Left() const override;
    void SetTop(int top) override;
    void SetLeft(int left) override;
    std::vector<WalkedControl*> Controls() override;

private:
    QWidget* frame() const;
    FormBase& form_;
    std::vector<std::unique_ptr<WalkedControl>> controls_;
};

} // namespace korval

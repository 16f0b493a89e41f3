#pragma once
// The hidden window whose four text sinks the driver writes into. Each sink's handler runs on
// the program's thread, in the order the driver wrote.
#include "core/ui/FormBase.h"
#include "link/Mailbox.h"

namespace korval {

class FrmKdxDriverCallback final : public FormBase {
    Q_OBJECT
public:
    static constexpr std::size_t TextBoxLimit = 65535;

    FrmKdxDriverCallback();
    ~FrmKdxDriverCallback() override;

    Mailbox::Box& StatusReport() { return *statusReport_; }
    Mailbox::Box& Terminal() { return *terminal_; }
    Mailbox::Box& Buffer() { return *buffer_; }
    Mailbox::Box& TempBuffer() { return *tempBuffer_; }
    // Empties the boxes: nothing transient is saved.
    void PrepareForSave() override;

private:
    void TxtCallbackStatusReport_Change(const std::string& text);
    void TxtCallbackTerminal_Change(const std::string& text);
    void TxtCallbackBuffer_Change(const std::string& text);

    Mailbox::Box* statusReport_;
    Mailbox::Box* terminal_;
    Mailbox::Box* buffer_;
    Mailbox::Box* tempBuffer_;
    Mailbox::Box* traffic_;
};

} // namespace korval

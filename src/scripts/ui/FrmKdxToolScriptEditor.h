#pragma once
// The script editor: write a controller program, lay it out, try it on the controller, save it.
#include "core/ui/FormBase.h"

#include <functional>
#include <optional>

namespace korval {

class CodeEditor;
class PictureButton;

class FrmKdxToolScriptEditor final : public FormBase {
    Q_OBJECT
public:
    FrmKdxToolScriptEditor();

    CodeEditor* TxtEditor() const { return editor_; }
    // The editor's text with CR LF line ends, as the program keeps text.
    std::string Text() const;
    void SetText(const std::string& text);

    void PicCodeFormatButton_MouseDown();
    // The answer of the warning dialogue: empty when the user said No.
    std::function<std::optional<bool>()> AskFormat;
    void FormatCode(bool withComments);
    void PicTestScript_MouseDown();
    void PicSaveScript_MouseDown();
    // The script's motion on a virtual controller, in a window over this one.
    void PicPreview_MouseDown();

private:
    void enableButtons(bool on);

    CodeEditor* editor_;
    PictureButton* format_;
    PictureButton* test_;
    PictureButton* save_;
    PictureButton* preview_;
};

} // namespace korval

#pragma once
// The script editor: write a controller program, lay it out, try it on the controller, save it.
#include "core/ui/FormBase.h"

#include <functional>
#include <optional>
#include <string>

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
    // Shown a slice at a time, with the window's events let run between slices, so that a
    // script of a megabyte never holds the window up.
    void SetText(const std::string& text);
    // Shows what `work` makes, made away from the window's thread; the editor and its buttons
    // wait meanwhile. Gives back the text made.
    std::string ShowWorked(const std::function<std::string()>& work);

    void PicCodeFormatButton_MouseDown();
    // The answer of the warning dialogue: empty when the user said No.
    std::function<std::optional<bool>()> AskFormat;
    void FormatCode(bool withComments);
    void PicTestScript_MouseDown();
    void PicSaveScript_MouseDown();
    // The script's motion on a virtual controller, in a window over this one.
    void PicPreview_MouseDown();

private:
    class Held;
    void enableButtons(bool on);
    void showInSlices(const QString& shown);

    CodeEditor* editor_;
    PictureButton* format_;
    PictureButton* test_;
    PictureButton* save_;
    PictureButton* preview_;
};

} // namespace korval

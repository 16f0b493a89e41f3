#pragma once
// Turns the AutoReverse settings into a controller program for one motor. The program is seven
// sections, each rebuilt from nothing by its update; the checks repair a setting, say why in a
// message box, and let the generation go on. The user's choices in the tool (a combo click, a
// text box left) are here too, with the effects the window gives them, so that the command
// line applies a setting exactly as a user choosing it would.
#include "AutoReverseController.h"
#include "AutoReverseSettings.h"

#include "core/Prompts.h"
#include "link/ClsKdxCommands.h"

#include <cstdint>
#include <string>

namespace korval {

// The seven sections in program order. All but the repeat carry the formatter's comments, CR
// LF line ends and two tabs before each ";".
struct AutoReverseSections {
    std::string TxtOnline = "F,\t\t;KDX Online with Echo Off\r\n";
    std::string TxtHomeType;
    std::string TxtHomeUserIO;
    std::string TxtMoveType;
    std::string TxtReturnType;
    std::string TxtRepeatType;
    std::string TxtRunSaveType;

    std::string Joined() const;
};

// What the finish prepares the program for: "R", "rsm", or nothing (the file form adds it).
enum class RunSaveAction { Test, Store, File };

// The speed box of each frame, with its velocity style combo.
enum class SpeedBox { Home, Move, Return };

// The text boxes whose Enter or leaving rebuilds a section.
enum class AutoReverseBox {
    TxtHomePosition,
    TxtHomeSpeed,
    TxtHomePause,
    TxtMovePosition,
    TxtMoveSpeed,
    TxtReturnPause,
    TxtReturnSpeed,
    TxtRepeat,
};

class AutoReverseGenerator {
public:
    // Without a controller a start "From Current Location" keeps its position box as it is.
    AutoReverseGenerator(Prompts& prompts, Formatter format,
                         AutoReverseController* controller = nullptr);
    void SetController(AutoReverseController* controller) { controller_ = controller; }

    AutoReverseSettings settings;
    AutoReverseSections sections;

    // The five updates, each of its own section.
    void UpDateHome();
    void UpDateHomeOptions();
    void UpDateMove();
    void UpDateReturn();
    void UpDateLoop();
    // The Run / Save section for an action.
    void UpDateRunSave(RunSaveAction action);

    // The five updates in order, the finish for the action, and the text it sends: the
    // controller's text for a test or a store, the file's text for a file.
    std::string Generate(RunSaveAction action);
    // The seven sections as the controller takes them: no comments, CR line ends.
    std::string ControllerText() const;
    // The seven sections and a final "R", commented, CR LF line ends.
    std::string FileText() const;

    // The user's choices, as the tool's controls make them. An index outside its list is
    // stored as it comes; the command line refuses it earlier.
    void ChooseMotor(std::int32_t motor) { settings.CurrentMotor = motor; }
    void ChooseHomeStyle(int index);
    void ChooseHomeInstance(int index) {
        settings.CmbHomeInstance = static_cast<StartInstance>(index);
    }
    void ChooseHomeIO(int index);
    void ChooseMovePosition(int index);
    void ChooseReturnPosition(int index);
    void ChooseRepeat(int index);
    void ChooseVelocityStyle(SpeedBox box, int index);
    // A text typed into a box, then Enter or leaving it.
    void EnterText(AutoReverseBox box, std::string text);

    // The instance combo is shown for the limit start styles only; hidden, it gives "LM0,".
    bool HomeInstanceShown() const;

    // The axis's two text cleaners, for a position box and for a speed box.
    static std::string FormatPosition(std::string text);
    static std::string FormatSpeed(std::string text);

private:
    std::string& speedText(SpeedBox box);
    int& speedStyle(SpeedBox box);
    void UpDateSpeed(SpeedBox box, std::string& section);
    void UpDateAnalogVelocity(SpeedBox box, int index);
    void seekSpeedCheck(SpeedBox box);
    void directionCheck();
    void zeroHere();
    std::string pauseLine(std::string& pauseBox);
    void line(std::string& section, const std::string& command) const;
    std::string commented(const std::string& text) const;
    std::string plain(const std::string& text) const;
    void tell(const std::string& text, const std::string& title);

    Prompts& prompts_;
    Formatter format_;
    AutoReverseController* controller_;
};

} // namespace korval

#pragma once
// The manual's pictures, taken from the running program: each window opened as a user opens it
// (through its menu entry), given something to show, and grabbed as the window draws itself,
// never the screen. One run makes them all, so the pictures follow the windows as they change.
#include <QPixmap>

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace korval {

class FormBase;
class KorvalServices;

class ManualPictures {
public:
    // Acts on the bench around the virtual controller: a control line as kdx-sim reads them
    // ("limit 1 + on").
    using Bench = std::function<void(const std::string& line)>;

    ManualPictures(KorvalServices& app, Bench bench);

    // The pictures' names ("terminal" for "terminal.png"), in the order they are taken.
    static std::vector<std::string> Names();
    // Takes every picture and saves it into `folder` as "<name>.png"; returns a line for each
    // picture that could not be made, saying why.
    std::vector<std::string> Save(const std::string& folder);

private:
    struct Picture {
        const char* name;
        const char* menu; // the entry that opens the window; null where the stage opens it
        const char* form; // the window's name or virtual name
        // Gives the opened window something to show, and grabs it.
        QPixmap (ManualPictures::*stage)(FormBase& form);
    };
    static std::span<const Picture> Pictures();
    std::string take(const Picture& picture, const std::string& folder);

    QPixmap asOpened(FormBase& form);
    QPixmap onLine(FormBase& form);
    QPixmap exchange(FormBase& form);
    QPixmap script(FormBase& form);
    QPixmap moved(FormBase& form);
    QPixmap afterTheMove(FormBase& form);
    QPixmap programChosen(FormBase& form);
    QPixmap previewed(FormBase& form);
    QPixmap firstPage(FormBase& form);
    QPixmap calculated(FormBase& form);
    QPixmap jogButtonsChosen(FormBase& form);
    QPixmap deviceWindow(FormBase& form);
    QPixmap scanned(FormBase& form);
    QPixmap limitPressed(FormBase& form);
    QPixmap withoutPassword(FormBase& form);

    // The window as a user sees it: inside its frame when it has one.
    static QPixmap grab(FormBase& form);
    // The window's frame made larger than it first opens.
    static void widen(FormBase& form, int width, int height);
    // Lets the program run until `done` or the time is up; whether it came to be.
    bool waitFor(const std::function<bool()>& done, double seconds);

    KorvalServices& app_;
    Bench bench_;
};

} // namespace korval

// The manual's pictures, taken from the program on line with the virtual controller: each window
// is drawn whole, in its frame, and the program is left usable afterwards.
#include "ManualPictures.h"
#include "AppFixture.h"

#include "core/ui/MdiKorval.h"
#include "diagnostics/ui/TroubleshooterForm.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "sim/PtyHost.h"
#include "sim/SimControl.h"

#include <QImage>
#include <QMdiSubWindow>
#include <QPlainTextEdit>

#include <set>

using namespace korval;
using namespace korval::test;

namespace {

// Enough colours to tell a drawn window from an empty or unpainted one.
bool drawn(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height() && colours.size() < 16; y += 3) {
        for (int x = 0; x < image.width() && colours.size() < 16; x += 3) {
            colours.insert(image.pixel(x, y));
        }
    }
    return colours.size() >= 16;
}

struct Case {
    const char* picture;
    const char* window; // whose frame the picture must fill
};

const Case Cases[] = {
    {"main-window", "MdiKorval"},
    {"port-settings", "FrmKdxToolSetPort"},
    {"terminal", "FrmKdxToolTerminal"},
    {"script-editor", "FrmKdxToolScriptEditor"},
    {"quickmove-single", "FrmKdxToolQuickMoveSingle"},
    {"quickmove-simultaneous", "FrmKdxToolQuickMoveMulti"},
    {"axis-positions", "FrmKdxToolAxisPositions"},
    {"virtual-jog", "FrmKdxToolVirtualJog"},
    {"autoreverse", "FrmKdxToolAutoReverse"},
    {"autoreverse-preview-tab", "FrmKdxToolAutoReverse"},
    {"axis-setup", "FrmKdxToolSetAxis1"},
    {"setup-wizard", "FrmKdxToolWizardSetup"},
    {"motor-calculator", "FrmKdxToolSetMotorCalc"},
    {"attached-devices", "FrmKdxToolSetAttachment1"},
    {"jog-buttons", "FrmKdxToolSetJogButtons1"},
    {"information-panel", "FrmKdxInfoProcessor"},
    {"complete-diagnostic", "FrmKdxInfoDiagnostic"},
    {"troubleshooter", "FrmKdxToolTroubleLimits"},
    {"administrator", "FrmKdxAdmin"},
    {"driver-recovery", "FrmKdxDriverRecovery"},
};

struct ManualPicturesFixture : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        installWithController("arrangement=2+2"); // every axis: each window shows all it can
        ASSERT_TRUE(start());
    }
    void bench(const std::string& line) {
        controller->withChain([&line](sim::KdxChain& chain) {
            std::string answer;
            sim::ApplyControl(chain, line, answer);
        });
    }
};

} // namespace

TEST_F(ManualPicturesFixture, EachWindowIsDrawnWholeAndTheProgramGoesOn) {
    ManualPictures pictures(*app, [this](const std::string& line) { bench(line); });
    const auto faults = pictures.Save(folder.file("pictures"));
    for (const auto& fault : faults) {
        ADD_FAILURE() << fault;
    }
    EXPECT_EQ(ManualPictures::Names().size(), std::size(Cases)) << "a picture the table misses";
    for (const auto& c : Cases) {
        const QImage image(QString::fromStdString(folder.file("pictures/")) + c.picture + ".png");
        auto* form = app->FindForm(c.window);
        ASSERT_NE(form, nullptr) << c.window;
        const QWidget* frame = form->SubWindow();
        EXPECT_EQ(image.size(), (frame != nullptr ? frame : form)->size()) << c.picture;
        EXPECT_TRUE(drawn(image)) << c.picture;
    }

    // What the pictures show was really done, and nothing of it holds the program up.
    const auto transcript =
        app->Form<FrmKdxToolTerminal>("FrmKdxToolTerminal")->TxtReceive()->toPlainText();
    EXPECT_TRUE(transcript.startsWith("> getD0,\n< 1.22\n> getD1,\n<")) << transcript.toStdString();
    EXPECT_TRUE(app->mdi->isEnabled()) << "the wizard let go of the main window";
    EXPECT_FALSE(app->FindForm("FrmKdxToolWizardSetup")->isVisible());
    EXPECT_FALSE(app->Form<TroubleshooterForm>("FrmKdxToolTroubleLimits")->Polling());
    EXPECT_EQ(app->lineHeld, 0);
}

#include "MotionMenus.h"

#include "FrmKdxToolAutoReverse.h"
#include "FrmKdxToolAxisPositions.h"
#include "FrmKdxToolQuickMoveMulti.h"
#include "FrmKdxToolQuickMoveSingle.h"
#include "FrmKdxToolVirtualJog.h"
#include "JogArrow.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace korval {

namespace {

// Virtual Jog, and the two QuickMove windows with their tool bar buttons.
void wireJogAndQuickMoves(MdiKorval& mdi) {
    auto& app = App();
    auto* jog = app.Form<FrmKdxToolVirtualJog>("FrmKdxToolVirtualJog");
    auto* single = app.Form<FrmKdxToolQuickMoveSingle>("FrmKdxToolQuickMoveSingle");
    auto* multi = app.Form<FrmKdxToolQuickMoveMulti>("FrmKdxToolQuickMoveMulti");
    mdi.SetHandler("MnuToolsVirtualJog", [jog] {
        jog->ShowWindow();
        jog->Activate();
    });
    mdi.SetHandler("MnuToolsQuickMoveSingle", [single] {
        single->ShowWindow();
        single->Activate();
    });
    mdi.SetHandler("MnuToolsQuickMoveSimultaneous", [multi] {
        multi->ShowWindow();
        multi->Activate();
    });
    // Another window taking the focus ends a held jog.
    QObject::connect(mdi.Area(), &QMdiArea::subWindowActivated, jog, [jog](QMdiSubWindow* active) {
        if (active != jog->SubWindow()) {
            jog->PicMoveNegative()->LetGo();
            jog->PicMovePositive()->LetGo();
        }
    });
}

void wireAxisPositions(MdiKorval& mdi) {
    auto* positions = App().Form<FrmKdxToolAxisPositions>("FrmKdxToolAxisPositions");
    mdi.SetHandler("MnuToolsAxisPositions", [positions] { positions->ShowWindow(); });
}

// The AutoReverse tool; the tool bar's button follows its entry.
void wireAutoReverse(MdiKorval& mdi) {
    auto* tool = App().Form<FrmKdxToolAutoReverse>("FrmKdxToolAutoReverse");
    mdi.SetHandler("MnuToolsAutoReverse", [tool] { tool->ShowWindow(); });
}

} // namespace

void WireMotionMenus(MdiKorval& mdi) {
    wireJogAndQuickMoves(mdi);
    wireAxisPositions(mdi);
    wireAutoReverse(mdi);
}

} // namespace korval

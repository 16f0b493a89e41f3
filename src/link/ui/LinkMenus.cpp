#include "LinkMenus.h"

#include "FrmKdxDriverRecovery.h"
#include "FrmKdxToolDetect.h"
#include "FrmKdxToolSetPort.h"

#include "core/ui/KorvalServices.h"
#include "core/ui/MdiKorval.h"

namespace korval {

void WireLinkMenus(MdiKorval& mdi) {
    auto& app = App();
    auto* detect = app.Form<FrmKdxToolDetect>("FrmKdxToolDetect");
    auto* setPort = app.Form<FrmKdxToolSetPort>("FrmKdxToolSetPort");
    auto* recovery = app.Form<FrmKdxDriverRecovery>("FrmKdxDriverRecovery");
    mdi.SetHandler("MnuToolsAutoDetect", [detect] { detect->DetectKdx(); });
    QObject::connect(mdi.Button("PicAutoDetect"), &PictureButton::pressed, detect,
                     [detect] { detect->DetectKdx(); });
    mdi.SetHandler("MnuToolsManualDetect", [setPort] { setPort->ShowWindow(); });
    mdi.SetHandler("MnuDriverRecovery", [recovery] { recovery->ShowWindow(); });
}

} // namespace korval

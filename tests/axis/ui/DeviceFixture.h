#pragma once
// The program as a user starts it, with a virtual controller of two chained two-motor KDX on
// Com1, and a hand for its windows: presses, key strokes, what went down the line.
#include "app/AppFixture.h"

#include "core/ui/FrmDriverDebug.h"
#include "core/ui/PictureButton.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>

namespace korval::test {

struct DeviceFixture : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        installWithController("arrangement=2+2");
        ASSERT_TRUE(start());
    }

    template <typename Window> Window* window(const std::string& name) const {
        auto* found = app->Form<Window>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    // A left-button press, as the user's finger gives it.
    static void press(QWidget* button) {
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &down);
        QMouseEvent up(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                       Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &up);
    }
    static void key(QWidget* control, Qt::Key code, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(control, &event);
    }
    // Everything the driver sent and received since the last call, as its traffic view shows it.
    std::string traffic() {
        app->delay.TimeDelay(0.05); // the view is written from the driver's queue
        auto* view =
            window<FrmDriverDebug>("FrmDriverDebug")->findChild<QPlainTextEdit*>("Traffic");
        const auto text = view->toPlainText().toStdString();
        view->clear();
        return text;
    }
};

} // namespace korval::test

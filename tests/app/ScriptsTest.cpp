#include "AppFixture.h"

#include "core/ClsReadWriteFile.h"
#include "core/ui/MdiKorval.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "scripts/ui/CodeEditor.h"
#include "scripts/ui/FrmKdxToolScriptEditor.h"
#include "scripts/ui/FrmKdxToolTerminal.h"
#include "scripts/ui/ScriptMenus.h"
#include "support/PtyPeer.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>

using namespace korval;
using namespace korval::test;

namespace {

// The program's own text in the driver's traffic lines ("HH:MM:SS.mmm > text"), without the
// driver's own items ("#") and what came back ("<").
std::string programText(const std::string& traffic) {
    std::string text;
    std::size_t at = 0;
    for (auto end = traffic.find("\r\n"); end != std::string::npos;
         at = end + 2, end = traffic.find("\r\n", at)) {
        const auto line = traffic.substr(at, end - at);
        if (line.size() > 15 && line[13] == '>') {
            text += line.substr(15);
        }
    }
    for (const auto& [shown, byte] : {std::pair{"<CR>", "\r"}, {"<LF>", "\n"}, {"<TAB>", "\t"}}) {
        for (auto p = text.find(shown); p != std::string::npos; p = text.find(shown, p + 1)) {
            text.replace(p, std::string(shown).size(), byte);
        }
    }
    return text;
}

struct ScriptsFixture : AppFixture {
    std::unique_ptr<PtyPeer> peer;
    FrmKdxToolTerminal* terminal = nullptr;
    FrmKdxToolScriptEditor* editor = nullptr;

    void SetUp() override {
        AppFixture::SetUp();
        peer = std::make_unique<PtyPeer>(answerStatus([] { return std::string("R"); }));
        linkCom1(peer->device());
        withDriverFolder();
        withConfig();
        ASSERT_TRUE(start());
        ASSERT_TRUE(setPort()->ChkPortOpen()->isChecked());
        terminal = app->Form<FrmKdxToolTerminal>("FrmKdxToolTerminal");
        editor = app->Form<FrmKdxToolScriptEditor>("FrmKdxToolScriptEditor");
    }
    void TearDown() override {
        AppFixture::TearDown();
        peer.reset();
    }
    std::string traffic;
    Mailbox::Box* trafficBox = nullptr;
    std::string sentBy(const std::function<void()>& action) {
        if (trafficBox == nullptr) {
            trafficBox = &app->mailbox.addBox(Mailbox::Mode::Replace,
                                              [this](const std::string& t) { traffic += t; });
        }
        app->delay.TimeDelay(0.05);
        traffic.clear();
        app->kdx.SetCallbackTraffic(trafficBox->sink());
        action();
        app->delay.TimeDelay(0.3);
        app->kdx.SetCallbackTraffic(nullptr);
        return programText(traffic);
    }
    bool driverRan(const std::function<void()>& action) {
        sentBy(action);
        return traffic.find(" # R\r\n") != std::string::npos;
    }
    void type(const char* text) { terminal->TxtSend()->setPlainText(text); }
};

} // namespace

const struct {
    const char* typed;
    const char* arrives;
} SendingTable[] = {
    {"R,", "R"},
    {"C,S1M2000,I1M400,R\n", "C,S1M2000,I1M400,R"},
    {"getD0,", "getD0,\r"},
    {"setI7", "setI7\r"},
    {"C,\tsetI7,\nrsm\n", "C,setI7,\r\nrsm\r"}, // no capital R: a CR goes behind
    {"Q", "Q\r"},
    {"F,", "QF,\r"}, // BringOnline sends its Q first
};

TEST_F(ScriptsFixture, TheTerminalSendsByTheRulesByteForByteWhateverItsOptions) {
    for (const auto& c : SendingTable) {
        type(c.typed);
        EXPECT_EQ(sentBy([&] { terminal->CmdSend_Click(); }), c.arrives) << c.typed;
    }
    terminal->TxtLogFile()->setText(QString::fromStdString(folder.file("session.txt")));
    for (auto* option :
         {terminal->ChkShowSent(), terminal->ChkTimeStamps(), terminal->ChkShowCodes(),
          terminal->ChkLogSession(), terminal->ChkCtrlEnterSends()}) {
        option->setChecked(true);
    }
    ASSERT_TRUE(terminal->ChkLogSession()->isChecked()) << "the log file opened";
    terminal->ShowWindow();
    terminal->SetActive(true);
    const auto key = [&](Qt::KeyboardModifiers modifiers) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, modifiers);
        QCoreApplication::sendEvent(terminal->TxtSend(), &enter);
    };
    for (const auto& c : SendingTable) {
        type(c.typed);
        EXPECT_EQ(sentBy([&] { terminal->CmdSend_Click(); }), c.arrives) << c.typed;
        EXPECT_EQ(sentBy([&] { key(Qt::ControlModifier); }), c.arrives) << "Ctrl+Enter " << c.typed;
    }
    type("getD0,");
    terminal->TxtSend()->moveCursor(QTextCursor::End);
    EXPECT_EQ(sentBy([&] { key(Qt::NoModifier); }), "") << "Enter alone sends nothing";
    EXPECT_EQ(terminal->TxtSend()->toPlainText(), "getD0,\n") << "it adds a line";
}

TEST_F(ScriptsFixture, TheTranscriptShowsAndLogsBothSidesAndItsOptionsAreKept) {
    terminal->TxtLogFile()->setText(QString::fromStdString(folder.file("session.txt")));
    for (auto* option :
         {terminal->ChkLogSession(), terminal->ChkShowSent(), terminal->ChkShowCodes()}) {
        option->setChecked(true);
    }
    terminal->ShowWindow();
    terminal->SetActive(true);
    peer->send("KDX\r");
    app->delay.TimeDelay(0.4);
    type("getD0,");
    terminal->CmdSend_Click();
    peer->send("1.22\r\xCB"
               "B");
    app->delay.TimeDelay(0.4);
    EXPECT_EQ(terminal->TxtReceive()->toPlainText(),
              "< KDX<CR>\n> getD0,<CR>\n< 1.22<CR>\n< <CB>B");
    terminal->ChkLogSession()->setChecked(false);
    const auto log = readWholeFile(folder.file("session.txt")).value_or("");
    const QString t = R"(\d\d:\d\d:\d\d\.\d\d\d )"; // each line's time
    const QRegularExpression session("^---- KDX Terminal, [-0-9: ]+ ----\r\n" + t +
                                     "< KDX<CR>\r\n" + t + "> getD0,<CR>\r\n" + t +
                                     "< 1\\.22<CR>\r\n" + t + "< <CB>B\r\n$");
    EXPECT_TRUE(session.match(QString::fromLatin1(log)).hasMatch()) << log;

    stop(); // the options are kept in the settings file
    ASSERT_TRUE(start());
    terminal = app->Form<FrmKdxToolTerminal>("FrmKdxToolTerminal");
    EXPECT_TRUE(terminal->ChkShowSent()->isChecked());
    EXPECT_FALSE(terminal->ChkTimeStamps()->isChecked());
    EXPECT_EQ(terminal->TxtLogFile()->text().toStdString(), folder.file("session.txt"));
}

TEST_F(ScriptsFixture, TheReceiveBoxShowsTheTerminalTextOnTheTimer) {
    terminal->ShowWindow();
    terminal->SetActive(true);
    peer->send("1.22\r");
    app->delay.TimeDelay(0.4);
    EXPECT_EQ(terminal->TxtReceive()->toPlainText(), "1.22\n");
    peer->send("^");
    app->delay.TimeDelay(0.4);
    EXPECT_EQ(terminal->TxtReceive()->toPlainText(), "1.22\n^");
    terminal->SetActive(false); // still shown, but another window is the active one
    peer->send("x");
    app->delay.TimeDelay(0.3);
    EXPECT_EQ(terminal->TxtReceive()->toPlainText(), "1.22\n^x") << "the terminal sink shows it";
    terminal->CmdClearBuffer_Click();
    EXPECT_EQ(terminal->TxtReceive()->toPlainText(), "");
    EXPECT_EQ(app->kdx.TerminalGet(), "");
}

TEST_F(ScriptsFixture, CtrlUpAndDownBringBackWhatWasSent) {
    for (const char* t : {"getD0,", "getD1,"}) {
        type(t);
        terminal->CmdSend_Click();
    }
    type("");
    auto key = [&](int k) {
        QKeyEvent press(QEvent::KeyPress, k, Qt::ControlModifier);
        QCoreApplication::sendEvent(terminal->TxtSend(), &press);
        return terminal->TxtSend()->toPlainText().toStdString();
    };
    EXPECT_EQ(key(Qt::Key_Up), "getD1,");
    EXPECT_EQ(key(Qt::Key_Up), "getD0,");
    EXPECT_EQ(key(Qt::Key_Up), "getD0,");
    EXPECT_EQ(key(Qt::Key_Down), "getD1,");
    EXPECT_EQ(key(Qt::Key_Down), "");
}

TEST_F(ScriptsFixture, FormattingWithAndWithoutComments) {
    editor->SetText("F,C ;mine\r\nS1M2000,R");
    editor->FormatCode(false);
    EXPECT_EQ(editor->Text(), "F,\t\t\r\nC,\t\t\r\nS1M2000,\t\t\r\nR\r\n");
    editor->FormatCode(false);
    EXPECT_EQ(editor->Text(), "F,\t\t\r\nC,\t\t\r\nS1M2000,\t\t\r\nR\r\n") << "stable";
    editor->SetText("F,R");
    editor->FormatCode(true);
    EXPECT_EQ(editor->Text(),
              "F,\t\t;KDX Online with Echo Off\r\nR\t\t;Run the current program\r\n");

    editor->AskFormat = [] { return std::optional<bool>(); }; // No: nothing changes
    editor->SetText("C,R");
    editor->PicCodeFormatButton_MouseDown();
    EXPECT_EQ(editor->Text(), "C,R");
}

TEST_F(ScriptsFixture, TestingAScriptFollowsItsEnding) {
    editor->SetText("S1M2000,\r\nI1M400,\r\nR,");
    const auto sent = sentBy([&] { editor->PicTestScript_MouseDown(); });
    EXPECT_EQ(sent, "C,S1M2000,\r\nI1M400,\r\nR") << "the R branch: no run of its own";
    EXPECT_EQ(traffic.find(" # R\r\n"), std::string::npos);

    editor->SetText("I1M400");
    EXPECT_TRUE(driverRan([&] { editor->PicTestScript_MouseDown(); })) << "run and wait";
}

TEST_F(ScriptsFixture, SavingIsTiedToTheOpenPortAndNamesEndInTxt) {
    editor->SetText("C,R");
    prompts.asked.clear();
    setPort()->ChkPortOpen()->setChecked(false);
    editor->PicSaveScript_MouseDown();
    EXPECT_TRUE(prompts.asked.empty()) << "no dialogue with the port closed";
    setPort()->ChkPortOpen()->setChecked(true);

    ASSERT_TRUE(writeFileAtomically(folder.file("a.b.txt"), "old"));
    editor->SetText("C,S1M20,\r\nR");
    prompts.saves = {folder.file("a.txt.b"), std::nullopt, folder.file("report.txt")};
    editor->PicSaveScript_MouseDown();
    EXPECT_EQ(readWholeFile(folder.file("a.b.txt")), "C,S1M20,\r\nR") << "replaced whole";
    editor->PicSaveScript_MouseDown(); // cancelled: nothing
    editor->PicSaveScript_MouseDown();
    EXPECT_EQ(readWholeFile(folder.file("report.txt")), "C,S1M20,\r\nR");
    EXPECT_FALSE(readWholeFile(folder.file("report.txt.txt")));
}

TEST_F(ScriptsFixture, BadScriptFilesAreExplainedAndTheEditorKeepsItsText) {
    editor->SetText("C,R");
    ASSERT_TRUE(writeFileAtomically(folder.file("empty.txt"), ""));
    ASSERT_TRUE(writeFileAtomically(folder.file("huge.txt"), std::string(5 * 1024 * 1024, 'C')));
    ASSERT_TRUE(writeFileAtomically(folder.file("lf.txt"), "C\nS1M20\r\nR\n"));
    prompts.files = {folder.file("empty.txt"), folder.file("huge.txt"), folder.file("missing.txt"),
                     std::nullopt};
    for (int i = 0; i < 4; ++i) {
        prompts.asked.clear();
        OpenScriptForEditing();
        EXPECT_EQ(editor->Text(), "C,R") << i;
        EXPECT_EQ(prompts.asked.size(), i == 3 ? 1u : 2u) << "a message for each bad file";
    }
    prompts.files = {folder.file("lf.txt")};
    OpenScriptForEditing();
    EXPECT_EQ(editor->Text(), "C,\t\t\r\nS1M20,\t\t\r\nR\r\n");
}

TEST_F(ScriptsFixture, TransferSendsTheFormattedScriptOnlyWithThePortOpen) {
    ASSERT_TRUE(writeFileAtomically(folder.file("s.txt"), "C, ;clear\r\nS1M2000\r\nR\r\n"));
    ASSERT_TRUE(writeFileAtomically(folder.file("e.txt"), "C,\r\nS1M2\xE9\r\n"));
    prompts.files = {folder.file("s.txt"), folder.file("e.txt")};
    EXPECT_EQ(sentBy([] { TransferScript(); }), "C,\rS1M2000,\rR\r");
    EXPECT_EQ(sentBy([] { TransferScript(); }), "") << "nothing sent half way";
    setPort()->ChkPortOpen()->setChecked(false);
    prompts.asked.clear();
    TransferScript();
    EXPECT_TRUE(prompts.asked.empty()) << "no dialogue with the port closed";
}

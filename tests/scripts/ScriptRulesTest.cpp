#include "scripts/ScriptText.h"
#include "scripts/TerminalSend.h"

#include <gtest/gtest.h>

using namespace korval;

TEST(TerminalSend, TheSendingTable) {
    using A = LinkAction;
    const struct {
        const char* typed;
        const char* sent;
        std::vector<LinkAction> actions;
    } cases[] = {
        {"R,", "R", {}},
        {"C,S1M2000,I1M400,R\r\n", "C,S1M2000,I1M400,R", {}},
        {"C,\r\nR\r", "C,\r\nR", {}},
        {"getD0,", "getD0,\r", {}},
        {"Q", "Q\r", {A::BringOffline}},
        {"K,Q,F", "K,Q,F\r", {A::BringOnline, A::BringOffline}},
        {"E,F,G", "E,F,G\r", {A::BringOnline, A::BringOnline, A::BringOnline}},
        {"setI7", "setI7\r", {}},
        {"C,\t\tS1M20 ;Echo", "C,S1M20 ;Echo\r", {A::BringOnline}},
        {"C,setI7,rsm,", "C,setI7,rsm\r", {}},
        {"C,\r\nsetI7,\r\nrsm\r\n", "C,\r\nsetI7,\r\nrsm\r", {}},
        {"", "\r", {}},
        {"getD0,\t", "getD0,\r", {}},
        {"C,I1M400,R,\r\n", "C,I1M400,R", {}},
        {"R\r\nR\r\n", "RR", {}},
        {"C,setI7,rsm\r\nQ", "C,setI7,rsmQ\r", {A::BringOffline}},
        {"C,setI7,rsm ;Go", "C,setI7,rsm ;Go\r", {A::BringOnline}},
        {"C,I1M400,R\t,", "C,I1M400,R", {}}, // tabs go before the rewrites look
        {"C,setI7,rsm\t\r\n", "C,setI7,rsm\r", {}},
    };
    for (const auto& c : cases) {
        const auto plan = PlanTerminalSend(c.typed);
        EXPECT_EQ(plan.toSend, c.sent) << c.typed;
        EXPECT_EQ(plan.actions, c.actions) << c.typed;
    }
}

namespace {

// Stands in for the commands library: one command a line, a marker for the flag.
std::string fakeFormat(const std::string& text, int flag) {
    std::string out;
    std::string item;
    for (const char c : text + "\r") {
        if (c == ',' || c == '\r' || c == '\n') {
            if (!item.empty()) {
                out += item + (item == "R" ? "" : ",") + (flag == 1 ? ";c" : "") + "\r";
            }
            item.clear();
        } else {
            item += c;
        }
    }
    return out;
}

} // namespace

TEST(ScriptText, EditorLayoutTransferAndReformat) {
    EXPECT_EQ(OpenForEdit("C,S1M20\r\nR\r\n", fakeFormat), "C,\t\t\r\nS1M20,\t\t\r\nR\r\n");
    EXPECT_EQ(OpenForEdit("C\nR", fakeFormat), "C,\t\t\r\nR\r\n") << "LF-only files too";
    EXPECT_EQ(ForTransfer("C,S1M20\r\nR", fakeFormat), "C,\rS1M20,\rR\r");
    EXPECT_EQ(Reformat("C,R", true, fakeFormat), "C,\t\t;c\r\nR\t\t;c\r\n")
        << "two tabs before every comment, also where no comma ends the command";
    EXPECT_EQ(ForEditor("S2M-19,;speed, unknown\rrsm;store\r"),
              "S2M-19,\t\t;speed,\t\t unknown\r\nrsm\t\t;store\r\n")
        << "a comma inside a comment gets its two tabs too";
    std::string seen;
    const Formatter spy = [&](const std::string& t, int) {
        seen = t;
        return std::string();
    };
    Reformat("C,R\r", false, spy);
    EXPECT_EQ(seen, "C,R\r") << "a final CR is not doubled";
    Reformat("C,R", false, spy);
    EXPECT_EQ(seen, "C,R\r");
}

TEST(ScriptText, TheTestBranchFollowsTheRewrittenEnding) {
    using E = ScriptTest::Ending;
    const struct {
        const char* text;
        E ending;
    } cases[] = {
        {"C,setI7,rsm", E::Store}, {"C,setI7,rsm,\r\n", E::Store}, {"C,I1M400,R", E::Run},
        {"C,I1M400,R,", E::Run},   {"C,I1M400,R\r\n", E::Run},     {"C,I1M400", E::Neither},
        {"", E::Neither}};
    for (const auto& c : cases) {
        EXPECT_EQ(PlanScriptTest(c.text).ending, c.ending) << c.text;
    }
}

TEST(ScriptText, FileNamesAndFileProblems) {
    const struct {
        const char* chosen;
        const char* saved;
    } names[] = {{"report", "report.txt"},
                 {"report.txt", "report.txt"},
                 {"a.txt.b", "a.b.txt"},
                 {"x.txt.txt", "x.txt"}};
    for (const auto& n : names) {
        EXPECT_EQ(TxtFileName(n.chosen), n.saved);
    }
    EXPECT_NE(ScriptFileProblem(std::nullopt, "/x/a.txt"), "");
    EXPECT_EQ(ScriptFileProblem(std::string(""), "/x/a.txt"),
              "The file /x/a.txt holds no commands.");
    EXPECT_NE(ScriptFileProblem(std::string(5 * 1024 * 1024, 'C'), "/x/a.txt"), "");
    EXPECT_EQ(ScriptFileProblem(std::string("C,R"), "/x/a.txt"), "");
    EXPECT_EQ(ScriptFileProblem(std::string("C,S1M2\0\0,R", 10), "/x/a.txt"),
              "The file /x/a.txt holds a NUL byte (at byte 7), so it is not a text script. It "
              "was not opened.");
    EXPECT_TRUE(HasNonAscii("C,\xE9R"));
    EXPECT_FALSE(HasNonAscii("C,R\r\n"));
}

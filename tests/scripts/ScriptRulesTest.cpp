#include "core/ClsReadWriteFile.h"
#include "scripts/ScriptText.h"
#include "scripts/TerminalLog.h"
#include "scripts/TerminalSend.h"
#include "scripts/TerminalTranscript.h"
#include "support/TempFolder.h"

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

TEST(TerminalTranscript, EachViewOfOneSession) {
    TerminalTranscript t;
    t.Observe("KDX\r", "10:00:00.000");
    t.Sent("getD0,\r", "10:00:01.000");
    t.Observe("KDX\r1.2", "10:00:01.100");
    t.Observe("KDX\r1.22\r\xCB"
              "B",
              "10:00:01.200");
    const struct {
        TerminalView view;
        const char* shown;
    } cases[] = {
        {{.times = true},
         "10:00:00.000 KDX\n10:00:01.100 1.22\n10:00:01.200 \xCB"
         "B"},
        {{.sent = true},
         "< KDX\n> getD0,\n< 1.22\n< \xCB"
         "B"},
        {{.codes = true}, "KDX<CR>\n1.22<CR>\n<CB>B"},
        {{.sent = true, .times = true, .codes = true},
         "10:00:00.000 < KDX<CR>\n10:00:01.000 > getD0,<CR>\n10:00:01.100 < 1.22<CR>\n"
         "10:00:01.200 < <CB>B"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(t.Render(c.view), c.shown);
    }
}

TEST(TerminalTranscript, LinesEndAtCrLfOrCrLfAndSendingBeginsALine) {
    const struct {
        std::vector<std::pair<char, std::string>> steps; // 'r' the terminal now holds, 's' sent
        const char* lines;                               // with sent and codes shown
    } cases[] = {
        {{{'r', "a\r"}, {'r', "a\r\n"}, {'r', "a\r\nb"}}, "< a<CR><LF>\n< b"}, // CR LF apart
        {{{'r', "a\n\nb\r\r"}}, "< a<LF>\n< <LF>\n< b<CR>\n< <CR>\n"},
        {{{'r', "ab"}, {'s', "R"}, {'s', "R"}, {'r', "abc"}}, "< ab\n> R\n> R\n< c"},
        {{{'s', "C,\r\nR"}}, "> C,<CR><LF>\n> R"},
        {{{'r', "x"}, {'r', ""}, {'r', "y"}}, "< xy"}, // emptied between two looks
    };
    for (const auto& c : cases) {
        TerminalTranscript t;
        for (const auto& [kind, text] : c.steps) {
            kind == 'r' ? t.Observe(text, "t") : t.Sent(text, "t");
        }
        EXPECT_EQ(t.Render({.sent = true, .codes = true}), c.lines);
    }
}

TEST(TerminalTranscript, OnlyWhatIsNewInTheDriversTextCounts) {
    const std::string tail(300, 'x');
    const struct {
        std::string before, now, fresh;
    } cases[] = {
        {"", "abc", "abc"},
        {"abc", "abcde", "de"},
        {"abc", "abc", ""},
        {"abc", "xyz", "xyz"},               // cleared and filled again
        {"old" + tail, tail + "new", "new"}, // the driver kept its tail
        {"old" + tail, tail.substr(0, 200) + "new", tail.substr(0, 200) + "new"}, // too short
        {std::string(400, 'a'), std::string(300, 'a') + "b", "b"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NewTerminalBytes(c.before, c.now), c.fresh) << c.before.size() << c.now;
    }
    EXPECT_EQ(WithCodes(std::string("\0\t\x7F\xFF~ \x1B", 7)), "<00><TAB><7F><FF>~ <1B>");
}

TEST(TerminalTranscript, ALineWithoutEndIsCutAndTheOldestLinesGo) {
    TerminalTranscript t(20, 8);
    std::vector<std::string> done;
    t.OnLineDone([&](const TranscriptLine& line) { done.push_back(line.bytes); });
    t.Observe(std::string(30, 'x'), "t");
    EXPECT_EQ(t.Render({.times = true}), "t xxxxxxxx\nt xxxxxx");
    EXPECT_EQ(done, std::vector<std::string>(3, "xxxxxxxx")) << "each piece passed on once";
}

TEST(TerminalLog, SessionsAreAddedNeverReplaced) {
    TempFolder folder;
    const auto path = folder.file("log.txt");
    TerminalLog log;
    const TranscriptLine line{Direction::Sent, "10:00:00.200", "getD0,\r", true};
    std::vector<std::string> texts;
    for (int session = 0; session < 2; ++session) {
        ASSERT_TRUE(log.Open(path, std::chrono::system_clock::now()));
        EXPECT_TRUE(log.Write(line));
        log.Close();
        texts.push_back(readWholeFile(path).value_or(""));
    }
    EXPECT_TRUE(texts[0].starts_with("---- KDX Terminal, ")) << texts[0];
    EXPECT_TRUE(texts[0].ends_with(" ----\r\n10:00:00.200 > getD0,<CR>\r\n")) << texts[0];
    EXPECT_TRUE(texts[1].starts_with(texts[0]));
    EXPECT_EQ(texts[1].size(), 2 * texts[0].size());
    EXPECT_FALSE(log.Open(folder.file("no/such/folder/log.txt"), std::chrono::system_clock::now()));
    EXPECT_NE(log.Problem(), "");
}

#include "core/AtomicFile.h"
#include "core/ClsIniFile.h"
#include "core/ClsReadWriteFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace korval;

namespace {

const std::string EndLine(79, '=');

struct IniFixture : ::testing::Test {
    TempFolder dir;
    std::string file = dir.file("KORVAL Settings.ini");
    ClsIniFile ini;

    std::string bytes() const { return readWholeFile(file).value_or("<missing>"); }
    void put(const std::string& text) const { ASSERT_TRUE(writeFileAtomically(file, text)); }
};

} // namespace

TEST_F(IniFixture, RoundTripOfEveryKindOfItem) {
    ASSERT_TRUE(ini.ProfileSaveItem("MdiKorval", "MdiKorval.Top", "1200", file));
    ASSERT_TRUE(ini.ProfileSaveItem("MdiKorval", "\tMnuToolsSetUpAxis3.Enabled", "True", file));
    ASSERT_TRUE(ini.ProfileSaveItem("FrmKdxToolSetPort", "\tCmbSerialPort.ListIndex", "-1", file));
    ASSERT_TRUE(ini.ProfileSaveItem("FrmKdxToolSetPort", "\tChkPortOpen.Value", "1", file));
    ASSERT_TRUE(ini.ProfileSaveItem("FrmKdxToolTerminal", "\tTxtSend.Text", "C,\r\nR", file));
    ASSERT_TRUE(ini.ProfileSaveItem("FrmKdxToolSetPort", "", EndLine, file));

    EXPECT_EQ(bytes(), "[MdiKorval]\r\n"
                       "MdiKorval.Top=1200\r\n"
                       "\tMnuToolsSetUpAxis3.Enabled=True\r\n"
                       "[FrmKdxToolSetPort]\r\n"
                       "\tCmbSerialPort.ListIndex=-1\r\n"
                       "\tChkPortOpen.Value=1\r\n"
                       "=" +
                           EndLine +
                           "\r\n"
                           "[FrmKdxToolTerminal]\r\n"
                           "\tTxtSend.Text=C,\r\n"
                           "\t\tR\r\n");

    ClsIniFile fresh; // no cached copy: everything comes from the file
    const struct {
        const char* section;
        const char* key;
        const char* value;
    } reads[] = {
        {"MdiKorval", "MdiKorval.Top", "1200"},
        {"mdikorval", "  MNUTOOLSSETUPAXIS3.ENABLED", "True"},
        {"FrmKdxToolSetPort", "CmbSerialPort.ListIndex", "-1"},
        {" FRMKDXTOOLSETPORT", "chkportopen.value", "1"},
        {"FrmKdxToolTerminal", "TxtSend.Text",
         "C,"}, // a multi-line text comes back as its first line
        {"FrmKdxToolSetPort", "", EndLine.c_str()},
    };
    for (const auto& r : reads) {
        EXPECT_EQ(fresh.ProfileGetItem(r.section, r.key, "dflt", file), r.value)
            << r.section << "/" << r.key;
    }
    EXPECT_EQ(fresh.ProfileGetItem("MdiKorval", "Missing", "dflt", file), "dflt");
    EXPECT_EQ(fresh.ProfileGetItem("Missing", "MdiKorval.Top", "", file), "");
}

TEST_F(IniFixture, ReplacesAnItemInPlaceAndDeletesItemsAndSections) {
    ini.ProfileSaveItem("A", "k1", "1", file);
    ini.ProfileSaveItem("A", "k2", "two\r\nlines", file);
    ini.ProfileSaveItem("B", "k", "b", file);
    ini.ProfileSaveItem("a", "K2", "2", file);
    EXPECT_EQ(bytes(), "[A]\r\nk1=1\r\nK2=2\r\n[B]\r\nk=b\r\n");
    ini.ProfileDeleteItem("A", "k1", file);
    EXPECT_EQ(bytes(), "[A]\r\nK2=2\r\n[B]\r\nk=b\r\n");
    ini.ProfileDeleteSection("a", file);
    EXPECT_EQ(bytes(), "[B]\r\nk=b\r\n");
    EXPECT_EQ(ini.ProfileGetItem("A", "K2", "", file), "");
}

TEST_F(IniFixture, ATextThatLooksLikeSectionsAndKeysChangesNothingElse) {
    ini.ProfileSaveItem("Run", "Times", "3", file);
    ini.ProfileSaveItem("FrmKdxToolTerminal", "\tTxtSend.Text",
                        "first\r\n[Run]\r\nTimes=99\nTxtSend.Text=evil\r[Other]\r\nx=1", file);
    ini.ProfileSaveItem("FrmKdxToolTerminal", "\tTxtOther.Text", "kept", file);
    ClsIniFile fresh;
    EXPECT_EQ(fresh.ProfileGetItem("Run", "Times", "", file), "3");
    EXPECT_EQ(fresh.ProfileGetItem("FrmKdxToolTerminal", "TxtSend.Text", "", file), "first");
    EXPECT_EQ(fresh.ProfileGetItem("FrmKdxToolTerminal", "TxtOther.Text", "", file), "kept");
    EXPECT_EQ(fresh.ProfileGetItem("Other", "x", "none", file), "none");
}

TEST_F(IniFixture, DamagedFilesReadWithoutHarmAndTheNextSaveWritesThemClean) {
    const std::string binary("junk\0\xFF\x01 line", 12);
    const std::string longValue(1024 * 1024, 'v');
    put(binary +
        "\r"
        "[Dup]\n"
        "Key=first\r"
        "key=second\r\n"
        "[NoEnd\n"
        "inside=1\r\n"
        "[Dup]\r\n"
        "Key=third\r\n"
        "Later=only here\r\n"
        "Big=" +
        longValue);
    EXPECT_EQ(ini.ProfileGetItem("Dup", "KEY", "", file), "first");
    EXPECT_EQ(ini.ProfileGetItem("Dup", "Later", "", file), "only here");
    EXPECT_EQ(ini.ProfileGetItem("NoEnd", "inside", "", file), "1");
    EXPECT_EQ(ini.ProfileGetItem("Dup", "Big", "", file).size(), ClsIniFile::ReadLimit);

    ASSERT_TRUE(ini.ProfileSaveItem("Dup", "New", "n", file));
    const std::string clean = binary + "\r\n"
                                       "[Dup]\r\n"
                                       "Key=first\r\n"
                                       "New=n\r\n"
                                       "Later=only here\r\n"
                                       "Big=";
    const auto saved = bytes();
    EXPECT_EQ(saved.substr(0, clean.size()), clean);
    EXPECT_EQ(saved.substr(clean.size() + longValue.size()), "\r\n[NoEnd]\r\ninside=1\r\n");
}

TEST_F(IniFixture, AFailedSaveReportsFailureAndKeepsTheOldFile) {
    ini.ProfileSaveItem("Run", "Times", "1", file);
    const auto missingFolder = dir.file("gone/KORVAL Settings.ini");
    EXPECT_FALSE(ini.ProfileSaveItem("Run", "Times", "2", missingFolder));
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "", file), "1");
}

TEST_F(IniFixture, SeesChangesMadeToTheFileBehindItsBack) {
    ini.ProfileSaveItem("Run", "Times", "1", file);
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "", file), "1");
    put("[Run]\r\nTimes=7\r\n");
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "", file), "7");
}

TEST_F(IniFixture, CheckFirstRunCountsTheRuns) {
    EXPECT_TRUE(ini.CheckFirstRun(file)) << "missing file";
    EXPECT_EQ(bytes(), "[Run]\r\nTimes=0\r\n");
    EXPECT_FALSE(ini.CheckFirstRun(file));
    EXPECT_FALSE(ini.CheckFirstRun(file));
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "", file), "2");

    put("[Run]\r\nTimes=\r\n");
    EXPECT_TRUE(ini.CheckFirstRun(file)) << "an empty count is a first run however often";
    put("[Run]\r\nTimes=  41  \r\n");
    EXPECT_FALSE(ini.CheckFirstRun(file));
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "", file), "42");
}

TEST_F(IniFixture, ABatchWritesTheFileOnceAtItsEnd) {
    ini.ProfileSaveItem("Run", "Times", "1", file);
    ini.BeginBatch();
    ini.ProfileDeleteSection("W", file);
    for (int i = 0; i < 100; ++i) {
        ini.ProfileSaveItem("W", "\tC" + std::to_string(i) + ".Value", std::to_string(i), file);
    }
    EXPECT_EQ(ini.ProfileGetItem("W", "C42.Value", "", file), "42") << "reads see the batch";
    EXPECT_EQ(bytes(), "[Run]\r\nTimes=1\r\n") << "nothing written yet";
    ASSERT_TRUE(ini.EndBatch());
    ClsIniFile fresh;
    EXPECT_EQ(fresh.ProfileGetItem("W", "C99.Value", "", file), "99");
    EXPECT_EQ(fresh.ProfileGetItem("Run", "Times", "", file), "1");
}

TEST_F(IniFixture, SavingKeepsEveryItemThatReadingFound) {
    const struct {
        const char* file;
        const char* section;
        const char* key;
        const char* value;
    } cases[] = {
        {"[A]\r\nx=1\r\n[A]\r\n\t\ty=2\r\n", "A", "y", "2"},
        {"[A]\r\nx=1\r\n[a]\r\n\t\t\tY =3\r\n\t\tmore\r\n", "A", "y", "3"},
        {"[A]\r\nx=1\r\n\t\tmore\r\n[B]\r\nb=1\r\n[A]\r\n\t\ty=2\r\n", "A", "y", "2"},
    };
    for (const auto& c : cases) {
        put(c.file);
        ClsIniFile fresh;
        ASSERT_EQ(fresh.ProfileGetItem(c.section, c.key, "", file), c.value) << c.file;
        ASSERT_TRUE(fresh.ProfileSaveItem("Other", "k", "v", file));
        ClsIniFile after;
        EXPECT_EQ(after.ProfileGetItem(c.section, c.key, "", file), c.value)
            << c.file << "\nsaved as:\n"
            << bytes();
    }
}

TEST_F(IniFixture, AReadOnlyFileIsNotReplacedAndTheUserIsToldOnce) {
    put("[Run]\r\nTimes=4\r\n");
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_EQ(ini.TakeProblem(), "");
    EXPECT_FALSE(ini.CheckFirstRun(file));
    EXPECT_FALSE(ini.ProfileSaveItem("Run", "Times", "9", file));
    EXPECT_EQ(bytes(), "[Run]\r\nTimes=4\r\n");
    const auto problem = ini.TakeProblem();
    EXPECT_NE(problem.find("could not be saved"), std::string::npos) << problem;
    EXPECT_NE(problem.find(file), std::string::npos) << problem;
    EXPECT_NE(problem.find("read-only"), std::string::npos) << problem;
    EXPECT_EQ(ini.TakeProblem(), "") << "told once";
    ini.BeginBatch();
    ini.ProfileSaveItem("W", "k", "v", file);
    EXPECT_FALSE(ini.EndBatch());
    EXPECT_EQ(ini.TakeProblem(), "") << "the same failure is not told again";
}

TEST_F(IniFixture, AFirstRunOnAFullDiskLeavesNoEmptySettingsFile) {
    put(""); // created empty at start-up, as a missing file is
    // Writing past the size limit fails as a full disk does; the limit is lifted at the end.
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit none = old;
    none.rlim_cur = 0;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
    const bool firstRun = ini.CheckFirstRun(file);
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_TRUE(firstRun);
    EXPECT_EQ(dir.names(), std::vector<std::string>{}) << "no empty file, no temporary file";
    EXPECT_NE(ini.TakeProblem().find("File too large"), std::string::npos);
    EXPECT_TRUE(ini.CheckFirstRun(file)) << "the next start is a first run again";
    EXPECT_EQ(bytes(), "[Run]\r\nTimes=0\r\n");
}

TEST_F(IniFixture, AFileFarLargerThanAnyTheProgramWritesIsSetAside) {
    std::string junk;
    while (junk.size() <= ClsIniFile::LargestFile) {
        junk += "junk line without an equals sign\r\n[Run]\r\nTimes=5\r\n";
    }
    put(junk);
    EXPECT_EQ(ini.ProfileGetItem("Run", "Times", "none", file), "none");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"KORVAL Settings.ini.too-large"});
    EXPECT_EQ(readWholeFile(dir.file("KORVAL Settings.ini.too-large")), junk) << "kept whole";
    const auto problem = ini.TakeProblem();
    EXPECT_NE(problem.find("set aside as " + file + ".too-large"), std::string::npos) << problem;
    EXPECT_TRUE(ini.CheckFirstRun(file));

    put(junk); // a second one does not replace the first
    ClsIniFile fresh;
    EXPECT_EQ(fresh.ProfileGetItem("Run", "Times", "none", file), "none");
    EXPECT_EQ(dir.names(), (std::vector<std::string>{"KORVAL Settings.ini.too-large",
                                                     "KORVAL Settings.ini.too-large-2"}));
}

TEST_F(IniFixture, TemporaryFilesOfAKilledSaveAreClearedAtTheNextStart) {
    const pid_t gone = ::fork();
    if (gone == 0) {
        ::_exit(0);
    }
    ASSERT_GT(gone, 0);
    ::waitpid(gone, nullptr, 0);
    const auto dead = file + ".tmp" + std::to_string(gone) + "-0";
    const auto live = file + ".tmp" + std::to_string(::getppid()) + "-3";
    put("[Run]\r\nTimes=1\r\n");
    ASSERT_TRUE(writeFileAtomically(dead, "half"));
    ASSERT_TRUE(writeFileAtomically(live, "in progress"));
    ASSERT_TRUE(writeFileAtomically(dir.file("other.ini.tmp1-0"), "not ours"));
    ASSERT_TRUE(writeFileAtomically(file + ".tmpx-0", "not a save's name"));
    EXPECT_EQ(RemoveLeftoverTemporaries(file), 1);
    EXPECT_EQ(dir.names(), (std::vector<std::string>{
                               "KORVAL Settings.ini",
                               "KORVAL Settings.ini.tmp" + std::to_string(::getppid()) + "-3",
                               "KORVAL Settings.ini.tmpx-0", "other.ini.tmp1-0"}));
}

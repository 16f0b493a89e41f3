#include "core/AtomicFile.h"
#include "core/ClsIniFile.h"
#include "core/ClsReadWriteFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

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
    const std::string longValue(10 * 1024 * 1024, 'v');
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

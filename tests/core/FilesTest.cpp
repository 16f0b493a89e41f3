#include "core/AtomicFile.h"
#include "core/ClsFileFolder.h"
#include "core/ClsReadWriteFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace korval;

TEST(AtomicFile, WithoutCommitTheOldFileStaysAndNoTemporaryIsLeft) {
    TempFolder dir;
    const auto path = dir.file("settings.ini");
    ASSERT_TRUE(writeFileAtomically(path, "old"));
    {
        AtomicFile file(path);
        ASSERT_TRUE(file.open());
        ASSERT_TRUE(file.write("new text that never lands"));
    } // dropped between write and rename
    EXPECT_EQ(readWholeFile(path), "old");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"settings.ini"});
}

TEST(AtomicFile, AProcessKilledBetweenWriteAndRenameLeavesTheOldFile) {
    TempFolder dir;
    const auto path = dir.file("settings.ini");
    ASSERT_TRUE(writeFileAtomically(path, "old"));
    const pid_t child = fork();
    if (child == 0) {
        AtomicFile file(path);
        if (file.open() && file.write(std::string(100000, 'x'))) {
            ::_exit(0); // dies with the temporary written, before the rename
        }
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readWholeFile(path), "old");
}

TEST(AtomicFile, AFullDiskFailsTheSaveAndKeepsTheOldFile) {
    TempFolder dir;
    const auto path = dir.file("report.txt");
    ASSERT_TRUE(writeFileAtomically(path, "old"));
    const pid_t child = fork();
    if (child == 0) {
        // A file size limit makes the write fail as a full disk would.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(writeFileAtomically(path, std::string(5000, 'x')) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the save must report failure";
    EXPECT_EQ(readWholeFile(path), "old");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"report.txt"});
}

TEST(AtomicFile, KeepsThePermissionsOfTheFileItReplaces) {
    TempFolder dir;
    const auto path = dir.file("script.txt");
    ASSERT_TRUE(writeFileAtomically(path, "1"));
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    ASSERT_TRUE(writeFileAtomically(path, "2"));
    struct stat st {};
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0640u);
}

TEST(ClsReadWriteFile, WritesReadsAndAppendsWholeTexts) {
    TempFolder dir;
    const auto path = dir.file("a.txt");
    ClsReadWriteFile files;
    ASSERT_TRUE(files.CreateOutputFile(path));
    ASSERT_TRUE(files.WriteToOutputFile("C,\r\n"));
    ASSERT_TRUE(files.WriteToOutputFile(std::string("\xCB"
                                                    "B\0x",
                                                    4)));
    EXPECT_FALSE(readWholeFile(path)) << "nothing lands before the close";
    ASSERT_TRUE(files.CloseOutputFile());
    ASSERT_TRUE(files.CreateAppendFile(path));
    ASSERT_TRUE(files.WriteToAppendFile("R"));
    ASSERT_TRUE(files.CloseAppendFile());
    ASSERT_TRUE(files.OpenReadFile(path));
    EXPECT_EQ(files.ReadFromReadFile(), std::string("C,\r\n\xCB"
                                                    "B\0xR",
                                                    9));
    files.CloseReadFile();
    EXPECT_FALSE(files.ReadFromReadFile());
}

TEST(ClsReadWriteFile, ReportsWhatCannotBeOpened) {
    TempFolder dir;
    ClsReadWriteFile files;
    EXPECT_FALSE(files.OpenReadFile(dir.file("missing.txt")));
    EXPECT_FALSE(files.CreateOutputFile(dir.file("no/such/folder/out.txt")));
    EXPECT_FALSE(files.WriteToOutputFile("x"));
    EXPECT_FALSE(files.CloseOutputFile());
    EXPECT_FALSE(files.LastError().empty());
    EXPECT_FALSE(readWholeFile(dir.path())) << "a folder is no file";
}

TEST(ClsFileFolder, SplitsAndFormatsPaths) {
    const struct {
        const char* path;
        const char* formatted;
        const char* folder;
        const char* name;
    } cases[] = {
        {"/opt/korval/Driver/lib.so", "/opt/korval/Driver/lib.so/", "/opt/korval/Driver/",
         "lib.so"},
        {"/opt/korval/", "/opt/korval/", "/opt/korval/", ""},
        {"lib.so", "lib.so/", "", "lib.so"},
        {"", "/", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ClsFileFolder::FormatPath(c.path), c.formatted);
        EXPECT_EQ(ClsFileFolder::GetPathOnly(c.path), c.folder);
        EXPECT_EQ(ClsFileFolder::GetFileNameOnly(c.path), c.name);
    }
}

TEST(ClsFileFolder, FindsTheShallowestFileAndMakesFolders) {
    TempFolder dir;
    ASSERT_TRUE(ClsFileFolder::MakeFolder(dir.file("b/deep/er")));
    ASSERT_TRUE(ClsFileFolder::MakeFolder(dir.file("a")));
    ASSERT_TRUE(writeFileAtomically(dir.file("b/deep/er/lib.so"), "deep"));
    ASSERT_TRUE(writeFileAtomically(dir.file("b/lib.so"), "shallow"));
    EXPECT_EQ(ClsFileFolder::FindFile("lib.so", dir.path()), dir.file("b/lib.so"));
    EXPECT_EQ(ClsFileFolder::FindFile("er", dir.path()), "") << "folders are not files";
    EXPECT_EQ(ClsFileFolder::FindFile("lib.so", dir.file("missing")), "");
    EXPECT_FALSE(ClsFileFolder::MakeFolder(dir.file("b/lib.so/sub")));
}

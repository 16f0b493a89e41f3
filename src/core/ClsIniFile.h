#pragma once
// The profile store over "KORVAL Settings.ini": one item at a time, each save replacing the
// file atomically. A parsed copy of the file is kept while the file on disk is unchanged, so
// the settings walker's hundreds of reads at start-up parse the file once.
//
// Failures never stop the program; they are kept, in words for the user, until the window
// program takes them with TakeProblem: a save that failed (read-only file, full disk) and why,
// or a file far larger than any the program writes, which is set aside unread.
#include "IniDocument.h"

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace korval {

class ClsIniFile {
public:
    // Room for 2048 characters with the terminating zero: a longer value comes back cut.
    static constexpr std::size_t ReadLimit = 2047;
    // The program writes well under 2 MB even with the script editor and the terminal full; a
    // larger file is not its own and is renamed to "<file>.too-large" instead of being read.
    static constexpr long long LargestFile = 8LL * 1024 * 1024;

    // False when the file could not be replaced; the old file is then untouched.
    bool ProfileSaveItem(std::string_view section, std::string_view key, std::string_view value,
                         const std::string& file);
    std::string ProfileGetItem(std::string_view section, std::string_view key,
                               std::string_view defaultValue, const std::string& file);
    bool ProfileDeleteItem(std::string_view section, std::string_view key, const std::string& file);
    bool ProfileDeleteSection(std::string_view section, const std::string& file);

    // Counts the runs in "Run"/"Times" as a side effect: true only when no count was there yet.
    bool CheckFirstRun(const std::string& file);

    // Between these two, saves change only the copy in memory, and EndBatch writes the file
    // once: the settings walker saves hundreds of items at shutdown.
    void BeginBatch();
    bool EndBatch();

    // The first problem since the last call, for the user; empty when there was none. A
    // problem already taken is not reported again, so a disk that stays full is told once.
    std::string TakeProblem();

private:
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = -1;
        long long mtimeNs = -1;
        bool operator==(const Identity&) const = default;
    };
    static Identity identityOf(const std::string& file);
    IniDocument& load(const std::string& file);
    bool store(const std::string& file);
    bool writeOut(const std::string& file);
    void setAside(const std::string& file, long long size);
    void report(std::string problem);

    bool batch_ = false;
    bool dirty_ = false;
    std::string cachedFile_;
    Identity cachedIdentity_;
    IniDocument cached_;
    std::string problem_;
    std::vector<std::string> told_;
};

} // namespace korval

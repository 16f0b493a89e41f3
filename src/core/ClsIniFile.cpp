#include "ClsIniFile.h"

#include "AtomicFile.h"
#include "ClsReadWriteFile.h"
#include "Numbers.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace korval {

ClsIniFile::Identity ClsIniFile::identityOf(const std::string& file) {
    struct stat st {};
    if (::stat(file.c_str(), &st) != 0) {
        return {};
    }
    return {st.st_dev, st.st_ino, st.st_size,
            static_cast<long long>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec};
}

IniDocument& ClsIniFile::load(const std::string& file) {
    if (dirty_) {
        if (file == cachedFile_) {
            return cached_; // the batch holds what the file will say
        }
        dirty_ = false; // another file: the batch's one is written out first
        writeOut(cachedFile_);
    }
    auto identity = identityOf(file);
    if (file != cachedFile_ || !(identity == cachedIdentity_) || identity.size < 0) {
        if (identity.size > LargestFile) {
            setAside(file, identity.size);
            identity = identityOf(file);
        }
        // A file that could not be set aside is still not read.
        const bool readable = identity.size >= 0 && identity.size <= LargestFile;
        const auto bytes = readable ? readWholeFile(file) : std::nullopt;
        cached_ = IniDocument::parse(bytes.value_or(std::string()));
        cachedFile_ = file;
        cachedIdentity_ = identity;
    }
    return cached_;
}

void ClsIniFile::setAside(const std::string& file, long long size) {
    const auto megabytes = std::to_string(size / (1024 * 1024)) + " MB";
    for (int n = 1; n <= 100; ++n) {
        const auto aside = file + ".too-large" + (n == 1 ? "" : "-" + std::to_string(n));
        std::error_code ec;
        if (std::filesystem::exists(aside, ec) || ec) {
            continue;
        }
        if (std::rename(file.c_str(), aside.c_str()) == 0) {
            report("The settings file " + file + " is " + megabytes +
                   ", far larger than any KORVAL writes, and was not read. It was set aside as " +
                   aside + "; KORVAL starts with its default settings.");
            return;
        }
        break;
    }
    report("The settings file " + file + " is " + megabytes +
           ", far larger than any KORVAL writes, and was not read. It could not be set aside (" +
           std::strerror(errno) + "); KORVAL starts with its default settings.");
}

void ClsIniFile::report(std::string problem) {
    if (!problem_.empty() || std::find(told_.begin(), told_.end(), problem) != told_.end()) {
        return;
    }
    problem_ = std::move(problem);
}

std::string ClsIniFile::TakeProblem() {
    if (!problem_.empty()) {
        told_.push_back(problem_);
    }
    return std::exchange(problem_, std::string());
}

bool ClsIniFile::store(const std::string& file) {
    cachedFile_ = file;
    if (batch_) {
        dirty_ = true;
        return true;
    }
    return writeOut(file);
}

bool ClsIniFile::writeOut(const std::string& file) {
    AtomicFile out(file);
    if (!(out.open() && out.write(cached_.serialize()) && out.commit())) {
        report("The settings could not be saved: " + out.error() + ".");
        // An empty settings file says no more than a missing one; it is not left behind.
        if (struct stat st{};
            ::stat(file.c_str(), &st) == 0 && S_ISREG(st.st_mode) && st.st_size == 0) {
            ::unlink(file.c_str());
        }
        cachedFile_.clear(); // the disk still holds the old text; read it again next time
        return false;
    }
    cachedFile_ = file;
    cachedIdentity_ = identityOf(file);
    return true;
}

void ClsIniFile::BeginBatch() {
    batch_ = true;
}

bool ClsIniFile::EndBatch() {
    batch_ = false;
    if (!dirty_) {
        return true;
    }
    dirty_ = false;
    return writeOut(cachedFile_);
}

bool ClsIniFile::ProfileSaveItem(std::string_view section, std::string_view key,
                                 std::string_view value, const std::string& file) {
    load(file).set(section, key, value);
    return store(file);
}

std::string ClsIniFile::ProfileGetItem(std::string_view section, std::string_view key,
                                       std::string_view defaultValue, const std::string& file) {
    auto value = load(file).get(section, key).value_or(std::string(defaultValue));
    if (value.size() > ReadLimit) {
        value.resize(ReadLimit);
    }
    return value;
}

bool ClsIniFile::ProfileDeleteItem(std::string_view section, std::string_view key,
                                   const std::string& file) {
    load(file).removeItem(section, key);
    return store(file);
}

bool ClsIniFile::ProfileDeleteSection(std::string_view section, const std::string& file) {
    load(file).removeSection(section);
    return store(file);
}

bool ClsIniFile::CheckFirstRun(const std::string& file) {
    const auto times = ProfileGetItem("Run", "Times", "", file);
    if (times.empty()) {
        ProfileSaveItem("Run", "Times", "0", file);
        return true;
    }
    ProfileSaveItem("Run", "Times", NumToText(Val(times) + 1), file);
    return false;
}

} // namespace korval

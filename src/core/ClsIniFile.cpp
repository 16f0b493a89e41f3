#include "ClsIniFile.h"

#include "AtomicFile.h"
#include "ClsReadWriteFile.h"
#include "Numbers.h"

#include <sys/stat.h>

namespace korval {

ClsIniFile::Identity ClsIniFile::identityOf(const std::string& file) {
    struct stat st {};
    if (::stat(file.c_str(), &st) != 0) {
        return {};
    }
    return {st.st_dev, st.st_ino, st.st_size,
            static_cast<long long>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec};
}

const IniDocument& ClsIniFile::load(const std::string& file) {
    if (dirty_ && file == cachedFile_) {
        return cached_; // the batch holds what the file will say
    }
    const auto identity = identityOf(file);
    if (file != cachedFile_ || !(identity == cachedIdentity_) || identity.size < 0) {
        cached_ = IniDocument::parse(readWholeFile(file).value_or(std::string()));
        cachedFile_ = file;
        cachedIdentity_ = identity;
    }
    return cached_;
}

bool ClsIniFile::store(const std::string& file, IniDocument doc) {
    if (batch_ && dirty_ && file != cachedFile_) {
        if (!EndBatch()) { // another file: the first one is written out now
            return false;
        }
        batch_ = true;
    }
    if (batch_) {
        cached_ = std::move(doc);
        cachedFile_ = file;
        dirty_ = true;
        return true;
    }
    if (!writeFileAtomically(file, doc.serialize())) {
        cachedFile_.clear(); // the disk still holds the old text; read it again next time
        return false;
    }
    cached_ = std::move(doc);
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
    return store(cachedFile_, cached_);
}

bool ClsIniFile::ProfileSaveItem(std::string_view section, std::string_view key,
                                 std::string_view value, const std::string& file) {
    auto doc = load(file);
    doc.set(section, key, value);
    return store(file, std::move(doc));
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
    auto doc = load(file);
    doc.removeItem(section, key);
    return store(file, std::move(doc));
}

bool ClsIniFile::ProfileDeleteSection(std::string_view section, const std::string& file) {
    auto doc = load(file);
    doc.removeSection(section);
    return store(file, std::move(doc));
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

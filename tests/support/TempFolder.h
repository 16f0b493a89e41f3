#pragma once
// A fresh folder for one test, removed with everything in it afterwards.
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <stdlib.h>

class TempFolder {
public:
    TempFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "korval-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    std::vector<std::string> names() const {
        std::vector<std::string> out;
        for (const auto& e : std::filesystem::directory_iterator(path_)) {
            out.push_back(e.path().filename().string());
        }
        std::sort(out.begin(), out.end());
        return out;
    }

private:
    std::string path_;
};

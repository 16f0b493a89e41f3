#include "MotorConfigsDocument.h"

#include <filesystem>

namespace korval {

std::optional<std::string> MotorConfigsDocument(const std::string& programFolder,
                                                Prompts& prompts) {
    const auto beside = programFolder + MotorConfigsFile;
    std::error_code ec;
    if (std::filesystem::is_regular_file(beside, ec)) {
        return beside;
    }
    auto chosen = prompts.OpenFile({"Locate 'All Possible Motor Configs.ini'",
                                    "Motor Files (*.ini)|*.ini|", programFolder, MotorConfigsFile});
    if (!chosen || chosen->empty()) {
        return std::nullopt;
    }
    return chosen;
}

} // namespace korval

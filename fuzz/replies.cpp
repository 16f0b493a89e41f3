// The reply readers, and the complete diagnostic over a fake driver whose every reply comes from
// the input: each query gets the next piece, pieces parted by a zero byte.
#include "diagnostics/FakeController.h"

#include "diagnostics/CommandLanguage.h"
#include "diagnostics/CompleteDiagnostic.h"
#include "formatter/CommandFormatter.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace korval;
using namespace korval::testing;

namespace {

void readEveryWay(const std::string& reply) {
    (void)kdx::WordBits(kdx::ReadWord(reply));
    (void)kdx::ReadMask(reply);
    (void)kdx::CrToCrLf(reply);
    (void)kdx::CountCodeFromReply(reply);
    (void)kdx::ListingForDisplay(reply);
    (void)kdx::SelectProgramAsRead(reply);
}

std::string runScan() {
    VirtualClock clock;
    ClsTimeDelay delay(clock);
    ClsDriverKdx driver(delay);
    driver.AttachTable(FakeTable());
    ClsKdxDiagnostic diagnostic(driver, delay, [](const std::string& text, int flag) {
        return formatCommands(text, flag == 1);
    });
    DiagnosticBoxes boxes;
    return RunCompleteDiagnostic(diagnostic, boxes).report;
}

// Every text the scan sends, found by one scan of a controller that never answers.
const std::vector<std::string>& queries() {
    static const std::vector<std::string> sent = [] {
        controller = {};
        runScan();
        std::set<std::string> unique;
        for (const auto& [text, at] : controller.sends) {
            unique.insert(text);
        }
        return std::vector<std::string>(unique.begin(), unique.end());
    }();
    return sent;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto& asked = queries();
    controller = {};
    std::size_t at = 0;
    for (const auto& query : asked) {
        const auto end = std::min(input.find('\0', at), input.size());
        const auto reply =
            std::string(input.substr(std::min(at, input.size()), end - std::min(at, input.size())));
        readEveryWay(reply);
        controller.replies[query] = reply;
        at = end + 1;
    }
    (void)runScan();
    return 0;
}

#include "AutoReversePreview.h"

#include "AutoReverseController.h"
#include "AutoReverseGenerator.h"

#include "core/MessageLog.h"

namespace korval {

namespace {

// The generator's few controller steps, on the preview's virtual controller.
class BenchController final : public AutoReverseController {
public:
    explicit BenchController(sim::PreviewBench& bench) : bench_(bench) {}
    bool Visible() override { return true; }
    void SendCommandsToPort(const std::string& commands) override { bench_.send(commands); }
    void RunKdxProgramAndWaitForFinish(std::int32_t seconds) override {
        bench_.runAndWait(seconds);
    }
    void WaitForCharacter(const std::string&, std::int32_t) override {}
    std::string GetCurrentMotorPosition(std::int32_t motor) override {
        return std::to_string(bench_.position(motor));
    }

private:
    sim::PreviewBench& bench_;
};

} // namespace

AutoReversePreview PreviewAutoReverse(const AutoReverseSettings& settings, const Formatter& format,
                                      const sim::PreviewOptions& options) {
    AutoReversePreview preview;
    sim::PreviewBench bench(options);
    BenchController controller(bench);
    MessageLog log([&preview](const std::string& title, const std::string& text) {
        preview.messages.push_back(title + ": " + text);
    });
    AutoReverseGenerator generator(log, format, &controller);
    generator.settings = settings;
    preview.program = generator.Generate(RunSaveAction::Test);
    bench.send(preview.program);
    preview.result = bench.follow(settings.CurrentMotor);
    return preview;
}

} // namespace korval

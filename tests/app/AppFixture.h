#pragma once
// A program folder of its own for each test, with the real libraries linked into its Driver
// folder, dialogues answered from a script, and the virtual controller on Com1 when a test asks.
#include "KorvalStartup.h"

#include "link/PortMap.h"
#include "link/ui/FrmKdxToolSetPort.h"
#include "sim/PtyHost.h"

#include "support/ScriptedPrompts.h"
#include "support/TempFolder.h"

#include <QCoreApplication>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace korval::test {

using testing::ScriptedPrompts;

struct AppFixture : ::testing::Test {
    TempFolder folder;
    ScriptedPrompts prompts;
    std::unique_ptr<KorvalStartup> program;
    KorvalServices* app = nullptr; // the running program's services and windows
    std::unique_ptr<sim::PtyHost> controller;

    void withDriverFolder() {
        std::filesystem::create_directory_symlink(KORVAL_DRIVER_DIR, folder.file("Driver"));
    }
    void withConfig() { std::filesystem::create_directories(folder.file("Config")); }
    std::string settingsFile() const { return folder.file("Config/KORVAL Settings.ini"); }
    void linkCom1(const std::string& device) const {
        PortMap(folder.file("ports")).registerPort(1, device);
    }
    // The virtual controller, with kdx-sim's option text, as Com1.
    void startController(const std::string& options = "") {
        sim::SimOptions o;
        std::string error;
        ASSERT_TRUE(sim::ParseSimOptions(options, o, error)) << error;
        controller = std::make_unique<sim::PtyHost>(o);
        ASSERT_TRUE(controller->start(error)) << error;
        linkCom1(controller->device());
    }
    // A program folder with both libraries and its settings folder, the controller on Com1.
    void installWithController(const std::string& options = "") {
        startController(options);
        withDriverFolder();
        withConfig();
    }
    void setSilent(bool silent) {
        controller->withChain([silent](sim::KdxChain& chain) { chain.setSilent(silent); });
    }

    // The driver library stays in the process between tests, and the previous test's shutdown
    // left its escape in force, as a shutdown does: lift it, as a new process would find it.
    static void freshDriver() {
        void* library = dlopen(KORVAL_DRIVER_DIR "/Tavrin KDX Serial Driver.so",
                               RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        if (library != nullptr) {
            reinterpret_cast<int32_t (*)()>(dlsym(library, "FunctionEscapeFalse"))();
            reinterpret_cast<int32_t (*)()>(dlsym(library, "ClosePort"))();
            dlclose(library);
        }
    }

    // A returning user unless a test is about the first run, on which the set-up wizard starts
    // and waits for its pages.
    bool firstRun = false;

    bool start() {
        if (!firstRun && std::filesystem::is_directory(folder.file("Config")) &&
            !std::filesystem::exists(settingsFile())) {
            std::ofstream(settingsFile(), std::ios::binary) << "[Run]\r\nTimes=1\r\n";
        }
        freshDriver();
        program = std::make_unique<KorvalStartup>(prompts, FoldersFor(folder.path()));
        app = &program->services();
        return program->Main();
    }
    void stop() {
        if (program) {
            program->Shutdown();
            QCoreApplication::processEvents();
            program.reset();
            app = nullptr;
            QCoreApplication::processEvents();
        }
    }
    FrmKdxToolSetPort* setPort() const { return app->Form<FrmKdxToolSetPort>("FrmKdxToolSetPort"); }
    void SetUp() override {
        // Ports resolve through this test's own map: Com1 is nowhere unless a test links it.
        qputenv("KORVAL_PORTS", QByteArray::fromStdString(folder.file("ports")));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.file("home")));
    }
    void TearDown() override {
        stop();
        controller.reset();
    }
};

} // namespace korval::test

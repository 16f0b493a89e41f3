#pragma once
// A program folder of its own for each test, with the real libraries linked into its Driver
// folder, and dialogues answered from a script.
#include "KorvalStartup.h"
#include "core/Prompts.h"

#include "link/ui/FrmKdxToolSetPort.h"

#include "support/TempFolder.h"

#include <QCoreApplication>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <memory>

namespace korval::test {

struct ScriptedPrompts : Prompts {
    std::deque<std::optional<std::string>> files;
    std::deque<std::optional<std::string>> saves;
    std::deque<Answer> answers;
    std::deque<std::string> inputs;
    std::vector<std::string> asked;
    std::vector<FileDialog> dialogs; // every file dialogue as it was asked

    Answer Message(const std::string& text, const std::string& title, Icon, Buttons) override {
        asked.push_back(title + ": " + text);
        if (answers.empty()) {
            return Answer::Ok;
        }
        auto a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::string> OpenFile(const FileDialog& d) override {
        asked.push_back("open " + d.title);
        dialogs.push_back(d);
        if (files.empty()) {
            return std::nullopt;
        }
        auto f = files.front();
        files.pop_front();
        return f;
    }
    std::optional<std::string> SaveFile(const FileDialog& d) override {
        asked.push_back("save " + d.title);
        dialogs.push_back(d);
        if (saves.empty()) {
            return std::nullopt;
        }
        auto f = saves.front();
        saves.pop_front();
        return f;
    }
    std::string InputBox(const std::string& prompt, const std::string& title) override {
        asked.push_back("input " + title + ": " + prompt);
        if (inputs.empty()) {
            return {};
        }
        auto i = inputs.front();
        inputs.pop_front();
        return i;
    }
};

struct AppFixture : ::testing::Test {
    TempFolder folder;
    ScriptedPrompts prompts;
    std::unique_ptr<KorvalStartup> program;
    KorvalServices* app = nullptr; // the running program's services and windows

    void withDriverFolder() {
        std::filesystem::create_directory_symlink(KORVAL_DRIVER_DIR, folder.file("Driver"));
    }
    void withConfig() { std::filesystem::create_directories(folder.file("Config")); }
    std::string settingsFile() const { return folder.file("Config/KORVAL Settings.ini"); }

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
    void TearDown() override { stop(); }
};

} // namespace korval::test

#include "ScriptText.h"

#include "TerminalSend.h"

#include "core/Text.h"

namespace korval {

namespace {

std::string crOnly(std::string text) {
    ReplaceAll(text, "\r\n", "\r");
    return text;
}

// Large enough for any program the controller can hold, many times over.
constexpr std::size_t LargestScript = 1024 * 1024;

} // namespace

std::string ForEditor(const std::string& formatted) {
    std::string text;
    text.reserve(formatted.size() + formatted.size() / 4);
    bool comment = false;
    char previous = '\0';
    for (const char c : formatted) {
        if (c == '\r') {
            text += "\r\n";
            comment = false;
        } else if (c == ',') {
            text += ",\t\t";
        } else if (c == ';' && !comment) {
            // The comment column: "R" and "rsm" end with no comma to bring the tabs.
            text += previous == ',' ? ";" : "\t\t;";
            comment = true;
        } else {
            text += c;
        }
        previous = c;
    }
    return text;
}

std::string OpenForEdit(const std::string& fileText, const Formatter& format) {
    return ForEditor(format(crOnly(fileText), 0));
}

std::string ForTransfer(const std::string& fileText, const Formatter& format) {
    return format(crOnly(fileText), 0);
}

std::string Reformat(std::string editorText, bool withComments, const Formatter& format) {
    if (editorText.empty() || editorText.back() != '\r') {
        editorText += '\r';
    }
    return ForEditor(format(editorText, withComments ? 1 : 0));
}

ScriptTest PlanScriptTest(const std::string& editorText) {
    ScriptTest test{RewriteForSending(editorText), ScriptTest::Ending::Neither};
    if (test.text.ends_with("rsm")) {
        test.ending = ScriptTest::Ending::Store;
    } else if (test.text.ends_with("R")) {
        test.ending = ScriptTest::Ending::Run;
    }
    return test;
}

std::string TxtFileName(std::string name) {
    ReplaceAll(name, ".txt", "");
    return name + ".txt";
}

std::string ScriptFileProblem(const std::optional<std::string>& bytes, const std::string& path) {
    if (!bytes) {
        return "The file " + path + " cannot be read.";
    }
    if (bytes->find_first_not_of(" \t\r\n") == std::string::npos) {
        return "The file " + path + " holds no commands.";
    }
    if (const auto nul = bytes->find('\0'); nul != std::string::npos) {
        // Text would stop there on its way to the controller: refuse it whole instead.
        return "The file " + path + " holds a NUL byte (at byte " + std::to_string(nul + 1) +
               "), so it is not a text script. It was not opened.";
    }
    if (bytes->size() > LargestScript) {
        return "The file " + path + " is " + std::to_string(bytes->size() / 1024) +
               " KB: far more than a controller program can hold. It was not opened.";
    }
    return {};
}

bool HasNonAscii(const std::string& text) {
    for (const char c : text) {
        if (static_cast<unsigned char>(c) > 0x7F) {
            return true;
        }
    }
    return false;
}

} // namespace korval

#include "sim/SimControl.h"

#include <sstream>
#include <vector>

#include "sim/SimFault.h"

namespace korval::sim {

namespace {

bool onOff(const std::string& word, bool& on) {
    if (word == "on" || word == "press" || word == "1") {
        on = true;
        return true;
    }
    if (word == "off" || word == "release" || word == "0") {
        on = false;
        return true;
    }
    return false;
}

bool side(const std::string& word, LimitSide& s) {
    if (word == "+" || word == "plus") {
        s = LimitSide::Plus;
        return true;
    }
    if (word == "-" || word == "minus") {
        s = LimitSide::Minus;
        return true;
    }
    return false;
}

bool smallNumber(const std::string& word, int low, int high, int& out) {
    if (word.empty() || word.size() > 4 ||
        word.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    out = std::stoi(word);
    return out >= low && out <= high;
}

} // namespace

const char* ControlHelp() {
    return "limit AXIS +|- on|off   hold or free a limit switch (AXIS 1-4)\n"
           "jog AXIS +|- on|off     press or release a jog button (axes 1 and 2)\n"
           "input N on|off          switch Input N (1-4); Input 4 is the Stop button\n"
           "run                     press the Run button\n"
           "stop                    press the Stop button\n"
           "analog V                set the analog input (0-255)\n"
           "error C                 raise error C: B bus, F flash, E EEPROM, U buffer overflow,\n"
           "                        M memory, N nested loop, J jump, C continuous, I motor, S "
           "stop\n"
           "silent on|off           the whole chain stops answering, or answers again\n"
           "silent-axes DIGITS|none the listed axes no longer answer queries\n"
           "power                   switch the controller off and on\n"
           "show                    print status, positions and outputs\n"
           "traffic                 print the bytes heard and said since the start\n"
           "hangup                  close the pseudo-terminal\n"
           "quit                    end the program\n";
}

ControlResult ApplyControl(KdxChain& chain, const std::string& line, std::string& answer) {
    std::istringstream in(line);
    std::vector<std::string> w;
    std::string word;
    while (in >> word && w.size() < 5) {
        w.push_back(word);
    }
    answer.clear();
    if (w.empty()) {
        return ControlResult::Done;
    }
    const std::string& cmd = w[0];
    int n = 0;
    bool on = false;
    LimitSide s = LimitSide::Plus;
    if ((cmd == "limit" || cmd == "jog") && w.size() == 4 && smallNumber(w[1], 1, 4, n) &&
        side(w[2], s) && onOff(w[3], on)) {
        if (cmd == "limit") {
            chain.setLimit(n, s, on);
        } else {
            chain.setJogButton(n, s, on);
        }
        return ControlResult::Done;
    }
    if (cmd == "input" && w.size() == 3 && smallNumber(w[1], 1, 4, n) && onOff(w[2], on)) {
        chain.setInput(n, on);
        return ControlResult::Done;
    }
    if (cmd == "run" && w.size() == 1) {
        chain.pressRunButton();
        return ControlResult::Done;
    }
    if (cmd == "stop" && w.size() == 1) {
        chain.pressStopButton();
        return ControlResult::Done;
    }
    if (cmd == "analog" && w.size() == 2 && smallNumber(w[1], 0, 255, n)) {
        chain.setAnalog(n);
        return ControlResult::Done;
    }
    if (cmd == "error" && w.size() == 2 && w[1].size() == 1 && chain.injectError(w[1][0])) {
        return ControlResult::Done;
    }
    if (cmd == "silent" && w.size() == 2 && onOff(w[1], on)) {
        chain.setSilent(on);
        return ControlResult::Done;
    }
    if (cmd == "silent-axes" && w.size() == 2) {
        int mask = 0;
        if (w[1] != "none") {
            for (const char c : w[1]) {
                if (c < '1' || c > '4') {
                    answer = "silent-axes takes axis digits 1-4 or none";
                    return ControlResult::Bad;
                }
                mask |= 1 << (c - '1');
            }
        }
        chain.setSilentAxes(mask);
        return ControlResult::Done;
    }
    if (cmd == "power" && w.size() == 1) {
        chain.powerCycle();
        return ControlResult::Done;
    }
    if (cmd == "show" && w.size() == 1) {
        std::string status = chain.statusCode();
        if (!status.empty() && status[0] == StatusLead) {
            status = "E" + status.substr(1); // keep the console's text plain
        }
        answer = "status " + status + " program " + std::to_string(chain.currentProgram()) +
                 " outputs " + std::to_string(chain.outputMask()) + " positions";
        for (int axis = 1; axis <= 4; ++axis) {
            answer += " " + (chain.hasAxis(axis) ? std::to_string(chain.position(axis)) : "-");
        }
        return ControlResult::Done;
    }
    if (cmd == "traffic" && w.size() == 1) {
        answer = "heard " + std::to_string(chain.bytesHeard()) + " said " +
                 std::to_string(chain.bytesSaid());
        return ControlResult::Done;
    }
    if (cmd == "hangup" && w.size() == 1) {
        return ControlResult::HangUp;
    }
    if ((cmd == "quit" || cmd == "exit") && w.size() == 1) {
        return ControlResult::Quit;
    }
    if (cmd == "help" && w.size() == 1) {
        answer = ControlHelp();
        return ControlResult::Done;
    }
    answer = "unknown control \"" + line.substr(0, 80) + "\"; try help";
    return ControlResult::Bad;
}

} // namespace korval::sim

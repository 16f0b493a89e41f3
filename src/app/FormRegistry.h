#pragma once
// Every window of the program, in the order start-up loads them, with the text the splash
// shows after each and where the window lives. Adding a window is one row here.
#include <functional>
#include <span>

namespace korval {

class FormBase;

enum class Placement {
    Frame,   // the main window itself
    Tool,    // a tool window inside the main window's area
    ToolBar, // embedded in the main window's tool bar
    Hidden,  // never placed: a hidden window, or a notice shown on its own
};

struct FormRow {
    // Creates the window; null for a step with no window of its own.
    std::function<FormBase*()> load;
    const char* status; // shown on the splash once the row is done; "" for none
    Placement placement = Placement::Tool;
};

std::span<const FormRow> FormRegistry();

// Each room's wiring of its own menu entries, run once every window exists.
using MenuWiring = void (*)(class MdiKorval&);
std::span<const MenuWiring> MenuWirings();

} // namespace korval

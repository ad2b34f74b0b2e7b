// Fuzzes the button definition file: the bar read from it, laid out along either edge, and
// the mouse over every button.
#include "commands/button_bar.h"
#include "fuzz_session.h"
#include "settings/profile.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    session.host.SetProfile("GUI", "Buttons", WriteScratchFile("buttons.ini", AsText(data, size)));
    LoadButtons();
    const ButtonBar& bar = session.editor.customisation.buttonBar;
    if (bar.count < 0 || bar.count > MaxButtons) std::abort();
    for (const bool left : {true, false}) {
        session.editor.settings.options.buttonsLeft = left;
        (void)BarThickness(size % 2000, true);
        LayOutButtons();
        for (int i = 0; i < bar.count; ++i) {
            const ToolButton& button = bar.buttons[static_cast<size_t>(i)];
            if (ButtonAt(button.x + 1, button.y + 1) != i) std::abort();
            ButtonBarMouseMoved(button.x + 1, button.y + 1);
        }
    }
    ReleaseButtons();
    return 0;
}

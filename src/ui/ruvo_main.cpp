// Program entry: start-up in its fixed order, the message loop and the shut-down order.
#include <windows.h>

#include <string>

#include "docs/recent_files.h"
#include "engine/editor.h"
#include "settings/settings_io.h"
#include "settings/window_placement.h"
#include "ui/ctl3d.h"
#include "ui/frame_window.h"
#include "ui/win_host.h"
#include "ui/window_classes.h"

namespace ruvo {

namespace {

void RememberProgram(ShellState& shell, HINSTANCE instance) {
    shell.instance = instance;
    shell.programPath = TheEditor().host.ProgramPath();
    const size_t separator = shell.programPath.find_last_of("\\/:");
    shell.programDirectory =
        separator == std::string::npos ? std::string() : shell.programPath.substr(0, separator);
}

// Every message goes to the MDI accelerators first, then to the keyboard mapper.
int RunMessageLoop(const ShellState& shell) {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (shell.mdiClient != nullptr && TranslateMDISysAccel(shell.mdiClient, &message)) {
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

void ShutDown(const ShellState& shell) {
    Ctl3dUnregisterApp(shell.instance);
    if (TheEditor().settings.options.saveOnExit) SaveSettings();
    saveRecentFiles();
}

} // namespace

// The command line given here has the program name removed already. Printing ("/p") and the
// hand-over to a running instance ("/n") are decided before the classes are registered.
int RunEditor(HINSTANCE instance, const char* commandLine, int showCommand) {
    if (!RegisterWindowClasses(instance)) return 0;

    ShellState& shell = TheWinHost().shell;
    RememberProgram(shell, instance);
    LoadSettings();
    shell.commandLine = commandLine != nullptr ? commandLine : "";

    const WindowPlacement placement = ReadMainWindow();
    const bool fullSize = ReadFullSize();
    HMENU menu = nullptr; // the menu bar is built from menu.ini

    if (CreateFrameWindow(instance, placement, menu) == nullptr) return 0;
    ShowWindow(shell.frame, fullSize ? SW_SHOWMAXIMIZED : showCommand);
    UpdateWindow(shell.frame);

    const int exitCode = RunMessageLoop(shell);
    ShutDown(shell);
    return exitCode;
}

} // namespace ruvo

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int showCommand) {
    ruvo::WinHost host;
    int exitCode = 0;
    {
        ruvo::Editor editor(host);
        ruvo::InstallEditor(&editor);
        exitCode = ruvo::RunEditor(instance, commandLine, showCommand);
    } // the editor's state is released while it is still installed
    ruvo::InstallEditor(nullptr);
    return exitCode;
}

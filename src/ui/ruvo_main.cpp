// Program entry: start-up in its fixed order, the message loop and the shut-down order.
#include <windows.h>

#include <optional>
#include <string>

#include "commands/commands_win32.h"
#include "dialogs/gadget_dialog_win32.h"
#include "docs/recent_files.h"
#include "engine/editor.h"
#include "print/print_commands.h"
#include "settings/command_line.h"
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

// Every message goes to the open modeless dialogs first, then to the MDI accelerators, then to
// the keyboard mapper.
int RunMessageLoop(const ShellState& shell) {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsModelessDialogMessage(&message)) continue;
        if (shell.mdiClient != nullptr && TranslateMDISysAccel(shell.mdiClient, &message)) {
            continue;
        }
        if (TranslateKey(message, shell.frame)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

// A second start gives its whole command line, as one absolute name, to the running frame.
void HandOver(HWND runningFrame, const std::string& commandLine) {
    const std::string name = HandOverName(commandLine, TheEditor().host.CurrentDirectory());
    if (name.empty()) {
        SendMessageA(runningFrame, HandOverMessage, 1, 0);
        return;
    }
    const ATOM atom = GlobalAddAtomA(name.c_str());
    SendMessageA(runningFrame, HandOverMessage, 1, atom);
    if (atom != 0) GlobalDeleteAtom(atom);
}

void ShutDown(const ShellState& shell) {
    Ctl3dUnregisterApp(shell.instance);
    ReleaseButtonBar();
    ReleasePrinterSettings();
    if (TheEditor().settings.options.saveOnExit) SaveSettings();
    saveRecentFiles();
}

} // namespace

// The command line given here has the program name removed already. Printing ("/p") and the
// hand-over to a running instance ("/n") are decided before the classes are registered.
int RunEditor(HINSTANCE instance, HINSTANCE previous, const char* commandLine, int showCommand) {
    std::string line = commandLine != nullptr ? commandLine : "";
    if (const std::optional<std::string> printName = PrintRequest(line)) {
        PrintFileFromCommandLine(*printName);
        ReleasePrinterSettings();
        return 0;
    }
    if (!RemoveNewInstanceSwitch(line)) {
        if (HWND running = FindWindowA(FrameClassName, nullptr)) {
            HandOver(running, line);
            return 0;
        }
    }
    // Classes belong to the first instance (every Win32 process is one); a failure ends at once.
    if (previous == nullptr && !RegisterWindowClasses(instance)) return 0;

    ShellState& shell = TheWinHost().shell;
    RememberProgram(shell, instance);
    LoadSettings();
    shell.commandLine = line;

    const WindowPlacement placement = ReadMainWindow();
    const bool fullSize = ReadFullSize();
    HMENU menu = BuildMainMenu();

    if (CreateFrameWindow(instance, placement, menu) == nullptr) return 0;
    ShowWindow(shell.frame, fullSize ? SW_SHOWMAXIMIZED : showCommand);
    UpdateWindow(shell.frame);

    const int exitCode = RunMessageLoop(shell);
    ShutDown(shell);
    return exitCode;
}

} // namespace ruvo

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand) {
    ruvo::WinHost host;
    int exitCode = 0;
    {
        ruvo::Editor editor(host);
        ruvo::InstallEditor(&editor);
        exitCode = ruvo::RunEditor(instance, previous, commandLine, showCommand);
    } // the editor's state is released while it is still installed
    ruvo::InstallEditor(nullptr);
    return exitCode;
}

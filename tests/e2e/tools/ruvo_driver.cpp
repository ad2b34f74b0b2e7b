// Test driver run under Wine beside ruvo.exe: finds its windows, sends messages, prints facts.
//
// Usage: ruvo_driver COMMAND [ARGS] [COMMAND [ARGS]] ...
// Commands run in order; each prints one or more lines "<command> <result>". The first
// failure prints "error: <what>" and ends the driver with exit code 1.
//
//   wait-frame SECONDS        wait until the frame window is visible and the editor waits
//                             for input (its start-up is over)
//   wait-gone SECONDS         wait until no frame window exists
//   wait-window TITLE SECONDS wait for a top-level window with this exact title
//   wait-no-window TITLE SECONDS  wait until no visible top-level window has this title
//   dialog-text TITLE         the static texts of the visible window TITLE (a message box):
//                             "dialog-text <text>" with line feeds written as "\n"
//   client-screen-rect TITLE  the client area of the visible window TITLE on the screen
//   dialog-units              the dialog base units: "dialog-units HORIZONTAL VERTICAL"
//   dialog-controls TITLE     the controls of the visible window TITLE in tab order, one line
//                             each: "control <class> <on|off|-> <text>" (on/off: a check box
//                             or radio button's state; an edit's text), after "dialog-controls N"
//   answer TITLE BUTTON       presses yes, no, ok or cancel in window TITLE and waits until
//                             that window is gone
//   title                     the frame's title
//   frame-rect                the frame's window rectangle: "x y width height"
//   frame-state               "maximized", "minimized" or "normal"
//   client-size               the frame's client area: "width height"
//   child-rect CLASS          rectangle of the frame's child of CLASS, in client coordinates
//   child-screen-rect CLASS   the same child's rectangle on the screen (for screenshots)
//   class-info WINDOW         "<class name> <style in hex> <window bytes>" of the frame, or of
//                             its child of that class, or of the active MDI child ("active")
//   children                  one line per MDI child: its title (also "children N" first)
//   active                    title of the active MDI child ("active -" when none)
//   command NAME|ROW          sends WM_COMMAND 10000 + the command's row and waits for it
//                             to be handled (names as in menu.ini, e.g. EditCopy)
//   post-command NAME|ROW     posts it (for commands that open a modal dialog)
//   move X Y WIDTH HEIGHT     moves and sizes the frame like a user would
//   show max|min|restore      maximises, minimises or restores the frame
//   foreground                makes the frame the foreground window, so that real key
//                             presses reach its active edit window
//   hand-over PATH            what a second start does: PATH as a global atom in WM_USER+101
//   clipboard                 the CF_TEXT clipboard contents, lines joined with "\n"
//   close                     posts WM_CLOSE to the frame
//   launch-timed SECONDS ARGS starts C:\ruvo\ruvo.exe ARGS (one argument: the command line)
//                             and waits until its frame shows an edit window and the editor
//                             waits for input: "launch-timed <milliseconds>"
//   type-timed COUNT TEXT     sends COUNT characters taken round from TEXT as WM_CHAR to the
//                             active child, each handled before the next, a line feed as the
//                             Return key: "type-timed <milliseconds>"
//   caret                     the caret of the editor's thread: "caret X Y WIDTH HEIGHT" in the
//                             client area of the window that owns it ("caret -" when none)
//   active-rect               the active child's client area on the screen: "x y width height"
//   frames                    how many frame windows exist: "frames N"
//   menu-select NAME|ROW|-    tells the frame that the menu item of that command is selected
//                             ("-": the menu closed), as the system does while a menu is open
//   scroll-bars WINDOW        which scroll bars the frame's child of that class, or the active
//                             MDI child ("active"), shows: "scroll-bars none|V|H|VH"
//   popup-rect SECONDS        waits for an open menu (a visible pop-up menu window) and prints
//                             its rectangle on the screen: "popup-rect x y width height"
//   status-pane N             the text of status pane N (0 to 4): "status-pane <text>"
#include "editor_windows.h"

namespace {

using namespace e2e;
using Arguments = const std::string*; // the words after the command's name

// Sends (or posts) a message to the frame: what that returned.
std::string ToFrame(UINT message, WPARAM wParam, bool post = false) {
    HWND frame = RequireFrame();
    return std::to_string(post ? PostMessageA(frame, message, wParam, 0)
                               : SendMessageA(frame, message, wParam, 0));
}

// The frame itself ("frame"), the active MDI child ("active") or the frame's child of a class.
HWND NamedWindow(const std::string& name) {
    if (name == "frame") return RequireFrame();
    if (name == "active") return Require(ActiveChild(), "no active edit window");
    return Require(FindWindowExA(RequireFrame(), nullptr, name.c_str(), nullptr),
                   "the frame has no child of class " + name);
}

// Polls CONDITION until it holds; fails with FAILURE after SECONDS. Returns "ok".
template <typename Condition>
std::string WaitFor(const std::string& seconds, const std::string& failure, Condition condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > static_cast<DWORD>(ToNumber(seconds)) * 1000) Fail(failure);
        Sleep(100);
    }
    return "ok";
}

// "x y width height", or only "width height".
std::string RectText(RECT r, bool withOrigin = true) {
    const std::string size =
        std::to_string(r.right - r.left) + " " + std::to_string(r.bottom - r.top);
    return withOrigin ? std::to_string(r.left) + " " + std::to_string(r.top) + " " + size : size;
}

RECT ScreenRect(HWND window, bool client = false) {
    RECT r{};
    if (!client) GetWindowRect(window, &r);
    if (client && GetClientRect(window, &r))
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&r), 2);
    return r;
}

// The frame shows before its first layout; the editor is ready once it waits for input.
void WaitUntilIdle(HANDLE process, const std::string& seconds) {
    const DWORD milliseconds = static_cast<DWORD>(ToNumber(seconds)) * 1000;
    DWORD_PTR result = 0;
    if (WaitForInputIdle(process, milliseconds) == WAIT_TIMEOUT ||
        SendMessageTimeoutA(Frame(), WM_NULL, 0, 0, SMTO_NORMAL, milliseconds, &result) == 0) {
        Fail("the editor is still busy after " + seconds + " s");
    }
}

HWND Titled(const std::string& title) {
    for (HWND window : Windows(nullptr)) {
        if (IsWindowVisible(window) && TitleOf(window) == title) return window;
    }
    return nullptr;
}

HWND FindTitled(const std::string& title) {
    return Require(Titled(title), "no visible window titled '" + title + "'");
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (char c : text)
        if (c != '\r') escaped += c == '\n' ? std::string("\\n") : std::string(1, c);
    return escaped;
}

std::string WaitFrame(Arguments a) {
    WaitFor(a[0], "no visible frame window", [] { return IsWindowVisible(Frame()); });
    DWORD processId = 0;
    GetWindowThreadProcessId(Frame(), &processId);
    HANDLE process = Require(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId),
                             "cannot open the editor's process");
    WaitUntilIdle(process, a[0]);
    CloseHandle(process);
    // The first layout comes from a posted message: wait until the status line has a size.
    return WaitFor(a[0], "the frame has not laid out its status line", [] {
        RECT r = ScreenRect(FindWindowExA(Frame(), nullptr, "StatusClass", nullptr));
        return r.bottom > r.top;
    });
}

// "control <class> <on|off|-> <text>": on/off for a check box or radio button.
std::string DialogControls(Arguments a) {
    const std::vector<HWND> controls = Windows(FindTitled(a[0]));
    std::string lines = std::to_string(controls.size());
    for (HWND control : controls) {
        const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
        std::string state = "-";
        if (ClassOf(control) == "Button" && kind != BS_PUSHBUTTON && kind != BS_DEFPUSHBUTTON &&
            kind != BS_GROUPBOX && kind != BS_OWNERDRAW)
            state = SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "on" : "off";
        lines += "\ncontrol " + ClassOf(control) + " " + state + " " + Escaped(TitleOf(control));
    }
    return lines;
}

std::string Answer(Arguments a) {
    HWND dialog = FindTitled(a[0]);
    const int id = a[1] == "yes"      ? IDYES
                   : a[1] == "no"     ? IDNO
                   : a[1] == "ok"     ? IDOK
                   : a[1] == "cancel" ? IDCANCEL
                                      : 0;
    HWND button = Require(id != 0 ? GetDlgItem(dialog, id) : nullptr,
                          "'" + a[0] + "' has no button '" + a[1] + "'");
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    return WaitFor("10", "'" + a[0] + "' is still open after pressing " + a[1],
                   [dialog] { return !IsWindow(dialog); });
}

std::string Clipboard(Arguments) {
    Require(OpenClipboard(nullptr), "cannot open the clipboard");
    HANDLE data = GetClipboardData(CF_TEXT);
    const char* bytes = static_cast<const char*>(GlobalLock(data)); // null without text
    const std::string text = bytes != nullptr ? bytes : "";
    GlobalUnlock(data);
    CloseClipboard();
    return Escaped(text);
}

// Start-up time as a person sees it: from the start of the process to a shown edit window
// with nothing left to do (its first paint is done).
std::string LaunchTimed(Arguments a) {
    char self[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string program = self;
    program = program.substr(0, program.find_last_of('\\') + 1) + "ruvo.exe";
    std::string commandLine = "\"" + program + "\" " + a[1];
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const DWORD start = GetTickCount();
    Require(CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                           nullptr, &startup, &process),
            "cannot start " + program);
    WaitFor(a[0], "no edit window", [] {
        return IsWindowVisible(Frame()) &&
               GetWindow(FindWindowExA(Frame(), nullptr, "MDICLIENT", nullptr), GW_CHILD);
    });
    WaitUntilIdle(process.hProcess, a[0]);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return std::to_string(GetTickCount() - start);
}

// COUNT characters taken round from TEXT, each handled before the next; "\n" is Return.
std::string TypeTimed(Arguments a) {
    HWND active = NamedWindow("active");
    const DWORD start = GetTickCount();
    for (size_t i = 0; !a[1].empty() && i < static_cast<size_t>(ToNumber(a[0])); ++i) {
        const auto c = static_cast<unsigned char>(a[1][i % a[1].size()]);
        if (c == '\n') SendMessageA(active, WM_KEYDOWN, VK_RETURN, 1);
        if (c == '\n') SendMessageA(active, WM_KEYUP, VK_RETURN, 0xC0000001);
        if (c != '\n') SendMessageA(active, WM_CHAR, c, 1);
    }
    return std::to_string(GetTickCount() - start);
}

std::string Children(Arguments) {
    const std::vector<HWND> children = EditWindows();
    std::string lines = std::to_string(children.size());
    for (HWND child : children)
        lines += "\nchild " + TitleOf(child);
    return lines;
}

std::string ClassInfo(Arguments a) {
    HWND window = NamedWindow(a[0]);
    char style[16] = {};
    std::snprintf(style, sizeof style, "%#lx",
                  static_cast<unsigned long>(GetClassLongPtrA(window, GCL_STYLE)));
    return ClassOf(window) + " " + style + " " +
           std::to_string(GetClassLongPtrA(window, GCL_CBWNDEXTRA));
}

std::string Foreground(Arguments) {
    HWND frame = RequireFrame();
    if (IsIconic(frame)) ShowWindow(frame, SW_RESTORE);
    SetForegroundWindow(frame);
    return WaitFor("10", "the frame did not become the foreground window",
                   [frame] { return GetForegroundWindow() == frame; });
}

std::string HandOver(Arguments a) {
    const ATOM atom = Require(GlobalAddAtomA(a[0].c_str()), "cannot add the atom '" + a[0] + "'");
    SendMessageA(RequireFrame(), WM_USER + 101, 1, atom);
    GlobalDeleteAtom(atom);
    return "ok";
}

std::string Caret(Arguments) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    Require(GetGUIThreadInfo(GetWindowThreadProcessId(RequireFrame(), nullptr), &info),
            "cannot read the editor's caret");
    return info.hwndCaret == nullptr ? "-" : RectText(info.rcCaret);
}

std::string Frames(Arguments) {
    int count = 0;
    for (HWND w = Frame(); w != nullptr; w = FindWindowExA(nullptr, w, FrameClass, nullptr))
        ++count;
    return std::to_string(count);
}

struct Command {
    const char* name;
    int arguments;
    std::string (*run)(Arguments); // what is printed after the name
};

const Command Commands[] = {
    {"wait-frame", 1, WaitFrame},
    {"wait-gone", 1,
     [](Arguments a) {
         return WaitFor(a[0], "the frame is still there", [] { return !Frame(); });
     }},
    {"wait-window", 2,
     [](Arguments a) {
         return WaitFor(a[1], "no window '" + a[0] + "'", [a] { return Titled(a[0]); });
     }},
    {"wait-no-window", 2,
     [](Arguments a) {
         return WaitFor(a[1], "'" + a[0] + "' is still there", [a] { return !Titled(a[0]); });
     }},
    {"dialog-text", 1,
     [](Arguments a) {
         std::string lines;
         for (HWND child : Windows(FindTitled(a[0]))) {
             if (lstrcmpiA(ClassOf(child).c_str(), "Static") == 0 && !TitleOf(child).empty())
                 lines += (lines.empty() ? "" : "\ndialog-text ") + Escaped(TitleOf(child));
         }
         return lines;
     }},
    {"client-screen-rect", 1,
     [](Arguments a) { return RectText(ScreenRect(FindTitled(a[0]), true)); }},
    {"dialog-units", 0,
     [](Arguments) {
         const LONG units = GetDialogBaseUnits();
         return std::to_string(LOWORD(units)) + " " + std::to_string(HIWORD(units));
     }},
    {"dialog-controls", 1, DialogControls},
    {"answer", 2, Answer},
    {"title", 0, [](Arguments) { return TitleOf(RequireFrame()); }},
    {"frame-rect", 0, [](Arguments) { return RectText(ScreenRect(RequireFrame())); }},
    {"frame-state", 0,
     [](Arguments) {
         return std::string(IsZoomed(RequireFrame()) ? "maximized"
                            : IsIconic(Frame())      ? "minimized"
                                                     : "normal");
     }},
    {"client-size", 0, [](Arguments) { return RectText(ScreenRect(RequireFrame(), true), false); }},
    {"child-rect", 1,
     [](Arguments a) {
         RECT r = ScreenRect(NamedWindow(a[0]));
         MapWindowPoints(nullptr, RequireFrame(), reinterpret_cast<POINT*>(&r), 2);
         return RectText(r);
     }},
    {"child-screen-rect", 1, [](Arguments a) { return RectText(ScreenRect(NamedWindow(a[0]))); }},
    {"popup-rect", 1,
     [](Arguments a) {
         WaitFor(a[0], "no menu is open",
                 [] { return IsWindowVisible(FindWindowA("#32768", nullptr)); });
         return RectText(ScreenRect(FindWindowA("#32768", nullptr)));
     }},
    {"class-info", 1, ClassInfo},
    {"status-pane", 1,
     [](Arguments a) {
         // The status line's text is its five panes joined by tabs.
         std::string text = TitleOf(NamedWindow("StatusClass"));
         for (int i = 0; i < ToNumber(a[0]) && text.find('\t') != std::string::npos; ++i)
             text.erase(0, text.find('\t') + 1);
         return Escaped(text.substr(0, text.find('\t')));
     }},
    {"children", 0, Children},
    {"active", 0, [](Arguments) { return ActiveChild() ? TitleOf(ActiveChild()) : "-"; }},
    {"command", 1, [](Arguments a) { return ToFrame(WM_COMMAND, CommandId(a[0])); }},
    {"post-command", 1, [](Arguments a) { return ToFrame(WM_COMMAND, CommandId(a[0]), true); }},
    // "-": a menu closing, no item and the flags all set.
    {"menu-select", 1,
     [](Arguments a) {
         return ToFrame(WM_MENUSELECT, a[0] == "-" ? MAKEWPARAM(0, 0xFFFF)
                                                   : MAKEWPARAM(CommandId(a[0]), MF_STRING));
     }},
    {"move", 4,
     [](Arguments a) {
         return std::to_string(SetWindowPos(RequireFrame(), nullptr, ToNumber(a[0]), ToNumber(a[1]),
                                            ToNumber(a[2]), ToNumber(a[3]),
                                            SWP_NOZORDER | SWP_NOACTIVATE));
     }},
    {"show", 1,
     [](Arguments a) {
         const WPARAM how = a[0] == "max" ? SC_MAXIMIZE : a[0] == "min" ? SC_MINIMIZE : SC_RESTORE;
         return ToFrame(WM_SYSCOMMAND, how);
     }},
    {"hand-over", 1, HandOver},
    {"foreground", 0, Foreground},
    {"clipboard", 0, Clipboard},
    {"close", 0, [](Arguments) { return ToFrame(WM_CLOSE, 0, true); }},
    {"launch-timed", 2, LaunchTimed},
    {"type-timed", 2, TypeTimed},
    {"caret", 0, Caret},
    {"active-rect", 0, [](Arguments) { return RectText(ScreenRect(NamedWindow("active"), true)); }},
    {"frames", 0, Frames},
    {"scroll-bars", 1,
     [](Arguments a) {
         const LONG style = GetWindowLongA(NamedWindow(a[0]), GWL_STYLE);
         const std::string bars = std::string((style & WS_VSCROLL) != 0 ? "V" : "") +
                                  ((style & WS_HSCROLL) != 0 ? "H" : "");
         return bars.empty() ? "none" : bars;
     }},
};

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) Fail("no command given (see the top of ruvo_driver.cpp)");
    for (size_t at = 0; at < args.size(); ++at) {
        const Command* command = nullptr;
        for (const Command& c : Commands)
            if (args[at] == c.name) command = &c;
        if (command == nullptr) Fail("unknown command '" + args[at] + "'");
        if (at + static_cast<size_t>(command->arguments) >= args.size())
            Fail(args[at] + " needs " + std::to_string(command->arguments) + " argument(s)");
        std::printf("%s %s\n", command->name, command->run(args.data() + at + 1).c_str());
        std::fflush(stdout);
        at += static_cast<size_t>(command->arguments);
    }
    return 0;
}

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
//   type TEXT                 sends each character of TEXT as WM_CHAR to the active child
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
//   scroll-info V|H           the active child's scroll bar: "scroll-info MIN MAX POS"
//   frames                    how many frame windows exist: "frames N"
//   menu-select NAME|ROW|-    tells the frame that the menu item of that command is selected
//                             ("-": the menu closed), as the system does while a menu is open
//   child-show max|restore    maximises or restores the active MDI child through the client
//   scroll-bars WINDOW        which scroll bars the frame's child of that class, or the active
//                             MDI child ("active"), shows: "scroll-bars none|V|H|VH"
//   popup-rect SECONDS        waits for an open menu (a visible pop-up menu window) and prints
//                             its rectangle on the screen: "popup-rect x y width height"
//   status-pane N             the text of status pane N (0 to 4): "status-pane <text>"
//   sleep MILLISECONDS        pauses (only for things that have no window to wait for)
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "commands/command_table.h"

namespace {

constexpr const char* FrameClass = "DavoEditClass";
constexpr DWORD PollMilliseconds = 100;

[[noreturn]] void Fail(const std::string& what) {
    std::printf("error: %s\n", what.c_str());
    std::fflush(stdout);
    std::exit(1);
}

HWND Frame() {
    return FindWindowA(FrameClass, nullptr);
}

HWND RequireFrame() {
    HWND frame = Frame();
    if (frame == nullptr) Fail("no window of class DavoEditClass");
    return frame;
}

HWND MdiClient() {
    return FindWindowExA(RequireFrame(), nullptr, "MDICLIENT", nullptr);
}

std::string TitleOf(HWND window) {
    char title[512] = {};
    // WM_GETTEXT crosses processes; GetWindowText would not ask the other process.
    SendMessageA(window, WM_GETTEXT, sizeof title, reinterpret_cast<LPARAM>(title));
    return title;
}

int ToNumber(const std::string& text, const char* what) {
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0') Fail(std::string("bad ") + what + ": '" + text + "'");
    return static_cast<int>(value);
}

template <typename Condition> bool WaitFor(int seconds, Condition condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > static_cast<DWORD>(seconds) * 1000) return false;
        Sleep(PollMilliseconds);
    }
    return true;
}

void PrintRect(const char* name, const RECT& r) {
    std::printf("%s %ld %ld %ld %ld\n", name, r.left, r.top, r.right - r.left, r.bottom - r.top);
}

std::vector<HWND> MdiChildren() {
    std::vector<HWND> children;
    HWND client = MdiClient();
    if (client == nullptr) Fail("the frame has no MDI client");
    for (HWND child = GetWindow(client, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetWindow(child, GW_OWNER) == nullptr) children.push_back(child); // no icon titles
    }
    return children;
}

// The frame shows before its first layout; the editor is ready once it waits for input.
void WaitUntilIdle(HWND frame, int seconds) {
    DWORD processId = 0;
    GetWindowThreadProcessId(frame, &processId);
    HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId);
    if (process == nullptr) Fail("cannot open the editor's process");
    const DWORD waited = WaitForInputIdle(process, static_cast<DWORD>(seconds) * 1000);
    CloseHandle(process);
    if (waited == WAIT_TIMEOUT)
        Fail("the editor is still busy after " + std::to_string(seconds) + " s");
    DWORD_PTR result = 0;
    if (SendMessageTimeoutA(frame, WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(seconds) * 1000,
                            &result) == 0) {
        Fail("the frame does not answer messages");
    }
}

struct TitleSearch {
    const char* title;
    HWND found;
};

BOOL CALLBACK MatchTitle(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<TitleSearch*>(parameter);
    if (IsWindowVisible(window) && TitleOf(window) == search->title) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

HWND FindTitled(const std::string& title) {
    TitleSearch search{title.c_str(), nullptr};
    EnumWindows(MatchTitle, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) Fail("no visible window titled '" + title + "'");
    return search.found;
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        if (c == '\r') continue;
        escaped += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return escaped;
}

BOOL CALLBACK PrintStaticText(HWND child, LPARAM) {
    char className[32] = {};
    GetClassNameA(child, className, sizeof className);
    const std::string text = TitleOf(child);
    if (lstrcmpiA(className, "Static") == 0 && !text.empty()) {
        std::printf("dialog-text %s\n", Escaped(text).c_str());
    }
    return TRUE;
}

BOOL CALLBACK CollectChild(HWND child, LPARAM parameter) {
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
    return TRUE;
}

void PrintDialogControls(HWND dialog) {
    std::vector<HWND> controls;
    EnumChildWindows(dialog, CollectChild, reinterpret_cast<LPARAM>(&controls));
    std::printf("dialog-controls %d\n", static_cast<int>(controls.size()));
    for (HWND control : controls) {
        char className[32] = {};
        GetClassNameA(control, className, sizeof className);
        const char* state = "-";
        const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
        if (lstrcmpiA(className, "Button") == 0 &&
            (kind == BS_AUTOCHECKBOX || kind == BS_CHECKBOX || kind == BS_AUTORADIOBUTTON ||
             kind == BS_RADIOBUTTON)) {
            state = SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "on" : "off";
        }
        std::printf("control %s %s %s\n", className, state, Escaped(TitleOf(control)).c_str());
    }
}

void PrintClipboard() {
    if (!OpenClipboard(nullptr)) Fail("cannot open the clipboard");
    std::string text;
    if (HANDLE data = GetClipboardData(CF_TEXT)) {
        if (const char* bytes = static_cast<const char*>(GlobalLock(data))) {
            text = bytes;
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    std::printf("clipboard %s\n", Escaped(text).c_str());
}

HWND ActiveChild() {
    HWND active = reinterpret_cast<HWND>(SendMessageA(MdiClient(), WM_MDIGETACTIVE, 0, 0));
    if (active == nullptr) Fail("no active edit window");
    return active;
}

// Start-up time as a person sees it: from the start of the process to a shown edit window
// with nothing left to do (its first paint is done).
void LaunchTimed(int seconds, const std::string& arguments) {
    char self[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string program = self;
    program = program.substr(0, program.find_last_of('\\') + 1) + "ruvo.exe";
    std::string commandLine = "\"" + program + "\" " + arguments;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    LARGE_INTEGER frequency, start, stop;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process)) {
        Fail("cannot start " + program);
    }
    const bool shown = WaitFor(seconds, [] {
        HWND frame = Frame();
        if (frame == nullptr || !IsWindowVisible(frame)) return false;
        HWND client = FindWindowExA(frame, nullptr, "MDICLIENT", nullptr);
        return client != nullptr && GetWindow(client, GW_CHILD) != nullptr;
    });
    if (!shown) Fail("no edit window after " + std::to_string(seconds) + " s");
    WaitForInputIdle(process.hProcess, static_cast<DWORD>(seconds) * 1000);
    DWORD_PTR result = 0;
    SendMessageTimeoutA(Frame(), WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(seconds) * 1000,
                        &result);
    QueryPerformanceCounter(&stop);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    std::printf("launch-timed %lld\n",
                (stop.QuadPart - start.QuadPart) * 1000 / frequency.QuadPart);
}

// Runs the command at args[at]; returns the index after its arguments.
size_t Run(const std::vector<std::string>& args, size_t at) {
    const std::string& name = args[at];
    auto argument = [&](size_t n) -> const std::string& {
        if (at + n >= args.size()) Fail(name + " needs " + std::to_string(n) + " argument(s)");
        return args[at + n];
    };

    if (name == "wait-frame") {
        const int seconds = ToNumber(argument(1), "seconds");
        if (!WaitFor(seconds, [] { return Frame() != nullptr && IsWindowVisible(Frame()); })) {
            Fail("no visible frame window after " + std::to_string(seconds) + " s");
        }
        WaitUntilIdle(Frame(), seconds);
        // The first layout comes from a posted message: wait until the status line has a size.
        const bool laidOut = WaitFor(seconds, [] {
            HWND status = FindWindowExA(Frame(), nullptr, "StatusClass", nullptr);
            RECT r{};
            return status != nullptr && GetWindowRect(status, &r) && r.bottom > r.top;
        });
        if (!laidOut) Fail("the frame has not laid out its status line");
        std::printf("wait-frame ok\n");
        return at + 2;
    }
    if (name == "wait-gone") {
        const int seconds = ToNumber(argument(1), "seconds");
        if (!WaitFor(seconds, [] { return Frame() == nullptr; })) {
            Fail("the frame window is still there after " + std::to_string(seconds) + " s");
        }
        std::printf("wait-gone ok\n");
        return at + 2;
    }
    if (name == "wait-window") {
        TitleSearch search{argument(1).c_str(), nullptr};
        const int seconds = ToNumber(argument(2), "seconds");
        const bool found = WaitFor(seconds, [&] {
            EnumWindows(MatchTitle, reinterpret_cast<LPARAM>(&search));
            return search.found != nullptr;
        });
        if (!found) Fail("no window titled '" + argument(1) + "'");
        std::printf("wait-window ok\n");
        return at + 3;
    }
    if (name == "wait-no-window") {
        TitleSearch search{argument(1).c_str(), nullptr};
        const int seconds = ToNumber(argument(2), "seconds");
        const bool gone = WaitFor(seconds, [&] {
            search.found = nullptr;
            EnumWindows(MatchTitle, reinterpret_cast<LPARAM>(&search));
            return search.found == nullptr;
        });
        if (!gone) Fail("the window titled '" + argument(1) + "' is still there");
        std::printf("wait-no-window ok\n");
        return at + 3;
    }
    if (name == "dialog-text") {
        EnumChildWindows(FindTitled(argument(1)), PrintStaticText, 0);
        return at + 2;
    }
    if (name == "client-screen-rect") {
        HWND window = FindTitled(argument(1));
        RECT r;
        GetClientRect(window, &r);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&r), 2);
        PrintRect("client-screen-rect", r);
        return at + 2;
    }
    if (name == "dialog-units") {
        const LONG units = GetDialogBaseUnits();
        std::printf("dialog-units %d %d\n", LOWORD(units), HIWORD(units));
        return at + 1;
    }
    if (name == "dialog-controls") {
        PrintDialogControls(FindTitled(argument(1)));
        return at + 2;
    }
    if (name == "answer") {
        HWND dialog = FindTitled(argument(1));
        const std::string& button = argument(2);
        int id = 0;
        if (button == "yes")
            id = IDYES;
        else if (button == "no")
            id = IDNO;
        else if (button == "ok")
            id = IDOK;
        else if (button == "cancel")
            id = IDCANCEL;
        else
            Fail("answer takes yes, no, ok or cancel, not '" + button + "'");
        HWND control = GetDlgItem(dialog, id);
        if (control == nullptr) Fail("'" + argument(1) + "' has no " + button + " button");
        PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(control));
        if (!WaitFor(10, [dialog] { return !IsWindow(dialog); })) {
            Fail("'" + argument(1) + "' is still open after pressing " + button);
        }
        std::printf("answer ok\n");
        return at + 3;
    }
    if (name == "title") {
        std::printf("title %s\n", TitleOf(RequireFrame()).c_str());
        return at + 1;
    }
    if (name == "frame-rect") {
        RECT r;
        GetWindowRect(RequireFrame(), &r);
        PrintRect("frame-rect", r);
        return at + 1;
    }
    if (name == "frame-state") {
        HWND frame = RequireFrame();
        std::printf("frame-state %s\n", IsZoomed(frame)   ? "maximized"
                                        : IsIconic(frame) ? "minimized"
                                                          : "normal");
        return at + 1;
    }
    if (name == "client-size") {
        RECT r;
        GetClientRect(RequireFrame(), &r);
        std::printf("client-size %ld %ld\n", r.right, r.bottom);
        return at + 1;
    }
    if (name == "child-rect") {
        HWND frame = RequireFrame();
        HWND child = FindWindowExA(frame, nullptr, argument(1).c_str(), nullptr);
        if (child == nullptr) Fail("the frame has no child of class " + argument(1));
        RECT r;
        GetWindowRect(child, &r);
        MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&r), 2);
        PrintRect("child-rect", r);
        return at + 2;
    }
    if (name == "popup-rect") {
        HWND popup = nullptr;
        const bool open = WaitFor(ToNumber(argument(1), "seconds"), [&] {
            popup = FindWindowA("#32768", nullptr);
            return popup != nullptr && IsWindowVisible(popup);
        });
        if (!open) Fail("no menu is open");
        RECT r;
        GetWindowRect(popup, &r);
        PrintRect("popup-rect", r);
        return at + 2;
    }
    if (name == "child-screen-rect") {
        HWND child = FindWindowExA(RequireFrame(), nullptr, argument(1).c_str(), nullptr);
        if (child == nullptr) Fail("the frame has no child of class " + argument(1));
        RECT r;
        GetWindowRect(child, &r);
        PrintRect("child-screen-rect", r);
        return at + 2;
    }
    if (name == "class-info") {
        HWND window = RequireFrame();
        if (argument(1) == "active") {
            window = reinterpret_cast<HWND>(SendMessageA(MdiClient(), WM_MDIGETACTIVE, 0, 0));
            if (window == nullptr) Fail("no active edit window");
        } else if (argument(1) != "frame") {
            window = FindWindowExA(window, nullptr, argument(1).c_str(), nullptr);
            if (window == nullptr) Fail("the frame has no child of class " + argument(1));
        }
        char className[64] = {};
        GetClassNameA(window, className, sizeof className);
        std::printf("class-info %s %#lx %ld\n", className,
                    static_cast<unsigned long>(GetClassLongPtrA(window, GCL_STYLE)),
                    static_cast<long>(GetClassLongPtrA(window, GCL_CBWNDEXTRA)));
        return at + 2;
    }
    if (name == "status-pane") {
        const int pane = ToNumber(argument(1), "pane");
        HWND status = FindWindowExA(RequireFrame(), nullptr, "StatusClass", nullptr);
        if (status == nullptr) Fail("the frame has no status line");
        // The status line's text is its five panes joined by tabs.
        std::string text = TitleOf(status);
        for (int i = 0; i < pane && text.find('\t') != std::string::npos; ++i)
            text.erase(0, text.find('\t') + 1);
        std::printf("status-pane %s\n", Escaped(text.substr(0, text.find('\t'))).c_str());
        return at + 2;
    }
    if (name == "children") {
        const std::vector<HWND> children = MdiChildren();
        std::printf("children %d\n", static_cast<int>(children.size()));
        for (HWND child : children)
            std::printf("child %s\n", TitleOf(child).c_str());
        return at + 1;
    }
    if (name == "active") {
        HWND active = reinterpret_cast<HWND>(SendMessageA(MdiClient(), WM_MDIGETACTIVE, 0, 0));
        std::printf("active %s\n", active != nullptr ? TitleOf(active).c_str() : "-");
        return at + 1;
    }
    if (name == "command" || name == "post-command") {
        int row = -1;
        const std::string& which = argument(1);
        if (!which.empty() && which.find_first_not_of("0123456789") == std::string::npos) {
            row = ToNumber(which, "command row");
        } else if (ruvo::CommandByName(which, nullptr, false, &row) == nullptr) {
            Fail("no command named '" + which + "'");
        }
        const WPARAM id = static_cast<WPARAM>(ruvo::CommandMenuIdBase + row);
        if (name == "command") {
            SendMessageA(RequireFrame(), WM_COMMAND, id, 0);
        } else {
            PostMessageA(RequireFrame(), WM_COMMAND, id, 0);
        }
        std::printf("%s %d\n", name.c_str(), row);
        return at + 2;
    }
    if (name == "type") {
        HWND active = reinterpret_cast<HWND>(SendMessageA(MdiClient(), WM_MDIGETACTIVE, 0, 0));
        if (active == nullptr) Fail("no active edit window to type into");
        for (unsigned char c : argument(1))
            SendMessageA(active, WM_CHAR, c, 1);
        std::printf("type ok\n");
        return at + 2;
    }
    if (name == "move") {
        const int x = ToNumber(argument(1), "x");
        const int y = ToNumber(argument(2), "y");
        const int width = ToNumber(argument(3), "width");
        const int height = ToNumber(argument(4), "height");
        if (!SetWindowPos(RequireFrame(), nullptr, x, y, width, height,
                          SWP_NOZORDER | SWP_NOACTIVATE)) {
            Fail("SetWindowPos failed");
        }
        std::printf("move ok\n");
        return at + 5;
    }
    if (name == "show") {
        const std::string& how = argument(1);
        WPARAM command = 0;
        if (how == "max")
            command = SC_MAXIMIZE;
        else if (how == "min")
            command = SC_MINIMIZE;
        else if (how == "restore")
            command = SC_RESTORE;
        else
            Fail("show takes max, min or restore, not '" + how + "'");
        SendMessageA(RequireFrame(), WM_SYSCOMMAND, command, 0);
        std::printf("show ok\n");
        return at + 2;
    }
    if (name == "hand-over") {
        const ATOM atom = GlobalAddAtomA(argument(1).c_str());
        if (atom == 0) Fail("cannot add the global atom '" + argument(1) + "'");
        SendMessageA(RequireFrame(), WM_USER + 101, 1, atom);
        GlobalDeleteAtom(atom);
        std::printf("hand-over ok\n");
        return at + 2;
    }
    if (name == "foreground") {
        HWND frame = RequireFrame();
        if (IsIconic(frame)) ShowWindow(frame, SW_RESTORE);
        SetForegroundWindow(frame);
        if (!WaitFor(10, [frame] { return GetForegroundWindow() == frame; })) {
            Fail("the frame did not become the foreground window");
        }
        std::printf("foreground ok\n");
        return at + 1;
    }
    if (name == "clipboard") {
        PrintClipboard();
        return at + 1;
    }
    if (name == "close") {
        PostMessageA(RequireFrame(), WM_CLOSE, 0, 0);
        std::printf("close ok\n");
        return at + 1;
    }
    if (name == "launch-timed") {
        const int seconds = ToNumber(argument(1), "seconds");
        LaunchTimed(seconds, argument(2));
        return at + 3;
    }
    if (name == "type-timed") {
        const int count = ToNumber(argument(1), "count");
        const std::string& text = argument(2);
        if (text.empty()) Fail("type-timed needs a text");
        HWND active = ActiveChild();
        LARGE_INTEGER frequency, start, stop;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&start);
        for (int i = 0; i < count; ++i) {
            const unsigned char c = static_cast<unsigned char>(text[static_cast<size_t>(i) % text.size()]);
            if (c == '\n') {
                SendMessageA(active, WM_KEYDOWN, VK_RETURN, 1);
                SendMessageA(active, WM_KEYUP, VK_RETURN, 0xC0000001);
            } else {
                SendMessageA(active, WM_CHAR, c, 1);
            }
        }
        QueryPerformanceCounter(&stop);
        std::printf("type-timed %lld\n",
                    (stop.QuadPart - start.QuadPart) * 1000 / frequency.QuadPart);
        return at + 3;
    }
    if (name == "caret") {
        HWND frame = RequireFrame();
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        if (!GetGUIThreadInfo(GetWindowThreadProcessId(frame, nullptr), &info))
            Fail("cannot read the editor's caret");
        if (info.hwndCaret == nullptr) {
            std::printf("caret -\n");
        } else {
            PrintRect("caret", info.rcCaret);
        }
        return at + 1;
    }
    if (name == "active-rect") {
        HWND active = ActiveChild();
        RECT r;
        GetClientRect(active, &r);
        MapWindowPoints(active, nullptr, reinterpret_cast<POINT*>(&r), 2);
        PrintRect("active-rect", r);
        return at + 1;
    }
    if (name == "scroll-info") {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        if (!GetScrollInfo(ActiveChild(), argument(1) == "V" ? SB_VERT : SB_HORZ, &info))
            Fail("cannot read the scroll bar");
        std::printf("scroll-info %d %d %d\n", info.nMin, info.nMax, info.nPos);
        return at + 2;
    }
    if (name == "menu-select") {
        const std::string& which = argument(1);
        WPARAM wParam = MAKEWPARAM(0, 0xFFFF); // a menu closing: no item, flags all set
        if (which != "-") {
            int row = -1;
            if (which.find_first_not_of("0123456789") == std::string::npos) {
                row = ToNumber(which, "command row");
            } else if (ruvo::CommandByName(which, nullptr, false, &row) == nullptr) {
                Fail("no command named '" + which + "'");
            }
            wParam = MAKEWPARAM(ruvo::CommandMenuIdBase + row, MF_STRING);
        }
        SendMessageA(RequireFrame(), WM_MENUSELECT, wParam, 0);
        std::printf("menu-select ok\n");
        return at + 2;
    }
    if (name == "frames") {
        int count = 0;
        for (HWND w = FindWindowExA(nullptr, nullptr, FrameClass, nullptr); w != nullptr;
             w = FindWindowExA(nullptr, w, FrameClass, nullptr)) {
            ++count;
        }
        std::printf("frames %d\n", count);
        return at + 1;
    }
    if (name == "child-show") {
        const UINT message = argument(1) == "max" ? WM_MDIMAXIMIZE : WM_MDIRESTORE;
        SendMessageA(MdiClient(), message, reinterpret_cast<WPARAM>(ActiveChild()), 0);
        std::printf("child-show ok\n");
        return at + 2;
    }
    if (name == "scroll-bars") {
        HWND window = argument(1) == "active"
                          ? ActiveChild()
                          : FindWindowExA(RequireFrame(), nullptr, argument(1).c_str(), nullptr);
        if (window == nullptr) Fail("no window " + argument(1));
        const LONG style = GetWindowLongA(window, GWL_STYLE);
        std::string bars = std::string((style & WS_VSCROLL) != 0 ? "V" : "") +
                           ((style & WS_HSCROLL) != 0 ? "H" : "");
        std::printf("scroll-bars %s\n", bars.empty() ? "none" : bars.c_str());
        return at + 2;
    }
    if (name == "sleep") {
        Sleep(static_cast<DWORD>(ToNumber(argument(1), "milliseconds")));
        return at + 2;
    }
    Fail("unknown command '" + name + "'");
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) Fail("no command given (see the top of ruvo_driver.cpp)");
    for (size_t at = 0; at < args.size();) {
        at = Run(args, at);
        std::fflush(stdout);
    }
    return 0;
}

// A monkey run under Wine: random typing, keys, clicks, scrolling and commands sent to the
// running editor, every dialog that opens answered or closed, until the given count of events.
//
// Usage: ruvo_monkey SEED EVENTS FILE
// Each event is sent from a helper thread and waits until the editor has handled it, while
// this thread closes the dialogs it opened (Cancel, else No, else OK: never a save). An event
// that takes longer than 90 s is a hang; a frame that disappears is a crash. New and opened
// windows pile up, and Wine arranges each of them one at a time (half a second a window under
// load), so beyond MaxWindows the active window is closed, its question answered No. At the
// end the editor is told to exit and every question is answered No, so nothing is saved.
// FILE is opened again whenever no edit window is left. Prints "monkey done" at the end, or
// "error: " and what went wrong.
#include <algorithm>
#include <cstring>
#include <random>

#include "editor_windows.h"

namespace {

using namespace e2e;
constexpr DWORD EventTimeout = 90000;
constexpr size_t MaxWindows = 12;

HWND frame = nullptr;
DWORD editorProcess = 0;
int closedDialogs = 0;

// One message sent and waited for from a helper thread, so that this one can close dialogs.
struct Delivery {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT sent = 0;
};

DWORD WINAPI Deliver(void* parameter) {
    auto* delivery = static_cast<Delivery*>(parameter);
    DWORD_PTR result = 0;
    delivery->sent = SendMessageTimeoutA(delivery->window, delivery->message, delivery->wParam,
                                         delivery->lParam, SMTO_NORMAL, EventTimeout, &result);
    return 0;
}

// Closes every dialog of the editor: Cancel where there is one, else No, else OK. With
// preferNo a question is answered No (at the exit, so that nothing is saved).
void CloseDialogs(bool preferNo) {
    for (HWND dialog : Windows(nullptr)) {
        DWORD process = 0;
        GetWindowThreadProcessId(dialog, &process);
        if (process != editorProcess || !IsWindowVisible(dialog) || ClassOf(dialog) != "#32770")
            continue;
        ++closedDialogs;
        const int order[] = {preferNo ? IDNO : IDCANCEL, preferNo ? IDCANCEL : IDNO, IDOK, 0};
        const int* button = order;
        while (*button != 0 && GetDlgItem(dialog, *button) == nullptr)
            ++button;
        if (*button != 0)
            PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(*button, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, *button)));
        else
            PostMessageA(dialog, WM_CLOSE, 0, 0);
    }
}

void Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, const std::string& what,
          bool preferNo = false) {
    Delivery delivery{window, message, wParam, lParam};
    HANDLE thread =
        Require(CreateThread(nullptr, 0, Deliver, &delivery, 0, nullptr), "cannot start a thread");
    while (WaitForSingleObject(thread, 20) == WAIT_TIMEOUT)
        CloseDialogs(preferNo);
    CloseHandle(thread);
    if (!IsWindow(frame)) Fail("the editor is gone after " + what);
    if (delivery.sent == 0) Fail("the editor did not finish " + what + " within 90 s");
    CloseDialogs(preferNo);
}

// Commands that would save, print, end the editor or start other programs are left out.
bool Allowed(const char* name) {
    for (const char* word :
         {"Save", "Print", "Exit", "Vsystem", "Leonardo", "Synplify", "RunTool", "Helpfile"})
        if (std::strstr(name, word) != nullptr && std::strstr(name, "Options") == nullptr)
            return false;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) Fail("usage: ruvo_monkey SEED EVENTS FILE");
    const int events = ToNumber(argv[2]);
    const std::string file = argv[3];
    frame = RequireFrame();
    GetWindowThreadProcessId(frame, &editorProcess);

    std::vector<int> commands;
    for (int row = 0; row < ruvo::TerminatingCommandIndex; ++row)
        if (Allowed(ruvo::CommandTable[row].name)) commands.push_back(row);
    std::mt19937 random(static_cast<unsigned>(ToNumber(argv[1])));
    auto below = [&random](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    const std::string typing = "entity is port signal begin end; <= ( ) : -- \t\"x\" 0123 _ABC";
    const int keys[] = {VK_BACK, VK_RETURN, VK_DELETE, VK_LEFT,  VK_RIGHT, VK_UP,
                        VK_DOWN, VK_HOME,   VK_END,    VK_PRIOR, VK_NEXT,  VK_INSERT};

    for (int event = 0; event < events; ++event) {
        const std::string what = "event " + std::to_string(event);
        HWND child = ActiveChild();
        if (child != nullptr && EditWindows().size() > MaxWindows) {
            Send(child, WM_CLOSE, 0, 0, what + " (closing a window)", true);
            child = ActiveChild();
        }
        if (child == nullptr) { // the file handed over as a second start would
            const ATOM atom = GlobalAddAtomA(file.c_str());
            Send(frame, WM_USER + 101, 1, atom, "opening " + file);
            GlobalDeleteAtom(atom);
            child = Require(ActiveChild(), "no edit window after opening " + file);
        }
        RECT area{};
        GetClientRect(child, &area);
        const auto point = [&] {
            return MAKELPARAM(below(std::max<LONG>(area.right, 1)),
                              below(std::max<LONG>(area.bottom, 1)));
        };
        const int kind = below(100);
        if (kind < 35) {
            const char c = below(5) == 0 ? static_cast<char>(32 + below(95))
                                         : typing[static_cast<size_t>(below(typing.size()))];
            Send(child, WM_CHAR, static_cast<unsigned char>(c), 1, what + " (a character)");
        } else if (kind < 55) {
            const int key = keys[below(sizeof keys / sizeof keys[0])];
            Send(child, WM_KEYDOWN, key, 1, what + " (key " + std::to_string(key) + ")");
            Send(child, WM_KEYUP, key, 0xC0000001, what + " (key up)");
        } else if (kind < 67) {
            const WPARAM shift = below(3) == 0 ? MK_SHIFT : 0;
            if (below(4) == 0) {
                Send(child, WM_LBUTTONDBLCLK, MK_LBUTTON, point(), what + " (double click)");
            } else {
                Send(child, WM_LBUTTONDOWN, MK_LBUTTON | shift, point(), what + " (press)");
                Send(child, WM_MOUSEMOVE, MK_LBUTTON | shift, point(), what + " (drag)");
            }
            Send(child, WM_LBUTTONUP, shift, point(), what + " (release)");
        } else if (kind < 72) {
            const int codes[] = {SB_LINEUP,     SB_LINEDOWN,      SB_PAGEUP, SB_PAGEDOWN,
                                 SB_THUMBTRACK, SB_THUMBPOSITION, SB_TOP,    SB_BOTTOM};
            Send(child, below(2) == 0 ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(codes[below(8)], below(200)), 0, what + " (scroll)");
        } else {
            const int row = commands[static_cast<size_t>(below(static_cast<int>(commands.size())))];
            Send(frame, WM_COMMAND, ruvo::CommandMenuIdBase + row, 0,
                 what + " (command " + ruvo::CommandTable[row].name + ")");
        }
    }

    // Exit without saving: every question is answered No.
    PostMessageA(frame, WM_COMMAND, CommandId("ExitApp"), 0);
    const DWORD start = GetTickCount();
    while (IsWindow(frame)) {
        if (GetTickCount() - start > EventTimeout) Fail("the editor did not exit");
        CloseDialogs(true);
        Sleep(50);
    }
    std::printf("monkey done %d events, %d dialogs closed\n", events, closedDialogs);
    return 0;
}

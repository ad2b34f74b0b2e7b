// What the e2e tools share: finding the editor's windows, its commands, and failing.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "commands/command_table.h"

namespace e2e {

constexpr const char* FrameClass = "DavoEditClass";

[[noreturn]] inline void Fail(const std::string& what) {
    std::printf("error: %s\n", what.c_str());
    std::fflush(stdout);
    std::exit(1);
}

template <typename T> T Require(T found, const std::string& what) {
    if (!found) Fail(what);
    return found;
}

inline HWND Frame() {
    return FindWindowA(FrameClass, nullptr);
}

inline HWND RequireFrame() {
    return Require(Frame(), "no window of class DavoEditClass");
}

inline HWND MdiClient() {
    return Require(FindWindowExA(RequireFrame(), nullptr, "MDICLIENT", nullptr),
                   "the frame has no MDI client");
}

inline HWND ActiveChild() {
    return reinterpret_cast<HWND>(SendMessageA(MdiClient(), WM_MDIGETACTIVE, 0, 0));
}

// The edit windows in the MDI client, top first (icon titles left out).
inline std::vector<HWND> EditWindows() {
    std::vector<HWND> found;
    for (HWND child = GetWindow(MdiClient(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
        if (GetWindow(child, GW_OWNER) == nullptr) found.push_back(child);
    return found;
}

inline std::string TitleOf(HWND window) {
    char title[512] = {};
    // WM_GETTEXT crosses processes; GetWindowText would not ask the other process.
    SendMessageA(window, WM_GETTEXT, sizeof title, reinterpret_cast<LPARAM>(title));
    return title;
}

inline std::string ClassOf(HWND window) {
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    return name;
}

inline int ToNumber(const std::string& text) {
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0') Fail("not a number: '" + text + "'");
    return static_cast<int>(value);
}

inline std::vector<HWND> Windows(HWND parent) {
    std::vector<HWND> found;
    auto collect = [](HWND window, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
        return TRUE;
    };
    if (parent == nullptr) EnumWindows(collect, reinterpret_cast<LPARAM>(&found));
    if (parent != nullptr) EnumChildWindows(parent, collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

// A command of the table by name or row: its menu id.
inline WPARAM CommandId(const std::string& which) {
    int row = -1;
    if (!which.empty() && which.find_first_not_of("0123456789") == std::string::npos) {
        row = ToNumber(which);
    } else if (ruvo::CommandByName(which, nullptr, false, &row) == nullptr) {
        Fail("no command named '" + which + "'");
    }
    return static_cast<WPARAM>(ruvo::CommandMenuIdBase + row);
}

} // namespace e2e

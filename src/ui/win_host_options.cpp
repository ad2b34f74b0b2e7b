// WinHost's part of the editor options: the screen's fixed-pitch fonts, the frame's layout,
// the editor font and the refresh of every edit window.
#include <windows.h>

#include <string>
#include <vector>

#include "ui/editor_font.h"
#include "ui/frame_window.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

int CALLBACK CollectFixedPitch(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM names) {
    if ((font->lfPitchAndFamily & 3) != FIXED_PITCH) return 1;
    // Families are enumerated with their ENUMLOGFONTA, which carries the full name.
    const auto* described = reinterpret_cast<const ENUMLOGFONTA*>(font);
    const char* full = reinterpret_cast<const char*>(described->elfFullName);
    reinterpret_cast<std::vector<std::string>*>(names)->push_back(
        full[0] != '\0' ? full : font->lfFaceName);
    return 1;
}

} // namespace

std::vector<std::string> WinHost::FixedPitchFontNames() {
    std::vector<std::string> names;
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesA(screen, nullptr, CollectFixedPitch, reinterpret_cast<LPARAM>(&names));
    ReleaseDC(nullptr, screen);
    return names;
}

void WinHost::RequestFrameLayout() {
    RequestRelayout();
}

void WinHost::RecreateEditorFont() {
    ReapplyEditorFont();
}

void WinHost::RefreshEditWindows() {
    ruvo::RefreshEditWindows();
}

} // namespace ruvo

// WinHost's part of the editor options: the screen's fixed-pitch fonts, the frame's layout,
// the editor font and the refresh of every edit window.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ui/editor_font.h"
#include "ui/frame_window.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

// Each family once: some platforms list a family once per character set.
int CALLBACK CollectFixedPitch(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM list) {
    if ((font->lfPitchAndFamily & 3) != FIXED_PITCH) return 1;
    // Families are enumerated with their ENUMLOGFONTA, which carries the full name.
    const auto* described = reinterpret_cast<const ENUMLOGFONTA*>(font);
    const char* full = reinterpret_cast<const char*>(described->elfFullName);
    const std::string name = full[0] != '\0' ? full : font->lfFaceName;
    auto& names = *reinterpret_cast<std::vector<std::string>*>(list);
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
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

// Reading, writing and the storing rules of the frame window's placement.
#include "settings/window_placement.h"

#include <cstdio>

#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* PlacementSection = "GUI";
constexpr const char* PlacementKey = "MainWindow";
constexpr const char* FullSizeKey = "FullSize";
constexpr int PlacementCapacity = 80;

void StorePlacement(const WindowPlacement& placement) {
    (void)WriteString(PlacementSection, PlacementKey, FormatPlacement(placement));
}

} // namespace

WindowPlacement ParsePlacement(std::string_view text) {
    WindowPlacement placement;
    const std::string terminated(text);
    char separator = 0;
    // The separators are single characters of any kind, so "0,0,600,400" and
    // "0, 0, 600, 400" read alike (a number skips the blanks in front of it).
    (void)std::sscanf(terminated.c_str(), "%d%c%d%c%d%c%d", &placement.left, &separator,
                      &placement.top, &separator, &placement.width, &separator, &placement.height);
    return placement;
}

std::string FormatPlacement(const WindowPlacement& placement) {
    char text[PlacementCapacity];
    std::snprintf(text, sizeof text, "%d, %d, %d, %d", placement.left, placement.top,
                  placement.width, placement.height);
    return text;
}

WindowPlacement ReadMainWindow() {
    return ParsePlacement(
        ReadString(PlacementSection, PlacementKey, DefaultMainWindow, PlacementCapacity));
}

bool ReadFullSize() {
    return ReadBool(PlacementSection, FullSizeKey, true);
}

bool FrameSized(const FrameShowState& state, const WindowPlacement& windowRect) {
    if (state.minimized) return false;
    if (state.visible) {
        (void)WriteBool(PlacementSection, FullSizeKey, state.maximized);
        // A maximised frame keeps the last normal placement for the next start.
        if (!state.maximized) StorePlacement(windowRect);
    }
    return true;
}

void FrameMoved(const FrameShowState& state, bool sizeChangePending,
                const WindowPlacement& windowRect) {
    if (!state.visible || state.minimized || !sizeChangePending) return;
    StorePlacement(windowRect);
}

} // namespace ruvo

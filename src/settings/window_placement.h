// The frame window's remembered placement: [GUI] MainWindow and FullSize, and when they are stored.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

struct WindowPlacement {
    int left = 0;
    int top = 0;
    int width = 600;
    int height = 400;

    bool operator==(const WindowPlacement&) const = default;
};

// The text of MainWindow when the key is missing.
constexpr const char* DefaultMainWindow = "0, 0, 600, 400";

// Reads "%d%c%d%c%d%c%d": four numbers, each followed by one separator character. Numbers that
// cannot be read keep the default placement's value.
WindowPlacement ParsePlacement(std::string_view text);
// "%d, %d, %d, %d" of left, top, width and height.
std::string FormatPlacement(const WindowPlacement& placement);

// [GUI] MainWindow and FullSize (default yes), as read at start-up.
WindowPlacement ReadMainWindow();
bool ReadFullSize();

// How the frame is shown when it is moved or resized.
struct FrameShowState {
    bool visible = true;
    bool minimized = false;
    bool maximized = false;
};

// Size change of the frame, with its window rectangle. Stores FullSize, and MainWindow when the
// frame is not maximised. Returns false when the frame is minimised: no placement is stored and
// the children keep their layout.
bool FrameSized(const FrameShowState& state, const WindowPlacement& windowRect);
// Move of the frame. The rectangle is stored only when a size change is already waiting to be
// handled; otherwise that size change stores it.
void FrameMoved(const FrameShowState& state, bool sizeChangePending,
                const WindowPlacement& windowRect);

} // namespace ruvo

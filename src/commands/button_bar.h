// The button bar: buttons read from buttons.ini, their layout along the top or left edge,
// greying, and what the mouse does over them. The platform draws them.
#pragma once

#include <array>
#include <cstdint>

namespace ruvo {

constexpr uint32_t ButtonStyleButton = 1;
constexpr uint32_t ButtonStyleGapBefore = 2;

struct ToolButton {
    int x = 0, y = 0; // top-left corner in the bar, pixels
    bool disabled = false;
    bool pressed = false;
    uint32_t style = 0;
    int command = -1;       // command-table row
    uintptr_t pictures = 0; // the picture and its grey copy (the platform's handle)
};

constexpr int MaxButtons = 50;
constexpr int ButtonSize = 28;  // the face, 28 x 28
constexpr int PictureSize = 20; // the picture on it
constexpr int ButtonPitch = 27; // neighbours share one pixel
constexpr int ButtonGap = 4;
constexpr int OneRowThickness = 33;
constexpr int TwoRowThickness = 61;

struct ButtonBar {
    std::array<ToolButton, MaxButtons> buttons{};
    int count = 0;
    bool twoRows = false;
    int lastHovered = -1;
};

// Reads buttons.ini ([GUI] Buttons, default "buttons.ini") into an empty bar; faults go to
// the start-up error report.
void LoadButtons();
// Frees every button's pictures and empties the bar.
void ReleaseButtons();

// Greys or enables the button of a command row, redrawing it when its state changes.
void SetButtonEnabled(int row, bool enabled);

// The bar's thickness across its edge for the length along it (0 for an empty bar): 61 with
// two rows when one row is longer than `length`; otherwise 33, and one row again only when
// `commit` is set.
int BarThickness(int length, bool commit);
// Places every button for the bar's side (ButtonsLeft) and row mode.
void LayOutButtons();
// The button under a point of the bar, or -1.
int ButtonAt(int x, int y);

// The mouse moved over the bar: a newly hovered button shows its command's description in
// the status line; no button clears it.
void ButtonBarMouseMoved(int x, int y);
// A mouse button went down: an enabled button is drawn pressed, the status line cleared, the
// command run, and the button drawn raised again.
void ButtonBarPressed(int x, int y);

} // namespace ruvo

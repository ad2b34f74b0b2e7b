// The button bar's buttons: the reader of buttons.ini, layout, greying and mouse actions.
#include "commands/button_bar.h"

#include <cctype>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "commands/command_table.h"
#include "commands/customisation_state.h"
#include "commands/definition_tokens.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/error_report.h"
#include "settings/line_reader.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* Reporter = "Button";
constexpr const char* FileRole = "Button definition";
constexpr int LineCapacity = 255; // at most 254 characters a line
constexpr int PathCapacity = 256;
constexpr int MessagePane = 4;
constexpr int BarMargin = 2; // across the bar
constexpr int BarLead = 4;   // along the bar, before the first button

ButtonBar& Bar() {
    return TheEditor().customisation.buttonBar;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The first two words of a line, as "%s %s" reads them.
std::pair<std::string, std::string> TwoWords(const std::string& line) {
    std::pair<std::string, std::string> words;
    size_t at = 0;
    for (std::string* word : {&words.first, &words.second}) {
        while (at < line.size() && std::isspace(static_cast<unsigned char>(line[at])))
            ++at;
        while (at < line.size() && !std::isspace(static_cast<unsigned char>(line[at])))
            *word += line[at++];
    }
    return words;
}

int ButtonOfCommand(int row) {
    const ButtonBar& bar = Bar();
    for (int i = 0; i < bar.count; ++i)
        if (bar.buttons[i].command == row) return i;
    return -1;
}

// Adds the command's button, or changes its existing one. The new pictures are loaded before
// the old ones are freed, so a missing bitmap leaves an existing button as it was.
void AddButton(int row, uint32_t style, const std::string& bitmap) {
    ButtonBar& bar = Bar();
    int index = ButtonOfCommand(row);
    if (index < 0 && bar.count >= MaxButtons) return;
    Host& host = TheEditor().host;
    const uintptr_t pictures = host.LoadButtonPictures(bitmap);
    if (pictures == 0) {
        ReportStartupError(ErrorMissingBitmap, bitmap.c_str(), CommandTable[row].name);
        return;
    }
    if (index < 0) {
        index = bar.count++;
        bar.buttons[index] = ToolButton{};
    } else {
        host.FreeButtonPictures(bar.buttons[index].pictures);
    }
    ToolButton& button = bar.buttons[index];
    button.style = style;
    button.command = row;
    button.pictures = pictures;
    host.RedrawButton(index);
}

// Length along the bar of one row of all buttons.
int OneRowLength() {
    const ButtonBar& bar = Bar();
    int length = BarLead;
    for (int i = 0; i < bar.count; ++i)
        length +=
            ButtonPitch + ((bar.buttons[i].style & ButtonStyleGapBefore) != 0 ? ButtonGap : 0);
    return length;
}

void Redraw(int index) {
    TheEditor().host.RedrawButton(index);
}

} // namespace

void LoadButtons() {
    ReleaseButtons();
    const std::string name = ReadPath("GUI", "Buttons", "buttons.ini", PathCapacity);
    std::unique_ptr<std::FILE, FileCloser> file(name.empty() ? nullptr
                                                             : std::fopen(name.c_str(), "r"));
    if (!file) {
        ReportStartupError(ErrorCannotOpen, name.c_str(), FileRole);
        return;
    }
    uint32_t gap = 0;
    while (std::optional<std::string> line = ReadMeaningfulLine(file.get(), LineCapacity)) {
        const auto [command, bitmap] = TwoWords(*line);
        if (EqualsIgnoringCase(command, "separator")) {
            gap = ButtonStyleGapBefore;
            continue;
        }
        int row = -1;
        if (command.empty() || CommandByName(command, Reporter, true, &row) == nullptr) continue;
        AddButton(row, ButtonStyleButton | gap, bitmap);
        // Greyed until the first enabling pass finds its condition true.
        if (CommandTable[row].flags != 0) SetButtonEnabled(row, false);
        gap = 0;
    }
}

void ReleaseButtons() {
    ButtonBar& bar = Bar();
    for (int i = 0; i < bar.count; ++i)
        TheEditor().host.FreeButtonPictures(bar.buttons[i].pictures);
    bar.count = 0;
    bar.lastHovered = -1;
}

void SetButtonEnabled(int row, bool enabled) {
    const int index = ButtonOfCommand(row);
    if (index < 0) return;
    ToolButton& button = Bar().buttons[index];
    if (button.disabled == !enabled) return;
    button.disabled = !enabled;
    Redraw(index);
}

int BarThickness(int length, bool commit) {
    ButtonBar& bar = Bar();
    if (bar.count == 0) return 0;
    if (OneRowLength() > length) {
        bar.twoRows = true;
        return TwoRowThickness;
    }
    if (commit) bar.twoRows = false;
    return OneRowThickness;
}

void LayOutButtons() {
    ButtonBar& bar = Bar();
    const bool left = TheEditor().settings.options.buttonsLeft;
    // Along the bar and across it; a left bar exchanges x and y.
    int along = BarLead;
    int across = BarMargin;
    for (int i = 0; i < bar.count; ++i) {
        const bool gap = (bar.buttons[i].style & ButtonStyleGapBefore) != 0;
        if (!bar.twoRows || i == 0) {
            along = (i == 0 ? BarLead : along + ButtonPitch) + (gap ? ButtonGap : 0);
        } else if (across == BarMargin && !gap) {
            across += ButtonPitch; // under the previous one, in the same column
        } else {
            along += ButtonPitch + (gap ? ButtonGap : 0);
            across = BarMargin;
        }
        ToolButton& button = bar.buttons[i];
        button.x = left ? across : along;
        button.y = left ? along : across;
    }
}

int ButtonAt(int x, int y) {
    const ButtonBar& bar = Bar();
    for (int i = 0; i < bar.count; ++i) {
        const ToolButton& b = bar.buttons[i];
        if (x >= b.x && x < b.x + ButtonSize && y >= b.y && y < b.y + ButtonSize) return i;
    }
    return -1;
}

void ButtonBarMouseMoved(int x, int y) {
    ButtonBar& bar = Bar();
    const int index = ButtonAt(x, y);
    if (index == bar.lastHovered) return;
    bar.lastHovered = index;
    const char* text = index >= 0 ? CommandTable[bar.buttons[index].command].description : "";
    TheEditor().host.SetStatusPane(MessagePane, text, false);
}

void ButtonBarPressed(int x, int y) {
    const int index = ButtonAt(x, y);
    if (index < 0 || Bar().buttons[index].disabled) return;
    Bar().buttons[index].pressed = true;
    Redraw(index);
    TheEditor().host.SetStatusPane(MessagePane, "", false);
    // The handler is called directly, not through the frame's command message.
    const int row = Bar().buttons[index].command;
    InvokeCommand(row);
    // The command may have reloaded the bar; the button is raised only if it is still there.
    if (index < Bar().count && Bar().buttons[index].command == row) {
        Bar().buttons[index].pressed = false;
        Redraw(index);
    }
}

} // namespace ruvo

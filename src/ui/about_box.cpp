// The about box: a modal message box owned by the frame, showing the program's own icon.
#include "ui/about_box.h"

#include <windows.h>

#include "ui/win_host.h"

namespace ruvo {

std::string AboutBoxText(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (!text.empty()) text += '\n';
        text += line;
    }
    return text;
}

void WinHost::AboutBox(const std::vector<std::string>& lines) {
    const std::string text = AboutBoxText(lines);
    MSGBOXPARAMSA box{};
    box.cbSize = sizeof box;
    box.hwndOwner = shell.frame;
    box.hInstance = shell.instance;
    box.lpszText = text.c_str();
    box.lpszCaption = "About";
    box.dwStyle = MB_OK | MB_USERICON;
    box.lpszIcon = "EditIcon";
    MessageBoxIndirectA(&box);
}

} // namespace ruvo

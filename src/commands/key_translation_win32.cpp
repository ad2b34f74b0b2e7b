// Key presses bound in the key map, and the keyboard layout for the key map's reader.
#include "commands/commands_win32.h"
#include "commands/key_map.h"
#include "ui/win_host.h"

namespace ruvo {

bool TranslateKey(const MSG& message, HWND window) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    const uint32_t id = BoundCommandId(static_cast<int>(message.wParam), GetKeyState(VK_SHIFT) < 0,
                                       GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_MENU) < 0);
    if (id == 0) return false;
    SendMessageA(window, WM_COMMAND, id, 0);
    return true;
}

int WinHost::KeyScan(char character) {
    return VkKeyScanA(character);
}

unsigned WinHost::KeyCharacter(unsigned virtualKey) {
    return MapVirtualKeyA(virtualKey, MAPVK_VK_TO_CHAR) & 0xFFFF;
}

} // namespace ruvo

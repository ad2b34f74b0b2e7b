// The Win32 half of the dialog builder: the controls of each gadget type on the shared empty
// template, their values, and the dialog procedure that reports to the builder's model.
#include "dialogs/gadget_dialog_win32.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "ui/ctl3d.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr DWORD Ctl3dAllControls = 0xFFFF;
constexpr int DropDownListRows = 8; // the list below a drop-down list is this many fields high

// Modeless dialogs while their windows exist, for the message loop.
std::vector<HWND>& ModelessDialogs() {
    static std::vector<HWND> dialogs;
    return dialogs;
}

// While the builder itself fills controls, their notifications are not the user's changes.
int fillingControls = 0;
struct FillGuard {
    FillGuard() { ++fillingControls; }
    ~FillGuard() { --fillingControls; }
    FillGuard(const FillGuard&) = delete;
    FillGuard& operator=(const FillGuard&) = delete;
};

HWND WindowOf(const GadgetDialog& dialog) {
    return static_cast<HWND>(dialog.window);
}

HWND WindowOf(const Gadget& gadget) {
    return static_cast<HWND>(gadget.window);
}

GadgetDialog* DialogOf(HWND window) {
    return reinterpret_cast<GadgetDialog*>(GetWindowLongPtrA(window, DWLP_USER));
}

HFONT DialogFont() {
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

struct ControlClass {
    const char* name;
    DWORD style;
};

ControlClass ClassOf(GadgetType type) {
    switch (type) {
    case GadgetType::PushButton:
        return {"Button", WS_TABSTOP | BS_PUSHBUTTON};
    case GadgetType::StaticText:
        return {"Static", SS_LEFT};
    case GadgetType::Edit:
        return {"Edit", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL};
    case GadgetType::RadioGroup:
        return {"Button", WS_GROUP | WS_TABSTOP | BS_AUTORADIOBUTTON};
    case GadgetType::CheckBox:
        return {"Button", WS_TABSTOP | BS_AUTOCHECKBOX};
    case GadgetType::DropDownList:
        return {"Combobox", WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST};
    case GadgetType::ListBox:
        return {"Listbox", WS_VSCROLL | WS_BORDER | WS_TABSTOP | LBS_NOTIFY | LBS_USETABSTOPS};
    case GadgetType::ScrollingEdit:
        // Several lines, so that its scroll bar has something to scroll.
        return {"Edit", WS_VSCROLL | WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL};
    case GadgetType::GroupBox:
        return {"Button", BS_GROUPBOX};
    case GadgetType::TabControl:
        return {WC_TABCONTROLA, WS_CLIPSIBLINGS};
    case GadgetType::Bitmap:
        return {"Static", SS_BITMAP};
    }
    return {"Static", SS_LEFT};
}

std::string ControlText(HWND control) {
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<size_t>(std::max(length, 0)) + 1, '\0');
    const int copied = GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(std::max(copied, 0)));
    return text;
}

// A static shows its value once it has one, its caption before.
const std::string& StaticText(const Gadget& gadget) {
    return gadget.textValue.empty() ? gadget.text : gadget.textValue;
}

// Every control of a gadget: one, or the buttons of a radio group in item order.
std::vector<HWND> ControlsOf(const Gadget& gadget) {
    std::vector<HWND> controls;
    HWND first = WindowOf(gadget);
    if (first == nullptr) return controls;
    if (gadget.type != GadgetType::RadioGroup) {
        controls.push_back(first);
        return controls;
    }
    for (HWND child = GetWindow(GetParent(first), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetDlgCtrlID(child) != gadget.controlId) continue;
        const auto index = static_cast<size_t>(GetWindowLongPtrA(child, GWLP_USERDATA));
        if (controls.size() <= index) controls.resize(index + 1);
        controls[index] = child;
    }
    std::erase(controls, nullptr);
    return controls;
}

HWND MakeControl(HWND dialog, const Gadget& gadget, DWORD style, const char* text,
                 const GadgetRect& rect) {
    const ControlClass kind = ClassOf(gadget.type);
    HWND control = CreateWindowExA(0, kind.name, text, WS_CHILD | WS_VISIBLE | style, rect.x,
                                   rect.y, rect.width, rect.height, dialog,
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(gadget.controlId)),
                                   TheWinHost().shell.instance, nullptr);
    if (control != nullptr) {
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    }
    return control;
}

// The pages' controls paint the dialog's face colour; a themed tab body of another colour
// would show each of them as a box. The tab control keeps the classic look where themes
// exist (uxtheme may be absent).
void UseClassicLook(HWND control) {
    using SetThemeFunction = HRESULT(WINAPI*)(HWND, LPCWSTR, LPCWSTR);
    static const auto setTheme = [] {
        HMODULE library = LoadLibraryA("uxtheme.dll");
        return library == nullptr ? nullptr
                                  : reinterpret_cast<SetThemeFunction>(reinterpret_cast<void*>(
                                        GetProcAddress(library, "SetWindowTheme")));
    }();
    if (setTheme != nullptr) setTheme(control, L" ", L" "); // no theme has these names
}

void RegisterTabControl() {
    static bool registered = false;
    if (registered) return;
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES};
    registered = InitCommonControlsEx(&controls) != FALSE;
}

// Every gadget starts a group of its own, so arrow keys move only among one radio group.
void CreateControl(HWND dialog, Gadget& gadget) {
    const DWORD style = ClassOf(gadget.type).style | WS_GROUP;
    const GadgetRect rect{gadget.x, gadget.y, gadget.width, gadget.height};
    switch (gadget.type) {
    case GadgetType::RadioGroup:
        for (size_t i = 0; i < gadget.items.size(); ++i) {
            const DWORD button = i == 0 ? style : style & ~(WS_GROUP | WS_TABSTOP);
            HWND control = MakeControl(dialog, gadget, button, gadget.items[i].c_str(),
                                       RadioButtonRect(gadget, static_cast<int>(i)));
            if (control == nullptr) continue;
            SetWindowLongPtrA(control, GWLP_USERDATA, static_cast<LONG_PTR>(i));
            if (gadget.window == nullptr) gadget.window = control;
        }
        break;
    case GadgetType::DropDownList: {
        GadgetRect dropped = rect;
        dropped.height = rect.height * DropDownListRows;
        gadget.window = MakeControl(dialog, gadget, style, "", dropped);
        break;
    }
    case GadgetType::TabControl:
        RegisterTabControl();
        gadget.window = MakeControl(dialog, gadget, style, "TabManager", rect);
        if (gadget.window != nullptr) UseClassicLook(WindowOf(gadget));
        break;
    case GadgetType::Bitmap:
        gadget.window = MakeControl(dialog, gadget, style, "", rect);
        if (HBITMAP picture = LoadBitmapA(TheWinHost().shell.instance, gadget.text.c_str())) {
            SendMessageA(WindowOf(gadget), STM_SETIMAGE, IMAGE_BITMAP,
                         reinterpret_cast<LPARAM>(picture));
        }
        break;
    case GadgetType::Edit:
    case GadgetType::ScrollingEdit:
        gadget.window = MakeControl(dialog, gadget, style, gadget.textValue.c_str(), rect);
        break;
    case GadgetType::StaticText:
        gadget.window = MakeControl(dialog, gadget, style, StaticText(gadget).c_str(), rect);
        break;
    default:
        gadget.window = MakeControl(dialog, gadget, style, gadget.text.c_str(), rect);
        break;
    }
}

void FillItems(HWND control, const std::vector<std::string>& items, UINT reset, UINT add,
               UINT select, int selection) {
    SendMessageA(control, reset, 0, 0);
    for (const std::string& item : items)
        SendMessageA(control, add, 0, reinterpret_cast<LPARAM>(item.c_str()));
    SendMessageA(control, select, static_cast<WPARAM>(selection), 0);
}

void FillTabs(HWND control, const Gadget& gadget) {
    TabCtrl_DeleteAllItems(control);
    for (size_t i = 0; i < gadget.items.size(); ++i) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(gadget.items[i].c_str()); // read, not written
        SendMessageA(control, TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
    }
    TabCtrl_SetCurSel(control, gadget.value);
}

// The size of the gadgets' extent, centred over the frame and kept on the screen.
void SizeAndCentre(HWND window, const GadgetDialog& dialog) {
    RECT outer{0, 0, dialog.extentWidth, dialog.extentHeight};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE)));
    const int width = outer.right - outer.left;
    const int height = outer.bottom - outer.top;
    RECT screen{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
    RECT owner = screen;
    if (HWND frame = TheWinHost().shell.frame) GetWindowRect(frame, &owner);
    const int x = owner.left + (owner.right - owner.left - width) / 2;
    const int y = owner.top + (owner.bottom - owner.top - height) / 2;
    SetWindowPos(
        window, nullptr,
        std::clamp<LONG>(x, screen.left, std::max<LONG>(screen.left, screen.right - width)),
        std::clamp<LONG>(y, screen.top, std::max<LONG>(screen.top, screen.bottom - height)), width,
        height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL OnInitDialog(HWND window, GadgetDialog& dialog) {
    SetWindowLongPtrA(window, DWLP_USER, reinterpret_cast<LONG_PTR>(&dialog));
    dialog.window = window;
    for (auto& gadget : dialog.gadgets) {
        CreateControl(window, *gadget);
        TheWinHost().UpdateGadgetControl(*gadget);
    }
    SetWindowTextA(window, dialog.title.c_str());
    SizeAndCentre(window, dialog);
    Ctl3dSubclassDialog(window, Ctl3dAllControls);
    DialogOpened(dialog);
    // The system chooses the focus only when the builder did not.
    return dialog.focusGadget == nullptr || dialog.focusGadget->window == nullptr;
}

// A user's change of a control: the value it now holds goes to the model.
void OnControl(GadgetDialog& dialog, int id, UINT code, HWND control) {
    Gadget* gadget = GadgetByControlId(dialog, id);
    if (gadget == nullptr || fillingControls > 0) return;
    LRESULT value = 0;
    switch (gadget->type) {
    case GadgetType::PushButton:
        if (code != BN_CLICKED) return;
        break;
    case GadgetType::CheckBox:
        if (code != BN_CLICKED) return;
        value = SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0;
        break;
    case GadgetType::RadioGroup:
        if (code != BN_CLICKED) return;
        value = GetWindowLongPtrA(control, GWLP_USERDATA);
        break;
    case GadgetType::Edit:
    case GadgetType::ScrollingEdit:
        if (code != EN_CHANGE) return;
        break;
    case GadgetType::ListBox:
        if (code != LBN_SELCHANGE && code != LBN_DBLCLK) return;
        value = SendMessageA(control, LB_GETCURSEL, 0, 0);
        break;
    case GadgetType::DropDownList:
        if (code != CBN_SELCHANGE) return;
        value = SendMessageA(control, CB_GETCURSEL, 0, 0);
        break;
    default:
        return;
    }
    // The owner tells a list's double click from a change of its selection.
    gadget->doubleClicked = code == LBN_DBLCLK && gadget->type == GadgetType::ListBox;
    GadgetNotified(dialog, id, static_cast<int>(value));
    gadget->doubleClicked = false;
}

void Forget(HWND window, GadgetDialog& dialog) {
    for (auto& gadget : dialog.gadgets) {
        if (gadget->type == GadgetType::Bitmap && gadget->window != nullptr) {
            DeleteObject(reinterpret_cast<HGDIOBJ>(
                SendMessageA(WindowOf(*gadget), STM_GETIMAGE, IMAGE_BITMAP, 0)));
        }
        gadget->window = nullptr;
    }
    dialog.window = nullptr;
    SetWindowLongPtrA(window, DWLP_USER, 0);
    std::erase(ModelessDialogs(), window);
}

INT_PTR CALLBACK GadgetDialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        return OnInitDialog(window, *reinterpret_cast<GadgetDialog*>(lParam));
    }
    GadgetDialog* dialog = DialogOf(window);
    if (dialog == nullptr) return FALSE;
    switch (message) {
    case WM_COMMAND: {
        const int id = LOWORD(wParam);
        if (id == IDOK) {
            DialogOkCommand(*dialog);
        } else if (id == IDCANCEL) {
            DialogCancelCommand(*dialog);
        } else if (id >= FirstGadgetControlId) {
            OnControl(*dialog, id, HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        }
        return TRUE;
    }
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == TCN_SELCHANGE && dialog->tabControl != nullptr &&
            header->hwndFrom == WindowOf(*dialog->tabControl)) {
            DialogTabChanged(*dialog, TabCtrl_GetCurSel(header->hwndFrom));
        }
        return TRUE;
    }
    case WM_DESTROY:
        Forget(window, *dialog);
        return FALSE;
    default:
        return FALSE;
    }
}

// A modal dialog opened from another one belongs to it, so the focus goes back there after.
HWND ModalOwner(HWND frame) {
    HWND active = GetActiveWindow();
    return active != nullptr && GetWindow(active, GW_OWNER) == frame ? active : frame;
}

} // namespace

bool IsModelessDialogMessage(MSG* message) {
    // A dialog may go away while it handles the message, so walk a copy of the list.
    const std::vector<HWND> dialogs = ModelessDialogs();
    for (HWND dialog : dialogs) {
        if (IsWindow(dialog) && IsDialogMessageA(dialog, message)) return true;
    }
    return false;
}

Host::DialogBaseUnits WinHost::GetDialogBaseUnits() {
    const LONG units = ::GetDialogBaseUnits();
    return {LOWORD(units), HIWORD(units)};
}

int WinHost::RunDialog(GadgetDialog& dialog, bool modal) {
    const LPARAM parameter = reinterpret_cast<LPARAM>(&dialog);
    if (modal) {
        const INT_PTR result =
            DialogBoxParamA(shell.instance, GadgetDialogTemplate, ModalOwner(shell.frame),
                            GadgetDialogProc, parameter);
        return result == -1 ? 0 : static_cast<int>(result);
    }
    HWND window = WindowOf(dialog);
    if (window == nullptr) {
        window = CreateDialogParamA(shell.instance, GadgetDialogTemplate, shell.frame,
                                    GadgetDialogProc, parameter);
        if (window == nullptr) return 0;
        ModelessDialogs().push_back(window);
    }
    ShowWindow(window, SW_SHOW);
    return 0;
}

void WinHost::EndDialog(GadgetDialog& dialog, int result) {
    HWND window = WindowOf(dialog);
    if (window == nullptr) return;
    if (dialog.modal) {
        ::EndDialog(window, result);
    } else {
        ShowWindow(window, SW_HIDE);
    }
}

void WinHost::DestroyDialogWindow(GadgetDialog& dialog) {
    HWND window = WindowOf(dialog);
    if (window != nullptr && IsWindow(window)) DestroyWindow(window);
    if (dialog.window != nullptr) Forget(window, dialog);
}

void WinHost::UpdateGadgetControl(Gadget& gadget) {
    const std::vector<HWND> controls = ControlsOf(gadget);
    if (controls.empty()) return;
    FillGuard guard;
    HWND control = controls.front();
    switch (gadget.type) {
    case GadgetType::Edit:
    case GadgetType::ScrollingEdit:
        if (ControlText(control) != gadget.textValue)
            SetWindowTextA(control, gadget.textValue.c_str());
        if (gadget.maxLength > 0) SendMessageA(control, EM_LIMITTEXT, gadget.maxLength, 0);
        break;
    case GadgetType::StaticText:
        SetWindowTextA(control, StaticText(gadget).c_str());
        break;
    case GadgetType::CheckBox:
        SetWindowTextA(control, gadget.text.c_str());
        SendMessageA(control, BM_SETCHECK, gadget.value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
        break;
    case GadgetType::RadioGroup:
        for (size_t i = 0; i < controls.size(); ++i) {
            if (i < gadget.items.size()) SetWindowTextA(controls[i], gadget.items[i].c_str());
            SendMessageA(controls[i], BM_SETCHECK,
                         static_cast<int>(i) == gadget.value ? BST_CHECKED : BST_UNCHECKED, 0);
        }
        break;
    case GadgetType::ListBox:
        FillItems(control, gadget.items, LB_RESETCONTENT, LB_ADDSTRING, LB_SETCURSEL, gadget.value);
        break;
    case GadgetType::DropDownList:
        FillItems(control, gadget.items, CB_RESETCONTENT, CB_ADDSTRING, CB_SETCURSEL, gadget.value);
        break;
    case GadgetType::TabControl:
        FillTabs(control, gadget);
        break;
    case GadgetType::PushButton:
    case GadgetType::GroupBox:
        SetWindowTextA(control, gadget.text.c_str());
        break;
    case GadgetType::Bitmap:
        break;
    }
    for (HWND each : controls)
        EnableWindow(each, !gadget.IsDisabled());
}

std::optional<std::string> WinHost::ReadGadgetText(Gadget& gadget) {
    HWND control = WindowOf(gadget);
    if (control == nullptr) return std::nullopt;
    return ControlText(control);
}

void WinHost::ShowGadgetControl(Gadget& gadget, bool shown) {
    for (HWND control : ControlsOf(gadget))
        ShowWindow(control, shown ? SW_SHOW : SW_HIDE);
}

// A radio group is entered at its chosen button; an edit's text is selected, so typing
// replaces it.
void WinHost::FocusGadgetControl(Gadget& gadget) {
    const std::vector<HWND> controls = ControlsOf(gadget);
    if (controls.empty()) return;
    HWND control = controls.front();
    if (gadget.type == GadgetType::RadioGroup && gadget.value >= 0 &&
        gadget.value < static_cast<int>(controls.size())) {
        control = controls[static_cast<size_t>(gadget.value)];
    }
    SetFocus(control);
    if (gadget.type == GadgetType::Edit || gadget.type == GadgetType::ScrollingEdit)
        SendMessageA(control, EM_SETSEL, 0, -1);
}

} // namespace ruvo

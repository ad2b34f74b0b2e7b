// WinHost: the Host interface carried out with Win32 calls.
#pragma once

#include <windows.h>

#include <vector>

#include "host/host.h"
#include "ui/shell_state.h"
#include "ui/status_window.h"

namespace ruvo {

class WinHost : public Host {
  public:
    WinHost() = default;
    WinHost(const WinHost&) = delete;
    WinHost& operator=(const WinHost&) = delete;

    ShellState shell;
    StatusLine status;
    struct HeldScrollBar {
        HWND window = nullptr;
        int bar = 0;
        int min = 0, max = 0, pos = 0;
        bool rangeHeld = false, posHeld = false;
    };
    bool holdingDrawing = false;
    std::vector<HeldScrollBar> heldScrollBars;
    std::vector<EditBuffer*> heldWindows; // to be drawn whole
    HeldScrollBar& HeldBar(HWND window, int bar);
    // True when drawing is held: the window is drawn whole when it is shown.
    bool HoldRedraw(EditBuffer& buffer);

    // The owner of message boxes and the input dialog: the frame, or the modal dialog that
    // runs over it.
    HWND PopupOwner() const;

    void ErrorBox(const char* caption, std::string_view text) override;
    int QuestionBox(const char* caption, std::string_view text, QuestionKind kind) override;
    void ErrorStream(std::string_view text) override;

    std::string ProfileGetString(std::string_view file, std::string_view section,
                                 std::string_view key, std::string_view defaultValue,
                                 int capacity) override;
    int ProfileGetInt(std::string_view file, std::string_view section, std::string_view key,
                      int defaultValue) override;
    bool ProfileWriteString(std::string_view file, std::string_view section, std::string_view key,
                            std::string_view value) override;

    std::string ProgramPath() override;
    std::string Environment(std::string_view name) override;
    std::string CurrentDirectory() override;

    void SetStatusPane(int pane, std::string_view text, bool beep) override;
    void Beep() override;

    void EnableCommand(int commandIndex, bool enabled) override;
    void PostCloseFrame() override;

    bool ClipboardHasText() override;
    std::optional<std::string> ClipboardGetText() override;
    bool ClipboardSetText(std::string_view text) override;

    bool CreateEditWindow(EditBuffer& buffer) override;
    void SetWindowTitle(EditBuffer& buffer, std::string_view title) override;
    void ActivateEditWindow(EditBuffer& buffer) override;
    void RedrawLine(EditBuffer& buffer, int line) override;
    void RedrawWindow(EditBuffer& buffer) override;
    void UpdateCaretAndStatus(EditBuffer& buffer) override;
    void ScrollPositionChanged(EditBuffer& buffer) override;
    void DrawFoundText(EditBuffer& buffer, int line, int startColumn, int endColumn) override;

    std::optional<FileDialogResult> FileDialog(const FileDialogRequest& request) override;
    long LzCopy(std::string_view source, std::string_view target) override;
    void SetBusyCursor(bool busy) override;
    void MapMemoryAhead(void* block, size_t bytes) override;
    void ShowProgress(std::string_view title, int total) override;
    void UpdateProgress(int done) override;
    void HideProgress() override;
    void SetProgressText(std::string_view text) override;
    void RecentFilesChanged(const std::vector<std::string>& labels) override;
    void ArrangeEditWindows(WindowArrangement how) override;
    void AboutBox(const std::vector<std::string>& lines) override; // about_box.cpp
    // tools/process_runner_win32.cpp
    bool RunProcess(std::string_view commandLine, std::string_view directory,
                    const std::function<void(std::string_view)>& output) override;

    // Dialogs of the builder (dialogs/gadget_dialog_win32.cpp, dialogs/input_dialog_win32.cpp).
    DialogBaseUnits GetDialogBaseUnits() override;
    int RunDialog(GadgetDialog& dialog, bool modal) override;
    void EndDialog(GadgetDialog& dialog, int result) override;
    void DestroyDialogWindow(GadgetDialog& dialog) override;
    void UpdateGadgetControl(Gadget& gadget) override;
    std::optional<std::string> ReadGadgetText(Gadget& gadget) override;
    void ShowGadgetControl(Gadget& gadget, bool shown) override;
    void FocusGadgetControl(Gadget& gadget) override;
    std::optional<std::string> InputDialog(std::string_view prompt, std::string_view initial,
                                           int maxLength) override;

    // Keys, menu bar and button bar (src/commands/*_win32.cpp).
    int KeyScan(char character) override;
    unsigned KeyCharacter(unsigned virtualKey) override;
    void ShowHelpFile(std::string_view fileName) override;
    uintptr_t LoadButtonPictures(std::string_view name) override;
    void FreeButtonPictures(uintptr_t pictures) override;
    void RedrawButton(int index) override;

    // Edit window input (win_host_input.cpp).
    void SetScrollBarRange(EditBuffer& buffer, bool vertical, int min, int max) override;
    void SetScrollBarPos(EditBuffer& buffer, bool vertical, int pos) override;
    void ScrollWindowLines(EditBuffer& buffer, int lines) override;
    void MoveCaret(EditBuffer& buffer) override;
    void RecreateCaret(EditBuffer& buffer) override;
    void NudgePointer(bool down) override;
    // While a program's output streams in, edit windows are drawn and scroll bars set a few
    // times a second instead of for every piece of output: under Wine drawing a window costs
    // far more than taking in a piece. Showing what was held ends the holding unless kept.
    void HoldDrawing();
    void ShowHeldDrawing(bool keepHolding);

    // Printing (print/print_win32.cpp).
    PrintDialogAnswer PrintDialog(const PrintDialogRequest& request) override;
    PrinterStatus StartPrintJob(const PrintJobStart& start, PrinterMetrics& metrics) override;
    bool PrintPage(const PrintedPage& page) override;
    void EndPrintJob(bool completed) override;
    void ReleasePrinterSettings() override;

    // Editor options (win_host_options.cpp).
    std::vector<std::string> FixedPitchFontNames() override;
    void RequestFrameLayout() override;
    void RecreateEditorFont() override;
    void RefreshEditWindows() override;

  private:
    int busyDepth_ = 0;
    HCURSOR cursorBeforeBusy_ = nullptr;
    HWND progressWindow_ = nullptr;
    HWND progressBar_ = nullptr;
    HWND progressLabel_ = nullptr;
    // The printer settings kept from the print dialog, and the printer of the running job with
    // its fonts by typeface bits.
    HGLOBAL printDevMode_ = nullptr;
    HGLOBAL printDevNames_ = nullptr;
    HDC printDc_ = nullptr;
    HFONT printFonts_[8] = {};
};

// The host of the running program (the Editor's host is always a WinHost in ruvo.exe).
WinHost& TheWinHost();

} // namespace ruvo

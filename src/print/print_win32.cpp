// The Win32 half of printing: the standard print dialog, the printer's device context with its
// fonts, and the drawing of laid-out pages on it.
#include <windows.h>

#include <commdlg.h>

#include <cstring>
#include <string>

#include "lang/language_table.h"
#include "print/print_layout.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr const char* SpoolerDriver = "winspool";

// The printer's name in kept DEVNAMES.
std::string DeviceName(HGLOBAL devNames) {
    if (devNames == nullptr) return {};
    const auto* names = static_cast<const DEVNAMES*>(GlobalLock(devNames));
    if (names == nullptr) return {};
    std::string device = reinterpret_cast<const char*>(names) + names->wDeviceOffset;
    GlobalUnlock(devNames);
    return device;
}

// DEVNAMES that make the print dialog show this printer first.
HGLOBAL MakeDevNames(const std::string& device) {
    const size_t driverLength = std::strlen(SpoolerDriver) + 1;
    const size_t size = sizeof(DEVNAMES) + driverLength + device.size() + 2;
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    if (handle == nullptr) return nullptr;
    auto* names = static_cast<DEVNAMES*>(GlobalLock(handle));
    if (names == nullptr) {
        GlobalFree(handle);
        return nullptr;
    }
    char* text = reinterpret_cast<char*>(names);
    names->wDriverOffset = sizeof(DEVNAMES);
    names->wDeviceOffset = static_cast<WORD>(names->wDriverOffset + driverLength);
    names->wOutputOffset = static_cast<WORD>(names->wDeviceOffset + device.size() + 1);
    std::memcpy(text + names->wDriverOffset, SpoolerDriver, driverLength);
    std::memcpy(text + names->wDeviceOffset, device.c_str(), device.size() + 1);
    GlobalUnlock(handle);
    return handle;
}

PrinterStatus DialogFailure(DWORD error) {
    if (error == 0) return PrinterStatus::Cancelled;
    if (error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES) return PrinterStatus::NoPrinter;
    return PrinterStatus::Failed;
}

} // namespace

PrintDialogAnswer WinHost::PrintDialog(const PrintDialogRequest& request) {
    const bool seeded = printDevNames_ == nullptr && !request.printerName.empty();
    if (seeded) printDevNames_ = MakeDevNames(request.printerName);
    PRINTDLGA dialog{};
    BOOL chosen = FALSE;
    DWORD error = 0;
    for (int attempt = 0; attempt < 2; ++attempt) {
        dialog = PRINTDLGA{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = shell.frame;
        dialog.hDevMode = printDevMode_;
        dialog.hDevNames = printDevNames_;
        dialog.Flags = PD_ALLPAGES | PD_COLLATE | PD_HIDEPRINTTOFILE |
                       (request.hasSelection ? 0 : PD_NOSELECTION);
        dialog.nFromPage = 1;
        dialog.nToPage = 1;
        dialog.nMinPage = 1;
        dialog.nMaxPage = 0xFFFF;
        dialog.nCopies = 1;
        chosen = PrintDlgA(&dialog);
        error = chosen ? 0 : CommDlgExtendedError();
        printDevMode_ = dialog.hDevMode;
        printDevNames_ = dialog.hDevNames;
        // A remembered printer that is gone: the dialog starts with the default one instead.
        if (chosen || !seeded || error != PDERR_PRINTERNOTFOUND) break;
        ReleasePrinterSettings();
    }

    PrintDialogAnswer answer;
    answer.status = chosen ? PrinterStatus::Ok : DialogFailure(error);
    if (!chosen) return answer;
    answer.printerName = DeviceName(printDevNames_);
    if (dialog.Flags & PD_PAGENUMS) {
        answer.range = PrintRange::Pages;
        answer.fromPage = dialog.nFromPage;
        answer.toPage = dialog.nToPage;
    } else if (dialog.Flags & PD_SELECTION) {
        answer.range = PrintRange::Selection;
    }
    answer.copies = dialog.nCopies;
    answer.collate = (dialog.Flags & PD_COLLATE) != 0;
    return answer;
}

PrinterStatus WinHost::StartPrintJob(const PrintJobStart& start, PrinterMetrics& metrics) {
    if (start.defaultPrinter || printDevNames_ == nullptr) {
        PRINTDLGA defaults{};
        defaults.lStructSize = sizeof defaults;
        defaults.Flags = PD_RETURNDEFAULT;
        if (!PrintDlgA(&defaults)) return DialogFailure(CommDlgExtendedError());
        ReleasePrinterSettings();
        printDevMode_ = defaults.hDevMode;
        printDevNames_ = defaults.hDevNames;
    }
    const auto* names = static_cast<const DEVNAMES*>(GlobalLock(printDevNames_));
    if (names == nullptr) return PrinterStatus::Failed;
    const auto* mode = printDevMode_ != nullptr
                           ? static_cast<const DEVMODEA*>(GlobalLock(printDevMode_))
                           : nullptr;
    const char* text = reinterpret_cast<const char*>(names);
    printDc_ = CreateDCA(text + names->wDriverOffset, text + names->wDeviceOffset, nullptr, mode);
    if (mode != nullptr) GlobalUnlock(printDevMode_);
    GlobalUnlock(printDevNames_);
    if (printDc_ == nullptr) return PrinterStatus::Failed;

    const int height = -MulDiv(start.fontPointSize, GetDeviceCaps(printDc_, LOGPIXELSY), 72);
    for (int bits = 0; bits < 8; ++bits) {
        printFonts_[bits] = CreateFontA(
            height, 0, 0, 0, (bits & TypefaceBold) ? FW_BOLD : FW_NORMAL,
            (bits & TypefaceItalic) ? TRUE : FALSE, (bits & TypefaceUnderline) ? TRUE : FALSE,
            FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
            FIXED_PITCH | FF_MODERN, start.fontFace.c_str());
    }
    TEXTMETRICA font{};
    HGDIOBJ previous = SelectObject(printDc_, printFonts_[0]);
    GetTextMetricsA(printDc_, &font);
    SelectObject(printDc_, previous);

    metrics.paperWidth = GetDeviceCaps(printDc_, PHYSICALWIDTH);
    metrics.paperHeight = GetDeviceCaps(printDc_, PHYSICALHEIGHT);
    metrics.printableLeft = GetDeviceCaps(printDc_, PHYSICALOFFSETX);
    metrics.printableTop = GetDeviceCaps(printDc_, PHYSICALOFFSETY);
    metrics.printableWidth = GetDeviceCaps(printDc_, HORZRES);
    metrics.printableHeight = GetDeviceCaps(printDc_, VERTRES);
    metrics.dotsPerInchX = GetDeviceCaps(printDc_, LOGPIXELSX);
    metrics.dotsPerInchY = GetDeviceCaps(printDc_, LOGPIXELSY);
    metrics.charWidth = font.tmAveCharWidth;
    metrics.lineHeight = font.tmHeight + font.tmExternalLeading;

    DOCINFOA document{};
    document.cbSize = sizeof document;
    document.lpszDocName = start.documentName.c_str();
    if (StartDocA(printDc_, &document) <= 0) {
        const bool cancelled = GetLastError() == ERROR_CANCELLED;
        EndPrintJob(false);
        return cancelled ? PrinterStatus::Cancelled : PrinterStatus::Failed;
    }
    return PrinterStatus::Ok;
}

bool WinHost::PrintPage(const PrintedPage& page) {
    if (printDc_ == nullptr || StartPage(printDc_) <= 0) return false;
    const PageGrid& grid = page.grid;
    SetBkMode(printDc_, TRANSPARENT);
    SetTextAlign(printDc_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    if (page.ruleRow >= 0) {
        HPEN pen = CreatePen(PS_SOLID, grid.cellHeight / 16 + 1, RGB(0, 0, 0));
        HGDIOBJ previous = SelectObject(printDc_, pen);
        const int y = grid.originY + page.ruleRow * grid.cellHeight + grid.cellHeight / 2;
        MoveToEx(printDc_, grid.originX, y, nullptr);
        LineTo(printDc_, grid.originX + grid.columns * grid.cellWidth, y);
        SelectObject(printDc_, previous);
        DeleteObject(pen);
    }
    // The pieces of one typeface are drawn together: a printer driver may send the whole font
    // again at every change (Wine's PostScript driver takes about 0.1 s each time).
    HGDIOBJ previousFont = SelectObject(printDc_, printFonts_[0]);
    for (int bits = 0; bits < 8; ++bits) {
        bool selected = false;
        for (const PrintedPiece& piece : page.pieces) {
            if ((piece.typeface & 7) != bits) continue;
            if (!selected) SelectObject(printDc_, printFonts_[bits]);
            selected = true;
            SetTextColor(printDc_, piece.color);
            TextOutA(printDc_, grid.originX + piece.column * grid.cellWidth,
                     grid.originY + piece.row * grid.cellHeight, piece.text.c_str(),
                     static_cast<int>(piece.text.size()));
        }
    }
    SelectObject(printDc_, previousFont);
    return EndPage(printDc_) > 0;
}

void WinHost::EndPrintJob(bool completed) {
    if (printDc_ != nullptr) {
        if (completed)
            EndDoc(printDc_);
        else
            AbortDoc(printDc_);
        DeleteDC(printDc_);
        printDc_ = nullptr;
    }
    for (HFONT& font : printFonts_) {
        if (font != nullptr) DeleteObject(font);
        font = nullptr;
    }
}

void WinHost::ReleasePrinterSettings() {
    if (printDevMode_ != nullptr) GlobalFree(printDevMode_);
    if (printDevNames_ != nullptr) GlobalFree(printDevNames_);
    printDevMode_ = nullptr;
    printDevNames_ = nullptr;
}

} // namespace ruvo

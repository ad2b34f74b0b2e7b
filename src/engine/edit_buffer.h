// One open document: its lines, caret, selection, scroll position, names, language and undo log.
#pragma once

#include <cstdint>

#include "engine/line_list.h"
#include "engine/text_pos.h"

namespace ruvo {

struct LanguageDef;
struct Transaction;

constexpr int32_t ClosedFlagWindowGone = 1; // bit 0 of closedFlags

enum WindowKind : int32_t { KindDocument = 1, KindMessage = 2 };

struct EditBuffer {
    int32_t closedFlags = 0;
    int32_t windowKind = KindDocument;
    void* hwnd = nullptr;         // the edit window, owned by the shell
    void* displayInfo = nullptr;  // the window's drawing context, owned by the shell
    int16_t marginColumns = 0;
    int16_t windowColumns = 0;
    int16_t marginWidth = 0;
    int16_t clientWidth = 0;
    int16_t visibleLines = 0;
    int16_t visibleColumns = 0;
    TextPos anchor;
    TextPos cursor;
    int32_t topLine = 0;
    int32_t leftColumn = 0;
    TextPos selStart;
    TextPos selEnd;
    char fileName[256] = {};
    char fullPath[256] = {};
    int32_t fileTime = 0;
    LineList lines;
    const LanguageDef* language = nullptr;
    Transaction* undoHead = nullptr;
    Transaction* undoTail = nullptr;
    Transaction* undoCurrent = nullptr;

    bool IsClosed() const { return (closedFlags & ClosedFlagWindowGone) != 0; }
};

} // namespace ruvo

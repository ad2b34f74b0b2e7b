// Ten numbered bookmarks shared by all edit windows, and their twenty commands.
#include "engine/bookmarks.h"

#include <cstdio>

#include "engine/command_target.h"
#include "engine/cursor_motion.h"
#include "host/host.h"

namespace ruvo {

namespace {

constexpr int MessagePane = 4;

Bookmark* BookmarkNumber(int n) {
    if (n < 0 || n >= BookmarkCount) return nullptr;
    return &TheEditor().engine.bookmarks[n];
}

void ShowMessage(const char* format, int n, bool alert) {
    char text[64];
    std::snprintf(text, sizeof text, format, n);
    TheEditor().host.SetStatusPane(MessagePane, text, alert);
}

} // namespace

int SetBookmark(int n) {
    Bookmark* mark = BookmarkNumber(n);
    EditBuffer* buffer = CommandTarget();
    if (mark == nullptr || buffer == nullptr) return 0;
    mark->line = buffer->cursor.line;
    mark->column = buffer->cursor.column;
    mark->isSet = 1;
    mark->buffer = buffer;
    ShowMessage("Dropped bookmark %d.", n, false);
    return 0;
}

int GotoBookmark(int n) {
    Bookmark* mark = BookmarkNumber(n);
    if (mark == nullptr) return 1;
    if (mark->isSet == 0) {
        ShowMessage("Bookmark %d is not set.", n, true);
        return 1;
    }
    // A closed window's buffer record stays readable just so that this test can be made.
    if (mark->buffer == nullptr || mark->buffer->IsClosed()) {
        ShowMessage("Window of bookmark %d has been deleted.", n, true);
        return 0;
    }
    EditBuffer& buffer = *mark->buffer;
    TheEditor().host.ActivateEditWindow(buffer);
    GoToPos(buffer, mark->line, mark->column);
    return 0;
}

int GotoMark0() {
    return GotoBookmark(0);
}
int GotoMark1() {
    return GotoBookmark(1);
}
int GotoMark2() {
    return GotoBookmark(2);
}
int GotoMark3() {
    return GotoBookmark(3);
}
int GotoMark4() {
    return GotoBookmark(4);
}
int GotoMark5() {
    return GotoBookmark(5);
}
int GotoMark6() {
    return GotoBookmark(6);
}
int GotoMark7() {
    return GotoBookmark(7);
}
int GotoMark8() {
    return GotoBookmark(8);
}
int GotoMark9() {
    return GotoBookmark(9);
}
int SetMark0() {
    return SetBookmark(0);
}
int SetMark1() {
    return SetBookmark(1);
}
int SetMark2() {
    return SetBookmark(2);
}
int SetMark3() {
    return SetBookmark(3);
}
int SetMark4() {
    return SetBookmark(4);
}
int SetMark5() {
    return SetBookmark(5);
}
int SetMark6() {
    return SetBookmark(6);
}
int SetMark7() {
    return SetBookmark(7);
}
int SetMark8() {
    return SetBookmark(8);
}
int SetMark9() {
    return SetBookmark(9);
}

} // namespace ruvo

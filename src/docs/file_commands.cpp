// Command handlers of the File menu: new, open, insert, save, save as, save all, exit, recent.
#include "docs/file_commands.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "docs/documents.h"
#include "docs/file_dialogs.h"
#include "docs/file_saving.h"
#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "settings/allocator.h"

namespace ruvo {

namespace {

EditBuffer* ActiveBuffer() {
    EditBuffer* buffer = TheEditor().engine.currentBuffer;
    return buffer != nullptr && !buffer->IsClosed() ? buffer : nullptr;
}

int SaveIfModified(EditBuffer& buffer) {
    if (buffer.lines.modified != 0) (void)saveBuffer(buffer.fileName, buffer);
    return 1;
}

int LoadRecent(int slot) {
    const std::string name = TheEditor().documents.recentFiles[slot];
    if (!name.empty()) (void)openFile(name, 0, 0, KindDocument);
    return 0;
}

} // namespace

int NewFile() {
    newOrOpen({}, 1);
    return 0;
}

int LoadFile() {
    newOrOpen({}, 0);
    return 0;
}

int InsertFile() {
    Host& host = TheEditor().host;
    // Without a window that can take the text there is nothing to ask for.
    EditBuffer* buffer = ActiveBuffer();
    if (buffer == nullptr || buffer->lines.readOnly) return 0;
    buildFileDialogFilter();
    std::optional<FileDialogChoice> choice = fileDialog(false, "Insert", "");
    if (!choice) return 0;
    std::FILE* file = std::fopen(choice->fileName.c_str(), "rb");
    if (file == nullptr) return 0;
    host.SetBusyCursor(true);
    const long size = static_cast<long>(fileStatus(choice->fileName).value_or(FileStatus{}).size);
    char* text = static_cast<char*>(Allocate(nullptr, 0, size + 1, 1));
    if (text == nullptr) {
        std::fclose(file);
        host.SetBusyCursor(false);
        return 0;
    }
    const size_t got = std::fread(text, 1, static_cast<size_t>(size), file);
    text[got] = '\0';
    std::fclose(file);
    // LF alone separates the lines; every CR goes, wherever it stands.
    size_t kept = 0;
    for (size_t i = 0; text[i] != '\0'; ++i)
        if (text[i] != '\r') text[kept++] = text[i];
    const std::string_view inserted(text, kept);
    const TextPos at = buffer->cursor;
    const TextPos end = EndOfInsertion(at, inserted);
    RecordEdit(*buffer, at, at, inserted, end, ScrollTarget{ScrollShow, ScrollShow}, end, end);
    Release(text);
    host.SetBusyCursor(false);
    return 0;
}

int SaveFile() {
    if (EditBuffer* buffer = ActiveBuffer()) (void)saveBuffer(buffer->fileName, *buffer);
    return 0;
}

int SaveFileAs() {
    if (EditBuffer* buffer = ActiveBuffer()) (void)saveBuffer({}, *buffer);
    return 0;
}

int SaveAll() {
    (void)forEachBuffer(SaveIfModified);
    return 0;
}

int ExitApp() {
    TheEditor().host.PostCloseFrame();
    return 0;
}

int LoadMRUFile1() {
    return LoadRecent(0);
}
int LoadMRUFile2() {
    return LoadRecent(1);
}
int LoadMRUFile3() {
    return LoadRecent(2);
}
int LoadMRUFile4() {
    return LoadRecent(3);
}
int LoadMRUFile5() {
    return LoadRecent(4);
}

} // namespace ruvo

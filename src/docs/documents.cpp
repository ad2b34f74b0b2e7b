// Edit buffers: creation through openFile, the buffer list, closing.
#include "docs/documents.h"

#include <algorithm>
#include <new>
#include <string>

#include "commands/command_table.h"
#include "docs/file_dialogs.h"
#include "docs/file_reading.h"
#include "docs/file_status.h"
#include "docs/recent_files.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "lang/language_table.h"
#include "settings/allocator.h"
#include "settings/string_routines.h"

namespace ruvo {

namespace {

constexpr int32_t BufferGrowBy = 1000;

void FreeBufferRecord(EditBuffer* buffer) {
    ClearLineList(&buffer->lines);
    if (buffer->undoHead != nullptr) ClearTransactionLog(*buffer);
    buffer->~EditBuffer();
    Release(buffer);
}

EditBuffer* NewBufferRecord() {
    void* memory = Allocate(nullptr, 0, 1, sizeof(EditBuffer));
    if (memory == nullptr) return nullptr;
    return new (memory) EditBuffer{};
}

} // namespace

DocumentState::~DocumentState() {
    for (EditBuffer* buffer : buffers)
        FreeBufferRecord(buffer);
    for (EditBuffer* buffer : closedBuffers)
        FreeBufferRecord(buffer);
}

bool isUnnamed(std::string_view name) {
    return name.substr(0, 8) == "Untitled";
}

std::string fullPathOf(std::string_view name) {
    if (name.empty()) return {};
    const bool rooted = name[0] == '\\' || name[0] == '/';
    const bool drive = name.size() >= 3 && name[1] == ':' && (name[2] == '\\' || name[2] == '/');
    if (rooted || drive) return std::string(name);
    std::string directory = TheEditor().host.CurrentDirectory();
    if (directory.size() > 255) directory.resize(255);
    return directory + "\\" + std::string(name);
}

int forEachBuffer(const std::function<int(EditBuffer&)>& visit) {
    // A visit may open or close buffers; walk the list as it was.
    const std::vector<EditBuffer*> snapshot = TheEditor().documents.buffers;
    for (EditBuffer* buffer : snapshot) {
        if (buffer->IsClosed()) continue;
        if (visit(*buffer) == 0) return 0;
    }
    return 1;
}

EditBuffer* findBufferByPath(std::string_view fullPath) {
    if (fullPath.empty()) return nullptr;
    for (EditBuffer* buffer : TheEditor().documents.buffers)
        if (fullPath == buffer->fullPath) return buffer;
    return nullptr;
}

int openFile(std::string_view name, int createNew, int readOnly, int kind) {
    Editor& editor = TheEditor();
    Host& host = editor.host;
    const std::string nameText(name);
    const std::string fullPath = fullPathOf(name);

    if (findBufferByPath(fullPath) != nullptr && !isUnnamed(name)) {
        const std::string question =
            "File '" + nameText + "' is already\nin an edit buffer, open a readonly copy ?";
        if (host.QuestionBox("Warning", question, QuestionKind::YesNo) != AnswerYes) return 0;
        readOnly = 1;
    }
    if (createNew == 0 && !name.empty() && !fileStatus(name)) {
        const std::string question =
            "File '" + nameText + "' does not exists.\nDo you want to create an empty file ?";
        if (host.QuestionBox("No such file", question, QuestionKind::YesNo) != AnswerYes) return 1;
        createNew = 1;
    }

    EditBuffer* buffer = NewBufferRecord();
    if (buffer == nullptr) return 1;
    buffer->lines.growBy = BufferGrowBy;
    buffer->lines.readOnly = readOnly;
    buffer->windowKind = kind;
    buffer->language = languageForFile(name);
    CopyBounded(buffer->fileName, name, MaxFileName);
    CopyBounded(buffer->fullPath, fullPath, MaxFileName);

    const FileRead read = createNew != 0 || name.empty()
                              ? FileRead::CannotOpen
                              : readFileIntoBuffer(*buffer, buffer->fileName);
    if (read == FileRead::OutOfMemory) {
        // The open is abandoned: an empty buffer saved under the name would lose the file.
        FreeBufferRecord(buffer);
        return 1;
    }
    if (read != FileRead::Read) {
        ClearLineList(&buffer->lines);
        if (AppendLine(&buffer->lines, "") != 0) {
            FreeBufferRecord(buffer);
            return 1;
        }
        buffer->lines.modified = 0;
    }

    if (!host.CreateEditWindow(*buffer)) {
        FreeBufferRecord(buffer);
        return 1;
    }
    (void)InitTransactionLog(*buffer); // a failure has been reported; the text stays usable
    editor.documents.buffers.push_back(buffer);
    editor.engine.currentBuffer = buffer;
    UpdateCommandStates();
    return 0;
}

void newOrOpen(std::string_view name, int createNew) {
    DocumentState& documents = TheEditor().documents;
    if (createNew != 0) {
        const std::string untitled = "Untitled" + std::to_string(documents.untitledCounter++);
        (void)openFile(untitled, 1, 0, KindDocument);
        return;
    }
    if (name.empty()) {
        buildFileDialogFilter();
        std::optional<FileDialogChoice> choice = fileDialog(false, "", "");
        if (!choice) return;
        (void)openFile(choice->fileName, 0, choice->readOnly ? 1 : 0, KindDocument);
        return;
    }
    (void)openFile(name, 0, 0, KindDocument);
}

void closeBuffer(EditBuffer& buffer) {
    Editor& editor = TheEditor();
    DocumentState& documents = editor.documents;
    if (buffer.IsClosed()) return;
    ClearLineList(&buffer.lines);
    if ((buffer.windowKind & 1) == 0)
        SetCommandsEnabled(NeedsErrorList, false); // a report window held the error list
    else
        addRecentFile(buffer.fileName);
    if (buffer.undoHead != nullptr) ClearTransactionLog(buffer);
    buffer.closedFlags |= ClosedFlagWindowGone;

    auto it = std::find(documents.buffers.begin(), documents.buffers.end(), &buffer);
    if (it != documents.buffers.end()) {
        documents.buffers.erase(it);
        documents.closedBuffers.push_back(&buffer);
    }
    if (editor.engine.currentBuffer == &buffer)
        editor.engine.currentBuffer =
            documents.buffers.empty() ? nullptr : documents.buffers.back();
    UpdateCommandStates();
}

} // namespace ruvo

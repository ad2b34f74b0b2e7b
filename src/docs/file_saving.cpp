// Writing a buffer to its file: CR LF between lines, backup, size check, fresh undo log.
#include "docs/file_saving.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "commands/command_table.h"
#include "docs/backup_files.h"
#include "docs/documents.h"
#include "docs/file_dialogs.h"
#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/string_routines.h"

namespace ruvo {

namespace {

constexpr size_t WriteBlockSize = 1 << 16;

// Collects lines in a large block and writes it in one call per block; the line ends are
// written as CR LF bytes, the same on every platform.
class BlockWriter {
  public:
    explicit BlockWriter(std::FILE* file) : file_(file), block_(new char[WriteBlockSize]) {}

    void Put(const char* text, size_t length) {
        if (used_ + length > WriteBlockSize) Flush();
        if (length > WriteBlockSize) {
            std::fwrite(text, 1, length, file_);
            return;
        }
        std::memcpy(block_.get() + used_, text, length);
        used_ += length;
    }
    void Flush() {
        if (used_ > 0) std::fwrite(block_.get(), 1, used_, file_);
        used_ = 0;
    }

  private:
    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    size_t used_ = 0;
};

// Writes every line with CR LF after all but the last; returns the bytes that should now
// be in the file.
long WriteLines(std::FILE* file, const LineList& lines, bool showProgress) {
    Host& host = TheEditor().host;
    BlockWriter writer(file);
    long count = 0;
    for (int32_t i = 0; i < lines.lineCount; ++i) {
        const char* text = lines.lineText[i];
        const size_t length = std::strlen(text);
        writer.Put(text, length);
        count += static_cast<long>(length);
        if (i + 1 < lines.lineCount) {
            writer.Put("\r\n", 2);
            count += 2;
        }
        if (showProgress && (i + 1) % ProgressLineCount == 0) host.UpdateProgress(i + 1);
    }
    writer.Flush();
    return count;
}

} // namespace

int saveBuffer(std::string_view name, EditBuffer& buffer) {
    Editor& editor = TheEditor();
    Host& host = editor.host;
    if (buffer.lines.readOnly != 0) {
        host.SetStatusPane(4, "Window is opened readonly.", true);
        return 0;
    }

    std::string target(name);
    bool saveAs = false;
    if (!target.empty() && !isUnnamed(target)) {
        if (editor.settings.options.backupFile) (void)makeBackup(target); // the save goes on
    } else {
        buildFileDialogFilter();
        const std::string initialName = buffer.fileName;
        std::optional<FileDialogChoice> choice = fileDialog(true, "Save As", initialName);
        if (!choice) return 1;
        target = choice->fileName;
        saveAs = true;
    }

    std::FILE* file = std::fopen(target.c_str(), "wb");
    if (file == nullptr) {
        host.ErrorBox(nullptr, ErrorText(ErrorCannotOpen, target.c_str(), "source"));
        return 1;
    }
    const bool showProgress = buffer.lines.lineCount > ProgressLineCount;
    if (showProgress) {
        host.ShowProgress("Saving file.", buffer.lines.lineCount);
        host.SetProgressText(target);
    }
    host.SetBusyCursor(true);
    const long count = WriteLines(file, buffer.lines, showProgress);
    std::fclose(file);
    const std::optional<FileStatus> status = fileStatus(target);
    buffer.fileTime = status ? status->modTime : 0;
    if (showProgress) host.HideProgress();

    const long long written = status ? status->size : -1;
    if (count == written) {
        buffer.lines.modified = 0;
        CopyBounded(buffer.fileName, target, MaxFileName);
        CopyBounded(buffer.fullPath, fullPathOf(target), MaxFileName);
        host.SetWindowTitle(buffer, buffer.fileName);
        ResetTransactionLog(buffer); // nothing to undo past a save
    } else {
        // The full stop after the line break is the message as users know it.
        char text[640];
        std::snprintf(text, sizeof text,
                      "Error(s) writing file '%s'\n.Expected %d bytes, actually wrote %ld bytes.",
                      target.c_str(), static_cast<int>(count), static_cast<long>(written));
        host.ErrorBox(nullptr, text);
    }

    if (saveAs) {
        const LanguageDef* language = languageForFile(target);
        if (language != buffer.language) {
            buffer.language = language;
            host.RedrawWindow(buffer);
        }
    }
    host.SetBusyCursor(false);
    host.UpdateCaretAndStatus(buffer);
    UpdateCommandStates(); // modified and the undo log have changed
    host.SetStatusPane(4, "Saved file: '" + std::string(buffer.fullPath) + "'", false);
    return 0;
}

} // namespace ruvo

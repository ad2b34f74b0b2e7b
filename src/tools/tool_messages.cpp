// User tools' output read with the message formats, and the windows of the files it names.
#include "tools/tool_messages.h"

#include "docs/documents.h"
#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/profile.h"
#include "tools/message_formats.h"

namespace ruvo {

namespace {

constexpr const char* Section = "UserDefinedTools";
constexpr int PathCapacity = 256;
constexpr int ToolPane = 3;

} // namespace

void LoadMessageFormats() {
    const std::string path =
        ReadPath(Section, MessageFormatsKey, MessageFormatsDefault, PathCapacity);
    TheEditor().tools.formats = ReadMessageFormats(path);
}

std::vector<std::string> MessageFormatChoices() {
    std::vector<std::string> names{"", std::string(AllFormatsName)};
    for (const MessageFormat& format : TheEditor().tools.formats)
        names.push_back(format.name);
    return names;
}

LineParser MakeFormatParser(std::string_view format, std::string_view workingDirectory) {
    MessageReader reader(TheEditor().tools.formats, format);
    if (!reader.Reads()) return {};
    return [reader, directory = std::string(workingDirectory)](
               std::string_view line) mutable -> std::optional<MessageLocation> {
        std::optional<MessageLocation> location = reader.Read(line);
        if (location)
            location->file = CleanPath(fullPathOf(ResolveMessagePath(directory, location->file)));
        return location;
    };
}

bool EntryIsIn(const ErrorEntry& entry, const EditBuffer& buffer) {
    return !entry.file.empty() && buffer.windowKind == KindDocument && !buffer.IsClosed() &&
           SameFilePath(entry.file, buffer.fullPath);
}

EditBuffer* EntryWindow(const ErrorEntry& entry, bool open) {
    EditBuffer* found = nullptr;
    (void)forEachBuffer([&](EditBuffer& buffer) {
        if (EntryIsIn(entry, buffer)) found = &buffer;
        return found == nullptr ? 1 : 0;
    });
    if (found != nullptr || !open) return found;
    Editor& editor = TheEditor();
    if (!fileStatus(entry.file)) {
        editor.host.SetStatusPane(ToolPane, "File '" + entry.file + "' not found.", true);
        return nullptr;
    }
    if (openFile(entry.file, 0, 0, KindDocument) != 0) return nullptr;
    EditBuffer* opened = editor.engine.currentBuffer;
    return opened != nullptr && EntryIsIn(entry, *opened) ? opened : nullptr;
}

void RedrawDocuments() {
    Host& host = TheEditor().host;
    (void)forEachBuffer([&](EditBuffer& buffer) {
        if (buffer.windowKind == KindDocument) host.RedrawWindow(buffer);
        return 1;
    });
}

} // namespace ruvo

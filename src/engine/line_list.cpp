// The line array of a buffer: growth through the checked allocator, owned line strings.
#include "engine/line_list.h"

#include <cstring>
#include <new>

#include "settings/allocator.h"

namespace ruvo {

char* DupString(const char* text, int length) {
    if (text == nullptr) return nullptr;
    // A length past the end of a shorter text copies the text only, never what follows it.
    const size_t size =
        length > 0 ? strnlen(text, static_cast<size_t>(length)) : std::strlen(text);
    char* copy = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(size) + 1, 1));
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, text, size);
    copy[size] = '\0';
    return copy;
}

LineList* CreateLineList(int32_t growBy, int32_t readOnly) {
    void* memory = Allocate(nullptr, 0, 1, sizeof(LineList));
    if (memory == nullptr) return nullptr;
    LineList* list = new (memory) LineList{};
    list->growBy = growBy;
    list->readOnly = readOnly;
    return list;
}

void ClearLineList(LineList* list) {
    if (list == nullptr) return;
    for (int32_t i = 0; i < list->lineCount; ++i) Release(list->lineText[i]);
    Release(list->lineText);
    list->lineText = nullptr;
    list->lineCount = 0;
    list->capacity = 0;
    list->modified = 0;
    list->hasSelection = 0;
}

void DestroyLineList(LineList* list) {
    if (list == nullptr) return;
    ClearLineList(list);
    list->~LineList();
    Release(list);
}

int MakeRoom(LineList* list, int32_t at, int32_t n) {
    const int32_t increment = list->growBy > n ? list->growBy : n;
    if (list->lineCount + n >= list->capacity) {
        void* grown = Allocate(list->lineText, list->capacity, increment, sizeof(char*));
        if (grown == nullptr) return 1;
        list->lineText = static_cast<char**>(grown);
        list->capacity += increment;
    }
    const int32_t moved = list->lineCount - 1 - at;
    if (moved > 0 && n > 0)
        std::memmove(&list->lineText[at + 1 + n], &list->lineText[at + 1], moved * sizeof(char*));
    return 0;
}

int AppendLine(LineList* list, std::string_view text) {
    if (MakeRoom(list, list->lineCount, 1) != 0) return 1;
    char* copy = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(text.size()) + 1, 1));
    if (copy == nullptr) return 1;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    list->lineText[list->lineCount++] = copy;
    return 0;
}

LineList* CopyLineList(const LineList* source, LineList* target) {
    const bool created = target == nullptr;
    if (created) target = CreateLineList(source->lineCount > 0 ? source->lineCount : 1, 0);
    if (target == nullptr) return nullptr;
    for (int32_t i = 0; i < source->lineCount; ++i) {
        if (AppendLine(target, source->lineText[i]) != 0) {
            // A list made here would be lost to the caller, who only sees the failure.
            if (created) DestroyLineList(target);
            return nullptr;
        }
    }
    return target;
}

bool IsBufferEmpty(const LineList* list) {
    if (list == nullptr || list->lineText == nullptr || list->lineCount == 0) return true;
    return list->lineText[0][0] == '\0' && list->lineCount < 2;
}

} // namespace ruvo

// The owned string array of keyword groups and abbreviation tables.
#include "lang/word_array.h"

#include <cstring>
#include <utility>

#include "settings/allocator.h"

namespace ruvo {

WordArray::WordArray(const WordArray& other) {
    for (const char* word : other)
        if (!Append(word)) break; // keep what fitted; the allocator has told the user
}

WordArray& WordArray::operator=(const WordArray& other) {
    if (this != &other) {
        WordArray copy(other);
        *this = std::move(copy);
    }
    return *this;
}

WordArray::WordArray(WordArray&& other) noexcept
    : count_(std::exchange(other.count_, 0)), longest_(std::exchange(other.longest_, 0)),
      words_(std::exchange(other.words_, nullptr)) {}

WordArray& WordArray::operator=(WordArray&& other) noexcept {
    if (this != &other) {
        Clear();
        count_ = std::exchange(other.count_, 0);
        longest_ = std::exchange(other.longest_, 0);
        words_ = std::exchange(other.words_, nullptr);
    }
    return *this;
}

WordArray::~WordArray() {
    Clear();
}

bool WordArray::Append(std::string_view word) {
    // The string first: if the array then cannot grow, nothing is left half-added.
    void* text = Allocate(nullptr, 0, static_cast<long>(word.size()) + 1, 1);
    if (text == nullptr) return false;
    std::memcpy(text, word.data(), word.size());
    void* grown = Allocate(words_, count_, 1, sizeof(char*));
    if (grown == nullptr) {
        Release(text);
        return false;
    }
    words_ = static_cast<char**>(grown);
    words_[count_++] = static_cast<char*>(text);
    if (static_cast<int>(word.size()) > longest_) longest_ = static_cast<int>(word.size());
    return true;
}

void WordArray::DropLast() {
    if (count_ == 0) return;
    Release(words_[--count_]);
    words_[count_] = nullptr;
    if (count_ == 0) {
        // The allocator replaces rather than grows a block that holds no elements.
        Release(words_);
        words_ = nullptr;
    }
}

void WordArray::Clear() {
    for (int i = 0; i < count_; ++i)
        Release(words_[i]);
    Release(words_);
    words_ = nullptr;
    count_ = 0;
    longest_ = 0;
}

} // namespace ruvo

// A growing array of owned strings: the words of a keyword group, abbreviation names and values.
#pragma once

#include <string_view>

namespace ruvo {

// Memory for the array and each string comes from the checked allocator; the array grows one
// entry at a time. Copies are deep, so a language table can be backed up and restored.
class WordArray {
  public:
    WordArray() = default;
    WordArray(const WordArray& other);
    WordArray& operator=(const WordArray& other);
    WordArray(WordArray&& other) noexcept;
    WordArray& operator=(WordArray&& other) noexcept;
    ~WordArray();

    // Adds a copy of word at the end; false when memory ran out (the array is unchanged).
    [[nodiscard]] bool Append(std::string_view word);
    // Frees the last word (a no-op on an empty array).
    void DropLast();
    void Clear();

    int Count() const { return count_; }
    // No word is longer than this (a bound: dropping a word does not lower it).
    int LongestLength() const { return longest_; }
    bool Empty() const { return count_ == 0; }
    const char* operator[](int index) const { return words_[index]; }
    // For reordering in place (sorting).
    char** begin() { return words_; }
    char** end() { return words_ + count_; }
    const char* const* begin() const { return words_; }
    const char* const* end() const { return words_ + count_; }

  private:
    int count_ = 0;
    int longest_ = 0;
    char** words_ = nullptr;
};

} // namespace ruvo

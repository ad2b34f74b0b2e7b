// FakeHost: records what the core asks of the platform and plays back scripted answers.
#include "fake_host.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "dialogs/gadget_dialog.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"

namespace ruvo {

bool FakeHost::LessIgnoringCase::operator()(std::string_view a, std::string_view b) const {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](char x, char y) { return lower(x) < lower(y); });
}

void FakeHost::SetProfile(std::string_view section, std::string_view key, std::string_view value) {
    auto s = profile_.find(section);
    if (s == profile_.end()) s = profile_.emplace(section, Section()).first;
    s->second.insert_or_assign(std::string(key), std::string(value));
}

std::optional<std::string> FakeHost::ProfileValue(std::string_view section,
                                                  std::string_view key) const {
    auto s = profile_.find(section);
    if (s == profile_.end()) return std::nullopt;
    auto k = s->second.find(key);
    if (k == s->second.end()) return std::nullopt;
    return k->second;
}

std::string FakeHost::ErrorBoxTexts() const {
    std::string all;
    for (const Box& box : boxes)
        all += box.text + "\n";
    return all;
}

std::string FakeHost::ProfileGetString(std::string_view, std::string_view section,
                                       std::string_view key, std::string_view defaultValue,
                                       int capacity) {
    if (capacity <= 0) return {};
    std::optional<std::string> value = ProfileValue(section, key);
    return std::string((value ? std::string_view(*value) : defaultValue).substr(0, capacity - 1));
}

int FakeHost::ProfileGetInt(std::string_view, std::string_view section, std::string_view key,
                            int defaultValue) {
    std::optional<std::string> value = ProfileValue(section, key);
    return value ? std::atoi(value->c_str()) : defaultValue;
}

bool FakeHost::ProfileWriteString(std::string_view, std::string_view section, std::string_view key,
                                  std::string_view value) {
    profileWrites.push_back("[" + std::string(section) + "] " + std::string(key) + "=" +
                            std::string(value));
    SetProfile(section, key, value);
    return true;
}

bool FakeHost::CreateEditWindow(EditBuffer& buffer) {
    if (createWindowFails) return false;
    createdWindows.push_back(&buffer);
    windowTitles[&buffer] = buffer.fileName;
    // A real window starts with some room; tests may change these.
    if (buffer.visibleLines == 0) buffer.visibleLines = 20;
    if (buffer.visibleColumns == 0) buffer.visibleColumns = 80;
    return true;
}

void FakeHost::ActivateEditWindow(EditBuffer& buffer) {
    activatedWindows.push_back(&buffer);
    TheEditor().engine.currentBuffer = &buffer;
}

long FakeHost::LzCopy(std::string_view source, std::string_view target) {
    lzCopies.emplace_back(std::string(source), std::string(target));
    if (lzCopyResult) return *lzCopyResult;
    std::ifstream in(std::string(source), std::ios::binary);
    if (!in) return LzSourceNotOpened;
    std::ofstream out(std::string(target), std::ios::binary | std::ios::trunc);
    if (!out) return LzTargetNotCreated;
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!(out << bytes)) return LzErrorWrite;
    return static_cast<long>(bytes.size());
}

// --- Dialogs ----------------------------------------------------------------------------------

void FakeHost::CreateControls(GadgetDialog& dialog) {
    dialog.window = &dialog;
    for (auto& gadget : dialog.gadgets)
        gadget->window = gadget.get();
    DialogOpened(dialog);
}

int FakeHost::RunDialog(GadgetDialog& dialog, bool modal) {
    shownDialogs.push_back(dialog.title);
    std::function<void(GadgetDialog&)> action = TakeFront(dialogActions);
    if (!modal) {
        if (dialog.window == nullptr) CreateControls(dialog);
        visible_.insert(&dialog);
        if (action) action(dialog);
        return 0;
    }
    CreateControls(dialog);
    endResults_.erase(&dialog);
    if (action) action(dialog);
    if (!endResults_.count(&dialog)) DialogCancelCommand(dialog);
    const auto ended = endResults_.extract(&dialog);
    DestroyDialogWindow(dialog);
    return ended.empty() ? 0 : ended.mapped();
}

void FakeHost::EndDialog(GadgetDialog& dialog, int result) {
    if (dialog.modal) endResults_.emplace(&dialog, result); // the first end counts
    if (!dialog.modal) visible_.erase(&dialog);
}

void FakeHost::DestroyDialogWindow(GadgetDialog& dialog) {
    dialog.window = nullptr;
    for (auto& gadget : dialog.gadgets) {
        gadget->window = nullptr;
        typedTexts_.erase(gadget.get());
    }
    visible_.erase(&dialog);
}

void FakeHost::TypeText(Gadget& gadget, std::string_view text) {
    typedTexts_[&gadget] = text.substr(0, gadget.maxLength > 0 ? gadget.maxLength : text.size());
}

std::optional<std::string> FakeHost::ReadGadgetText(Gadget& gadget) {
    auto typed = typedTexts_.extract(&gadget);
    if (typed.empty()) return std::nullopt;
    return std::move(typed.mapped());
}

std::optional<std::string> FakeHost::InputDialog(std::string_view prompt, std::string_view initial,
                                                 int maxLength) {
    inputRequests.push_back({std::string(prompt), std::string(initial), maxLength});
    std::optional<std::string> answer = TakeFront(inputAnswers);
    if (answer && maxLength >= 0 && static_cast<int>(answer->size()) > maxLength)
        answer->resize(maxLength);
    return answer;
}

namespace {

// US layout: the characters of the symbol keys, unshifted and shifted, with their codes.
struct SymbolKey {
    char plain, shifted;
    int code;
};
constexpr SymbolKey SymbolKeys[] = {{';', ':', 0xBA}, {'=', '+', 0xBB}, {',', '<', 0xBC},
                                    {'-', '_', 0xBD}, {'.', '>', 0xBE}, {'/', '?', 0xBF},
                                    {'`', '~', 0xC0}, {'[', '{', 0xDB}, {'\\', '|', 0xDC},
                                    {']', '}', 0xDD}, {'\'', '"', 0xDE}};
constexpr const char* ShiftedDigits = ")!@#$%^&*(";
constexpr int ShiftState = 0x100;

} // namespace

int FakeHost::KeyScan(char c) {
    if (c >= 'a' && c <= 'z') return c - 'a' + 'A';
    if (c >= 'A' && c <= 'Z') return ShiftState | c;
    if ((c >= '0' && c <= '9') || c == ' ' || c == '\t' || c == '\b' || c == 0x1B) return c;
    for (int digit = 0; digit < 10; ++digit)
        if (ShiftedDigits[digit] == c) return ShiftState | ('0' + digit);
    for (const SymbolKey& key : SymbolKeys) {
        if (key.plain == c) return key.code;
        if (key.shifted == c) return ShiftState | key.code;
    }
    return -1;
}

unsigned FakeHost::KeyCharacter(unsigned code) {
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == ' ') return code;
    if (code >= 0x60 && code <= 0x69) return '0' + (code - 0x60);
    for (const SymbolKey& key : SymbolKeys)
        if (static_cast<unsigned>(key.code) == code) return static_cast<unsigned char>(key.plain);
    return 0;
}

uintptr_t FakeHost::LoadButtonPictures(std::string_view name) {
    for (const std::string& known : pictureNames) {
        if (LessIgnoringCase()(known, name) || LessIgnoringCase()(name, known)) continue;
        loadedPictures.emplace_back(name);
        return loadedPictures.size(); // a distinct handle per load
    }
    return 0;
}

} // namespace ruvo

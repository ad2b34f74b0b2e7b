// The single accessor of the program-wide editor state.
#include "engine/editor.h"

#include "tools/error_list.h"

namespace ruvo {

namespace {
Editor* installedEditor = nullptr;
}

// The compiler's error list draws markers, enables commands and follows the result window's
// caret through hooks of the other subsystems.
Editor::Editor(Host& platform) : host(platform) {
    ConnectErrorList(*this);
}

// Member states are released while this editor is still installed, so their clean-up may
// use TheEditor(); whoever installed it uninstalls it afterwards.
Editor::~Editor() = default;

Editor& TheEditor() { return *installedEditor; }

void InstallEditor(Editor* editor) { installedEditor = editor; }

bool HasEditor() { return installedEditor != nullptr; }

} // namespace ruvo

// The single accessor of the program-wide editor state.
#include "engine/editor.h"

namespace ruvo {

namespace {
Editor* installedEditor = nullptr;
}

// Member states are released while this editor is still installed, so their clean-up may
// use TheEditor(); whoever installed it uninstalls it afterwards.
Editor::~Editor() = default;

Editor& TheEditor() { return *installedEditor; }

void InstallEditor(Editor* editor) { installedEditor = editor; }

bool HasEditor() { return installedEditor != nullptr; }

} // namespace ruvo

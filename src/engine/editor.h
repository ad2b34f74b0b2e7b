// The program-wide state of the editor in one object with a single accessor.
// Each subsystem keeps its own part in the state record of its folder.
#pragma once

#include "aids/aids_state.h"
#include "aids/hdl_aids_state.h"
#include "commands/command_state.h"
#include "commands/customisation_state.h"
#include "docs/document_state.h"
#include "engine/engine_state.h"
#include "lang/language_state.h"
#include "settings/settings_state.h"
#include "tools/tools_state.h"

namespace ruvo {

class Host;

struct Editor {
    explicit Editor(Host& platform);
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor();

    Host& host;
    SettingsState settings;
    EngineState engine;
    CommandState commands;
    CustomisationState customisation;
    LanguageState languages;
    DocumentState documents;
    AidsState aids;
    HdlAidsState hdlAids;
    ToolsState tools;
};

// The editor of this process. Installed by the program at start-up and by each test.
Editor& TheEditor();
void InstallEditor(Editor* editor);
bool HasEditor();

} // namespace ruvo

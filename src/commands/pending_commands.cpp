// Handlers of the about box and the Window menu, and of commands whose subsystems are not
// built yet. Each is its own function so that the handler lookup by address still tells the
// rows apart.
#include "commands/pending_commands.h"

#include "docs/documents.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/program_version.h"

namespace ruvo {

namespace {

// The Window commands act only when there is an edit window to arrange.
void Arrange(Host::WindowArrangement arrangement) {
    bool anyWindow = false;
    (void)forEachBuffer([&](EditBuffer&) {
        anyWindow = true;
        return 0;
    });
    if (anyWindow) TheEditor().host.ArrangeEditWindows(arrangement);
}

} // namespace

int About() {
    TheEditor().host.AboutBox(AboutLines());
    return 0;
}
int WindowCascade() {
    Arrange(Host::WindowArrangement::Cascade);
    return 0;
}
int WindowTileVertical() {
    Arrange(Host::WindowArrangement::TileVertical);
    return 0;
}
int WindowTileHorizontal() {
    Arrange(Host::WindowArrangement::TileHorizontal);
    return 0;
}
int WindowNext() {
    Arrange(Host::WindowArrangement::Next);
    return 0;
}
int WindowPrevious() {
    Arrange(Host::WindowArrangement::Previous);
    return 0;
}
// Edit windows close through their own system menu or the frame's close, which ask to save.
int WindowClose() {
    return 0;
}

} // namespace ruvo

// Handlers of the about box, the Window menu, and of commands whose subsystems are not built
// yet (those do nothing and return 0).
#pragma once

namespace ruvo {

int About();
int WindowCascade();
int WindowTileVertical();
int WindowTileHorizontal();
int WindowNext();
int WindowPrevious();
int WindowClose();

} // namespace ruvo

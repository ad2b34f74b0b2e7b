// The optional 3-D controls library, loaded at run time; every call is harmless without it.
#pragma once

#include <windows.h>

namespace ruvo {

void Ctl3dRegisterApp(HINSTANCE instance); // Ctl3dRegister and Ctl3dAutoSubclass
void Ctl3dColorChanged();
void Ctl3dUnregisterApp(HINSTANCE instance);
// Gives a dialog the 3-D look (the dialog builder calls this for each dialog it makes).
void Ctl3dSubclassDialog(HWND dialog, DWORD flags);

} // namespace ruvo

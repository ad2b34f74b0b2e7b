// Run-time binding of ctl3d32.dll, which has no import library and may be missing.
#include "ui/ctl3d.h"

namespace ruvo {

namespace {

using InstanceCall = BOOL(WINAPI*)(HINSTANCE);
using PlainCall = BOOL(WINAPI*)();
using DialogCall = BOOL(WINAPI*)(HWND, DWORD);

struct Ctl3dLibrary {
    bool tried = false;
    HMODULE module = nullptr;
    InstanceCall registerApp = nullptr;
    InstanceCall autoSubclass = nullptr;
    InstanceCall unregisterApp = nullptr;
    PlainCall colorChange = nullptr;
    DialogCall subclassDialog = nullptr;
};

template <typename Function> Function Find(HMODULE module, const char* name) {
    // GetProcAddress hands back a generic function pointer; its real type is known by name.
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

Ctl3dLibrary& Library() {
    static Ctl3dLibrary library;
    if (!library.tried) {
        library.tried = true;
        library.module = LoadLibraryA("ctl3d32.dll");
        if (library.module != nullptr) {
            library.registerApp = Find<InstanceCall>(library.module, "Ctl3dRegister");
            library.autoSubclass = Find<InstanceCall>(library.module, "Ctl3dAutoSubclass");
            library.unregisterApp = Find<InstanceCall>(library.module, "Ctl3dUnregister");
            library.colorChange = Find<PlainCall>(library.module, "Ctl3dColorChange");
            library.subclassDialog = Find<DialogCall>(library.module, "Ctl3dSubclassDlgEx");
        }
    }
    return library;
}

} // namespace

void Ctl3dRegisterApp(HINSTANCE instance) {
    Ctl3dLibrary& library = Library();
    if (library.registerApp != nullptr) library.registerApp(instance);
    if (library.autoSubclass != nullptr) library.autoSubclass(instance);
}

void Ctl3dColorChanged() {
    Ctl3dLibrary& library = Library();
    if (library.colorChange != nullptr) library.colorChange();
}

void Ctl3dUnregisterApp(HINSTANCE instance) {
    Ctl3dLibrary& library = Library();
    if (library.unregisterApp != nullptr) library.unregisterApp(instance);
}

void Ctl3dSubclassDialog(HWND dialog, DWORD flags) {
    Ctl3dLibrary& library = Library();
    if (library.subclassDialog != nullptr) library.subclassDialog(dialog, flags);
}

} // namespace ruvo
